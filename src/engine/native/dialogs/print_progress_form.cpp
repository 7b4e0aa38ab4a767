#include "engine/native/dialogs/print_progress_form.h"

#include <array>
#include <string_view>
#include <utility>

namespace pagivo::native {
namespace {

constexpr std::string_view kPageLine = "Afdrukken pagina %d van";
constexpr std::string_view kDeviceLine = "op de %s op %s";
constexpr std::string_view kPrinterLine = "op de %s";  // whose port is not known

constexpr std::array<ControlDesign, 4> kControls{{
    {.name = "page", .kind = ControlKind::Label, .placement = {240, 240, 4680, 252}, .tabIndex = 0},
    {.name = "title",
     .kind = ControlKind::Label,
     .placement = {240, 540, 4680, 252},
     .tabIndex = 1},
    {.name = "device",
     .kind = ControlKind::Label,
     .placement = {240, 840, 4680, 252},
     .tabIndex = 2},
    {.name = "cancel",
     .kind = ControlKind::Button,
     .caption = "Annuleren",
     .placement = {1980, 1290, 1200, 330},
     .tabIndex = 3,
     .role = ButtonRole::Cancel},
}};

constexpr FormDesign kDesign{
    .caption = "Afdrukken...", .client = {.width = 5160, .height = 1740}, .controls = kControls};

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

std::string DeviceLine(const PrintedDocument& document) {
  return document.port.empty() ? Fill(kPrinterLine, document.printer)
                               : Fill(kDeviceLine, document.printer, document.port);
}

}  // namespace

PrintProgressForm::PrintProgressForm(std::shared_ptr<WindowSystem> windows,
                                     PrintedDocument document)
    : Form(std::move(windows), kDesign), document_(std::move(document)) {}

void PrintProgressForm::ShowPage(int page) {
  Get("page").PutCaption(Fill(kPageLine, std::to_string(page)));
}

void PrintProgressForm::CreateControls() {
  Get("cancel").WhenClicked([this] { cancel_Click(); });
}

void PrintProgressForm::OnLoad() {
  Get("title").PutCaption(Plain(document_.title));
  Get("device").PutCaption(Plain(DeviceLine(document_)));
}

// Who prints closes the window.
void PrintProgressForm::OnQueryUnload(bool& cancel, UnloadMode mode) {
  if (mode != UnloadMode::ControlMenu) return;
  cancel = true;
  cancel_Click();
}

void PrintProgressForm::cancel_Click() {
  cancelled_ = true;
  Get("cancel").PutEnabled(false);
}

}  // namespace pagivo::native
