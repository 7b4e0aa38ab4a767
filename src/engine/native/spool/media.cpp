#include "engine/native/spool/media.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "engine/papers.h"
#include "values/measures.h"

namespace pagivo::native {
namespace {

constexpr double kHundredthsPerTwip = 2540 / kTwipsPerInch;

// 210 mm are 11906 twips, which are 210.01 mm: what is whole millimetres but for less than half a
// twip is meant so.
int Nearest(double twips) {
  const double exact = twips * kHundredthsPerTwip;
  const double millimetres = std::round(exact / 100) * 100;
  const bool isWhole = std::abs(millimetres - exact) <= kHundredthsPerTwip / 2;
  return static_cast<int>(std::lround(isWhole ? millimetres : exact));
}

int RoundedUp(double twips) {
  return static_cast<int>(std::ceil(twips * kHundredthsPerTwip));
}

MediaSize Upright(const MediaSize& size) {
  return {std::min(size.width, size.height), std::max(size.width, size.height)};
}

// How far two papers' sides are apart at most.
int Distance(const MediaSize& one, const MediaSize& other) {
  const MediaSize a = Upright(one);
  const MediaSize b = Upright(other);
  return std::max(std::abs(a.width - b.width), std::abs(a.height - b.height));
}

bool Holds(const CustomMedia& range, const MediaSize& size) {
  return size.width >= range.smallest.width && size.width <= range.largest.width &&
         size.height >= range.smallest.height && size.height <= range.largest.height;
}

const Medium* NearestMedium(const PrinterMedia& printer, const MediaSize& size) {
  const auto distance = [&](const Medium& medium) { return Distance(medium.size, size); };
  const auto nearest = std::ranges::min_element(printer.media, {}, distance);
  if (nearest == printer.media.end() || distance(*nearest) > kMediaTolerance) return nullptr;
  return &*nearest;
}

}  // namespace

MediaSize UprightSize(double width, double height) {
  return Upright({Nearest(width), Nearest(height)});
}

std::optional<Medium> FindMedium(const PrinterMedia& printer, double width, double height) {
  const MediaSize size = UprightSize(width, height);
  if (const Medium* medium = NearestMedium(printer, size)) return *medium;
  const auto holds = [&](const CustomMedia& range) { return Holds(range, size); };
  const auto range = std::ranges::find_if(printer.custom, holds);
  if (range == printer.custom.end()) return std::nullopt;
  const MediaSize whole = Upright({RoundedUp(width), RoundedUp(height)});
  return Medium{.size = {std::min(whole.width, range->largest.width),
                         std::min(whole.height, range->largest.height)},
                .margins = range->margins};
}

bool SupportsPaper(const PrinterMedia& printer, std::int32_t code) {
  const Paper* paper = FindPaper(code);
  if (paper == nullptr && code != kPaperUserDefined) return false;
  if (printer.media.empty() && printer.custom.empty()) return true;
  if (paper == nullptr) return !printer.custom.empty();
  return NearestMedium(printer, UprightSize(paper->width, paper->height)) != nullptr;
}

PrintableCorner PrintableCornerOf(const PrinterMedia& printer, double width, double height) {
  const std::optional<Medium> medium = FindMedium(printer, width, height);
  if (!medium) return {};
  const MediaMargins& margins = medium->margins;
  const bool isFedUpright = medium->size.width <= medium->size.height;
  if ((width <= height) == isFedUpright) {
    return {margins.left / kHundredthsPerTwip, margins.top / kHundredthsPerTwip};
  }
  return {std::max(margins.top, margins.bottom) / kHundredthsPerTwip,
          std::max(margins.left, margins.right) / kHundredthsPerTwip};
}

}  // namespace pagivo::native
