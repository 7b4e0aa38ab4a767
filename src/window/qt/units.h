// Twips, in which forms count, and Qt's logical pixels.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <cmath>

#include "values/measures.h"
#include "window/control_design.h"

namespace pagivo::qt {

// Kept within what windows take, so that no host's number is too large for them.
inline int ToPixels(float twips) {
  constexpr float kFarthest = 32767;
  const float pixels = std::round(twips / kTwipsPerPixel);
  return static_cast<int>(std::fmax(-kFarthest, std::fmin(kFarthest, pixels)));
}

inline float ToTwips(int pixels) {
  return static_cast<float>(pixels) * kTwipsPerPixel;
}

// Each edge goes to its nearest pixel, so that controls side by side keep touching.
inline QRect ToPixels(const Placement& placement) {
  const QPoint topLeft(ToPixels(placement.left), ToPixels(placement.top));
  const QSize size(ToPixels(placement.left + placement.width) - topLeft.x(),
                   ToPixels(placement.top + placement.height) - topLeft.y());
  return {topLeft, size.expandedTo(QSize(0, 0))};
}

}  // namespace pagivo::qt
