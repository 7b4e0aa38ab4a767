#include "engine/native/setup/printer_setup_form.h"

#include <array>
#include <utility>

#include "engine/native/printing/printer_choice.h"

namespace pagivo::native {
namespace {

constexpr float kPaperTop = kDialogGap + kFrameOfTwoRows + kDialogGap;
constexpr float kPrinterClosingTop = kPaperTop + kFrameOfTwoRows + kDialogGap;

constexpr std::array<ControlDesign, 5> kPrinterControls{{
    {.name = "printerFrame",
     .kind = ControlKind::Frame,
     .caption = "Printer",
     .placement = {kDialogGap, kDialogGap, kFrameWidth, kFrameOfTwoRows}},
    {.name = "printersLabel",
     .kind = ControlKind::Label,
     .caption = "&Naam:",
     .placement = {kLabelColumn, kFirstRow + kBesideComboBox, kLabelWidth, 252},
     .container = "printerFrame"},
    {.name = "printers",
     .kind = ControlKind::ComboBox,
     .placement = {kValueColumn, kFirstRow, kValueWidth, 315},
     .container = "printerFrame"},
    {.name = "locationLabel",
     .kind = ControlKind::Label,
     .caption = "Waar:",
     .placement = {kLabelColumn, kSecondRow + kBesideOption, kLabelWidth, 252},
     .container = "printerFrame"},
    {.name = "location",
     .kind = ControlKind::Label,
     .placement = {kValueColumn, kSecondRow + kBesideOption, kValueWidth, 252},
     .container = "printerFrame"},
}};

constexpr auto kPrinterSetupControls =
    JoinControls(kPrinterControls, PaperControls(kPaperTop), ClosingControls(kPrinterClosingTop));

constexpr FormDesign kPrinterSetupDesign{
    .caption = "Printer instellen",
    .client = {.width = kDialogWidth, .height = kPrinterClosingTop + kClosingHeight},
    .controls = kPrinterSetupControls};

constexpr const char* kNoSuchPaper = "Deze printer heeft dit papierformaat niet";

std::string JoinLines(std::string one, const std::string& other) {
  if (!one.empty() && !other.empty()) one += '\n';
  return one + other;
}

}  // namespace

PrinterSetupForm::PrinterSetupForm(std::shared_ptr<WindowSystem> windows, PageSetupOwner& owner)
    : PaperForm(std::move(windows), kPrinterSetupDesign, owner) {}

void PrinterSetupForm::CreateControls() {
  PaperForm::CreateControls();
  printers().WhenClicked([this] { Attempt([this] { printers_Click(); }); });
}

// A list of printers that cannot be had leaves the paper to be chosen.
void PrinterSetupForm::OnLoad() {
  PaperForm::OnLoad();
  Attempt([this] { ListPrinters(); });
}

void PrinterSetupForm::ListPrinters() {
  PrinterChoice& choice = Owner().Printers();
  const int count = choice.Count();
  printers().PutEnabled(count > 0);
  Get("location").PutCaption(count > 0 ? "" : "Er zijn geen printers geïnstalleerd");
  for (int i = 0; i < count; ++i) printers().AddItem(choice.Name(i));
  printerBefore_ = choice.Current();
  SelectPrinter();
}

void PrinterSetupForm::SelectPrinter() {
  for (std::int32_t i = 0; i < printers().Count(); ++i) {
    if (printers().Item(i) == printerBefore_) return printers().PutListIndex(i);
  }
}

void PrinterSetupForm::printers_Click() {
  PrinterChoice& choice = Owner().Printers();
  const std::string printer = printers().Text();
  Get("location").PutCaption(choice.PortOf(printer));
  ListPapers(choice.MediaOf(printer));
  ShowMessage(JoinLines(choice.ConditionOf(printer), ChosenPaperIsSupported() ? "" : kNoSuchPaper));
}

void PrinterSetupForm::PutChanges(PageSetup& setup) {
  const std::string& printer = printers().Text();
  if (!printer.empty() && printer != printerBefore_) setup.printer = printer;
  PaperForm::PutChanges(setup);
}

}  // namespace pagivo::native
