#include "window/toolbar.h"

#include <algorithm>
#include <string>

#include "pagivo/error.h"

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
  if (const KeyHandler running = handler) running(key);
}

}  // namespace pagivo
