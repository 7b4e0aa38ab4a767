#include "preview/frm_ga_naar.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

#include "dialogs/zet_lettertype.h"
#include "values/characters.h"
#include "values/conversions.h"
#include "values/errors.h"
#include "values/number_text.h"
#include "values/process_wide.h"

namespace pagivo {

namespace {

// The pages that can be typed. A negative one is no page, whatever it is.
constexpr std::int16_t kLowestTypedPage = std::numeric_limits<std::int16_t>::min();
constexpr std::int16_t kHighestTypedPage = 999;

constexpr std::array<ControlDesign, 5> kGoToControls{{
    {.name = "Frame1",
     .kind = ControlKind::Frame,
     .placement = {120, 120, 3972, 1092},
     .tabIndex = 0},
    {.name = "Label1",
     .kind = ControlKind::Label,
     .caption = "&Pagina:",
     .placement = {120, 240, 1812, 252},
     .container = "Frame1",
     .tabIndex = 1},
    {.name = "cboGaNaar",
     .kind = ControlKind::ComboBox,
     .placement = {120, 600, 3732, 288},
     .container = "Frame1",
     .tabIndex = 2,
     .editable = true},
    {.name = "cmdOK",
     .kind = ControlKind::Button,
     .caption = "OK",
     .placement = {.width = 1200, .height = 330},
     .tabIndex = 3,
     .role = ButtonRole::Default},
    {.name = "cmdAnnuleren",
     .kind = ControlKind::Button,
     .caption = "Annuleren",
     .placement = {.width = 1200, .height = 330},
     .tabIndex = 4,
     .role = ButtonRole::Cancel},
}};

constexpr FormDesign kGoToDesign{
    .caption = "Ga naar", .client = {.width = 5610, .height = 1365}, .controls = kGoToControls};

std::shared_ptr<frmGaNaar>& Instance() {
  return ProcessWide<std::shared_ptr<frmGaNaar>>();
}

std::int16_t TypedPage(std::string_view text) {
  double page = 0;
  // Fails beyond all numbers, where no page is.
  IgnoringErrors([&] { page = LeadingNumber(text); });
  return ToInteger(std::clamp<double>(page, kLowestTypedPage, kHighestTypedPage));
}

// The page of the first contents entry with this title (trimmed), else `page`.
std::int16_t PageOfTitle(const ContentsTable& contents, std::string_view title, std::int16_t page) {
  for (std::int16_t i = 1; i <= contents.ContentsCount; ++i) {
    if (Trim(contents.ContentsTitle(i)) == title) return contents.ContentsPage(i);
  }
  return page;
}

}  // namespace

frmGaNaar::frmGaNaar(const Platform& platform, const ContentsTable& contents, std::int16_t& result)
    : Form(platform.windows, kGoToDesign), contents_(contents), result_(result) {}

void frmGaNaar::CreateControls() {
  Get("cmdOK").WhenClicked([this] { cmdOK_Click(); });
  Get("cmdAnnuleren").WhenClicked([this] { cmdAnnuleren_Click(); });
}

void frmGaNaar::OnLoad() {
  ZetLettertype(*this);
  result_ = 0;
  const std::int16_t entries = contents_.ContentsCount;
  for (std::int16_t i = 1; i <= entries; ++i) cboGaNaar().AddItem(contents_.ContentsTitle(i));
  PlaceButtons();
}

void frmGaNaar::PlaceButtons() {
  Control& ok = Get("cmdOK");
  Control& annuleren = Get("cmdAnnuleren");
  ok.PutLeft(ClientWidth() - ok.Width() - 105);
  annuleren.PutLeft(ok.Left());
  ok.PutTop(105);
  annuleren.PutTop(ok.Top() + ok.Height() + 75);
}

void frmGaNaar::cmdOK_Click() {
  const std::string text(Trim(cboGaNaar().Text()));
  result_ = TypedPage(text);
  if (!text.empty()) result_ = PageOfTitle(contents_, text, result_);
  Unload();
}

void frmGaNaar::cmdAnnuleren_Click() {
  result_ = 0;
  Unload();
}

void frmGaNaar::OnUnload() {
  Instance().reset();
}

void frmGaNaar::OnShowingFailed() {
  Unload();
}

frmGaNaar& GoToDialog(const ContentsTable& contents, std::int16_t& result) {
  std::shared_ptr<frmGaNaar>& instance = Instance();
  if (!instance) {
    instance = std::make_shared<frmGaNaar>(CurrentPlatform(), contents, result);
  }
  return *instance;
}

}  // namespace pagivo
