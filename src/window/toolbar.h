// A toolbar: a row of buttons that are reached by key.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "pagivo/export.h"
#include "window/control.h"

namespace pagivo {

// A change of a button shows at the next Refresh.
//
// F10 or F6 takes the keyboard into the toolbar (Form::PressKey): one of its buttons has it then,
// while the form's control with the focus stays the same. Arrows, Home and End go along the buttons
// that can be pressed, Enter and space press, arrow down opens a menu; Tab, F10, F6, every command
// and a control that gets the focus give the keyboard back.
class PAGIVO_EXPORT Toolbar : public Control {
 public:
  using KeyHandler = std::function<void(std::string_view key)>;

  Toolbar(ControlSet& controls, const ControlDesign& design);

  std::span<const ToolbarButton> Buttons() const noexcept { return buttons_; }
  // Raises Error when no button has this key (exactly).
  ToolbarButton& Button(std::string_view key);
  // Where a button begins, in twips from the toolbar's left edge: the visible buttons stand in a
  // row, each as wide as its style asks. A peer puts them there. Raises Error when no button has
  // this key.
  float LeftOf(std::string_view key) { return LeftOf(Button(key)); }
  float LeftOf(const ToolbarButton& button) const;  // one of Buttons()
  static float WidthOf(const ToolbarButton& button);

  void WhenButtonClicked(KeyHandler handler) { buttonClicked_ = std::move(handler); }
  void WhenMenuClicked(KeyHandler handler) { menuClicked_ = std::move(handler); }

  // What the user's click on a button does: nothing on one that is hidden, disabled or a separator.
  void ClickButton(std::string_view key);
  // The same for an entry of a button's drop-down menu. Raises Error when no menu has this key.
  void ClickMenu(std::string_view key);

  // The button that has the keyboard; null when none has it.
  const ToolbarButton* ButtonWithKeyboard() const noexcept;
  // Gives the keyboard to the first button that can be pressed. Returns false when there is none.
  bool TakeKeyboard();
  // Gives it to one of Buttons(), which has got it by other means of the window system.
  void TakeKeyboard(const ToolbarButton& button);
  void GiveKeyboardBack();
  // While one of the buttons has the keyboard. Esc gives it back and is left to the form.
  bool PressKey(std::int16_t keyCode, std::int16_t shift) override;

 private:
  void Raise(const KeyHandler& handler, std::string_view key);
  std::vector<std::size_t> PressableButtons() const;
  void PutKeyboardAt(std::size_t button);
  bool MoveKeyboard(std::int16_t keyCode);

  std::vector<ToolbarButton> buttons_;
  std::size_t keyboardAt_ = 0;  // the button that has the keyboard, or had it last
  KeyHandler buttonClicked_;
  KeyHandler menuClicked_;
};

}  // namespace pagivo
