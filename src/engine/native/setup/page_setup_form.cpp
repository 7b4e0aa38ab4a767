#include "engine/native/setup/page_setup_form.h"

#include <optional>
#include <string>
#include <utility>

#include "values/measures.h"
#include "values/number_text.h"

namespace pagivo::native {
namespace {

constexpr float kMarginsTop = kDialogGap + kFrameOfTwoRows + kDialogGap;
constexpr float kMarginsHeight = 2412;
constexpr float kPageClosingTop = kMarginsTop + kMarginsHeight + kDialogGap;

// Rows count from 0.
constexpr float RowTop(int row) {
  return kFirstRow + 510 * static_cast<float>(row);
}

constexpr ControlDesign MarginLabel(std::string_view name, std::string_view caption, int row) {
  return {.name = name,
          .kind = ControlKind::Label,
          .caption = caption,
          .placement = {kLabelColumn, RowTop(row) + kBesideTextBox, kLabelWidth, 252},
          .container = "marginsFrame"};
}

constexpr ControlDesign MarginBox(std::string_view name, int row) {
  return {.name = name,
          .kind = ControlKind::TextBox,
          .placement = {kValueColumn, RowTop(row), 852, 288},
          .container = "marginsFrame",
          .maximumLength = 8};
}

constexpr ControlDesign MarginUnit(std::string_view name, int row) {
  return {.name = name,
          .kind = ControlKind::Label,
          .caption = "mm",
          .placement = {2160, RowTop(row) + kBesideTextBox, 480, 252},
          .container = "marginsFrame"};
}

constexpr std::array<ControlDesign, 15> kMarginControls{{
    {.name = "marginsFrame",
     .kind = ControlKind::Frame,
     .caption = "Marges",
     .placement = {kDialogGap, kMarginsTop, 2892, kMarginsHeight}},
    MarginLabel("marginLeftLabel", "L&inks:", 0),
    MarginBox("marginLeft", 0),
    MarginUnit("marginLeftUnit", 0),
    MarginLabel("marginRightLabel", "&Rechts:", 1),
    MarginBox("marginRight", 1),
    MarginUnit("marginRightUnit", 1),
    MarginLabel("marginTopLabel", "&Boven:", 2),
    MarginBox("marginTop", 2),
    MarginUnit("marginTopUnit", 2),
    MarginLabel("marginBottomLabel", "&Onder:", 3),
    MarginBox("marginBottom", 3),
    MarginUnit("marginBottomUnit", 3),
    {.name = "pictureFrame",
     .kind = ControlKind::Frame,
     .caption = "Voorbeeld",
     .placement = {3132, kMarginsTop, 3360, kMarginsHeight}},
    {.name = "picture",
     .kind = ControlKind::Surface,
     .placement = {120, 375, 3120, 1917},
     .container = "pictureFrame",
     .accessibleName = "Voorbeeld van de pagina"},
}};

constexpr auto kPageSetupControls =
    JoinControls(PaperControls(kDialogGap), kMarginControls, ClosingControls(kPageClosingTop));

constexpr FormDesign kPageSetupDesign{
    .caption = "Pagina instellen",
    .client = {.width = kDialogWidth, .height = kPageClosingTop + kClosingHeight},
    .controls = kPageSetupControls};

// A margin in the dialog, in messages and in the page setup.
struct MarginDesign {
  std::string_view box;
  std::string_view name;
  double Margins::*margin;
};

// In the order of the sides.
constexpr std::array<MarginDesign, 4> kMargins{{
    {"marginLeft", "linkermarge", &Margins::left},
    {"marginRight", "rechtermarge", &Margins::right},
    {"marginTop", "bovenmarge", &Margins::top},
    {"marginBottom", "ondermarge", &Margins::bottom},
}};

// An entry that is a margin, in millimetres.
std::optional<double> MarginIn(const TextBox& box) {
  const auto margin = ParseMillimetres(box.Text());
  return margin && *margin >= 0 ? margin : std::nullopt;
}

}  // namespace

PageSetupForm::PageSetupForm(std::shared_ptr<WindowSystem> windows, PageSetupOwner& owner)
    : PaperForm(std::move(windows), kPageSetupDesign, owner) {}

void PageSetupForm::CreateControls() {
  PaperForm::CreateControls();
  Get<Surface>("picture").PutContent(picture_);
  for (std::size_t side = 0; side < kSides; ++side) {
    TextBox& box = BoxOf(side);
    box.WhenFocused([&box] { box.SelectAll(); });
    box.WhenChanged([this, side] { Attempt([this, side] { margin_Change(side); }); });
  }
}

void PageSetupForm::OnLoad() {
  if (Owner().HasDocument()) {
    PutRemark("De instellingen gelden voor wat hierna wordt opgemaakt.");
  }
  PaperForm::OnLoad();
  for (std::size_t side = 0; side < kSides; ++side) {
    const double twips = Before().margins.*kMargins[side].margin;
    BoxOf(side).PutText(FormatMillimetres(twips / kTwipsPerMillimetre));
    margins_[side].shown = margins_[side].entered;
  }
}

bool PageSetupForm::EntriesAreValid() {
  for (std::size_t side = 0; side < kSides; ++side) {
    if (!EntryIsValid(side)) return false;
  }
  const Extent page = ChosenPage();
  return LeavesRoom(LeftSide, RightSide, page.width,
                    "De linker- en rechtermarge laten geen ruimte over op het papier") &&
         LeavesRoom(TopSide, BottomSide, page.height,
                    "De boven- en ondermarge laten geen ruimte over op het papier");
}

bool PageSetupForm::EntryIsValid(std::size_t side) {
  const std::string name(kMargins[side].name);
  const auto entry = ParseMillimetres(BoxOf(side).Text());
  if (!entry) {
    Refuse(side, "De " + name + " is geen getal; typ bijvoorbeeld 12,5");
  } else if (*entry < 0) {
    Refuse(side, "De " + name + " mag niet negatief zijn");
  }
  return entry && *entry >= 0;
}

// Of two margins that are too wide together the wider one is the wrong one.
bool PageSetupForm::LeavesRoom(Side first, Side second, double extent, std::string_view message) {
  const double one = margins_[first].entered;
  const double other = margins_[second].entered;
  if ((one + other) * kTwipsPerMillimetre < extent) return true;
  Refuse(one >= other ? first : second, std::string(message));
  return false;
}

void PageSetupForm::Refuse(std::size_t side, std::string message) {
  BoxOf(side).Focus();
  BoxOf(side).SelectAll();
  ShowMessage(std::move(message));
}

void PageSetupForm::PutChanges(PageSetup& setup) {
  PaperForm::PutChanges(setup);
  for (std::size_t side = 0; side < kSides; ++side) {
    const auto& [shown, entered] = margins_[side];
    if (entered != shown) setup.margins.*kMargins[side].margin = entered * kTwipsPerMillimetre;
  }
}

TextBox& PageSetupForm::BoxOf(std::size_t side) {
  return Get<TextBox>(kMargins[side].box);
}

void PageSetupForm::margin_Change(std::size_t side) {
  const auto margin = MarginIn(BoxOf(side));
  if (!margin) return;
  margins_[side].entered = *margin;
  ShowPicture();
}

void PageSetupForm::ShowPicture() {
  const auto twips = [this](Side side) { return margins_[side].entered * kTwipsPerMillimetre; };
  const Extent page = ChosenPage();
  picture_->PutShape({.width = page.width,
                      .height = page.height,
                      .left = twips(LeftSide),
                      .top = twips(TopSide),
                      .right = twips(RightSide),
                      .bottom = twips(BottomSide)});
}

}  // namespace pagivo::native
