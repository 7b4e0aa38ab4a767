#include "window/control_set.h"

#include <algorithm>
#include <string>

#include "pagivo/error.h"
#include "window/combo_box.h"
#include "window/option_button.h"
#include "window/scroll_bar.h"
#include "window/surface.h"
#include "window/text_box.h"
#include "window/toolbar.h"

namespace pagivo {

namespace {

std::shared_ptr<Control> Make(ControlSet& controls, const ControlDesign& design) {
  switch (design.kind) {
    case ControlKind::TextBox:
      return std::make_shared<TextBox>(controls, design);
    case ControlKind::ComboBox:
      return std::make_shared<ComboBox>(controls, design);
    case ControlKind::OptionButton:
      return std::make_shared<OptionButton>(controls, design);
    case ControlKind::ScrollBar:
      return std::make_shared<ScrollBar>(controls, design);
    case ControlKind::Surface:
      return std::make_shared<Surface>(controls, design);
    case ControlKind::Toolbar:
      return std::make_shared<Toolbar>(controls, design);
    default:
      return std::make_shared<Control>(controls, design);
  }
}

// Whether the keyboard reaches another option of its group instead.
bool IsPassedOver(const Control& control) {
  const auto* option = dynamic_cast<const OptionButton*>(&control);
  return option != nullptr && !option->Value() && option->GroupHasChoice();
}

}  // namespace

ControlSet::ControlSet(std::span<const ControlDesign> designs) {
  controls_.reserve(designs.size());
  for (const ControlDesign& design : designs) controls_.push_back(Make(*this, design));
}

Control& ControlSet::Find(std::string_view name) const {
  const auto found = std::ranges::find(controls_, name, &Control::Name);
  if (found == controls_.end()) {
    throw Error(ErrorNumber::InvalidArgument,
                "Het venster heeft geen besturingselement \"" + std::string(name) + "\"");
  }
  return **found;
}

Control* ControlSet::ButtonWith(ButtonRole role) const {
  const auto found = std::ranges::find_if(
      controls_, [role](const auto& control) { return control->Design().role == role; });
  return found == controls_.end() ? nullptr : found->get();
}

Control* ControlSet::NextInTabOrder(const Control* from, bool backwards) const {
  std::vector<Control*> order = TabOrder();
  if (backwards) std::reverse(order.begin(), order.end());
  const auto here = std::ranges::find(order, from);
  if (here != order.end()) std::rotate(order.begin(), here + 1, order.end());
  const auto next = std::ranges::find_if(order, [](const Control* control) {
    return control->CanTakeFocus() && !IsPassedOver(*control);
  });
  return next == order.end() ? nullptr : *next;
}

std::vector<Control*> ControlSet::TabOrder() const {
  std::vector<Control*> order;
  for (const auto& control : controls_) {
    if (control->Design().tabIndex >= 0) order.push_back(control.get());
  }
  std::stable_sort(order.begin(), order.end(), [](const Control* left, const Control* right) {
    return left->Design().tabIndex < right->Design().tabIndex;
  });
  return order;
}

}  // namespace pagivo
