// Pictures as cairo draws them, at the sizes in use.
#pragma once

#include <cairo.h>

#include <cstdint>
#include <list>
#include <memory>
#include <vector>

#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

// Keeps what was used last, up to a bound. Does not keep the pictures themselves alive.
class PictureCache {
 public:
  explicit PictureCache(std::size_t maximumBytes = std::size_t{64} << 20)
      : maximumBytes_(maximumBytes) {}

  // The picture for showing it that many pixels large: scaled down to that size, or the picture
  // itself where it is smaller, and never more pixels than the bound allows. Holds until the next
  // call. The picture must not be empty.
  cairo_surface_t* Find(const PictureImageRef& picture, double width, double height);

  std::size_t Bytes() const noexcept { return bytes_; }

 private:
  struct Size {
    std::int32_t width = 0;
    std::int32_t height = 0;
    bool operator==(const Size&) const = default;
    std::size_t Bytes() const {
      return 4 * static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    }
  };
  struct Release {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  };
  struct Entry {
    std::weak_ptr<const PictureImage> picture;
    Size size;
    std::vector<std::uint32_t> pixels;
    std::unique_ptr<cairo_surface_t, Release> surface;
  };

  Size SizeFor(const PictureImage& picture, double width, double height) const;
  static Entry Make(const PictureImageRef& picture, Size size);
  void MakeRoom(std::size_t bytes);
  void DropLast();

  std::size_t maximumBytes_;
  std::list<Entry> entries_;  // used last stands first
  std::size_t bytes_ = 0;
};

}  // namespace pagivo::native
