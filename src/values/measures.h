// Twips, in which everything is measured, and the other units of length.
#pragma once

namespace pagivo {

inline constexpr double kTwipsPerInch = 1440;
inline constexpr double kTwipsPerPoint = 20;
inline constexpr double kTwipsPerMillimetre = kTwipsPerInch / 25.4;
// A logical pixel is a 96th of an inch, however many device pixels a screen has for it.
inline constexpr float kTwipsPerPixel = 15;
inline constexpr double kPixelsPerInch = kTwipsPerInch / kTwipsPerPixel;

}  // namespace pagivo
