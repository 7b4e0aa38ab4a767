#include "pagivo/page_image.h"

#include <utility>

#include "engine/native/document/geometry.h"
#include "engine/native/native_engine.h"
#include "engine/native/raster/bitmap_player.h"
#include "engine/native/raster/png_file.h"
#include "pagivo/error.h"
#include "preview/preview_form.h"
#include "values/errors.h"

namespace pagivo {
namespace {

const native::Document& CurrentDocument() {
  const auto* engine = dynamic_cast<const native::NativeEngine*>(PreviewForm().vsPrint().get());
  if (engine == nullptr) {
    throw Error(ErrorNumber::InvalidArgument,
                "Het document is niet met de eigen afdrukmachine opgemaakt");
  }
  engine->RequireWhole();
  return engine->GetDocument();
}

void RequirePage(const native::Document& document, std::int32_t page) {
  if (page < 1 || page > document.PageCount()) {
    throw Error(ErrorNumber::PageOutOfRange,
                "Het document heeft geen pagina " + std::to_string(page));
  }
}

constexpr double kMaximumImagePixels = 1 << 28;

void RequireResolution(const native::PageGeometry& paper, double dotsPerInch) {
  const double scale = dotsPerInch / kTwipsPerInch;
  const bool isPossible = dotsPerInch >= kMinimumDotsPerInch &&
                          dotsPerInch <= kMaximumDotsPerInch &&
                          (paper.width * scale) * (paper.height * scale) <= kMaximumImagePixels;
  if (!isPossible) {
    throw Error(ErrorNumber::InvalidArgument, "Ongeldig aantal punten per inch");
  }
}

native::Bitmap DrawCurrentPage(std::int32_t page, double dotsPerInch, native::Bitmap bitmap = {}) {
  const native::Document& document = CurrentDocument();
  RequirePage(document, page);
  RequireResolution(document.GeometryOf(page), dotsPerInch);
  native::DrawWholePage(document, page, dotsPerInch, bitmap);
  return bitmap;
}

}  // namespace

void DrawPageImage(std::int32_t page, double dotsPerInch, PageImage& image) {
  ReportingErrors([&] {
    PageImage kept = std::exchange(image, {});
    native::Bitmap bitmap = DrawCurrentPage(page, dotsPerInch, {0, 0, std::move(kept.pixels)});
    image = {bitmap.width, bitmap.height, std::move(bitmap.pixels)};
  });
}

PageImage DrawPageImage(std::int32_t page, double dotsPerInch) {
  PageImage image;
  DrawPageImage(page, dotsPerInch, image);
  return image;
}

void WritePagePng(std::int32_t page, double dotsPerInch, const TextArgument& path) {
  ReportingErrors([&] { native::WritePng(DrawCurrentPage(page, dotsPerInch), path); });
}

}  // namespace pagivo
