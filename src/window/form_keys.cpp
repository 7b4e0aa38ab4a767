// What the keyboard does in a form.
#include <algorithm>

#include "window/form.h"
#include "window/key_codes.h"

namespace pagivo {

namespace {

void ClickIfReachable(Control* button) {
  if (button != nullptr && button->IsReachable()) button->Click();
}

// The control that Enter presses; null when there is none.
Control* EnterButton(const ControlSet& controls) {
  Control* focused = controls.Focused();
  if (focused != nullptr && focused->Kind() == ControlKind::Button) return focused;
  return controls.ButtonWith(ButtonRole::Default);
}

bool IsPressedByItsAccessKey(const Control& control) {
  return control.Kind() == ControlKind::Button || control.Kind() == ControlKind::OptionButton;
}

}  // namespace

void Form::PressKey(std::int16_t keyCode, std::int16_t shift) {
  const auto self = shared_from_this();
  if (design_.keyPreview) OnKeyDown(keyCode, shift);
  // The handler may have hidden or unloaded the form.
  if (keyCode == 0 || !visible_) return;
  if (keyCode == kKeyEnter) {
    ClickIfReachable(EnterButton(*controls_));
  } else if (keyCode == kKeyEscape) {
    ClickIfReachable(controls_->ButtonWith(ButtonRole::Cancel));
  } else if (keyCode == kKeyTab) {
    MoveFocus((shift & kShiftKey) != 0);
  } else if (Control* focused = controls_->Focused(); focused != nullptr) {
    if (focused->IsReachable()) focused->PressKey(keyCode);
  }
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
