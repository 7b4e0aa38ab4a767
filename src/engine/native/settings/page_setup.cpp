#include "engine/native/settings/page_setup.h"

#include "pagivo/error.h"

namespace pagivo::native {

void TurnedPaper::PutCode(std::int32_t code) {
  if (code != kPaperUserDefined) {
    const Paper* paper = FindPaper(code);
    if (paper == nullptr) ThrowInvalidPropertyValue("PaperSize");
    paperWidth_ = paper->width;
    paperHeight_ = paper->height;
  }
  code_ = code;
}

PageGeometry TurnedPaper::Geometry() const noexcept {
  return {static_cast<float>(PageWidth()), static_cast<float>(PageHeight())};
}

void TurnedPaper::PutPageWidth(double width) {
  PutExtent(isLandscape_ ? paperHeight_ : paperWidth_, width, "PageWidth");
}

void TurnedPaper::PutPageHeight(double height) {
  PutExtent(isLandscape_ ? paperWidth_ : paperHeight_, height, "PageHeight");
}

void TurnedPaper::PutPaperWidth(double width) {
  PutExtent(paperWidth_, width, "PaperWidth");
}

void TurnedPaper::PutPaperHeight(double height) {
  PutExtent(paperHeight_, height, "PaperHeight");
}

void TurnedPaper::PutExtent(double& extent, double value, const char* property) {
  const bool isPossible = value >= kMinimumPaperExtent && value <= kMaximumPaperExtent;
  if (!isPossible) ThrowInvalidPropertyValue(property);
  extent = value;
  code_ = kPaperUserDefined;
}

}  // namespace pagivo::native
