// Windows for tests of what a user does, whatever shows them.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>

#include "support/form_user.h"
#include "window/form.h"
#include "window/window_system.h"

namespace pagivo::testing {

// Each modal showing takes the next script and runs it once while the window is shown; afterwards,
// or when there is none, the window is closed as by its close box, and hidden if it refuses. What a
// script raises goes to whoever showed the form, and so does the error of a handler, after which
// the script may or may not go on: what makes a handler fail is the last that a script does.
class TrialWindows : public WindowSystem {
 public:
  // What the user does while `form` is shown.
  using Script = std::function<void(Form& form, FormUser& user)>;

  // Scripts one showing more.
  void AddScript(Script script) { scripts_.push_back(std::move(script)); }
  std::size_t ScriptsLeft() const noexcept { return scripts_.size(); }

  // How many windows exist, shown or not, as far as the back end can tell.
  virtual std::size_t Count() const { return count_; }

  std::shared_ptr<FormPeer> MakeFormPeer(Form& form) override;
  std::unique_ptr<ControlPeer> MakeControlPeer(FormPeer& form, Control& control) override;
  WindowImage CaptureWindow(std::int32_t handle) override;

 protected:
  // `backEnd` shows the windows.
  explicit TrialWindows(std::shared_ptr<WindowSystem> backEnd) : backEnd_(std::move(backEnd)) {}

  // Returns when the form is no longer visible.
  using Showing = std::function<void()>;

  // Shows the form with the script, which may be empty, in the user's place.
  virtual void Attend(Form& form, const Showing& showing, Script script) = 0;

 private:
  class Window;

  Script NextScript();

  std::shared_ptr<WindowSystem> backEnd_;
  std::deque<Script> scripts_;
  std::size_t count_ = 0;  // windows that were made and are not gone
};

// Windows of the back end that the test program is linked with.
std::shared_ptr<TrialWindows> MakeTrialWindows();

}  // namespace pagivo::testing
