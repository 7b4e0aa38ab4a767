// Pictures on a canvas.
#pragma once

#include "engine/native/document/geometry.h"
#include "engine/native/pictures/picture_image.h"
#include "engine/native/raster/canvas.h"
#include "engine/native/raster/page_scale.h"

namespace pagivo::native {

class PicturePainter {
 public:
  PicturePainter(Canvas& canvas, const PageScale& scale) : canvas_(canvas), scale_(scale) {}

  // Stretched into the rectangle, mirrored where its edges are not in order.
  void Draw(const Rectangle& rectangle, const PictureImageRef& picture);

 private:
  Canvas& canvas_;
  const PageScale& scale_;
};

}  // namespace pagivo::native
