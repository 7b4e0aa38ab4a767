#include "engine/native/raster/picture_painter.h"

#include <algorithm>
#include <cmath>

#include "engine/native/raster/picture_cache.h"

namespace pagivo::native {
namespace {

PictureCache& ScaledPictures() {
  static PictureCache pictures;
  return pictures;
}

// The whole pixels that a picture meets. In any order of the edges, for a picture may be mirrored.
PixelBox BoxOf(const PixelRectangle& target) {
  const auto low = [](double one, double other) {
    return static_cast<std::int32_t>(std::floor(std::min(one, other)));
  };
  const auto high = [](double one, double other) {
    return static_cast<std::int32_t>(std::ceil(std::max(one, other)));
  };
  return {low(target.left, target.right), low(target.top, target.bottom),
          high(target.left, target.right), high(target.top, target.bottom)};
}

}  // namespace

void PicturePainter::Draw(const Rectangle& rectangle, const PictureImageRef& picture) {
  if (!AreFinite(rectangle.x1, rectangle.y1, rectangle.x2, rectangle.y2)) return;
  const PixelRectangle target = scale_.Pixels(rectangle);
  const double width = target.right - target.left;
  const double height = target.bottom - target.top;
  if (picture == nullptr || picture->IsEmpty() || width == 0 || height == 0) return;
  const PixelBox box = BoxOf(target);
  if (Intersection(box, canvas_.Clip()).IsEmpty()) return;
  cairo_t* cairo = canvas_.Vectors(box.bottom);
  const PixelRectangle place{target.left - box.left, target.top - box.top, target.right - box.left,
                             target.bottom - box.top};
  const PixelSize ground{box.right - box.left, box.bottom - box.top};
  // On the next page and at the next scrolling it mostly stands at the same place.
  if (cairo_surface_t* drawn = ScaledPictures().FindDrawn(picture, place, ground)) {
    cairo_set_source_surface(cairo, drawn, box.left, box.top);
    cairo_new_path(cairo);
    cairo_rectangle(cairo, box.left, box.top, ground.width, ground.height);
    cairo_fill(cairo);
  } else {
    PaintPicture(cairo, ScaledPictures().Find(picture, std::abs(width), std::abs(height)), target);
  }
  // The cache may drop the surface before cairo is given another source.
  cairo_set_source_rgb(cairo, 0, 0, 0);
}

}  // namespace pagivo::native
