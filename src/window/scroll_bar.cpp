#include "window/scroll_bar.h"

#include "pagivo/error.h"
#include "window/key_codes.h"

namespace pagivo {

ScrollBar::ScrollBar(ControlSet& controls, const ControlDesign& design)
    : Control(controls, design), value_(design.minimum) {}

void ScrollBar::PutValue(std::int16_t value) {
  if (value < Minimum() || value > Maximum()) ThrowInvalidPropertyValue("Value");
  if (value == value_) return;
  value_ = value;
  Refresh();
  RaiseChange();
}

void ScrollBar::StepUp() {
  if (value_ > Minimum()) PutValue(static_cast<std::int16_t>(value_ - 1));
}

void ScrollBar::StepDown() {
  if (value_ < Maximum()) PutValue(static_cast<std::int16_t>(value_ + 1));
}

bool ScrollBar::PressKey(std::int16_t keyCode, std::int16_t) {
  if (keyCode == kKeyUp) {
    StepUp();
  } else if (keyCode == kKeyDown) {
    StepDown();
  } else {
    return false;
  }
  return true;
}

}  // namespace pagivo
