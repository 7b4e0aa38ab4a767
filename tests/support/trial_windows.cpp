#include "support/trial_windows.h"

#include <utility>

namespace pagivo::testing {

// The back end's window, whose showings a script attends.
class TrialWindows::Window : public FormPeer {
 public:
  Window(TrialWindows& windows, Form& form)
      : windows_(windows), form_(form), shown_(windows.backEnd_->MakeFormPeer(form)) {
    ++windows_.count_;
  }
  ~Window() override { --windows_.count_; }
  Window(const Window&) = delete;
  Window& operator=(const Window&) = delete;

  FormPeer& Shown() noexcept { return *shown_; }

  Extent FrameExtent() const override { return shown_->FrameExtent(); }
  void Update() override { shown_->Update(); }
  void ShowModal() override {
    Attend([this] { shown_->ShowModal(); });
  }
  void Open() override { shown_->Open(); }
  void Await() override {
    Attend([this] { shown_->Await(); });
  }
  void HandleEvents() override { shown_->HandleEvents(); }
  void Hide() override { shown_->Hide(); }

 private:
  void Attend(const Showing& showing) { windows_.Attend(form_, showing, windows_.NextScript()); }

  TrialWindows& windows_;
  Form& form_;
  std::shared_ptr<FormPeer> shown_;
};

std::shared_ptr<FormPeer> TrialWindows::MakeFormPeer(Form& form) {
  return std::make_shared<Window>(*this, form);
}

std::unique_ptr<ControlPeer> TrialWindows::MakeControlPeer(FormPeer& form, Control& control) {
  return backEnd_->MakeControlPeer(dynamic_cast<Window&>(form).Shown(), control);
}

WindowImage TrialWindows::CaptureWindow(std::int32_t handle) {
  return backEnd_->CaptureWindow(handle);
}

TrialWindows::Script TrialWindows::NextScript() {
  if (scripts_.empty()) return {};
  Script script = std::move(scripts_.front());
  scripts_.pop_front();
  return script;
}

}  // namespace pagivo::testing
