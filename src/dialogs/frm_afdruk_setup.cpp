#include "dialogs/frm_afdruk_setup.h"

#include <array>
#include <memory>
#include <utility>

#include "dialogs/zet_lettertype.h"
#include "pagivo/error.h"
#include "values/process_wide.h"

namespace pagivo {

namespace {

// Copies that the box takes, and that OK takes: more falls back to 1.
constexpr std::int16_t kHighestCopiesInSetup = 999;
constexpr std::int16_t kHighestConfirmedCopies = 99;

constexpr std::array<ControlDesign, 24> kPrinterSetupControls{{
    {.name = "Frame1",
     .kind = ControlKind::Frame,
     .caption = "Printer",
     .placement = {120, 120, 6372, 1932},
     .tabIndex = 0},
    {.name = "Label1",
     .kind = ControlKind::Label,
     .caption = "Naam:",
     .placement = {120, 360, 900, 252},
     .container = "Frame1",
     .tabIndex = 1},
    {.name = "cboPrinters",
     .kind = ControlKind::ComboBox,
     .placement = {1080, 320, 5052, 315},
     .container = "Frame1",
     .tabIndex = 2},
    {.name = "Label2",
     .kind = ControlKind::Label,
     .caption = "Status:",
     .placement = {120, 720, 900, 252},
     .container = "Frame1",
     .tabIndex = 3},
    {.name = "lblStatus",
     .kind = ControlKind::Label,
     .placement = {1080, 720, 4332, 252},
     .container = "Frame1",
     .tabIndex = 4},
    {.name = "Label6",
     .kind = ControlKind::Label,
     .caption = "Type:",
     .placement = {120, 1020, 900, 252},
     .container = "Frame1",
     .tabIndex = 5},
    {.name = "lblType",
     .kind = ControlKind::Label,
     .placement = {1080, 1020, 4332, 252},
     .container = "Frame1",
     .tabIndex = 6},
    {.name = "Label3",
     .kind = ControlKind::Label,
     .caption = "Waar:",
     .placement = {120, 1320, 900, 252},
     .container = "Frame1",
     .tabIndex = 7},
    {.name = "lblWaar",
     .kind = ControlKind::Label,
     .caption = "LPT1:",
     .placement = {1080, 1320, 4332, 252},
     .container = "Frame1",
     .tabIndex = 8},
    {.name = "Label4",
     .kind = ControlKind::Label,
     .caption = "Opmerking:",
     .placement = {120, 1620, 900, 252},
     .container = "Frame1",
     .tabIndex = 9},
    {.name = "Frame2",
     .kind = ControlKind::Frame,
     .caption = "Afdrukbereik",
     .placement = {120, 2160, 3372, 1212},
     .tabIndex = 10},
    {.name = "Picture1",
     .kind = ControlKind::PictureBox,
     .placement = {120, 240, 3135, 855},
     .container = "Frame2",
     .tabIndex = 11},
    {.name = "optAlles",
     .kind = ControlKind::OptionButton,
     .caption = "&Alles",
     .placement = {0, 120, 1812, 252},
     .container = "Picture1",
     .tabIndex = 12},
    {.name = "optSelectie",
     .kind = ControlKind::OptionButton,
     .caption = "&Pagina's",
     .placement = {0, 480, 972, 252},
     .container = "Picture1",
     .tabIndex = 13},
    {.name = "lblVan",
     .kind = ControlKind::Label,
     .caption = "&van:",
     .placement = {1080, 495, 375, 255},
     .container = "Picture1",
     .tabIndex = 14},
    {.name = "txtVan",
     .kind = ControlKind::TextBox,
     .placement = {1440, 480, 612, 288},
     .container = "Picture1",
     .tabIndex = 15},
    {.name = "lblTm",
     .kind = ControlKind::Label,
     .caption = "&t/m:",
     .placement = {2160, 495, 375, 255},
     .container = "Picture1",
     .tabIndex = 16},
    {.name = "txtTm",
     .kind = ControlKind::TextBox,
     .placement = {2520, 480, 612, 288},
     .container = "Picture1",
     .tabIndex = 17},
    {.name = "Frame3",
     .kind = ControlKind::Frame,
     .caption = "Aantal",
     .placement = {3720, 2160, 2772, 1212},
     .tabIndex = 18},
    {.name = "Label5",
     .kind = ControlKind::Label,
     .caption = "Aantal e&xemplaren:",
     .placement = {120, 520, 1572, 252},
     .container = "Frame3",
     .tabIndex = 19},
    {.name = "txtAantal",
     .kind = ControlKind::TextBox,
     .placement = {1680, 480, 612, 288},
     .container = "Frame3",
     .tabIndex = 20},
    {.name = "vsbAantal",
     .kind = ControlKind::ScrollBar,
     .placement = {2280, 480, 180, 288},
     .container = "Frame3",
     .tabIndex = 21,
     .minimum = 1,
     .maximum = kHighestCopiesInSetup,
     .accessibleName = "Aantal exemplaren"},
    {.name = "cmdOK",
     .kind = ControlKind::Button,
     .caption = "OK",
     .placement = {3840, 3600, 1200, 330},
     .tabIndex = 22,
     .role = ButtonRole::Default},
    {.name = "cmdAnnuleren",
     .kind = ControlKind::Button,
     .caption = "Annuleren",
     .placement = {5160, 3600, 1200, 330},
     .tabIndex = 23,
     .role = ButtonRole::Cancel},
}};

constexpr FormDesign kPrinterSetupDesign{.caption = "Printerinstelling",
                                         .client = {.width = 6645, .height = 3975},
                                         .controls = kPrinterSetupControls};

std::shared_ptr<frmAfdrukSetup>& PrinterSetupInstance() {
  return ProcessWide<std::shared_ptr<frmAfdrukSetup>>();
}

}  // namespace

frmAfdrukSetup::frmAfdrukSetup(const Platform& platform, PrintDialogRequest& request,
                               EngineSource engine)
    : PrintRequestForm(platform.windows, kPrinterSetupDesign, request, kHighestCopiesInSetup),
      engine_(std::move(engine)),
      defaultPrinter_(platform.defaultPrinter) {}

void frmAfdrukSetup::CreateControls() {
  PrintRequestForm::CreateControls();
  cboPrinters().WhenClicked(Attempt([this] { cboPrinters_Click(); }));
  Get("cmdOK").WhenClicked(Attempt([this] { cmdOK_Click(); }));
  Get("cmdAnnuleren").WhenClicked(Attempt([this] { cmdAnnuleren_Click(); }));
}

void frmAfdrukSetup::OnLoad() {
  ZetLettertype(*this);
  ListPrinters();
  SelectCurrentPrinter();
  ShowRange();
  ShowCopies(Request().PrintCopies);
  PlaceButtons();
}

void frmAfdrukSetup::ListPrinters() {
  const auto engine = engine_();
  cboPrinters().Clear();
  const std::int16_t count = engine->GetNDevices();
  for (std::int16_t i = 0; i < count; ++i) cboPrinters().AddItem(engine->GetDevices(i));
}

void frmAfdrukSetup::SelectCurrentPrinter() {
  const auto engine = engine_();
  // One past the last item reads as an empty text: what an engine without a printer has. Nothing
  // can be selected there.
  for (std::int32_t position = 0; position <= cboPrinters().Count(); ++position) {
    if (cboPrinters().Item(position) != engine->GetDevice()) continue;
    if (position < cboPrinters().Count()) cboPrinters().PutListIndex(position);
    return;
  }
}

void frmAfdrukSetup::ShowRange() {
  const bool whole = Request().PrintFromPage < 1;
  if (whole) {
    optSelectie().PutValue(false);
    optAlles().PutValue(true);
  } else {
    optSelectie().PutValue(true);
    optAlles().PutValue(false);
  }
  const bool hasEnd = !whole && Request().PrintToPage >= 1;
  txtVan().PutText(whole ? "1" : std::to_string(Request().PrintFromPage));
  txtTm().PutText(hasEnd ? std::to_string(Request().PrintToPage) : "");
}

void frmAfdrukSetup::PlaceButtons() {
  Control& annuleren = Get("cmdAnnuleren");
  Control& ok = Get("cmdOK");
  annuleren.PutTop(ClientHeight() - annuleren.Height() - 105);
  annuleren.PutLeft(ClientWidth() - annuleren.Width() - 105);
  ok.PutTop(annuleren.Top());
  ok.PutLeft(annuleren.Left() - ok.Width() - 75);
}

void frmAfdrukSetup::cboPrinters_Click() {
  const auto engine = engine_();
  const std::string printer = cboPrinters().Text();
  engine->PutDevice(printer);
  Get("lblType").PutCaption(printer);
  if (printer == defaultPrinter_()) {
    Get("lblStatus").PutCaption("Standaardprinter; gereed");
    Get("lblStatus").PutCaption("Gereed");
  }
  Get("lblWaar").PutCaption(engine->GetPort());
}

// Where a page beyond 16 bits fails OK, the user sees it.
std::int16_t frmAfdrukSetup::PageIn(TextBox& box) {
  try {
    return NumberIn(box);
  } catch (const Error&) {
    box.Focus();
    box.SelectAll();
    throw;
  }
}

// Everything is read before anything is handed over, so that the request is never half of two.
void frmAfdrukSetup::cmdOK_Click() {
  const std::int16_t copies = NumberIn(txtAantal());
  const bool whole = optAlles().Value();
  const std::int16_t from = whole ? std::int16_t{0} : PageIn(txtVan());
  const std::int16_t to = whole ? std::int16_t{0} : PageIn(txtTm());
  Request().PrintDevice = cboPrinters().Text();
  Request().PrintCopies = copies;
  if (Request().PrintCopies < 1 || Request().PrintCopies > kHighestConfirmedCopies) {
    Request().PrintCopies = 1;
  }
  Request().PrintFromPage = from;
  Request().PrintToPage = to;
  Request().PrintCancelled = false;
  Unload();
}

void frmAfdrukSetup::cmdAnnuleren_Click() {
  Request().PrintCancelled = true;
  Unload();
}

void frmAfdrukSetup::OnQueryUnload(bool& cancel, UnloadMode mode) {
  if (mode != UnloadMode::ControlMenu) return;
  cancel = true;
  cmdAnnuleren_Click();
}

void frmAfdrukSetup::OnUnload() {
  PrinterSetupInstance().reset();
}

frmAfdrukSetup& PrinterSetupDialog(PrintDialogRequest& request, const EngineSource& engine) {
  std::shared_ptr<frmAfdrukSetup>& instance = PrinterSetupInstance();
  if (!instance) instance = std::make_shared<frmAfdrukSetup>(CurrentPlatform(), request, engine);
  return *instance;
}

}  // namespace pagivo
