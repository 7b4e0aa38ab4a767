#include "support/operation_log.h"

#include <array>
#include <charconv>

#include "pagivo/error.h"

namespace pagivo::testing {
namespace {

template <typename Number>
std::string Digits(Number value) {
  std::array<char, 64> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  return {buffer.data(), result.ptr};
}

std::string ObjectName(const ObjectRef& object) {
  if (object == nullptr) return "Nothing";
  const auto* named = dynamic_cast<const NamedObject*>(object.get());
  return named == nullptr ? "unnamed" : named->Name();
}

std::string ValueOf(const Variant& value) {
  if (const auto* boolean = value.GetIf<bool>()) return *boolean ? "True" : "False";
  if (const auto* integer = value.GetIf<std::int16_t>()) return Digits(*integer);
  if (const auto* number = value.GetIf<std::int32_t>()) return Digits(*number);
  if (const auto* single = value.GetIf<float>()) return Digits(*single);
  if (const auto* number = value.GetIf<double>()) return Digits(*number);
  if (const auto* text = value.GetIf<std::string>()) return '"' + *text + '"';
  if (const auto* object = value.GetIf<ObjectRef>()) return ObjectName(*object);
  return {};
}

bool BeginsWithWords(std::string_view line, std::string_view words) {
  if (!line.starts_with(words)) return false;
  return line.size() == words.size() || line[words.size()] == ' ' || line[words.size()] == ',';
}

}  // namespace

std::string Describe(const Variant& value) {
  const std::string text = ValueOf(value);
  const std::string kind(NameOf(value.GetKind()));
  return text.empty() ? kind : kind + ' ' + text;
}

std::string Describe(std::string_view operation, std::initializer_list<Variant> values) {
  std::string line(operation);
  std::string_view separator = " ";
  for (const Variant& value : values) {
    line.append(separator).append(Describe(value));
    separator = ", ";
  }
  return line;
}

void OperationLog::Record(std::string_view operation, std::initializer_list<Variant> values) {
  const std::string line = Describe(operation, values);
  const bool fails = ShallFail(line);
  lines_.push_back(fails ? line + " (failed)" : line);
  for (const Interruption& interruption : interruptions_) {
    if (BeginsWithWords(line, interruption.line)) interruption.action();
  }
  if (fails) throw Error(ErrorNumber::InvalidPropertyValue, "Mislukt: " + line);
}

void OperationLog::FailOn(std::string line, int occurrence) {
  failures_.push_back({.line = std::move(line), .occurrence = occurrence});
}

void OperationLog::Meanwhile(std::string line, std::function<void()> action) {
  interruptions_.push_back({.line = std::move(line), .action = std::move(action)});
}

std::vector<std::string> OperationLog::LinesBeginning(std::string_view beginning) const {
  std::vector<std::string> found;
  for (const std::string& line : lines_) {
    if (line.starts_with(beginning)) found.push_back(line);
  }
  return found;
}

bool OperationLog::ShallFail(std::string_view line) {
  bool fails = false;
  for (Failure& failure : failures_) {
    if (!BeginsWithWords(line, failure.line)) continue;
    ++failure.seen;
    fails = fails || failure.occurrence == 0 || failure.occurrence == failure.seen;
  }
  return fails;
}

}  // namespace pagivo::testing
