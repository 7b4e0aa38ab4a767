// What forms count in and what Qt does: twips and logical pixels, characters of UTF-8 and units of
// UTF-16.
#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

#include "values/measures.h"
#include "window/control_design.h"

namespace pagivo::qt {

// --- Lengths ------------------------------------------------------------------------------------

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

inline Placement ToTwips(const QRect& rectangle) {
  return {.left = ToTwips(rectangle.left()),
          .top = ToTwips(rectangle.top()),
          .width = ToTwips(rectangle.width()),
          .height = ToTwips(rectangle.height())};
}

// --- Texts --------------------------------------------------------------------------------------

inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text) {
  return text.toStdString();
}

// How many characters stand in the first `units` UTF-16 units.
inline std::size_t CharactersBefore(const QString& text, int units) {
  return static_cast<std::size_t>(text.left(units).toUcs4().size());
}

// How many UTF-16 units the first characters take; all of them when the text has fewer characters.
inline int UnitsBefore(const QString& text, std::size_t characters) {
  qsizetype units = 0;
  for (; characters > 0 && units < text.size(); --characters) {
    units += text.at(units).isHighSurrogate() && units + 1 < text.size() ? 2 : 1;
  }
  return static_cast<int>(units);
}

}  // namespace pagivo::qt
