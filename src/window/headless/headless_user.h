// What a script does to a window in the user's place.
#pragma once

#include <cstdint>
#include <string_view>

#include "window/form.h"

namespace pagivo {

// Controls are reached by name; one of no such name or kind raises Error. As with a real user,
// doing something to a control that is disabled or hidden has no effect, and clicking a control
// gives it the focus. Errors of handlers are passed on.
class HeadlessUser {
 public:
  // The form that is shown.
  explicit HeadlessUser(Form& form) : form_(form) {}

  void Click(std::string_view control);
  void ClickToolbar(std::string_view toolbar, std::string_view button);
  void ClickToolbarMenu(std::string_view toolbar, std::string_view item);
  // Puts `text` in the place of all that stands in a text box or editable combo box, at once.
  void Replace(std::string_view control, std::string_view text);
  // Types over what is selected, a character at a time.
  void Type(std::string_view control, std::string_view text);
  // Selects all and takes it away.
  void Erase(std::string_view control);
  void Press(std::int16_t keyCode, std::int16_t shift = 0);
  void PressAccessKey(char letter);
  // Picks an item of a combo box's list by its place, from 0.
  void Pick(std::string_view comboBox, std::int32_t item);
  void Scroll(std::string_view scrollBar, std::int16_t value);
  // The arrow at the bar's upper or lower end.
  void ClickUpArrow(std::string_view scrollBar);
  void ClickDownArrow(std::string_view scrollBar);
  void Resize(const Extent& size);
  void Close();

 private:
  // Gives the control the focus and says whether the user can use it.
  bool Reach(Control& control);

  Form& form_;
};

}  // namespace pagivo
