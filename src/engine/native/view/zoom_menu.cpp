#include "engine/native/view/zoom_menu.h"

#include <algorithm>
#include <array>

#include "engine/print_engine.h"

namespace pagivo::native {
namespace {

constexpr std::string_view kMenuText = "Whole &Page|Page &Width|&Two Pages|Thumb&nail";

// In the order of the text.
constexpr std::array kModes{kZoomWholePage, kZoomPageWidth, kZoomTwoPages, kZoomOverview};

using Items = std::array<MenuItem, kModes.size()>;

// An item's text is its key too.
constexpr Items SplitMenu() {
  Items items;
  std::string_view rest = kMenuText;
  for (MenuItem& item : items) {
    const std::string_view text = rest.substr(0, rest.find('|'));
    item = {.text = text, .key = text};
    rest.remove_prefix(std::min(text.size() + 1, rest.size()));
  }
  return items;
}

constexpr Items kItems = SplitMenu();

}  // namespace

std::span<const MenuItem> ZoomMenu() noexcept {
  return kItems;
}

std::optional<std::int32_t> ZoomModeOf(std::string_view menuKey) noexcept {
  for (std::size_t i = 0; i < kItems.size(); ++i) {
    if (kItems[i].key == menuKey) return kModes[i];
  }
  return std::nullopt;
}

}  // namespace pagivo::native
