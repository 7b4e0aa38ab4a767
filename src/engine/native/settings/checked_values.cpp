#include "engine/native/settings/checked_values.h"

#include <array>

#include "values/conversions.h"

namespace pagivo::native {
namespace {

constexpr Color Rgb(unsigned red, unsigned green, unsigned blue) {
  return red | green << 8 | blue << 16;
}
constexpr Color Grey(unsigned level) {
  return Rgb(level, level, level);
}

constexpr std::size_t kUnassigned = 25;

constexpr std::array<Color, 31> kSystemColors = {
    Grey(200),           // 0 scroll bar
    Grey(0),             // 1 desktop
    Rgb(153, 180, 209),  // 2 active title bar
    Rgb(191, 205, 219),  // 3 inactive title bar
    Grey(240),           // 4 menu
    Grey(255),           // 5 window
    Grey(100),           // 6 window frame
    Grey(0),             // 7 menu text
    Grey(0),             // 8 window text
    Grey(0),             // 9 active title bar text
    Grey(180),           // 10 active border
    Rgb(244, 247, 252),  // 11 inactive border
    Grey(171),           // 12 application workspace
    Rgb(0, 120, 215),    // 13 highlight
    Grey(255),           // 14 highlight text
    Grey(240),           // 15 button face
    Grey(160),           // 16 button shadow
    Grey(109),           // 17 greyed text
    Grey(0),             // 18 button text
    Grey(0),             // 19 inactive title bar text
    Grey(255),           // 20 button highlight
    Grey(105),           // 21 button dark shadow
    Grey(227),           // 22 button light
    Grey(0),             // 23 tool tip text
    Rgb(255, 255, 225),  // 24 tool tip
    Grey(0),             // 25 not assigned
    Rgb(0, 102, 204),    // 26 hot tracked
    Rgb(185, 209, 234),  // 27 active title bar's far end
    Rgb(215, 228, 242),  // 28 inactive title bar's far end
    Rgb(51, 153, 255),   // 29 menu highlight
    Grey(240),           // 30 menu bar
};

}  // namespace

double CheckedLength(std::string_view property, const Variant& value) {
  const double length = CheckedCoordinate(property, value);
  if (length < 0) ThrowInvalidPropertyValue(property);
  return length;
}

std::optional<Color> ResolveColor(std::int32_t value) {
  const auto color = static_cast<Color>(value);
  if (color <= 0xFFFFFF) return color;
  const std::size_t index = color & 0xFFFFFF;
  const bool isSystemColor = color >> 24 == 0x80 && index < kSystemColors.size();
  if (!isSystemColor || index == kUnassigned) return std::nullopt;
  return kSystemColors[index];
}

Color CheckedColor(std::string_view property, std::int32_t value) {
  const auto color = ResolveColor(value);
  if (!color) ThrowInvalidPropertyValue(property);
  return *color;
}

}  // namespace pagivo::native
