#include "window/option_button.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "window/control.h"
#include "window/key_codes.h"

namespace pagivo {

namespace {

// The option of the same container that `control` is, else null.
OptionButton* OptionBeside(const Control& option, const std::shared_ptr<Control>& control) {
  if (control->Container() != option.Container()) return nullptr;
  return dynamic_cast<OptionButton*>(control.get());
}

}  // namespace

void OptionButton::PutValue(bool value) {
  if (value) ClearOthers();
  value_ = value;
  Refresh();
  if (value) RaiseClick();
}

bool OptionButton::GroupHasChoice() const {
  return std::ranges::any_of(Siblings().All(), [this](const auto& control) {
    const OptionButton* option = OptionBeside(*this, control);
    return option != nullptr && option->value_;
  });
}

bool OptionButton::PressKey(std::int16_t keyCode, std::int16_t) {
  const bool backwards = keyCode == kKeyUp || keyCode == kKeyLeft;
  if (!backwards && keyCode != kKeyDown && keyCode != kKeyRight) return false;
  OptionButton* next = NextInGroup(backwards);
  if (next == nullptr) return true;
  // The focus handler may unload the form, and this option with it.
  const std::weak_ptr<Control> reached = next->weak_from_this();
  next->Focus();
  if (const auto option = reached.lock()) option->Click();
  return true;
}

OptionButton* OptionButton::NextInGroup(bool backwards) const {
  std::vector<OptionButton*> group;
  for (const auto& control : Siblings().All()) {
    OptionButton* option = OptionBeside(*this, control);
    if (option != nullptr && (option == this || option->CanTakeFocus())) group.push_back(option);
  }
  if (backwards) std::reverse(group.begin(), group.end());
  std::rotate(group.begin(), std::ranges::find(group, this) + 1, group.end());
  return group.front() == this ? nullptr : group.front();
}

void OptionButton::ClearOthers() {
  for (const auto& control : Siblings().All()) {
    OptionButton* option = OptionBeside(*this, control);
    if (option != nullptr && option != this && option->value_) option->PutValue(false);
  }
}

}  // namespace pagivo
