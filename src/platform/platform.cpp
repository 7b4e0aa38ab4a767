#include "platform/platform.h"

#include <cstdlib>
#include <utility>

#include "engine/native/fonts/font_library.h"
#include "engine/native/native_engine.h"
#include "engine/native/pdf/pdf_writer.h"
#include "engine/native/pictures/picture_loader.h"
#include "engine/native/spool/print_server.h"
#include "pagivo/error.h"
#include "pagivo/picture.h"
#include "values/errors.h"
#include "values/process_wide.h"
#include "window/headless/headless_windows.h"

namespace pagivo {
namespace {

// What was read of printers serves every engine. At the process's end the server hears of the jobs
// that were cancelled while it stood still.
std::shared_ptr<native::PrintServer>& Printers() {
  return ProcessWide<std::shared_ptr<native::PrintServer>>([] {
    std::atexit([] { Printers()->TellOfCancelledJobs(native::PrintServer::kPatienceAtEnd); });
    return new std::shared_ptr<native::PrintServer>(native::MakePrintServer());
  });
}

std::string DefaultPrinter() {
  try {
    return Printers()->DefaultPrinter();
  } catch (const Error&) {
    return {};  // a server that cannot be reached has none
  }
}

// The windows that are in use whenever an engine, which outlives a host's choice, shows one.
class WindowsInUse final : public WindowSystem {
 public:
  std::shared_ptr<FormPeer> MakeFormPeer(Form& form) override {
    return Present().MakeFormPeer(form);
  }
  std::unique_ptr<ControlPeer> MakeControlPeer(FormPeer& form, Control& control) override {
    return Present().MakeControlPeer(form, control);
  }
  WindowImage CaptureWindow(std::int32_t handle) override {
    return Present().CaptureWindow(handle);
  }

 private:
  static WindowSystem& Present() { return *CurrentPlatform().windows; }
};

// Any one will do: what is not installed is replaced.
void RequireFonts() {
  native::FontLibrary::Instance().Find("Arial", false, false);
}

Platform& PlatformInUse() {
  return ProcessWide<Platform>([] { return new Platform(NativePlatform()); });
}

}  // namespace

Platform NativePlatform() {
  return {
      .windows = std::make_shared<HeadlessWindows>(),
      .makeEngine =
          [](const Platform&) {
            return std::make_shared<native::NativeEngine>(native::EngineServices{
                .windows = std::make_shared<WindowsInUse>(), .printers = Printers()});
          },
      .makePdfExporter = [] { return std::make_shared<native::NativePdfExporter>(); },
      .makeSurfaceContent = native::MakeSurface,
      .loadPicture = native::LoadPictureFile,
      .decodePicture = native::DecodePicture,
      .defaultPrinter = DefaultPrinter,
      .requireFonts = RequireFonts,
  };
}

const Platform& CurrentPlatform() {
  return PlatformInUse();
}

void UsePlatform(Platform platform) {
  PlatformInUse() = std::move(platform);
}

ObjectRef LoadPicture(const TextArgument& path) {
  return ReportingErrors([&] { return CurrentPlatform().loadPicture(path); });
}

}  // namespace pagivo
