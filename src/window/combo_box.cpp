#include "window/combo_box.h"

#include <utility>

#include "pagivo/error.h"
#include "window/key_codes.h"

namespace pagivo {

ComboBox::ComboBox(ControlSet& controls, const ControlDesign& design)
    : Control(controls, design), text_(design.caption) {}

std::string_view ComboBox::Item(std::int32_t index) const noexcept {
  if (index < 0 || index >= Count()) return {};
  return items_[static_cast<std::size_t>(index)];
}

void ComboBox::AddItem(std::string item) {
  items_.push_back(std::move(item));
  Refresh();
}

void ComboBox::Clear() {
  items_.clear();
  PutListIndex(-1);
}

void ComboBox::PutListIndex(std::int32_t index) {
  if (index < -1 || index >= Count()) ThrowInvalidPropertyValue("ListIndex");
  listIndex_ = index;
  text_ = Item(index);
  Refresh();
  if (index >= 0) RaiseClick();
}

void ComboBox::PutText(std::string_view text) {
  if (!Design().editable) ThrowInvalidPropertyValue("Text");
  listIndex_ = -1;
  if (text == text_) return;
  text_ = text;
  Refresh();
  RaiseChange();
}

bool ComboBox::PressKey(std::int16_t keyCode, std::int16_t shift) {
  if ((keyCode != kKeyUp && keyCode != kKeyDown) || (shift & kAltKey) != 0) return false;
  const std::int32_t next = listIndex_ + (keyCode == kKeyUp ? -1 : 1);
  if (next >= 0 && next < Count()) PutListIndex(next);
  return true;
}

}  // namespace pagivo
