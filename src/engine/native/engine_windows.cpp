// NativeEngine and windows: its own dialogs, its preview on a surface, and windows that are drawn
// into the document.
#include <cstdint>
#include <utility>

#include "engine/native/native_engine.h"
#include "engine/native/setup/setup_dialogs.h"
#include "engine/native/view/preview_surface.h"
#include "pagivo/error.h"

namespace pagivo::native {
namespace {

PictureImage::Pixels PixelsOf(const WindowImage& image) {
  PictureImage::Pixels pixels{image.width, image.height, false, {}};
  pixels.data.reserve(image.pixels.size() * 3);
  for (const std::uint32_t pixel : image.pixels) {
    pixels.data.push_back(static_cast<std::uint8_t>(pixel >> 16));
    pixels.data.push_back(static_cast<std::uint8_t>(pixel >> 8));
    pixels.data.push_back(static_cast<std::uint8_t>(pixel));
  }
  return pixels;
}

bool LooksLike(const PictureImage& picture, const PictureImage::Pixels& pixels) {
  return picture.Width() == pixels.width && picture.Height() == pixels.height &&
         picture.GetPixels()->data == pixels.data;
}

}  // namespace

bool NativeEngine::GetPrintDialog(std::int32_t dialog) {
  // The host may discard the engine while the dialog is open.
  const auto self = weak_from_this().lock();
  return ShowSetupDialog(dialog, *this, services_.windows);
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
  recorder_->DrawPicture({x, y, x + image.size.width, y + image.size.height}, PictureOf(image));
}

// A window that looks as it did, or as another one does, is the same picture as long as somebody
// holds it: so a document keeps it once.
PictureImageRef NativeEngine::PictureOf(const WindowImage& image) {
  PictureImage::Pixels pixels = PixelsOf(image);
  std::erase_if(windowPictures_, [](const auto& picture) { return picture.expired(); });
  for (const auto& held : windowPictures_) {
    PictureImageRef picture = held.lock();
    if (picture && LooksLike(*picture, pixels)) return picture;
  }
  auto picture = std::make_shared<const PictureImage>(std::move(pixels));
  windowPictures_.push_back(picture);
  return picture;
}

std::shared_ptr<SurfaceContent> MakeSurface(const std::shared_ptr<PrintEngine>& engine) {
  const auto native = std::dynamic_pointer_cast<NativeEngine>(engine);
  return native ? std::make_shared<PreviewSurface>(native->GetPreview()) : nullptr;
}

}  // namespace pagivo::native
