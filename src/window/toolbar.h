// A toolbar: a row of buttons that are reached by key.
#pragma once

#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "pagivo/export.h"
#include "window/control.h"

namespace pagivo {

// A change of a button shows at the next Refresh.
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

 private:
  void Raise(const KeyHandler& handler, std::string_view key);

  std::vector<ToolbarButton> buttons_;
  KeyHandler buttonClicked_;
  KeyHandler menuClicked_;
};

}  // namespace pagivo
