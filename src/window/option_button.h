// One of several choices.
#pragma once

#include "window/control.h"

namespace pagivo {

// At most one option of a container is set.
class OptionButton : public Control {
 public:
  using Control::Control;

  bool Value() const noexcept { return value_; }
  // Setting it clears the other options of its container and raises its click; clearing raises
  // nothing and sets no other.
  void PutValue(bool value);
  // Whether an option of its container is set.
  bool GroupHasChoice() const;

  void Click() override { PutValue(true); }

 private:
  void ClearOthers();

  bool value_ = false;
};

}  // namespace pagivo
