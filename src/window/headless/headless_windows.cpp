#include "window/headless/headless_windows.h"

#include "pagivo/error.h"
#include "values/measures.h"
#include "window/form.h"
#include "window/surface.h"

namespace pagivo {

namespace {

class HeadlessControl : public ControlPeer {
 public:
  void Update() override {}
  void Focus() override {}
};

// A surface takes part in the rules (how large a page that fits is, how far it scrolls), so what
// draws there knows its size even when nobody sees it.
class HeadlessSurface : public HeadlessControl {
 public:
  explicit HeadlessSurface(Surface& surface) : surface_(surface) {}

  void Update() override {
    if (const auto content = surface_.Content()) content->PutArea(Area());
  }

 private:
  SurfaceArea Area() const {
    return {.width = static_cast<std::int32_t>(surface_.Width() / kTwipsPerPixel),
            .height = static_cast<std::int32_t>(surface_.Height() / kTwipsPerPixel)};
  }

  Surface& surface_;
};

}  // namespace

// The form itself holds all there is to a window that nobody sees.
class HeadlessWindows::Window : public FormPeer {
 public:
  Window(HeadlessWindows& windows, Form& form) : windows_(windows), form_(form) {}

  Extent FrameExtent() const override { return {}; }
  void Update() override {}
  void ShowModal() override { windows_.PlayUser(form_); }
  void Open() override { form_.Paint(); }
  void Await() override { windows_.PlayUser(form_); }
  void HandleEvents() override { windows_.PlayScript(form_); }
  void Hide() override {}

 private:
  HeadlessWindows& windows_;
  Form& form_;
};

std::shared_ptr<FormPeer> HeadlessWindows::MakeFormPeer(Form& form) {
  return std::make_shared<Window>(*this, form);
}

std::unique_ptr<ControlPeer> HeadlessWindows::MakeControlPeer(FormPeer&, Control& control) {
  if (auto* surface = dynamic_cast<Surface*>(&control)) {
    return std::make_unique<HeadlessSurface>(*surface);
  }
  return std::make_unique<HeadlessControl>();
}

WindowImage HeadlessWindows::CaptureWindow(std::int32_t) {
  throw Error(ErrorNumber::InvalidArgument, "Er is geen beeldscherm met vensters");
}

void HeadlessWindows::PlayUser(Form& form) {
  form.Paint();
  PlayScript(form);
  if (form.Visible()) form.Unload(UnloadMode::ControlMenu);
  form.Hide();
}

void HeadlessWindows::PlayScript(Form& form) {
  if (scripts_.empty()) return;
  const Script script = std::move(scripts_.front());
  scripts_.pop_front();
  script(form);
}

}  // namespace pagivo
