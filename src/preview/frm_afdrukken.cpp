// The window itself: its parts, life and layout.
#include "preview/frm_afdrukken.h"

#include <array>
#include <utility>

#include "preview/embedded_pictures.h"
#include "preview/preview_form.h"
#include "preview/toolbar_design.h"
#include "values/conversions.h"
#include "values/errors.h"
#include "window/key_codes.h"

namespace pagivo {

namespace {

// Twips left free beside the engine.
constexpr float kEngineMargin = 20;

constexpr std::int16_t kLowestZoomPercent = 30;
constexpr std::int16_t kHighestZoomPercent = 250;

constexpr std::array<ControlDesign, 3> kPreviewControls{{
    {.name = "tbAfdrukken",
     .kind = ControlKind::Toolbar,
     .placement = {.width = 9315, .height = 420},
     .buttons = kToolbarButtons,
     .images = &kImageList2},
    {.name = "txtPaginanummer",
     .kind = ControlKind::TextBox,
     .caption = "Text1",
     .placement = {1080, 60, 600, 330},
     .container = "tbAfdrukken",
     .tabIndex = 1,
     .readOnly = true,
     .accessibleName = "Pagina"},
    {.name = "vsPrint",
     .kind = ControlKind::Surface,
     .placement = {kEngineMargin, 420, 9295, 3795},
     .tabIndex = 0,
     .accessibleName = "Afdrukvoorbeeld"},
}};

constexpr FormDesign kPreviewDesign{.caption = "Afdrukvoorbeeld",
                                    .client = {.width = 9315, .height = 4215},
                                    .sizable = true,
                                    .keyPreview = true,
                                    .controls = kPreviewControls};

}  // namespace

struct frmAfdrukken::Parts {
  std::shared_ptr<PdfExporter> exporter;
  Array<PictureBox> imageWatermerk{0, static_cast<std::int32_t>(kWatermarkFiles.size()) - 1};
};

frmAfdrukken::frmAfdrukken(Platform platform, ModuleState& state)
    : Form(platform.windows, kPreviewDesign), platform_(std::move(platform)), state_(state) {}

frmAfdrukken::~frmAfdrukken() {
  frmAfdrukken::DestroyControls();
}

const std::shared_ptr<PrintEngine>& frmAfdrukken::vsPrint() {
  Load();
  return vsPrint_;
}

PdfExporter& frmAfdrukken::Exporter() {
  return *Reach().exporter;
}

Surface& frmAfdrukken::PreviewSurface() {
  return Get<Surface>("vsPrint");
}

Toolbar& frmAfdrukken::tbAfdrukken() {
  return Get<Toolbar>("tbAfdrukken");
}

TextBox& frmAfdrukken::txtPaginanummer() {
  return Get<TextBox>("txtPaginanummer");
}

PictureBox& frmAfdrukken::imageWatermerk(std::int16_t index) {
  PictureBox& box = Reach().imageWatermerk(index);
  // Most documents carry no watermark, so a picture is decoded when it is first asked for.
  if (!box.Picture()) {
    box.PutPicture(platform_.decodePicture(kWatermarkFiles[static_cast<std::size_t>(index)]));
  }
  return box;
}

void frmAfdrukken::CreateControls() {
  auto parts = std::make_unique<Parts>();
  std::shared_ptr<PrintEngine> engine = platform_.makeEngine(platform_);
  parts->exporter = platform_.makePdfExporter();
  tbAfdrukken().WhenButtonClicked([this](std::string_view key) { tbAfdrukken_ButtonClick(key); });
  tbAfdrukken().WhenMenuClicked([this](std::string_view key) { tbAfdrukken_ButtonMenuClick(key); });
  txtPaginanummer().WhenClicked([this] { GaNaarPagina(); });
  engine->SetEvents(this);
  if (platform_.makeSurfaceContent) {
    PreviewSurface().PutContent(platform_.makeSurfaceContent(engine));
  }
  vsPrint_ = std::move(engine);
  parts_ = std::move(parts);
}

void frmAfdrukken::DestroyControls() {
  if (!parts_) return;
  reachedEngine = nullptr;
  // A caller in the middle of an operation may hold the engine for a moment longer.
  vsPrint_->SetEvents(nullptr);
  parts_.reset();
  vsPrint_.reset();
}

// Every resize works on the process's one preview window, whichever window it reaches.
void frmAfdrukken::OnResize() {
  IgnoringErrors([] { PreviewForm().PlaceParts(); });
}

void frmAfdrukken::PlaceParts() {
  IgnoringErrors([this] { txtPaginanummer().PutLeft(tbAfdrukken().LeftOf("Paginanummer")); });
  IgnoringErrors([this] { PreviewSurface().PutTop(tbAfdrukken().Height()); });
  IgnoringErrors([this] { PreviewSurface().PutLeft(kEngineMargin); });
  IgnoringErrors([this] { PreviewSurface().PutWidth(ClientWidth() - kEngineMargin); });
  IgnoringErrors([this] { PreviewSurface().PutHeight(ClientHeight() - PreviewSurface().Top()); });
  IgnoringErrors([this] { vsPrint()->PutZoomMode(kZoomWholePage); });
  IgnoringErrors([this] { zoomPercent_ = ToInteger(vsPrint()->GetZoom()); });
  if (zoomPercent_ < kLowestZoomPercent) zoomPercent_ = kLowestZoomPercent;
  if (zoomPercent_ > kHighestZoomPercent) zoomPercent_ = kHighestZoomPercent;
}

void frmAfdrukken::OnPaint() {
  ZetPaginaNummer();
}

void frmAfdrukken::OnKeyDown(std::int16_t& keyCode, std::int16_t) {
  if (keyCode == kKeyEscape) HideWithFocusOnEngine();
}

void frmAfdrukken::OnQueryUnload(bool& cancel, UnloadMode mode) {
  // The user's closing keeps the document.
  if (mode != UnloadMode::ControlMenu) return;
  cancel = true;
  Hide();
}

void frmAfdrukken::HideWithFocusOnEngine() {
  PreviewSurface().Focus();
  Hide();
}

frmAfdrukken::Parts& frmAfdrukken::Reach() {
  Load();
  return *parts_;
}

}  // namespace pagivo
