// A toolbar: a row of buttons that are reached by key.
#pragma once

#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "window/window_system.h"

namespace pagivo {

// A button as designed. Its image is the one with the same key.
struct ToolbarButton {
  enum class Style { Button, Separator, Placeholder, DropDown };

  std::string_view key;  // empty when nobody reaches it
  Style style = Style::Button;
  std::string_view toolTip = {};
  float width = 0;  // twips, of a placeholder
  bool enabled = true;
  bool visible = true;
};

// A change of a button shows at the next Refresh.
class Toolbar {
 public:
  explicit Toolbar(std::span<const ToolbarButton> design);

  // The toolbar's appearance on a form.
  void Attach(std::unique_ptr<ToolbarPeer> peer) { peer_ = std::move(peer); }

  std::span<const ToolbarButton> Buttons() const noexcept { return buttons_; }
  // Raises Error when no button has this key (exactly).
  ToolbarButton& Button(std::string_view key);
  void Refresh();

 private:
  std::vector<ToolbarButton> buttons_;
  std::unique_ptr<ToolbarPeer> peer_;
};

}  // namespace pagivo
