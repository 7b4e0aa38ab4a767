#include "preview/frm_afdrukken.h"

#include <utility>

#include "preview/toolbar_design.h"
#include "preview/watermark_files.h"
#include "values/integer_arithmetic.h"

namespace pagivo {

namespace {

constexpr FormDesign kDesign{
    .caption = "Afdrukvoorbeeld", .client = {.width = 9315, .height = 4215}, .sizable = true};

}  // namespace

struct frmAfdrukken::Controls {
  std::shared_ptr<PdfExporter> exporter;
  Toolbar tbAfdrukken{kToolbarButtons};
  Array<PictureBox> imageWatermerk{0, static_cast<std::int32_t>(kWatermarkFiles.size()) - 1};
};

frmAfdrukken::frmAfdrukken(Platform platform)
    : Form(platform.windows, kDesign), platform_(std::move(platform)) {}

frmAfdrukken::~frmAfdrukken() {
  frmAfdrukken::DestroyControls();
}

PdfExporter& frmAfdrukken::Exporter() {
  return *Reach().exporter;
}

Toolbar& frmAfdrukken::tbAfdrukken() {
  return Reach().tbAfdrukken;
}

PictureBox& frmAfdrukken::imageWatermerk(std::int16_t index) {
  PictureBox& box = Reach().imageWatermerk(index);
  // Most documents carry no watermark, so a picture is decoded when it is first asked for.
  if (!box.Picture()) {
    box.PutPicture(platform_.decodePicture(kWatermarkFiles[static_cast<std::size_t>(index)]));
  }
  return box;
}

void frmAfdrukken::CreateControls(WindowSystem& windows, FormPeer& peer) {
  auto controls = std::make_unique<Controls>();
  std::shared_ptr<PrintEngine> engine = platform_.makeEngine();
  controls->exporter = platform_.makePdfExporter();
  controls->tbAfdrukken.Attach(windows.MakeToolbarPeer(peer, controls->tbAfdrukken));
  engine->SetEvents(this);
  vsPrint_ = std::move(engine);
  controls_ = std::move(controls);
}

void frmAfdrukken::DestroyControls() {
  if (!controls_) return;
  // A caller in the middle of an operation may hold the engine for a moment longer.
  vsPrint_->SetEvents(nullptr);
  controls_.reset();
  vsPrint_.reset();
}

void frmAfdrukken::OnQueryUnload(bool& cancel, UnloadMode mode) {
  // The user's closing keeps the document.
  if (mode != UnloadMode::ControlMenu) return;
  cancel = true;
  Hide();
}

void frmAfdrukken::KeyDown(std::int16_t&, std::int16_t) {}

void frmAfdrukken::BeforePageChange(std::int16_t& page) {
  // The empty page at the document's end is never shown.
  if (page == vsPrint_->GetPageCount()) {
    page = SubtractIntegers(vsPrint_->GetPageCount(), 1);
  }
}

void frmAfdrukken::AfterPageChange() {}

frmAfdrukken::Controls& frmAfdrukken::Reach() {
  Load();
  return *controls_;
}

}  // namespace pagivo
