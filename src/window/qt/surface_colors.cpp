#include "window/qt/surface_colors.h"

namespace pagivo::qt {

namespace {

// `share` of 255 parts of `over`.
QColor Blend(const QColor& under, const QColor& over, int share) {
  const auto mix = [share](int from, int to) { return from + (to - from) * share / 255; };
  return {mix(under.red(), over.red()), mix(under.green(), over.green()),
          mix(under.blue(), over.blue())};
}

}  // namespace

SurfaceColors SurfaceColorsFor(const QPalette& palette) {
  const QColor ground = Blend(palette.color(QPalette::Active, QPalette::Window), Qt::black, 32);
  const QColor edge = Blend(ground, palette.color(QPalette::Active, QPalette::WindowText), 96);
  return {.ground = ground.rgb(),
          .edge = edge.rgb(),
          .highlight = palette.color(QPalette::Active, QPalette::Highlight).rgb()};
}

}  // namespace pagivo::qt
