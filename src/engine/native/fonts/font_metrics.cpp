#include "engine/native/fonts/font_metrics.h"

#include <hb-ot.h>

#include <algorithm>

namespace pagivo::native {
namespace {

double MetricOf(const Face& face, hb_ot_metrics_tag_t tag) {
  hb_position_t value = 0;
  if (!hb_ot_metrics_get_position(face.HarfBuzzFont(), tag, &value)) return 0;
  return static_cast<double>(value) / face.UnitsPerEm();
}

void ReadLines(const Face& face, FontMetrics& metrics) {
  const double ascent = MetricOf(face, HB_OT_METRICS_TAG_HORIZONTAL_ASCENDER);
  const double descent = -MetricOf(face, HB_OT_METRICS_TAG_HORIZONTAL_DESCENDER);
  const double gap = MetricOf(face, HB_OT_METRICS_TAG_HORIZONTAL_LINE_GAP);
  const bool sane = ascent > 0 && ascent + descent > 0;
  metrics.ascent = sane ? ascent : 0.8;
  metrics.lineSpacing = sane ? ascent + descent + std::max(gap, 0.0) : 1.2;
}

// The table gives the line's upper edge. A face without a sane line gets one as most faces have.
void ReadUnderline(const Face& face, FontMetrics& metrics) {
  const double thickness = MetricOf(face, HB_OT_METRICS_TAG_UNDERLINE_SIZE);
  const double center = -MetricOf(face, HB_OT_METRICS_TAG_UNDERLINE_OFFSET) + thickness / 2;
  const bool sane = thickness > 0 && thickness < 0.25 && center > 0 && center < 0.5;
  metrics.underlineThickness = sane ? thickness : 0.05;
  metrics.underlinePosition = sane ? center : 0.125;
}

}  // namespace

FontMetrics ReadFontMetrics(const Face& face) {
  FontMetrics metrics;
  ReadLines(face, metrics);
  ReadUnderline(face, metrics);
  return metrics;
}

}  // namespace pagivo::native
