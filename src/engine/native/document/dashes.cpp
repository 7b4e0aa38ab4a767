#include "engine/native/document/display_list.h"

namespace pagivo::native {
namespace {

// A dot and a gap are three widths of the pen, so that at 96 dots an inch those of a hairline are
// one pixel; a dash is three dots.
constexpr float kDot = 3;
constexpr float kDash = 9;
constexpr float kGap = 3;

constexpr float kDashed[] = {kDash, kGap};
constexpr float kDotted[] = {kDot, kGap};
constexpr float kDashDotted[] = {kDash, kGap, kDot, kGap};
constexpr float kDashDotDotted[] = {kDash, kGap, kDot, kGap, kDot, kGap};

}  // namespace

std::span<const float> DashMultiples(PenStyle style) {
  switch (style) {
    case PenStyle::Dash:
      return kDashed;
    case PenStyle::Dot:
      return kDotted;
    case PenStyle::DashDot:
      return kDashDotted;
    case PenStyle::DashDotDot:
      return kDashDotDotted;
    case PenStyle::Solid:
    case PenStyle::Invisible:
    case PenStyle::InsideSolid:
      break;
  }
  return {};
}

}  // namespace pagivo::native
