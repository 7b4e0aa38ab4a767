// The controls of one loaded form.
#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "pagivo/export.h"
#include "window/control.h"

namespace pagivo {

class PAGIVO_EXPORT ControlSet {
 public:
  // Makes the controls in the order of their table.
  explicit ControlSet(std::span<const ControlDesign> designs);
  ControlSet(const ControlSet&) = delete;
  ControlSet& operator=(const ControlSet&) = delete;

  std::span<const std::shared_ptr<Control>> All() const noexcept { return controls_; }
  // Raises Error when no control has this name (exactly).
  Control& Find(std::string_view name) const;
  // Null when there is none.
  Control* ButtonWith(ButtonRole role) const;

  // Null as long as no control had the focus.
  Control* Focused() const noexcept { return focused_; }
  // The next control in the tab order that takes the focus, from `from` (null: from the start)
  // onwards or backwards and round the end. Of a group of options with one set only that one
  // counts. Null when no control takes the focus.
  Control* NextInTabOrder(const Control* from, bool backwards = false) const;

 private:
  friend class Control;

  std::vector<Control*> TabOrder() const;

  std::vector<std::shared_ptr<Control>> controls_;
  Control* focused_ = nullptr;
};

}  // namespace pagivo
