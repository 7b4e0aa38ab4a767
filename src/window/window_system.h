// What a back end does for forms and controls.
//
// Forms and controls are portable: they hold their state and run their rules. A back end gives each
// of them a peer, which shows the state and reports what the user does and nothing else.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "pagivo/export.h"

namespace pagivo {

class Control;
class Form;
struct ToolbarButton;

// A length in two directions, in twips.
struct Extent {
  float width = 0;
  float height = 0;
};

// The appearance of one loaded form. It is destroyed when the form is unloaded.
class PAGIVO_EXPORT FormPeer {
 public:
  virtual ~FormPeer();

  // What title bar and borders add to the client area.
  virtual Extent FrameExtent() const = 0;
  // The form's caption, window state or placement has changed.
  virtual void Update() = 0;
  // Shows the window and handles the user's doings until the form is no longer visible. The form
  // may be unloaded meanwhile.
  virtual void ShowModal() = 0;
  // Shows the window and returns at once. As with ShowModal no other window takes input until it is
  // hidden.
  virtual void Open() = 0;
  // Handles the user's doings in an opened window until the form is no longer visible, as ShowModal
  // does.
  virtual void Await() = 0;
  // Handles what the user has done in an opened window since. Passes on the error of a handler,
  // with the form hidden.
  virtual void HandleEvents() = 0;
  // The form is no longer visible.
  virtual void Hide() = 0;
};

// The appearance of one control. It is destroyed when the form is unloaded.
class PAGIVO_EXPORT ControlPeer {
 public:
  virtual ~ControlPeer();

  // Shows the control as it now is.
  virtual void Update() = 0;
  // The control has got the focus.
  virtual void Focus() = 0;
  // The user opens the menu of a toolbar's button by the keyboard. Returns when the menu is open or
  // closed again. Only toolbars have menus.
  virtual void OpenMenu(const ToolbarButton& /*button*/) {}
};

// What a window shows, as a picture: pixels 0xFFRRGGBB in the machine's byte order, rows top down
// without padding.
struct WindowImage {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::vector<std::uint32_t> pixels;
  Extent size;  // the window's own size, twips
};

class PAGIVO_EXPORT WindowSystem {
 public:
  virtual ~WindowSystem();

  // Peers refer to what they show, which outlives them. Raise Error when there is no display.
  virtual std::shared_ptr<FormPeer> MakeFormPeer(Form& form) = 0;
  // A container's peer is made before the peers of the controls in it.
  virtual std::unique_ptr<ControlPeer> MakeControlPeer(FormPeer& form, Control& control) = 0;

  // What the window of that handle shows, ours or another program's. Raises
  // ErrorNumber::InvalidArgument when there is no such window.
  virtual WindowImage CaptureWindow(std::int32_t handle) = 0;
};

}  // namespace pagivo
