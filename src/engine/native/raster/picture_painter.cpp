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

// Makes the surface the source so that its corners fall onto those of the target. Beyond its edge
// the edge goes on, so that the picture does not fade out there.
void SetSource(cairo_t* cairo, cairo_surface_t* surface, const PixelRectangle& target) {
  cairo_set_source_surface(cairo, surface, 0, 0);
  cairo_matrix_t matrix{};
  cairo_matrix_init_scale(&matrix,
                          cairo_image_surface_get_width(surface) / (target.right - target.left),
                          cairo_image_surface_get_height(surface) / (target.bottom - target.top));
  cairo_matrix_translate(&matrix, -target.left, -target.top);
  cairo_pattern_set_matrix(cairo_get_source(cairo), &matrix);
  cairo_pattern_set_extend(cairo_get_source(cairo), CAIRO_EXTEND_PAD);
  cairo_pattern_set_filter(cairo_get_source(cairo), CAIRO_FILTER_BILINEAR);
}

}  // namespace

bool PicturePainter::IsOutsideClip(const PixelRectangle& target) const {
  const PixelBox& clip = canvas_.Clip();
  return std::max(target.left, target.right) <= clip.left ||
         std::min(target.left, target.right) >= clip.right ||
         std::max(target.top, target.bottom) <= clip.top ||
         std::min(target.top, target.bottom) >= clip.bottom;
}

void PicturePainter::Draw(const Rectangle& rectangle, const PictureImageRef& picture) {
  if (!AreFinite(rectangle.x1, rectangle.y1, rectangle.x2, rectangle.y2)) return;
  const PixelRectangle target = scale_.Pixels(rectangle);
  const double width = target.right - target.left;
  const double height = target.bottom - target.top;
  if (picture == nullptr || picture->IsEmpty() || width == 0 || height == 0) return;
  if (IsOutsideClip(target)) return;
  cairo_t* cairo = canvas_.Vectors();
  SetSource(cairo, ScaledPictures().Find(picture, std::abs(width), std::abs(height)), target);
  cairo_new_path(cairo);
  cairo_rectangle(cairo, target.left, target.top, width, height);
  cairo_fill(cairo);
  // The cache may drop the surface before cairo is given another source.
  cairo_set_source_rgb(cairo, 0, 0, 0);
}

}  // namespace pagivo::native
