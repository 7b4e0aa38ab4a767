#include "window/option_button.h"

#include <algorithm>

#include "window/control_set.h"

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

void OptionButton::ClearOthers() {
  for (const auto& control : Siblings().All()) {
    OptionButton* option = OptionBeside(*this, control);
    if (option != nullptr && option != this && option->value_) option->PutValue(false);
  }
}

}  // namespace pagivo
