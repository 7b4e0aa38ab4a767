// Windows without a display: they hold their state, and a script stands in for the user.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <utility>

#include "window/window_system.h"

namespace pagivo {

// Each modal showing takes the next script and runs it once; afterwards, or when there is none, the
// window is closed as by its close box, and hidden if it refuses. So a modal showing always ends.
// In an opened window the next script runs when events are handled, a script each time; waiting for
// its end is like a modal showing.
class HeadlessWindows : public WindowSystem {
 public:
  // What the user does while the window is shown.
  using Script = std::function<void(Form& form)>;

  // Adds the script of one more showing.
  void AddScript(Script script) { scripts_.push_back(std::move(script)); }
  std::size_t ScriptsLeft() const noexcept { return scripts_.size(); }

  std::shared_ptr<FormPeer> MakeFormPeer(Form& form) override;
  std::unique_ptr<ControlPeer> MakeControlPeer(FormPeer& form, Control& control) override;
  WindowImage CaptureWindow(std::int32_t handle) override;

 private:
  class Window;

  void PlayUser(Form& form);
  void PlayScript(Form& form);

  std::deque<Script> scripts_;
};

}  // namespace pagivo
