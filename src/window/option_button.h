// One of several choices.
#pragma once

#include <cstdint>

#include "pagivo/export.h"
#include "window/control.h"

namespace pagivo {

// At most one option of a container is set.
class PAGIVO_EXPORT OptionButton : public Control {
 public:
  using Control::Control;

  bool Value() const noexcept { return value_; }
  // Setting it clears the other options of its container and raises its click; clearing raises
  // nothing and sets no other.
  void PutValue(bool value);
  // Tells whether an option of its container is set.
  bool GroupHasChoice() const;

  void Click() override { PutValue(true); }
  // The arrows go to the next or previous option of the container that can be reached, round the
  // end, and set it.
  bool PressKey(std::int16_t keyCode, std::int16_t shift) override;

 private:
  void ClearOthers();
  OptionButton* NextInGroup(bool backwards) const;

  bool value_ = false;
};

}  // namespace pagivo
