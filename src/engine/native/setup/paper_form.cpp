#include "engine/native/setup/paper_form.h"

#include <cmath>
#include <utility>

#include "engine/native/printing/printer_choice.h"
#include "engine/papers.h"
#include "values/measures.h"

namespace pagivo::native {
namespace {

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
  return std::ranges::find(KnownPapers(), code, &Paper::code) - KnownPapers().begin();
}

std::string WholeMillimetres(float twips) {
  return std::to_string(std::lround(twips / kTwipsPerMillimetre));
}

// `A4 (210 × 297 mm)`.
std::string TitleOf(std::int32_t code, const Extent& size) {
  const Paper* known = FindPaper(code);
  const std::string title(known == nullptr ? kUserDefinedPaper.title : known->title);
  return title + " (" + WholeMillimetres(size.width) + " × " + WholeMillimetres(size.height) +
         " mm)";
}

}  // namespace

PaperForm::PaperForm(std::shared_ptr<WindowSystem> windows, const FormDesign& design,
                     PageSetupOwner& owner)
    : Form(std::move(windows), design), owner_(owner) {}

void PaperForm::CreateControls() {
  paper().WhenClicked([this] { Attempt([this] { paper_Click(); }); });
  for (const std::string_view turn : {"portrait", "landscape"}) {
    Get(turn).WhenClicked([this] { Attempt([this] { OnPaperChosen(); }); });
  }
  Get("ok").WhenClicked([this] { ok_Click(); });
  Get("cancel").WhenClicked([this] { Unload(); });
}

void PaperForm::OnLoad() {
  before_ = owner_.Setup();
  chosenPaper_ = before_.paper.Code();
  Get<OptionButton>(before_.paper.IsLandscape() ? "landscape" : "portrait").PutValue(true);
  ListPapers(owner_.Printers().Media());
}

void PaperForm::ListPapers(PrinterMedia media) {
  media_ = std::move(media);
  papers_ = PapersToList();
  paper().Clear();
  for (const std::int32_t code : papers_) paper().AddItem(TitleOf(code, SizeOf(code)));
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
  list(before_.paper.Code());
  list(chosenPaper_);
  for (const Paper& paper : KnownPapers()) {
    if (SupportsPaper(media_, paper.code)) list(paper.code);
  }
  std::ranges::sort(codes, {}, PlaceInList);
  return codes;
}

Extent PaperForm::SizeOf(std::int32_t code) const {
  const Paper* known = FindPaper(code);
  if (known != nullptr) {
    return {static_cast<float>(known->width), static_cast<float>(known->height)};
  }
  return {static_cast<float>(before_.paper.PaperWidth()),
          static_cast<float>(before_.paper.PaperHeight())};
}

Extent PaperForm::ChosenPage() {
  const auto [width, height] = SizeOf(chosenPaper_);
  return landscape().Value() ? Extent{height, width} : Extent{width, height};
}

void PaperForm::PutChanges(PageSetup& setup) {
  const bool isLandscape = landscape().Value();
  if (chosenPaper_ != before_.paper.Code()) setup.paper.PutCode(chosenPaper_);
  if (isLandscape != before_.paper.IsLandscape()) setup.paper.PutLandscape(isLandscape);
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
    PageSetup setup = owner_.Setup();
    PutChanges(setup);
    owner_.Apply(setup);
    confirmed_ = true;
  });
  if (confirmed_) Unload();
}

}  // namespace pagivo::native
