// A list to pick from, with a text that may be typed when the design says so.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "pagivo/export.h"
#include "window/control.h"

namespace pagivo {

class PAGIVO_EXPORT ComboBox : public Control {
 public:
  ComboBox(ControlSet& controls, const ControlDesign& design);

  std::int32_t Count() const noexcept { return static_cast<std::int32_t>(items_.size()); }
  // Items count from 0; outside the list an item reads as an empty text.
  std::string_view Item(std::int32_t index) const noexcept;
  void AddItem(std::string item);
  // Empties the list and the text.
  void Clear();

  // The selected item, -1 when none is.
  std::int32_t ListIndex() const noexcept { return listIndex_; }
  // Selecting an item makes it the text and raises click; -1 empties the text and raises nothing.
  // Raises Error outside the list.
  void PutListIndex(std::int32_t index);

  // The selected item or what was typed.
  const std::string& Text() const noexcept { return text_; }
  // Selects no item; raises change when the text differs. Raises Error when the text of this box
  // cannot be typed.
  void PutText(std::string_view text);

  // The arrows up and down select the item above and below; with Alt they are the list's.
  bool PressKey(std::int16_t keyCode, std::int16_t shift) override;

 private:
  std::vector<std::string> items_;
  std::int32_t listIndex_ = -1;
  std::string text_;
};

}  // namespace pagivo
