// What the keyboard does in a form.
#include <algorithm>

#include "window/form.h"
#include "window/key_codes.h"

namespace pagivo {

namespace {

void ClickIfReachable(Control& button) {
  if (button.IsReachable()) button.Click();
}

// The control that Enter presses; null when there is none.
Control* EnterButton(const ControlSet& controls) {
  Control* focused = controls.Focused();
  if (focused != nullptr && focused->Kind() == ControlKind::Button) return focused;
  return controls.ButtonWith(ButtonRole::Default);
}

// The button that a key presses; null when there is none.
Control* ButtonFor(std::int16_t keyCode, const ControlSet& controls) {
  switch (keyCode) {
    case kKeyEnter:
      return EnterButton(controls);
    case kKeyEscape:
      return controls.ButtonWith(ButtonRole::Cancel);
    default:
      return nullptr;
  }
}

bool IsPressedByItsAccessKey(const Control& control) {
  return control.Kind() == ControlKind::Button || control.Kind() == ControlKind::OptionButton;
}

}  // namespace

bool Form::PressKey(std::int16_t keyCode, std::int16_t shift) {
  const auto self = shared_from_this();
  if (design_.keyPreview) OnKeyDown(keyCode, shift);
  // The handler may have hidden or unloaded the form.
  if (keyCode == 0 || !visible_) return true;
  if (keyCode == kKeyTab) {
    MoveFocus((shift & kShiftKey) != 0);
    return true;
  }
  if (Control* button = ButtonFor(keyCode, *controls_); button != nullptr) {
    ClickIfReachable(*button);
    return true;
  }
  Control* focused = controls_->Focused();
  if (focused == nullptr || !focused->IsReachable()) return false;
  if (focused->PressKey(keyCode, shift)) return true;
  return visible_ && OnUnusedKey(keyCode, shift);
}

void Form::PressAccessKey(char letter) {
  const auto self = shared_from_this();
  const auto controls = Controls().All();
  const auto found = std::ranges::find_if(controls, [letter](const auto& control) {
    return control->AccessKey() == letter && control->IsReachable();
  });
  if (found == controls.end()) return;
  // Held: the focus handler may unload the form.
  const auto control = (*found)->shared_from_this();
  Control* target =
      control->CanTakeFocus() ? control.get() : controls_->NextInTabOrder(control.get());
  if (target != nullptr) target->Focus();
  if (loaded_ && IsPressedByItsAccessKey(*control)) control->Click();
}

void Form::MoveFocus(bool backwards) {
  Control* next = controls_->NextInTabOrder(controls_->Focused(), backwards);
  if (next != nullptr) next->Focus();
}

}  // namespace pagivo
