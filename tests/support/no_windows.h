// A window system on which no window can be made.
#pragma once

#include <cstdint>
#include <memory>

#include "pagivo/error.h"
#include "window/window_system.h"

namespace pagivo::testing {

class NoWindows final : public WindowSystem {
 public:
  std::shared_ptr<FormPeer> MakeFormPeer(Form&) override { Fail(); }
  std::unique_ptr<ControlPeer> MakeControlPeer(FormPeer&, Control&) override { Fail(); }
  WindowImage CaptureWindow(std::int32_t) override { Fail(); }

 private:
  [[noreturn]] static void Fail() {
    throw Error(ErrorNumber::InvalidArgument, "Er is geen beeldscherm");
  }
};

}  // namespace pagivo::testing
