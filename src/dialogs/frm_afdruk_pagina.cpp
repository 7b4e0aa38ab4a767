#include "dialogs/frm_afdruk_pagina.h"

#include <array>
#include <memory>
#include <string>
#include <utility>

#include "dialogs/zet_lettertype.h"
#include "values/process_wide.h"

namespace pagivo {

namespace {

constexpr std::int16_t kHighestCopiesInRange = 1000;

constexpr std::array<ControlDesign, 16> kPrintRangeControls{{
    {.name = "Frame2",
     .kind = ControlKind::Frame,
     .caption = "Afdrukbereik",
     .placement = {120, 120, 3372, 1572},
     .tabIndex = 0},
    {.name = "Picture1",
     .kind = ControlKind::PictureBox,
     .placement = {120, 240, 3135, 1215},
     .container = "Frame2",
     .tabIndex = 1},
    {.name = "optAlles",
     .kind = ControlKind::OptionButton,
     .caption = "&Alles",
     .placement = {0, 120, 1812, 252},
     .container = "Picture1",
     .tabIndex = 2},
    {.name = "optHuidig",
     .kind = ControlKind::OptionButton,
     .caption = "&Huidige pagina",
     .placement = {0, 480, 2115, 252},
     .container = "Picture1",
     .tabIndex = 3},
    {.name = "optSelectie",
     .kind = ControlKind::OptionButton,
     .caption = "&Pagina's",
     .placement = {0, 840, 972, 252},
     .container = "Picture1",
     .tabIndex = 4},
    {.name = "lblVan",
     .kind = ControlKind::Label,
     .caption = "&van:",
     .placement = {1080, 870, 375, 255},
     .container = "Picture1",
     .tabIndex = 5},
    {.name = "txtVan",
     .kind = ControlKind::TextBox,
     .placement = {1440, 840, 612, 288},
     .container = "Picture1",
     .tabIndex = 6,
     .maximumLength = 3},
    {.name = "lblTm",
     .kind = ControlKind::Label,
     .caption = "&t/m:",
     .placement = {2160, 870, 375, 255},
     .container = "Picture1",
     .tabIndex = 7},
    {.name = "txtTm",
     .kind = ControlKind::TextBox,
     .placement = {2520, 840, 612, 288},
     .container = "Picture1",
     .tabIndex = 8,
     .maximumLength = 3},
    {.name = "Frame3",
     .kind = ControlKind::Frame,
     .caption = "Aantal",
     .placement = {3600, 120, 2772, 1572},
     .tabIndex = 9},
    {.name = "Label5",
     .kind = ControlKind::Label,
     .caption = "Aantal e&xemplaren:",
     .placement = {120, 620, 1572, 252},
     .container = "Frame3",
     .tabIndex = 10},
    {.name = "txtAantal",
     .kind = ControlKind::TextBox,
     .placement = {1680, 600, 612, 288},
     .container = "Frame3",
     .tabIndex = 11},
    {.name = "vsbAantal",
     .kind = ControlKind::ScrollBar,
     .placement = {2280, 600, 180, 288},
     .container = "Frame3",
     .tabIndex = 12,
     .minimum = 1,
     .maximum = kHighestCopiesInRange,
     .accessibleName = "Aantal exemplaren"},
    {.name = "cmdOK",
     .kind = ControlKind::Button,
     .caption = "OK",
     .placement = {.width = 1200, .height = 330},
     .tabIndex = 13,
     .role = ButtonRole::Default},
    {.name = "cmdAnnuleren",
     .kind = ControlKind::Button,
     .caption = "Annuleren",
     .placement = {.width = 1200, .height = 330},
     .tabIndex = 14,
     .role = ButtonRole::Cancel},
    {.name = "cmdPrinter",
     .kind = ControlKind::Button,
     .caption = "Pagi&na...",
     .placement = {.width = 1200, .height = 330},
     .tabIndex = 15},
}};

constexpr FormDesign kPrintRangeDesign{.caption = "Afdrukken",
                                       .client = {.width = 6510, .height = 2295},
                                       .controls = kPrintRangeControls};

std::shared_ptr<frmAfdrukPagina>& PrintRangeInstance() {
  return ProcessWide<std::shared_ptr<frmAfdrukPagina>>();
}

// Puts the range of the print request within the document's pages.
void ValidateRange(PrintDialogRequest& request) {
  const std::int16_t last = request.PrintLastPage;
  if (request.PrintFromPage < 1 || request.PrintFromPage > last) request.PrintFromPage = 1;
  // Long-standing behaviour that hosts know: a last page outside the document moves the first one.
  if (request.PrintToPage < 1 || request.PrintToPage > last) request.PrintFromPage = last;
  if (request.PrintFromPage > request.PrintToPage) {
    std::swap(request.PrintFromPage, request.PrintToPage);
  }
}

}  // namespace

frmAfdrukPagina::frmAfdrukPagina(const Platform& platform, PrintDialogRequest& request,
                                 EngineSource engine)
    : PrintRequestForm(platform.windows, kPrintRangeDesign, request, kHighestCopiesInRange),
      engine_(std::move(engine)) {}

void frmAfdrukPagina::CreateControls() {
  PrintRequestForm::CreateControls();
  optHuidig().WhenClicked(Attempt([this] { EnableRange(false); }));
  Get("cmdOK").WhenClicked(Attempt([this] { cmdOK_Click(); }));
  Get("cmdAnnuleren").WhenClicked(Attempt([this] { cmdAnnuleren_Click(); }));
  Get("cmdPrinter").WhenClicked(Attempt([this] { cmdPrinter_Click(); }));
}

void frmAfdrukPagina::OnLoad() {
  ZetLettertype(*this);
  ShowRange();
  if (Request().PrintCopies == 0) Request().PrintCopies = 1;
  ShowCopies(Request().PrintCopies);
  PlaceButtons();
}

void frmAfdrukPagina::ShowRange() {
  if (Request().PrintRange == kPrintShownPage) {
    optHuidig().PutValue(true);
  } else if (Request().PrintRange == kPrintPageRange) {
    optSelectie().PutValue(true);
  } else {
    optAlles().PutValue(true);
  }
  txtVan().PutText(std::to_string(Request().PrintFromPage));
  txtTm().PutText(std::to_string(Request().PrintToPage));
  // Number and word run together, as users of the dialog know it.
  if (Request().PrintLastPage > 1) {
    optAlles().PutCaption("Alle " + std::to_string(Request().PrintLastPage) + "pagina's");
  }
}

void frmAfdrukPagina::PlaceButtons() {
  Control& ok = Get("cmdOK");
  Control& annuleren = Get("cmdAnnuleren");
  Control& printer = Get("cmdPrinter");
  printer.PutTop(ClientHeight() - annuleren.Height() - 105);
  printer.PutLeft(ClientWidth() - annuleren.Width() - 105);
  annuleren.PutTop(printer.Top());
  annuleren.PutLeft(printer.Left() - annuleren.Width() - 105);
  ok.PutTop(printer.Top());
  ok.PutLeft(annuleren.Left() - ok.Width() - 75);
}

// A number beyond 16 bits is as good as a text that is none.
std::int16_t frmAfdrukPagina::PageIn(const TextBox& box) {
  std::int16_t page = 0;
  IgnoringErrors([&] { page = NumberIn(box); });
  return page;
}

void frmAfdrukPagina::cmdOK_Click() {
  Request().PrintCopies = NumberIn(txtAantal());
  if (Request().PrintCopies == 0) Request().PrintCopies = 1;
  if (optSelectie().Value()) {
    Request().PrintRange = kPrintPageRange;
  } else {
    Request().PrintRange = optHuidig().Value() ? kPrintShownPage : kPrintAllPages;
  }
  Request().PrintFromPage = PageIn(txtVan());
  Request().PrintToPage = PageIn(txtTm());
  ValidateRange(Request());
  Request().PrintCancelled = false;
  Unload();
}

void frmAfdrukPagina::cmdAnnuleren_Click() {
  Request().PrintCancelled = true;
  Unload();
}

void frmAfdrukPagina::cmdPrinter_Click() {
  // Held: a host may discard the preview window while the dialog is open.
  const auto engine = engine_();
  engine->GetPrintDialog(kPageSetupDialog);
}

frmAfdrukPagina& PrintRangeDialog(PrintDialogRequest& request, const EngineSource& engine) {
  std::shared_ptr<frmAfdrukPagina>& instance = PrintRangeInstance();
  if (!instance) instance = std::make_shared<frmAfdrukPagina>(CurrentPlatform(), request, engine);
  return *instance;
}

void ReleasePrintRangeDialog() {
  PrintRangeInstance().reset();
}

}  // namespace pagivo
