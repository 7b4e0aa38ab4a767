#include "window/text_box.h"

#include <algorithm>
#include <utility>

#include "values/characters.h"
#include "window/key_codes.h"

namespace pagivo {

namespace {

bool StartsCharacter(char byte) {
  return !ContinuesUtf8(byte);
}

std::size_t CharactersIn(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(text, StartsCharacter));
}

// Where character `position` begins; the end of the text beyond its last one.
std::size_t ByteOf(std::string_view text, std::size_t position) {
  std::size_t byte = 0;
  for (; byte < text.size(); ++byte) {
    if (StartsCharacter(text[byte]) && position-- == 0) break;
  }
  return byte;
}

}  // namespace

TextBox::TextBox(ControlSet& controls, const ControlDesign& design)
    : Control(controls, design), text_(design.caption) {}

void TextBox::PutText(std::string_view text) {
  std::string cut = Cut(text, 0);
  if (cut != text_) Take(std::move(cut), 0);
}

void TextBox::PutSelection(std::size_t start, std::size_t length) {
  const std::size_t characters = CharactersIn(text_);
  selectionStart_ = std::min(start, characters);
  selectionLength_ = std::min(length, characters - selectionStart_);
  Refresh();
}

void TextBox::SelectAll() {
  PutSelection(0, CharactersIn(text_));
}

void TextBox::Type(std::string_view text) {
  if (Design().readOnly) return;
  const std::size_t from = ByteOf(text_, selectionStart_);
  const std::size_t to = ByteOf(text_, selectionStart_ + selectionLength_);
  const std::string typed = Cut(text, CharactersIn(text_) - selectionLength_);
  const std::size_t insertionPoint = selectionStart_ + CharactersIn(typed);
  Take(text_.substr(0, from) + typed + text_.substr(to), insertionPoint);
}

void TextBox::Backspace() {
  if (Design().readOnly) return;
  if (selectionLength_ == 0) {
    if (selectionStart_ == 0) return;
    PutSelection(selectionStart_ - 1, 1);
  }
  Type("");
}

void TextBox::Edit(std::string_view text, std::size_t insertionPoint) {
  if (!Design().readOnly) Take(Cut(text, 0), insertionPoint);
}

void TextBox::Press(std::size_t position) {
  if (HasFocus()) return PutSelection(position, 0);
  Focus();
}

bool TextBox::PressKey(std::int16_t keyCode, std::int16_t) {
  if (keyCode != kKeyEnter) return false;
  Click();
  return true;
}

// What of a text fits beside `taken` other characters.
std::string TextBox::Cut(std::string_view text, std::size_t taken) const {
  const auto maximum = static_cast<std::size_t>(Design().maximumLength);
  if (maximum == 0) return std::string(text);
  return std::string(text.substr(0, ByteOf(text, maximum - std::min(taken, maximum))));
}

void TextBox::Take(std::string text, std::size_t insertionPoint) {
  const bool differs = text != text_;
  text_ = std::move(text);
  PutSelection(insertionPoint, 0);
  if (differs) RaiseChange();
}

}  // namespace pagivo
