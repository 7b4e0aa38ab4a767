// Windows of Qt Widgets.
#pragma once

#include "window/window_system.h"

namespace pagivo {

// Needs a QApplication while windows are made and shown. A form is a top-level widget; the widget
// of a control carries the control's name as its object name, that of a toolbar's button its key.
class QtWindows final : public WindowSystem {
 public:
  std::shared_ptr<FormPeer> MakeFormPeer(Form& form) override;
  std::unique_ptr<ControlPeer> MakeControlPeer(FormPeer& form, Control& control) override;
  // The handle is a window's number on the screen.
  WindowImage CaptureWindow(std::int32_t handle) override;
};

}  // namespace pagivo
