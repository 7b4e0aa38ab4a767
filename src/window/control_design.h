// How the controls of a form are designed: the rows of a form's control table.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace pagivo {

// A rectangle in twips, from the top left of the container's client area.
struct Placement {
  float left = 0;
  float top = 0;
  float width = 0;
  float height = 0;

  friend bool operator==(const Placement&, const Placement&) = default;
};

enum class ControlKind {
  Frame,  // a captioned border around other controls
  Label,
  PictureBox,  // a borderless container
  TextBox,
  ComboBox,
  OptionButton,
  ScrollBar,  // vertical
  Button,
  Toolbar,
  Surface,  // where an engine draws its preview
};

// What a button is pressed by besides the mouse.
enum class ButtonRole {
  None,
  Default,  // Enter
  Cancel,   // Esc
};

// An entry of a drop-down menu; "-" is a separator line. The letter behind & is its access key.
struct MenuItem {
  std::string_view text;
  std::string_view key;
  bool visible = true;
};

// A button of a toolbar as designed. Its image is the one with the same key.
struct ToolbarButton {
  enum class Style { Button, Separator, Placeholder, DropDown };

  std::string_view key;  // empty when nobody reaches it
  Style style = Style::Button;
  std::string_view toolTip = {};
  float width = 0;  // twips, of a placeholder
  bool enabled = true;
  bool visible = true;
  std::span<const MenuItem> menu = {};  // of a drop-down button
};

// A picture file in memory.
using FileBytes = std::span<const std::uint8_t>;

// Pictures that are reached by key, each drawn for two sizes.
struct ImageList {
  std::string_view name;
  int size = 16;  // pixels, in both directions
  std::span<const std::string_view> keys;
  // PNG files in the order of the keys: of that size, and of twice that size for dense screens.
  std::span<const FileBytes> files = {};
  std::span<const FileBytes> doubleFiles = {};

  // The file to show `pixels` wide and high: the double one for more than the list's size. Empty
  // when no image has this key (exactly).
  constexpr FileBytes Png(std::string_view key, int pixels) const {
    const std::span<const FileBytes> sized = pixels > size ? doubleFiles : files;
    for (std::size_t i = 0; i < sized.size(); ++i) {
      if (keys[i] == key) return sized[i];
    }
    return {};
  }
};

// One control. What is designed stays in the table; a control of a loaded form starts from it.
struct ControlDesign {
  std::string_view name;
  ControlKind kind;
  // Caption or initial text. The letter behind & is the access key.
  std::string_view caption = {};
  Placement placement = {};
  // The name of the control that it lies in, which stands before it in the table; empty on the form
  // itself.
  std::string_view container = {};
  std::int16_t tabIndex = -1;  // -1: not in the tab order
  ButtonRole role = ButtonRole::None;
  std::int16_t maximumLength = 0;  // characters of a text box, 0 = any number
  bool readOnly = false;           // a text box that shows a text and takes none
  std::int16_t minimum = 0;        // of a scroll bar
  std::int16_t maximum = 0;
  bool editable = false;  // a combo box whose text may be typed
  std::string_view fontName = "Tahoma";
  float fontSize = 8.25F;  // points
  // What a screen reader calls a control that has no caption and no label before it.
  std::string_view accessibleName = {};
  std::span<const ToolbarButton> buttons = {};
  const ImageList* images = nullptr;  // where a toolbar takes its buttons' images
};

}  // namespace pagivo
