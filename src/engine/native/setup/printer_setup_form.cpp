#include "engine/native/setup/printer_setup_form.h"

#include <array>
#include <utility>

#include "engine/native/setup/dialog_controls.h"
#include "engine/print_series.h"
#include "values/errors.h"

namespace pagivo::native {
namespace {

constexpr float kPaperTop = kDialogGap + kFrameOfTwoRows + kDialogGap;
constexpr float kClosingTop = kPaperTop + kFrameOfTwoRows + kDialogGap;

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

constexpr auto kControls =
    JoinControls(kPrinterControls, PaperControls(kPaperTop), ClosingControls(kClosingTop));

constexpr FormDesign kDesign{
    .caption = "Printer instellen",
    .client = {.width = kDialogWidth, .height = kClosingTop + kClosingHeight},
    .controls = kControls};

// Makes a printer the engine's for as long as this lives, to ask what it can do.
class BorrowedPrinter {
 public:
  BorrowedPrinter(PrintEngine& engine, const std::string& printer)
      : engine_(engine), own_(engine.GetDevice()), isBorrowed_(printer != own_) {
    if (isBorrowed_) engine_.PutDevice(printer);
  }
  ~BorrowedPrinter() {
    if (isBorrowed_) IgnoringErrors([this] { engine_.PutDevice(own_); });
  }
  BorrowedPrinter(const BorrowedPrinter&) = delete;
  BorrowedPrinter& operator=(const BorrowedPrinter&) = delete;

 private:
  PrintEngine& engine_;
  std::string own_;
  bool isBorrowed_;
};

constexpr const char* kNoSuchPaper = "Deze printer heeft dit papierformaat niet";

std::string ConditionOf(PrintEngine& engine) {
  auto* printers = dynamic_cast<PrinterQuestions*>(&engine);
  return printers == nullptr ? std::string() : printers->ConditionOf(engine.GetDevice());
}

std::string JoinLines(std::string one, const std::string& other) {
  if (!one.empty() && !other.empty()) one += '\n';
  return one + other;
}

}  // namespace

PrinterSetupForm::PrinterSetupForm(std::shared_ptr<WindowSystem> windows, PrintEngine& engine)
    : PaperForm(std::move(windows), kDesign, engine) {}

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
  const std::int16_t count = Engine().GetNDevices();
  printers().PutEnabled(count > 0);
  Get("location").PutCaption(count > 0 ? "" : "Er zijn geen printers geïnstalleerd");
  for (std::int16_t i = 0; i < count; ++i) printers().AddItem(Engine().GetDevices(i));
  enginePrinter_ = Engine().GetDevice();
  SelectPrinter();
}

void PrinterSetupForm::SelectPrinter() {
  for (std::int32_t i = 0; i < printers().Count(); ++i) {
    if (printers().Item(i) != enginePrinter_) continue;
    enginePrinterExists_ = true;
    return printers().PutListIndex(i);
  }
}

// An engine without a printer, or whose own is gone, could not be brought back to that: its picked
// printer is asked nothing before OK.
void PrinterSetupForm::printers_Click() {
  if (!enginePrinterExists_) return;
  const BorrowedPrinter borrowed(Engine(), printers().Text());
  Get("location").PutCaption(Engine().GetPort());
  ListPapers();
  ShowMessage(JoinLines(ConditionOf(Engine()), ChosenPaperIsSupported() ? "" : kNoSuchPaper));
}

// First, for the printer decides on the paper.
void PrinterSetupForm::AddChanges(EngineChanges& changes) {
  const std::string& printer = printers().Text();
  if (!printer.empty() && printer != enginePrinter_) {
    changes.Add([this, printer] { Engine().PutDevice(printer); },
                [this] { Engine().PutDevice(enginePrinter_); });
  }
  PaperForm::AddChanges(changes);
}

}  // namespace pagivo::native
