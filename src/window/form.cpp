#include "window/form.h"

#include <utility>

#include "pagivo/error.h"

namespace pagivo {

Form::Form(std::shared_ptr<WindowSystem> windows, const FormDesign& design)
    : windows_(std::move(windows)), design_(design) {
  TakeDesign({});
}

Form::~Form() = default;

void Form::LoadNow() {
  const auto self = shared_from_this();
  // Set first: handlers reach controls, which would load the form again.
  loaded_ = true;
  try {
    peer_ = windows_->MakeFormPeer(*this);
    TakeDesign(peer_->FrameExtent());
    CreateControls(*windows_, *peer_);
    OnLoad();
    if (!loaded_) {
      throw Error(ErrorNumber::InvalidArgument,
                  "Het venster \"" + caption_ + "\" is tijdens het laden gesloten");
    }
    peer_->Update();
  } catch (...) {
    if (loaded_) Discard();
    throw;
  }
}

void Form::ShowModal() {
  const auto self = shared_from_this();
  Load();
  if (visible_) {
    throw Error(ErrorNumber::InvalidArgument,
                "Het venster \"" + caption_ + "\" is al zichtbaar en kan niet nog eens open");
  }
  // Held on its own: the form gives it up when it is unloaded during the showing.
  const std::shared_ptr<FormPeer> peer = peer_;
  visible_ = true;
  try {
    peer->ShowModal();
  } catch (...) {
    Hide();
    throw;
  }
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  peer_->Hide();
}

void Form::Unload(UnloadMode mode) {
  if (!loaded_) return;
  const auto self = shared_from_this();
  bool cancel = false;
  OnQueryUnload(cancel, mode);
  // The handler may have unloaded the form itself.
  if (cancel || !loaded_) return;
  Discard();
}

void Form::PutCaption(std::string caption) {
  Put(&Form::caption_, std::move(caption));
}

void Form::PutWindowState(WindowState state) {
  Put(&Form::windowState_, state);
}

void Form::PutLeft(float left) {
  Put(&Form::left_, left);
}

void Form::PutTop(float top) {
  Put(&Form::top_, top);
}

void Form::PutWidth(float width) {
  Put(&Form::width_, width);
}

void Form::PutHeight(float height) {
  Put(&Form::height_, height);
}

void Form::CreateControls(WindowSystem&, FormPeer&) {}

void Form::DestroyControls() {}

void Form::OnLoad() {}

void Form::OnQueryUnload(bool&, UnloadMode) {}

void Form::OnUnload() {}

void Form::TakeDesign(const Extent& frame) {
  caption_ = design_.caption;
  windowState_ = WindowState::Normal;
  left_ = 0;
  top_ = 0;
  width_ = design_.client.width + frame.width;
  height_ = design_.client.height + frame.height;
}

void Form::Discard() {
  Hide();
  loaded_ = false;
  OnUnload();
  DestroyControls();
  peer_.reset();
}

template <typename Value>
void Form::Put(Value Form::*property, Value value) {
  Load();
  this->*property = std::move(value);
  peer_->Update();
}

}  // namespace pagivo
