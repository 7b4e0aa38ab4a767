#include "engine/native/raster/bitmap_player.h"

#include <algorithm>
#include <cmath>

#include "engine/native/raster/canvas.h"
#include "engine/native/raster/picture_painter.h"
#include "engine/native/raster/text_painter.h"
#include "engine/native/raster/vector_painter.h"
#include "pagivo/error.h"

namespace pagivo::native {
namespace {

class BitmapPlayer final : public Player {
 public:
  BitmapPlayer(Canvas& canvas, const PageScale& scale, const PageGeometry& page)
      : text_(canvas, scale), vectors_(canvas, scale, page), pictures_(canvas, scale) {}

  void SetFont(const FontDescription& font) override { text_.SetFont(font); }
  void SetTextColor(Color color) override { text_.SetColor(color); }
  void SetPen(const Pen& pen) override { vectors_.SetPen(pen); }
  void SetBrush(const Brush& brush) override { vectors_.SetBrush(brush); }

  void DrawText(Point position, std::string_view text) override { text_.Draw(position, text); }
  void DrawLine(Point from, Point to) override { vectors_.DrawLine(from, to); }
  void DrawRectangle(const Rectangle& rectangle) override { vectors_.DrawRectangle(rectangle); }
  void DrawCircle(Point center, float radius) override { vectors_.DrawCircle(center, radius); }
  void DrawArc(const Arc& arc) override { vectors_.DrawArc(arc); }
  void DrawPolyline(std::span<const Point> points) override { vectors_.DrawPolyline(points); }
  void DrawPolygon(std::span<const Point> points) override { vectors_.DrawPolygon(points); }
  void DrawPicture(const Rectangle& rectangle, const PictureImageRef& picture) override {
    pictures_.Draw(rectangle, picture);
  }

 private:
  TextPainter text_;
  VectorPainter vectors_;
  PicturePainter pictures_;
};

void RequireDrawableSize(const PixelSize& size) {
  if (size.width > kMaximumBitmapSide || size.height > kMaximumBitmapSide) {
    throw Error(ErrorNumber::InvalidArgument, "De pagina is te groot om te tekenen");
  }
}

}  // namespace

PixelSize PagePixelSize(const PageGeometry& geometry, double pixelsPerTwip) {
  // A rounding error must not add a pixel.
  const auto pixels = [pixelsPerTwip](float twips) {
    return static_cast<std::int32_t>(std::ceil(double{twips} * pixelsPerTwip - 1e-3));
  };
  return {std::max(1, pixels(geometry.width)), std::max(1, pixels(geometry.height))};
}

void DrawPage(const Document& document, std::int32_t page, const PageView& view, Bitmap& bitmap,
              PaperState paper) {
  RequireDrawableSize({bitmap.width, bitmap.height});
  if (bitmap.width <= 0 || bitmap.height <= 0) return;
  const PageScale scale(view.pixelsPerTwip);
  const PageGeometry& geometry = document.GeometryOf(page);
  Canvas canvas(bitmap, view, PagePixelSize(geometry, view.pixelsPerTwip), paper);
  BitmapPlayer player(canvas, scale, geometry);
  document.Play(page, player);
  canvas.FinishPaper();
  canvas.RequireDrawn();
}

void DrawWholePage(const Document& document, std::int32_t page, double dotsPerInch,
                   Bitmap& bitmap) {
  const PageView view{dotsPerInch / kTwipsPerInch, 0, 0};
  const PixelSize size = PagePixelSize(document.GeometryOf(page), view.pixelsPerTwip);
  RequireDrawableSize(size);
  const auto count = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
  bitmap.width = bitmap.height = 0;  // until it has the pixels
  const PaperState paper = bitmap.pixels.capacity() < count ? PaperState::Laid : PaperState::ToLay;
  if (paper == PaperState::Laid) {
    bitmap.pixels = {};
    bitmap.pixels.assign(count, kPaperPixel);
  } else {
    bitmap.pixels.resize(count);
  }
  bitmap.width = size.width;
  bitmap.height = size.height;
  DrawPage(document, page, view, bitmap, paper);
}

Bitmap DrawWholePage(const Document& document, std::int32_t page, double dotsPerInch) {
  Bitmap bitmap;
  DrawWholePage(document, page, dotsPerInch, bitmap);
  return bitmap;
}

}  // namespace pagivo::native
