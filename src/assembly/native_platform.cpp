#include "engine/native/native_engine.h"
#include "engine/native/native_pdf_exporter.h"
#include "engine/native/native_surface.h"
#include "engine/native/pictures/picture_loader.h"
#include "platform/platform.h"
#include "window/headless/headless_windows.h"

namespace pagivo {

Platform NativePlatform() {
  return {
      .windows = std::make_shared<HeadlessWindows>(),
      .makeEngine =
          [](const Platform& platform) {
            return std::make_shared<native::NativeEngine>(
                native::EngineServices{.windows = platform.windows});
          },
      .makePdfExporter = [] { return std::make_shared<native::NativePdfExporter>(); },
      .makeSurfaceContent = native::MakeSurface,
      .loadPicture = native::LoadPictureFile,
      .decodePicture = native::DecodePicture,
      .defaultPrinter = [] { return std::string(); },
  };
}

}  // namespace pagivo
