// The paper and margins that the next page is begun with.
#pragma once

#include <cstdint>

#include "engine/native/document/document.h"
#include "engine/native/document/paper_sizes.h"

namespace pagivo::native {

// Distances from the paper's edges, twips.
struct Margins {
  double left = 1440;
  double top = 1440;
  double right = 1440;
  double bottom = 1440;
};

// A paper and the way it is turned. The page is the paper as it is turned: in landscape the page's
// width is the paper's height. Setters raise ErrorNumber::InvalidPropertyValue and then change
// nothing.
class PageSettings {
 public:
  std::int32_t PaperSize() const noexcept { return paperSize_; }
  // Known codes and kPaperUserDefined, which keeps the size in force.
  void PutPaperSize(std::int32_t code);

  bool IsLandscape() const noexcept { return isLandscape_; }
  void PutLandscape(bool on) noexcept { isLandscape_ = on; }

  double PageWidth() const noexcept { return isLandscape_ ? paperHeight_ : paperWidth_; }
  double PageHeight() const noexcept { return isLandscape_ ? paperWidth_ : paperHeight_; }
  PageGeometry Geometry() const noexcept;

  // Each makes the paper user-defined and keeps the other extent. Twips, kMinimumPaperExtent to
  // kMaximumPaperExtent.
  void PutPageWidth(double width);
  void PutPageHeight(double height);
  void PutPaperWidth(double width);
  void PutPaperHeight(double height);

 private:
  void PutExtent(double& extent, double value, const char* property);

  std::int32_t paperSize_ = kPaperA4;
  bool isLandscape_ = false;
  double paperWidth_ = FindPaperSize(kPaperA4)->width;
  double paperHeight_ = FindPaperSize(kPaperA4)->height;
};

}  // namespace pagivo::native
