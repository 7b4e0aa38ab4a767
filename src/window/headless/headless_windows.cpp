#include "window/headless/headless_windows.h"

#include "window/form.h"

namespace pagivo {

namespace {

class HeadlessControl : public ControlPeer {
 public:
  void Update() override {}
  void Focus() override {}
};

}  // namespace

// The form itself holds all there is to a window that nobody sees.
class HeadlessWindows::Window : public FormPeer {
 public:
  Window(HeadlessWindows& windows, Form& form) : windows_(windows), form_(form) {}

  Extent FrameExtent() const override { return {}; }
  void Update() override {}
  void ShowModal() override { windows_.PlayUser(form_); }
  void Hide() override {}

 private:
  HeadlessWindows& windows_;
  Form& form_;
};

std::shared_ptr<FormPeer> HeadlessWindows::MakeFormPeer(Form& form) {
  return std::make_shared<Window>(*this, form);
}

std::unique_ptr<ControlPeer> HeadlessWindows::MakeControlPeer(FormPeer&, Control&) {
  return std::make_unique<HeadlessControl>();
}

void HeadlessWindows::PlayUser(Form& form) {
  form.Paint();
  if (!scripts_.empty()) {
    const Script script = std::move(scripts_.front());
    scripts_.pop_front();
    script(form);
  }
  if (form.Visible()) form.Unload(UnloadMode::ControlMenu);
  form.Hide();
}

}  // namespace pagivo
