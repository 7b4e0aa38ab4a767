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

void ScrollBar::PressKey(std::int16_t keyCode) {
  if (keyCode == kKeyUp) StepUp();
  if (keyCode == kKeyDown) StepDown();
}

}  // namespace pagivo
