#include "engine/native/page_settings.h"

#include "pagivo/error.h"

namespace pagivo::native {

void PageSettings::PutPaperSize(std::int32_t code) {
  if (code != kPaperUserDefined) {
    const native::PaperSize* size = FindPaperSize(code);
    if (size == nullptr) ThrowInvalidPropertyValue("PaperSize");
    paperWidth_ = size->width;
    paperHeight_ = size->height;
  }
  paperSize_ = code;
}

PageGeometry PageSettings::Geometry() const noexcept {
  return {static_cast<float>(PageWidth()), static_cast<float>(PageHeight())};
}

void PageSettings::PutPageWidth(double width) {
  PutExtent(isLandscape_ ? paperHeight_ : paperWidth_, width, "PageWidth");
}

void PageSettings::PutPageHeight(double height) {
  PutExtent(isLandscape_ ? paperWidth_ : paperHeight_, height, "PageHeight");
}

void PageSettings::PutPaperWidth(double width) {
  PutExtent(paperWidth_, width, "PaperWidth");
}

void PageSettings::PutPaperHeight(double height) {
  PutExtent(paperHeight_, height, "PaperHeight");
}

void PageSettings::PutExtent(double& extent, double value, const char* property) {
  const bool isPossible = value >= kMinimumPaperExtent && value <= kMaximumPaperExtent;
  if (!isPossible) ThrowInvalidPropertyValue(property);
  extent = value;
  paperSize_ = kPaperUserDefined;
}

}  // namespace pagivo::native
