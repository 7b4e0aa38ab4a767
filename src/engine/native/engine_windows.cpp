// NativeEngine and windows: its own dialogs, its preview on a surface, and windows that are drawn
// into the document.
#include "engine/native/native_engine.h"
#include "engine/native/setup/engine_dialogs.h"
#include "engine/native/view/preview_surface.h"
#include "pagivo/error.h"

namespace pagivo::native {

bool NativeEngine::GetPrintDialog(std::int32_t dialog) {
  // The host may discard the engine while the dialog is open.
  const auto self = weak_from_this().lock();
  return ShowEngineDialog(dialog, *this, services_.windows);
}

// A window of no size draws nothing.
void NativeEngine::PutRenderControl(const std::int32_t& window) {
  RequireDrawing();
  if (!services_.windows) {
    throw Error(ErrorNumber::InvalidArgument,
                "Er is geen venster met nummer " + std::to_string(window));
  }
  const WindowImage image = services_.windows->CaptureWindow(window);
  if (image.pixels.empty()) return;
  const Place place = SettlePrintPosition();
  const auto x = static_cast<float>(place.x);
  const auto y = static_cast<float>(place.y);
  recorder_->DrawPicture({x, y, x + image.size.width, y + image.size.height},
                         windowPictures_.PictureOf(image));
}

std::shared_ptr<SurfaceContent> MakeSurface(const std::shared_ptr<PrintEngine>& engine) {
  const auto native = std::dynamic_pointer_cast<NativeEngine>(engine);
  return native ? std::make_shared<PreviewSurface>(native->GetPreview()) : nullptr;
}

}  // namespace pagivo::native
