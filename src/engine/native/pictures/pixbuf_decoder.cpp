#include "engine/native/pictures/pixbuf_decoder.h"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <algorithm>
#include <memory>

#include "engine/native/pictures/picture_loader.h"
#include "engine/native/pictures/pixel_alpha.h"

namespace pagivo::native {
namespace {

struct Unref {
  void operator()(gpointer object) const { g_object_unref(object); }
};
using LoaderRef = std::unique_ptr<GdkPixbufLoader, Unref>;

const char* DecoderName(PictureFormat format) {
  switch (format) {
    case PictureFormat::Bmp:
      return "bmp";
    case PictureFormat::Gif:
      return "gif";
    case PictureFormat::Ico:
      return "ico";
    case PictureFormat::Jpeg:
      return "jpeg";
    case PictureFormat::Png:
      return "png";
    case PictureFormat::Tiff:
      return "tiff";
    case PictureFormat::Unknown:
    case PictureFormat::Svg:
      break;
  }
  return "";
}

// Both are called between the reading of the header and that of the pixels; a size of nothing makes
// the decoder give up.
void NotePixelsOnly(GdkPixbufLoader* loader, int width, int height, gpointer pixels) {
  *static_cast<std::int64_t*>(pixels) = std::int64_t{width} * height;
  gdk_pixbuf_loader_set_size(loader, 0, 0);
}

void RefuseLargeSize(GdkPixbufLoader* loader, int width, int height, gpointer tooLarge) {
  if (std::int64_t{width} * height <= kMaximumPixels) return;
  *static_cast<bool*>(tooLarge) = true;
  gdk_pixbuf_loader_set_size(loader, 0, 0);
}

LoaderRef MakeLoader(PictureFormat format) {
  LoaderRef loader(gdk_pixbuf_loader_new_with_type(DecoderName(format), nullptr));
  if (!loader)
    throw DecodeFailure("deze soort afbeelding kan op deze computer niet worden gelezen");
  return loader;
}

// A loader must be closed before it is released, also after a failure.
bool Feed(GdkPixbufLoader* loader, PictureBytes bytes) {
  const bool written = gdk_pixbuf_loader_write(loader, bytes.data(), bytes.size(), nullptr) != 0;
  return gdk_pixbuf_loader_close(loader, nullptr) != 0 && written;
}

// The decoder pads rows and gives either three or four channels.
PictureImage::Pixels PixelsOf(const GdkPixbuf* pixbuf) {
  PictureImage::Pixels pixels{gdk_pixbuf_get_width(pixbuf),
                              gdk_pixbuf_get_height(pixbuf),
                              gdk_pixbuf_get_has_alpha(pixbuf) != FALSE,
                              {}};
  const std::size_t rowBytes = static_cast<std::size_t>(pixels.width) * (pixels.hasAlpha ? 4U : 3U);
  pixels.data.resize(rowBytes * static_cast<std::size_t>(pixels.height));
  const std::uint8_t* from = gdk_pixbuf_read_pixels(pixbuf);
  std::uint8_t* to = pixels.data.data();
  for (std::int32_t y = 0; y < pixels.height; ++y, to += rowBytes) {
    std::copy_n(from, rowBytes, to);
    from += gdk_pixbuf_get_rowstride(pixbuf);
  }
  return pixels;
}

// The TIFF decoder premultiplies, the others do not.
PictureImage::Pixels FinishedPixels(PictureFormat format, const GdkPixbuf* pixbuf) {
  PictureImage::Pixels pixels = PixelsOf(pixbuf);
  if (format == PictureFormat::Tiff && pixels.hasAlpha) MakeAlphaStraight(pixels);
  return pixels;
}

}  // namespace

PictureImage::Pixels DecodeRasterFile(PictureFormat format, PictureBytes bytes) {
  const LoaderRef loader = MakeLoader(format);
  bool tooLarge = false;
  g_signal_connect(loader.get(), "size-prepared", G_CALLBACK(RefuseLargeSize), &tooLarge);
  const bool complete = Feed(loader.get(), bytes);
  if (tooLarge) RefuseTooLarge();
  const GdkPixbuf* pixbuf = gdk_pixbuf_loader_get_pixbuf(loader.get());
  if (!complete || pixbuf == nullptr) RefuseDamaged();
  return FinishedPixels(format, pixbuf);
}

std::int64_t HeaderPixels(PictureBytes bytes) {
  const LoaderRef loader(gdk_pixbuf_loader_new());
  std::int64_t pixels = 0;
  g_signal_connect(loader.get(), "size-prepared", G_CALLBACK(NotePixelsOnly), &pixels);
  Feed(loader.get(), bytes);
  return pixels;
}

}  // namespace pagivo::native
