#include "support/recording_engine.h"

namespace pagivo::testing {

void RecordingEngine::Answer(std::string_view property, Variant value) {
  AnswerInTurn(property, {std::move(value)});
}

void RecordingEngine::AnswerFor(std::string_view property, const Variant& argument, Variant value) {
  AnswerInTurn(Describe(property, {argument}), {std::move(value)});
}

void RecordingEngine::AnswerInTurn(std::string_view property, std::vector<Variant> values) {
  answers_.insert_or_assign(std::string(property), std::move(values));
}

void RecordingEngine::DrawCircle(const Variant& x, const Variant& y, const Variant& radius,
                                 const Variant& start, const Variant& end) {
  if (start.IsMissing() && end.IsMissing()) {
    log_->Record("call DrawCircle", {x, y, radius});
  } else {
    log_->Record("call DrawCircle", {x, y, radius, start, end});
  }
}

Variant RecordingEngine::Get(std::string_view property) {
  log_->Record("get " + std::string(property));
  return NextAnswer(property);
}

Variant RecordingEngine::GetAt(std::string_view property, const Variant& argument) {
  log_->Record("get " + std::string(property), {argument});
  const std::string question = Describe(property, {argument});
  return NextAnswer(answers_.contains(question) ? std::string_view(question) : property);
}

void RecordingEngine::Put(std::string_view property, const Variant& value) {
  log_->Record("put " + std::string(property), {value});
  Answer(property, value);
}

Variant RecordingEngine::NextAnswer(std::string_view question) {
  const auto found = answers_.find(question);
  if (found == answers_.end()) return {};
  std::vector<Variant>& answers = found->second;
  Variant answer = answers.front();
  if (answers.size() > 1) answers.erase(answers.begin());
  return answer;
}

void RecordingPdfExporter::ExportPdf(const ObjectRef& engine, const std::string& fileName,
                                     std::int16_t firstPage, std::int16_t lastPage) {
  engine_ = engine;
  log_->Record("call ExportPdf", {engine, fileName, firstPage, lastPage});
}

}  // namespace pagivo::testing
