#include "engine/native/pdf/page_geometry.h"

#include <algorithm>
#include <cmath>

namespace pagivo::native {
namespace {

constexpr double kMostUnits = 14400;
constexpr double kFarthest = 1e9;  // hundredths

// A page without a size still is one.
double Sane(float length) {
  return std::isfinite(length) ? std::clamp<double>(length, kTwipsPerPoint, 1e9) : kTwipsPerPoint;
}

}  // namespace

PdfGeometry::PdfGeometry(const PageGeometry& page) : height_(Sane(page.height)) {
  const double width = Sane(page.width);
  const double points = std::max(width, height_) / kTwipsPerPoint;
  userUnit_ = static_cast<int>(std::ceil(points / kMostUnits));
  unitsPerTwip_ = 1 / (kTwipsPerPoint * userUnit_);
  size_ = {Length(width), Length(height_)};
}

Hundredths PdfGeometry::Length(double twips) const {
  return std::llround(std::clamp(twips * unitsPerTwip_ * 100, -kFarthest, kFarthest));
}

PdfPoint PdfGeometry::At(double x, double y) const {
  return {Length(x), Length(height_ - y)};
}

}  // namespace pagivo::native
