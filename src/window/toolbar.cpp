#include "window/toolbar.h"

#include <algorithm>
#include <string>

#include "pagivo/error.h"
#include "window/key_codes.h"

namespace pagivo {

namespace {

// Twips: an image of 16 pixels with an edge, the arrow beside it, and a thin line with room.
constexpr float kButtonWidth = 330;
constexpr float kArrowWidth = 195;
constexpr float kSeparatorWidth = 90;

const MenuItem* FindItem(std::span<const ToolbarButton> buttons, std::string_view key) {
  for (const ToolbarButton& button : buttons) {
    const auto item = std::ranges::find(button.menu, key, &MenuItem::key);
    if (item != button.menu.end()) return &*item;
  }
  return nullptr;
}

bool CanBePressed(const ToolbarButton& button) {
  const bool isButton = button.style == ToolbarButton::Style::Button ||
                        button.style == ToolbarButton::Style::DropDown;
  return isButton && button.enabled && button.visible;
}

}  // namespace

Toolbar::Toolbar(ControlSet& controls, const ControlDesign& design)
    : Control(controls, design), buttons_(design.buttons.begin(), design.buttons.end()) {}

ToolbarButton& Toolbar::Button(std::string_view key) {
  const auto button = std::ranges::find(buttons_, key, &ToolbarButton::key);
  if (button == buttons_.end()) {
    throw Error(ErrorNumber::InvalidArgument,
                "De werkbalk heeft geen knop \"" + std::string(key) + "\"");
  }
  return *button;
}

float Toolbar::LeftOf(const ToolbarButton& button) const {
  float left = 0;
  for (const ToolbarButton* before = buttons_.data(); before != &button; ++before) {
    if (before->visible) left += WidthOf(*before);
  }
  return left;
}

float Toolbar::WidthOf(const ToolbarButton& button) {
  switch (button.style) {
    case ToolbarButton::Style::Separator:
      return kSeparatorWidth;
    case ToolbarButton::Style::Placeholder:
      return button.width;
    case ToolbarButton::Style::DropDown:
      return kButtonWidth + kArrowWidth;
    default:
      return kButtonWidth;
  }
}

void Toolbar::ClickButton(std::string_view key) {
  const ToolbarButton& button = Button(key);
  if (!button.enabled || !button.visible) return;
  if (button.style == ToolbarButton::Style::Separator) return;
  Raise(buttonClicked_, key);
}

void Toolbar::ClickMenu(std::string_view key) {
  const MenuItem* item = FindItem(buttons_, key);
  if (item == nullptr) {
    throw Error(ErrorNumber::InvalidArgument,
                "De werkbalk heeft geen menukeuze \"" + std::string(key) + "\"");
  }
  if (item->visible && item->text != "-") Raise(menuClicked_, key);
}

void Toolbar::Raise(const KeyHandler& handler, std::string_view key) {
  // Copied and held: the handler may unload the form.
  const auto self = shared_from_this();
  GiveKeyboardBack();
  if (const KeyHandler running = handler) running(key);
}

// --- The keyboard -------------------------------------------------------------------------------

const ToolbarButton* Toolbar::ButtonWithKeyboard() const noexcept {
  return Siblings().toolbarWithKeyboard_ == this ? &buttons_[keyboardAt_] : nullptr;
}

bool Toolbar::TakeKeyboard() {
  const std::vector<std::size_t> pressable = PressableButtons();
  if (!IsReachable() || pressable.empty()) return false;
  PutKeyboardAt(pressable.front());
  return true;
}

void Toolbar::TakeKeyboard(const ToolbarButton& button) {
  if (ButtonWithKeyboard() != &button) {
    PutKeyboardAt(static_cast<std::size_t>(&button - buttons_.data()));
  }
}

void Toolbar::GiveKeyboardBack() {
  if (ButtonWithKeyboard() == nullptr) return;
  Siblings().toolbarWithKeyboard_ = nullptr;
  Refresh();
}

void Toolbar::PutKeyboardAt(std::size_t button) {
  Siblings().toolbarWithKeyboard_ = this;
  keyboardAt_ = button;
  Refresh();
}

bool Toolbar::PressKey(std::int16_t keyCode, std::int16_t) {
  const ToolbarButton* button = ButtonWithKeyboard();
  if (button == nullptr) return false;
  // Held: a command may unload the form.
  const auto self = shared_from_this();
  switch (keyCode) {
    case kKeyEscape:
      GiveKeyboardBack();
      return false;
    case kKeyTab:
    case kKeyF6:
    case kKeyF10:
      GiveKeyboardBack();
      return true;
    case kKeyEnter:
    case kKeySpace:
      ClickButton(button->key);
      return true;
    case kKeyDown:
      if (!button->menu.empty() && Peer() != nullptr) Peer()->OpenMenu(*button);
      return true;
    case kKeyUp:
      return true;
    default:
      return MoveKeyboard(keyCode);
  }
}

std::vector<std::size_t> Toolbar::PressableButtons() const {
  std::vector<std::size_t> pressable;
  for (std::size_t i = 0; i < buttons_.size(); ++i) {
    if (CanBePressed(buttons_[i])) pressable.push_back(i);
  }
  return pressable;
}

// Round the ends.
bool Toolbar::MoveKeyboard(std::int16_t keyCode) {
  const std::vector<std::size_t> pressable = PressableButtons();
  const auto here = std::ranges::find(pressable, keyboardAt_);
  if (here == pressable.end()) return false;
  switch (keyCode) {
    case kKeyHome:
      PutKeyboardAt(pressable.front());
      return true;
    case kKeyEnd:
      PutKeyboardAt(pressable.back());
      return true;
    case kKeyLeft:
      PutKeyboardAt(here == pressable.begin() ? pressable.back() : *(here - 1));
      return true;
    case kKeyRight:
      PutKeyboardAt(here + 1 == pressable.end() ? pressable.front() : *(here + 1));
      return true;
    default:
      return false;
  }
}

}  // namespace pagivo
