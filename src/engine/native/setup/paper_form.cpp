#include "engine/native/setup/paper_form.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "engine/native/document/paper_sizes.h"
#include "engine/native/setup/millimetres.h"
#include "engine/native/setup/paper_titles.h"
#include "values/conversions.h"
#include "values/errors.h"

namespace pagivo::native {
namespace {

Extent Turned(const Extent& size, bool isTurned) {
  return isTurned ? Extent{size.height, size.width} : size;
}

// A paper that the printer cannot be asked about is one that it does not take.
bool IsSupported(PrintEngine& engine, std::int32_t code) {
  bool isSupported = false;
  IgnoringErrors([&] { isSupported = engine.GetPaperSizes(code); });
  return isSupported;
}

// Whichever way they are fed. A printer takes a medium that differs by a millimetre for either.
bool IsSameSheet(const Extent& one, const Extent& other) {
  constexpr double kNoDifference = kTwipsPerMillimetre;
  const auto [oneShort, oneLong] = std::minmax({one.width, one.height});
  const auto [otherShort, otherLong] = std::minmax({other.width, other.height});
  return std::abs(oneShort - otherShort) <= kNoDifference &&
         std::abs(oneLong - otherLong) <= kNoDifference;
}

// A size of the host's own stands last.
std::ptrdiff_t PlaceInList(std::int32_t code) {
  return std::ranges::find(PaperNames(), code, &PaperName::code) - PaperNames().begin();
}

}  // namespace

PaperForm::PaperForm(std::shared_ptr<WindowSystem> windows, const FormDesign& design,
                     PrintEngine& engine)
    : Form(std::move(windows), design), engine_(engine) {}

void PaperForm::CreateControls() {
  paper().WhenClicked([this] { Attempt([this] { paper_Click(); }); });
  for (const std::string_view turn : {"portrait", "landscape"}) {
    Get(turn).WhenClicked([this] { Attempt([this] { OnPaperChosen(); }); });
  }
  Get("ok").WhenClicked([this] { ok_Click(); });
  Get("cancel").WhenClicked([this] { Unload(); });
}

void PaperForm::OnLoad() {
  enginePaper_ = engine_.GetPaperSize();
  engineIsLandscape_ = engine_.GetOrientation() == 1;
  enginePage_ = {ToSingle(engine_.GetPageWidth()), ToSingle(engine_.GetPageHeight())};
  chosenPaper_ = enginePaper_;
  Get<OptionButton>(engineIsLandscape_ ? "landscape" : "portrait").PutValue(true);
  ListPapers();
}

void PaperForm::ListPapers() {
  papers_ = PapersToList();
  paper().Clear();
  for (const std::int32_t code : papers_) paper().AddItem(PaperTitle(code, SizeOf(code)));
  const auto chosen = std::ranges::find(papers_, chosenPaper_) - papers_.begin();
  paper().PutListIndex(static_cast<std::int32_t>(chosen));
}

// The paper in force and the chosen one are listed in any case; a size of the host's own only when
// it is the one in force. Several papers of one size are one sheet, listed by the first of these
// names.
std::vector<std::int32_t> PaperForm::PapersToList() const {
  std::vector<std::int32_t> codes;
  const auto list = [&](std::int32_t code) {
    const bool isListed = std::ranges::any_of(
        codes, [&](std::int32_t other) { return IsSameSheet(SizeOf(code), SizeOf(other)); });
    if (!isListed) codes.push_back(code);
  };
  list(enginePaper_);
  list(chosenPaper_);
  for (const auto& [code, name] : PaperNames()) {
    if (IsSupported(engine_, code)) list(code);
  }
  std::ranges::sort(codes, {}, PlaceInList);
  return codes;
}

bool PaperForm::ChosenPaperIsSupported() const {
  return IsSupported(engine_, chosenPaper_);
}

Extent PaperForm::SizeOf(std::int32_t code) const {
  const PaperSize* known = FindPaperSize(code);
  if (known == nullptr) return Turned(enginePage_, engineIsLandscape_);
  return {static_cast<float>(known->width), static_cast<float>(known->height)};
}

Extent PaperForm::ChosenPage() {
  return Turned(SizeOf(chosenPaper_), landscape().Value());
}

void PaperForm::AddChanges(EngineChanges& changes) {
  AddPaperChange(changes);
  AddOrientationChange(changes);
}

// A size of the host's own is taken back by its measures, for its code keeps the size in force.
void PaperForm::AddPaperChange(EngineChanges& changes) {
  if (chosenPaper_ == enginePaper_) return;
  changes.Add([this] { engine_.PutPaperSize(chosenPaper_); },
              [this] {
                if (FindPaperSize(enginePaper_) != nullptr) {
                  return engine_.PutPaperSize(enginePaper_);
                }
                engine_.PutPageWidth(enginePage_.width);
                engine_.PutPageHeight(enginePage_.height);
              });
}

void PaperForm::AddOrientationChange(EngineChanges& changes) {
  const bool isLandscape = landscape().Value();
  if (isLandscape == engineIsLandscape_) return;
  changes.Add([this, isLandscape] { engine_.PutOrientation(isLandscape ? 1 : 0); },
              [this] { engine_.PutOrientation(engineIsLandscape_ ? 1 : 0); });
}

void PaperForm::ShowMessage(std::string message) {
  Get("message").PutCaption(message.empty() ? remark_ : std::move(message));
}

void PaperForm::paper_Click() {
  chosenPaper_ = papers_.at(static_cast<std::size_t>(paper().ListIndex()));
  OnPaperChosen();
}

void PaperForm::ok_Click() {
  Attempt([this] {
    if (!EntriesAreValid()) return;
    EngineChanges changes;
    AddChanges(changes);
    changes.Make();
    confirmed_ = true;
  });
  if (confirmed_) Unload();
}

}  // namespace pagivo::native
