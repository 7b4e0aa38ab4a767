#include "engine/native/fonts/font_library.h"
#include "engine/native/native_engine.h"
#include "engine/native/pdf/pdf_writer.h"
#include "engine/native/pictures/picture_loader.h"
#include "engine/native/spool/cups/cups_print_server.h"
#include "pagivo/error.h"
#include "platform/platform.h"
#include "window/headless/headless_windows.h"

namespace pagivo {
namespace {

// One for the process: what was read of printers serves every engine. At the process's end the
// server is told of what was cancelled while it stood still.
class ProcessPrinters {
 public:
  ~ProcessPrinters() { server->TellOfCancelledJobs(native::PrintServer::kPatienceAtEnd); }

  const std::shared_ptr<native::PrintServer> server = std::make_shared<native::CupsPrintServer>();
};

const std::shared_ptr<native::PrintServer>& Printers() {
  static const ProcessPrinters printers;
  return printers.server;
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

}  // namespace pagivo
