// What a user does to a window, for scripts.
#pragma once

#include <cstdint>
#include <string_view>

#include "window/window_system.h"

namespace pagivo {

// Controls are reached by name; one of no such name or kind raises Error. As with a real user,
// doing something to a control that is disabled or hidden has no effect, and clicking a control
// gives it the focus. Without a display errors of handlers are passed on to the script; a window
// system with an event loop of its own passes them on to whoever showed the form.
class FormUser {
 public:
  virtual ~FormUser() = default;

  virtual void Click(std::string_view control) = 0;
  virtual void ClickToolbar(std::string_view toolbar, std::string_view button) = 0;
  virtual void ClickToolbarMenu(std::string_view toolbar, std::string_view item) = 0;
  // Puts `text` in the place of all that stands in a text box or editable combo box, at once.
  virtual void Replace(std::string_view control, std::string_view text) = 0;
  // Types over what is selected, a character at a time.
  virtual void Type(std::string_view control, std::string_view text) = 0;
  // Selects all and takes it away.
  virtual void Erase(std::string_view control) = 0;
  void Press(std::int16_t keyCode, std::int16_t shift = 0) { PressKey(keyCode, shift); }
  virtual void PressAccessKey(char letter) = 0;
  // Picks an item of a combo box's list by its place, from 0.
  virtual void Pick(std::string_view comboBox, std::int32_t item) = 0;
  virtual void Scroll(std::string_view scrollBar, std::int16_t value) = 0;
  // The arrow at the bar's upper or lower end.
  virtual void ClickUpArrow(std::string_view scrollBar) = 0;
  virtual void ClickDownArrow(std::string_view scrollBar) = 0;
  virtual void Resize(const Extent& size) = 0;
  virtual void Close() = 0;

 protected:
  virtual void PressKey(std::int16_t keyCode, std::int16_t shift) = 0;
};

}  // namespace pagivo
