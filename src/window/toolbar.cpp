#include "window/toolbar.h"

#include <algorithm>
#include <string>

#include "pagivo/error.h"

namespace pagivo {

Toolbar::Toolbar(std::span<const ToolbarButton> design) : buttons_(design.begin(), design.end()) {}

ToolbarButton& Toolbar::Button(std::string_view key) {
  const auto button = std::ranges::find(buttons_, key, &ToolbarButton::key);
  if (button == buttons_.end()) {
    throw Error(ErrorNumber::InvalidArgument,
                "De werkbalk heeft geen knop \"" + std::string(key) + "\"");
  }
  return *button;
}

void Toolbar::Refresh() {
  if (peer_) peer_->Refresh();
}

}  // namespace pagivo
