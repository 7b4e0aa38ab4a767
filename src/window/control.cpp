#include "window/control.h"

#include <utility>

#include "pagivo/error.h"
#include "window/control_set.h"

namespace pagivo {

namespace {

char LowerCase(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool KindTakesFocus(ControlKind kind) {
  switch (kind) {
    case ControlKind::Frame:
    case ControlKind::Label:
    case ControlKind::PictureBox:
    case ControlKind::Toolbar:
      return false;
    default:
      return true;
  }
}

}  // namespace

Control::Control(ControlSet& controls, const ControlDesign& design)
    : controls_(controls),
      design_(design),
      container_(design.container.empty() ? nullptr : &controls.Find(design.container)),
      caption_(design.caption),
      placement_(design.placement),
      fontName_(design.fontName),
      fontSize_(design.fontSize) {}

Control::~Control() = default;

template <typename Value>
void Control::Put(Value& property, Value value) {
  property = std::move(value);
  Refresh();
}

void Control::PutCaption(std::string caption) {
  Put(caption_, std::move(caption));
}

char Control::AccessKey() const noexcept {
  for (std::size_t i = 0; i + 1 < caption_.size(); ++i) {
    if (caption_[i] != '&') continue;
    if (caption_[i + 1] != '&') return LowerCase(caption_[i + 1]);
    ++i;
  }
  return 0;
}

void Control::PutLeft(float left) {
  Put(placement_.left, left);
}

void Control::PutTop(float top) {
  Put(placement_.top, top);
}

void Control::PutWidth(float width) {
  Put(placement_.width, width);
}

void Control::PutHeight(float height) {
  Put(placement_.height, height);
}

void Control::PutEnabled(bool enabled) {
  Put(enabled_, enabled);
}

void Control::PutVisible(bool visible) {
  Put(visible_, visible);
}

bool Control::IsReachable() const noexcept {
  return enabled_ && visible_ && (container_ == nullptr || container_->IsReachable());
}

bool Control::CanTakeFocus() const noexcept {
  return KindTakesFocus(Kind()) && IsReachable();
}

bool Control::HasFocus() const noexcept {
  return controls_.Focused() == this;
}

void Control::PutFontName(std::string name) {
  Put(fontName_, std::move(name));
}

void Control::PutFontSize(float points) {
  Put(fontSize_, points);
}

void Control::Click() {
  RaiseClick();
}

bool Control::PressKey(std::int16_t, std::int16_t) {
  return false;
}

void Control::Focus() {
  if (!CanTakeFocus()) {
    throw Error(ErrorNumber::InvalidArgument,
                "Het besturingselement \"" + std::string(Name()) + "\" kan de focus niet krijgen");
  }
  if (HasFocus()) return;
  controls_.focused_ = this;
  if (peer_) peer_->Focus();
  Raise(focused_);
}

void Control::Refresh() {
  if (peer_) peer_->Update();
}

void Control::RaiseClick() {
  Raise(clicked_);
}

void Control::RaiseChange() {
  Raise(changed_);
}

void Control::Raise(const Handler& handler) {
  // Copied and held: a handler that unloads the form gives up this control and its handlers.
  const auto self = shared_from_this();
  if (const Handler running = handler) running();
}

}  // namespace pagivo
