#include "engine/native/pdf/page_geometry.h"

#include <algorithm>
#include <cmath>

namespace pagivo::native {
namespace {

constexpr double kMostUnits = 14400;
constexpr double kFarthest = 1e9;  // hundredths

// Twips: a point, and three times the largest paper that there is.
constexpr float kSmallestPage = 20;
constexpr float kLargestPage = 1e6;

float Sane(float length) {
  return std::isfinite(length) ? std::clamp(length, kSmallestPage, kLargestPage) : kSmallestPage;
}

}  // namespace

PdfGeometry::PdfGeometry(const PageGeometry& page) : paper_{Sane(page.width), Sane(page.height)} {
  const double points = std::max(paper_.width, paper_.height) / kTwipsPerPoint;
  userUnit_ = static_cast<int>(std::ceil(points / kMostUnits));
  unitsPerTwip_ = 1 / (kTwipsPerPoint * userUnit_);
  size_ = {Length(paper_.width), Length(paper_.height)};
}

Hundredths PdfGeometry::Length(double twips) const {
  return std::llround(std::clamp(twips * unitsPerTwip_ * 100, -kFarthest, kFarthest));
}

PdfPoint PdfGeometry::At(double x, double y) const {
  return {Length(x), Length(paper_.height - y)};
}

}  // namespace pagivo::native
