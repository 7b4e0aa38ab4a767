// The look of the report: one grid, one scale of type, few colours.
//
// Lengths are millimetres, font sizes points, pen widths twips, colours 0x00BBGGRR.
#pragma once

#include <array>
#include <cstdint>

#include "pagivo/constants.h"
#include "stability.h"

namespace plumeo {

using pagivo::Rgb;
namespace BrushStyle = pagivo::BrushStyle;
namespace Orientation = pagivo::Orientation;
namespace PenStyle = pagivo::PenStyle;

inline constexpr std::int32_t kInk = Rgb(33, 41, 51);
inline constexpr std::int32_t kMuted = Rgb(98, 110, 122);
inline constexpr std::int32_t kRuleColour = Rgb(196, 204, 211);
inline constexpr std::int32_t kAccent = Rgb(14, 85, 120);
inline constexpr std::int32_t kZebra = Rgb(243, 246, 248);
inline constexpr std::int32_t kWhite = pagivo::Color::White;
inline constexpr std::int32_t kAlarm = Rgb(176, 52, 40);

// From pale to dark, for areas of rising concentration.
inline constexpr std::array<std::int32_t, 6> kScaleColours = {
    Rgb(232, 241, 246), Rgb(203, 225, 235), Rgb(158, 200, 217),
    Rgb(104, 167, 194), Rgb(52, 127, 163),  Rgb(14, 85, 120)};

// One colour and one dash a stability class, from warm (unstable) to cold (stable).
inline constexpr std::array<std::int32_t, kStabilityCount> kClassColours = {
    Rgb(176, 52, 40), Rgb(221, 127, 43), Rgb(184, 150, 20),
    Rgb(60, 141, 90), Rgb(47, 120, 183), Rgb(61, 61, 122)};

struct Style {
  const char* font = "Arial";
  double size = 9.5;
  bool bold = false;
  bool italic = false;
  std::int32_t colour = kInk;
};

inline constexpr const char* kSans = "Arial";
inline constexpr const char* kSerif = "Times New Roman";
inline constexpr const char* kFixedWidth = "Courier New";

inline constexpr Style kBody{};
inline constexpr Style kBodyBold{.bold = true};
inline constexpr Style kChapterStyle{.size = 18, .bold = true, .colour = kAccent};
inline constexpr Style kSectionStyle{.size = 11.5, .bold = true, .colour = kAccent};
inline constexpr Style kSmall{.size = 8.5};
inline constexpr Style kSmallBold{.size = 8.5, .bold = true};
inline constexpr Style kSmallMuted{.size = 8, .colour = kMuted};
inline constexpr Style kRunningStyle{.size = 7.5, .colour = kMuted};
inline constexpr Style kFormulaStyle{.font = kSerif, .size = 11.5};

struct Pen {
  std::int32_t colour = kInk;
  std::int16_t width = 10;
  std::int32_t style = PenStyle::Solid;
};

inline constexpr Pen kThinRule{.colour = kRuleColour, .width = 8};
inline constexpr Pen kStrongRule{.colour = kAccent, .width = 20};
inline constexpr Pen kAxisPen{.colour = kInk, .width = 12};

// The page's grid. Headings' numbers hang in the margin left of the text.
inline constexpr double kHang = 22;
inline constexpr double kTextLeft = 36;
inline constexpr double kTextRight = 190;
inline constexpr double kTextWidth = kTextRight - kTextLeft;
inline constexpr double kTextTop = 32;
inline constexpr double kFooterGap = 22;  // from the text's end to the paper's
inline constexpr double kBodyLeading = 4.9;
inline constexpr double kPortraitWidth = 210;
inline constexpr double kPortraitHeight = 297;
inline constexpr double kRightMargin = kPortraitWidth - kTextRight;

}  // namespace plumeo
