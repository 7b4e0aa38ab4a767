// Pictures on a canvas: made as small as they are shown, and kept so.
#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <vector>

#include "engine/native/cairo/cairo_library.h"
#include "engine/native/document/geometry.h"
#include "engine/native/pictures/picture_image.h"
#include "engine/native/raster/canvas.h"

namespace pagivo::native {

// The picture at a size that is not larger than its own in either direction, each pixel the mean of
// what it covers: 0xAARRGGBB in the machine's byte order, alpha premultiplied, rows top down.
std::vector<std::uint32_t> ScaledDown(const PictureImage::Pixels& pixels, std::int32_t width,
                                      std::int32_t height);

// Draws a picture so that its corners fall onto those of the target.
void PaintPicture(cairo_t* cairo, cairo_surface_t* picture, const PixelRectangle& target);

// Keeps what was used last, up to a bound. Does not keep the pictures themselves alive.
class PictureCache {
 public:
  explicit PictureCache(std::size_t maximumBytes = std::size_t{64} << 20)
      : maximumBytes_(maximumBytes) {}

  // The picture for showing it that many pixels large: scaled down to that size, or the picture
  // itself where it is smaller, and never more pixels than the bound allows. Holds until the next
  // call. The picture must not be empty.
  cairo_surface_t* Find(const PictureImageRef& picture, double width, double height);

  // The picture as it looks on a transparent ground of that many pixels when it fills `place`
  // there; null where that would take much of the bound. Holds until the next call. The picture
  // must not be empty.
  cairo_surface_t* FindDrawn(const PictureImageRef& picture, const PixelRectangle& place,
                             const PixelSize& ground);

  std::size_t Bytes() const noexcept { return bytes_; }

 private:
  struct Release {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  };
  struct Entry {
    std::weak_ptr<const PictureImage> picture;
    PixelSize size;
    PixelRectangle place;  // empty for a picture that is just scaled
    std::vector<std::uint32_t> pixels;
    std::unique_ptr<cairo_surface_t, Release> surface;
  };

  PixelSize SizeFor(const PictureImage& picture, double width, double height) const;
  cairo_surface_t* Look(const PictureImageRef& picture, const PixelSize& size,
                        const PixelRectangle& place);
  cairo_surface_t* Keep(Entry entry);
  void MakeRoom(std::size_t bytes);
  void DropLast();

  std::size_t maximumBytes_;
  std::list<Entry> entries_;  // used last stands first
  std::size_t bytes_ = 0;
};

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
