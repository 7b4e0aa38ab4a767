#include "window/control.h"

#include <algorithm>
#include <utility>

#include "pagivo/error.h"
#include "window/combo_box.h"
#include "window/option_button.h"
#include "window/scroll_bar.h"
#include "window/surface.h"
#include "window/text_box.h"
#include "window/toolbar.h"

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

std::shared_ptr<Control> MakeControl(ControlSet& controls, const ControlDesign& design) {
  switch (design.kind) {
    case ControlKind::TextBox:
      return std::make_shared<TextBox>(controls, design);
    case ControlKind::ComboBox:
      return std::make_shared<ComboBox>(controls, design);
    case ControlKind::OptionButton:
      return std::make_shared<OptionButton>(controls, design);
    case ControlKind::ScrollBar:
      return std::make_shared<ScrollBar>(controls, design);
    case ControlKind::Surface:
      return std::make_shared<Surface>(controls, design);
    case ControlKind::Toolbar:
      return std::make_shared<Toolbar>(controls, design);
    default:
      return std::make_shared<Control>(controls, design);
  }
}

// Whether the keyboard reaches another option of its group instead.
bool IsPassedOver(const Control& control) {
  const auto* option = dynamic_cast<const OptionButton*>(&control);
  return option != nullptr && !option->Value() && option->GroupHasChoice();
}

// The control that stands before another one in the tab order.
const Control* BeforeInTabOrder(const ControlSet& controls, const Control& control) {
  const Control* nearest = nullptr;
  for (const auto& other : controls.All()) {
    const std::int16_t place = other->Design().tabIndex;
    if (place < 0 || place >= control.Design().tabIndex) continue;
    if (nearest == nullptr || place > nearest->Design().tabIndex) nearest = other.get();
  }
  return nearest;
}

// Text and combo boxes show what the user puts there, not what it is for.
bool ShowsItsName(const Control& control) {
  return control.Kind() != ControlKind::TextBox && control.Kind() != ControlKind::ComboBox;
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

ControlPeer::~ControlPeer() = default;

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

std::string Control::PlainCaption() const {
  std::string plain;
  for (std::size_t i = 0; i < caption_.size(); ++i) {
    if (caption_[i] == '&' && i + 1 < caption_.size()) ++i;
    plain += caption_[i];
  }
  return plain;
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
  if (Toolbar* toolbar = controls_.toolbarWithKeyboard_) toolbar->GiveKeyboardBack();
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

// --- The controls of a form ---------------------------------------------------------------------

ControlSet::ControlSet(std::span<const ControlDesign> designs) {
  controls_.reserve(designs.size());
  for (const ControlDesign& design : designs) controls_.push_back(MakeControl(*this, design));
}

Control& ControlSet::Find(std::string_view name) const {
  const auto found = std::ranges::find(controls_, name, &Control::Name);
  if (found == controls_.end()) {
    throw Error(ErrorNumber::InvalidArgument,
                "Het venster heeft geen besturingselement \"" + std::string(name) + "\"");
  }
  return **found;
}

Control* ControlSet::ButtonWith(ButtonRole role) const {
  const auto found = std::ranges::find_if(
      controls_, [role](const auto& control) { return control->Design().role == role; });
  return found == controls_.end() ? nullptr : found->get();
}

Control* ControlSet::NextInTabOrder(const Control* from, bool backwards) const {
  std::vector<Control*> order = TabOrder();
  if (backwards) std::reverse(order.begin(), order.end());
  const auto here = std::ranges::find(order, from);
  if (here != order.end()) std::rotate(order.begin(), here + 1, order.end());
  const auto next = std::ranges::find_if(order, [](const Control* control) {
    return control->CanTakeFocus() && !IsPassedOver(*control);
  });
  return next == order.end() ? nullptr : *next;
}

std::vector<Control*> ControlSet::TabOrder() const {
  std::vector<Control*> order;
  for (const auto& control : controls_) {
    if (control->Design().tabIndex >= 0) order.push_back(control.get());
  }
  std::stable_sort(order.begin(), order.end(), [](const Control* left, const Control* right) {
    return left->Design().tabIndex < right->Design().tabIndex;
  });
  return order;
}

const Control* ControlSet::LabelOf(const Control& control) const {
  if (ShowsItsName(control)) return nullptr;
  const Control* before = BeforeInTabOrder(*this, control);
  return before != nullptr && before->Kind() == ControlKind::Label ? before : nullptr;
}

std::string ControlSet::AccessibleNameOf(const Control& control) const {
  if (!control.Design().accessibleName.empty()) return std::string(control.Design().accessibleName);
  if (ShowsItsName(control)) return control.PlainCaption();
  const Control* label = LabelOf(control);
  std::string name = label == nullptr ? std::string() : label->PlainCaption();
  if (name.ends_with(':')) name.pop_back();
  return name;
}

}  // namespace pagivo
