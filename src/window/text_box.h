// A box with one line of text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "pagivo/export.h"
#include "window/control.h"

namespace pagivo {

// Lengths and positions count characters, not bytes of the UTF-8.
class PAGIVO_EXPORT TextBox : public Control {
 public:
  TextBox(ControlSet& controls, const ControlDesign& design);

  const std::string& Text() const noexcept { return text_; }
  // Cut to the maximum length. A text that differs takes away the selection, with the insertion
  // point at its start, and raises change; the same text does nothing.
  void PutText(std::string_view text);

  std::size_t SelectionStart() const noexcept { return selectionStart_; }
  std::size_t SelectionLength() const noexcept { return selectionLength_; }
  // Both cut to what the text has.
  void PutSelection(std::size_t start, std::size_t length);
  void SelectAll();

  // What the user does to the text. A box that takes no text ignores it.

  // Replaces the selection as typing does: what goes beyond the maximum length is lost. Raises
  // change when the text differs.
  void Type(std::string_view text);
  // Takes away the selection, or the character before the insertion point. Raises change.
  void Backspace();
  // What the user has made of the text by any other means: cut to the maximum length, with nothing
  // selected and the insertion point before that character. Raises change when the text differs.
  void Edit(std::string_view text, std::size_t insertionPoint);

  // The mouse's button goes down before that character; it comes up again with a click. A press
  // that brings the focus leaves the selection that the box's own handler makes then, and any other
  // one takes the insertion point there.
  void Press(std::size_t position);

  // Enter is a click, in a form without a default button to press.
  bool PressKey(std::int16_t keyCode, std::int16_t shift) override;

 private:
  std::string Cut(std::string_view text, std::size_t taken) const;
  void Take(std::string text, std::size_t insertionPoint);

  std::string text_;
  std::size_t selectionStart_ = 0;
  std::size_t selectionLength_ = 0;
};

}  // namespace pagivo
