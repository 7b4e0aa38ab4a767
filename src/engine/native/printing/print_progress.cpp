#include "engine/native/printing/print_progress.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

#include "values/errors.h"

namespace pagivo::native {
namespace {

constexpr std::string_view kPageLine = "Afdrukken pagina %d van";
constexpr std::string_view kDeviceLine = "op de %s op %s";
constexpr std::string_view kPrinterLine = "op de %s";  // whose port is not known
constexpr std::string_view kCopyCount = "exemplaar %d van %d, ";
constexpr std::string_view kPageCount = "blad %d van %d";
constexpr std::string_view kFailed = "Het afdrukken is mislukt";
constexpr std::string_view kCopiesBefore = "Wel afgedrukt: %d van de %d exemplaren.";

constexpr float kLeft = 240;
constexpr float kWidth = 5280;
constexpr float kCountTop = 1170;
constexpr float kButtonTop = 1890;
constexpr float kMessageHeight = 1530;  // seven lines, in place of the count and the bar
constexpr float kGrowth = kCountTop + kMessageHeight - kButtonTop + 150;

constexpr std::array<ControlDesign, 7> kControls{{
    {.name = "page",
     .kind = ControlKind::Label,
     .placement = {kLeft, 240, kWidth, 252},
     .tabIndex = 0},
    {.name = "title",
     .kind = ControlKind::Label,
     .placement = {kLeft, 540, kWidth, 252},
     .tabIndex = 1},
    {.name = "device",
     .kind = ControlKind::Label,
     .placement = {kLeft, 840, kWidth, 252},
     .tabIndex = 2},
    {.name = "count",
     .kind = ControlKind::Label,
     .placement = {kLeft, kCountTop, kWidth, 252},
     .tabIndex = 3},
    {.name = "bar",
     .kind = ControlKind::Surface,
     .placement = {kLeft, 1470, kWidth, 195},
     .accessibleName = "Voortgang"},
    {.name = "message",
     .kind = ControlKind::Label,
     .placement = {kLeft, kCountTop, kWidth, kMessageHeight},
     .tabIndex = 4},
    {.name = "cancel",
     .kind = ControlKind::Button,
     .caption = "Annuleren",
     .placement = {2280, kButtonTop, 1200, 330},
     .tabIndex = 5,
     .role = ButtonRole::Cancel},
}};

constexpr FormDesign kDesign{
    .caption = "Afdrukken...", .client = {.width = 5760, .height = 2340}, .controls = kControls};

// `line` with each %s or %d in turn replaced.
template <typename... Texts>
std::string Fill(std::string_view line, const Texts&... texts) {
  std::string filled(line);
  std::size_t from = 0;
  const auto fill = [&](const std::string& text) {
    const std::size_t place = filled.find('%', from);
    filled.replace(place, 2, text);
    from = place + text.size();
  };
  (fill(texts), ...);
  return filled;
}

// A label takes & for the mark of an access key unless it stands there twice.
std::string Plain(std::string_view text) {
  std::string plain;
  for (const char byte : text) plain.append(byte == '&' ? 2 : 1, byte);
  return plain;
}

// With a point between thousands, as the language has it.
std::string Counted(std::int32_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t place = digits.size(); place > 3; place -= 3) digits.insert(place - 3, ".");
  return digits;
}

std::string DeviceLine(const PrintedDocument& document) {
  if (document.printer.empty()) return {};
  return document.port.empty() ? Fill(kPrinterLine, document.printer)
                               : Fill(kDeviceLine, document.printer, document.port);
}

std::string CountLine(const SeriesProgress& progress) {
  std::string pages = Fill(kPageCount, Counted(progress.page), Counted(progress.pages));
  if (progress.copies == 1) return pages;
  return Fill(kCopyCount, Counted(progress.copy), Counted(progress.copies)) + pages;
}

// Pages that were begun before this one, of those of all copies.
double DoneOf(const SeriesProgress& progress) {
  const double before =
      static_cast<double>(progress.copy - 1) * progress.pages + (progress.page - 1);
  return before / (static_cast<double>(progress.copies) * progress.pages);
}

std::string MessageOf(const SeriesFailure& failure) {
  std::string message = failure.cause + ".";
  if (failure.printedCopies > 0) {
    message += "\n" + Fill(kCopiesBefore, Counted(failure.printedCopies), Counted(failure.copies));
  }
  if (!failure.advice.empty()) message += "\n" + failure.advice;
  return message;
}

}  // namespace

// --- The bar ------------------------------------------------------------------------------------

void ProgressBar::PutDone(double done) {
  if (done == done_) return;
  done_ = done;
  Change();
}

// A frame around it, a 96th of an inch wide, and a ground for what is still to be done.
void ProgressBar::Draw(const SurfaceBitmap& bitmap, const SurfaceColors& colors) {
  const std::int32_t line = std::max(static_cast<std::int32_t>(std::lround(Scale())), 1);
  const std::int32_t inside = std::max(bitmap.width - 2 * line, 0);
  const auto filled = static_cast<std::int32_t>(std::lround(std::clamp(done_, 0.0, 1.0) * inside));
  for (std::int32_t y = 0; y < bitmap.height; ++y) {
    const auto row =
        bitmap.pixels.subspan(static_cast<std::size_t>(y) * static_cast<std::size_t>(bitmap.width),
                              static_cast<std::size_t>(bitmap.width));
    std::ranges::fill(row, colors.edge);
    if (y < line || y >= bitmap.height - line || inside == 0) continue;
    const auto bar = row.subspan(static_cast<std::size_t>(line), static_cast<std::size_t>(inside));
    std::ranges::fill(bar, colors.ground);
    std::ranges::fill(bar.first(static_cast<std::size_t>(filled)), colors.highlight);
  }
}

// --- The form -----------------------------------------------------------------------------------

PrintProgressForm::PrintProgressForm(std::shared_ptr<WindowSystem> windows,
                                     PrintedDocument document)
    : Form(std::move(windows), kDesign), document_(std::move(document)) {}

void PrintProgressForm::ShowProgress(const SeriesProgress& progress) {
  Get("page").PutCaption(Fill(kPageLine, std::to_string(progress.page)));
  Get("count").PutCaption(CountLine(progress));
  bar_->PutDone(DoneOf(progress));
}

void PrintProgressForm::ShowFailure(const SeriesFailure& failure) {
  tellsFailure_ = true;
  Get("count").PutVisible(false);
  Get("bar").PutVisible(false);
  Get("page").PutCaption(std::string(kFailed));
  Get("message").PutCaption(Plain(MessageOf(failure)));
  Get("message").PutVisible(true);
  PutHeight(Height() + kGrowth);
  Control& button = Get("cancel");
  button.PutTop(kButtonTop + kGrowth);
  button.PutCaption("Sluiten");
  button.PutEnabled(true);
  button.Focus();
}

void PrintProgressForm::CreateControls() {
  bar_ = std::make_shared<ProgressBar>();
  Get<Surface>("bar").PutContent(bar_);
  Get("cancel").WhenClicked([this] { cancel_Click(); });
}

void PrintProgressForm::OnLoad() {
  Get("title").PutCaption(Plain(document_.title));
  Get("device").PutCaption(Plain(DeviceLine(document_)));
  Get("message").PutVisible(false);
}

// Who prints closes the window, until it tells of a failure.
void PrintProgressForm::OnQueryUnload(bool& cancel, UnloadMode mode) {
  if (mode != UnloadMode::ControlMenu || tellsFailure_) return;
  cancel = true;
  cancel_Click();
}

void PrintProgressForm::cancel_Click() {
  if (tellsFailure_) return Unload();
  cancelled_ = true;
  Get("cancel").PutEnabled(false);
}

// --- When it is shown ---------------------------------------------------------------------------

PrintProgressWindow::PrintProgressWindow(std::shared_ptr<WindowSystem> windows,
                                         PrintedDocument document, Clock now)
    : windows_(std::move(windows)),
      document_(std::move(document)),
      now_(std::move(now)),
      nextLook_(now_() + kAppearsAfter) {}

PrintProgressWindow::~PrintProgressWindow() {
  if (form_) IgnoringErrors([this] { form_->Unload(); });
}

bool PrintProgressWindow::Continues(const SeriesProgress& progress) {
  if (!windows_ || now_() < nextLook_) return !IsCancelled();
  IgnoringErrors([&] { Look(progress); });
  nextLook_ = now_() + kBetweenLooks;
  return !IsCancelled();
}

bool PrintProgressWindow::IsCancelled() const noexcept {
  return form_ && form_->IsCancelled();
}

PrintProgressForm& PrintProgressWindow::MakeForm() {
  if (!form_) form_ = std::make_shared<PrintProgressForm>(windows_, document_);
  return *form_;
}

void PrintProgressWindow::Look(const SeriesProgress& progress) {
  MakeForm().ShowProgress(progress);
  if (!form_->Visible()) form_->Open();
  form_->HandleEvents();
}

void PrintProgressWindow::TellFailure(const SeriesFailure& failure) {
  if (!windows_) return;
  IgnoringErrors([&] {
    MakeForm().ShowFailure(failure);
    if (!form_->Visible()) form_->Open();
    form_->AwaitHiding();
  });
}

}  // namespace pagivo::native
