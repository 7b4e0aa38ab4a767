// A vertical scroll bar: a number within a range, the lowest at the top.
#pragma once

#include <cstdint>

#include "pagivo/export.h"
#include "window/control.h"

namespace pagivo {

// Its value starts at the minimum.
class PAGIVO_EXPORT ScrollBar : public Control {
 public:
  ScrollBar(ControlSet& controls, const ControlDesign& design);

  std::int16_t Minimum() const noexcept { return Design().minimum; }
  std::int16_t Maximum() const noexcept { return Design().maximum; }
  std::int16_t Value() const noexcept { return value_; }
  // Raises change when the value differs, and Error, changing nothing, when it is out of range.
  void PutValue(std::int16_t value);

  // What its arrows do: one less, one more, as far as the range goes.
  void StepUp();
  void StepDown();

  // The arrows up and down step.
  bool PressKey(std::int16_t keyCode, std::int16_t shift) override;

 private:
  std::int16_t value_;
};

}  // namespace pagivo
