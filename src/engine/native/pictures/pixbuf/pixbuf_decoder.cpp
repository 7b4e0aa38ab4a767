#include "engine/native/pictures/pixbuf/pixbuf_decoder.h"

#include <memory>

#include "engine/native/pictures/picture_image.h"
#include "engine/native/pictures/picture_loader.h"
#include "engine/native/pictures/pixbuf/picture_libraries.h"
#include "engine/native/pictures/raster_structure.h"
#include "engine/native/pictures/system_decoders.h"

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
    case PictureFormat::Tiff:
      return "tiff";
    case PictureFormat::Unknown:
    case PictureFormat::Jpeg:
    case PictureFormat::Png:
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

struct Request {
  PictureFormat format;
  bool tooLarge = false;
};

void TakeSize(GdkPixbufLoader* loader, int width, int height, gpointer data) {
  auto& request = *static_cast<Request*>(data);
  request.tooLarge = IsTooLargeToDecode(request.format, width, height);
  if (request.tooLarge) gdk_pixbuf_loader_set_size(loader, 0, 0);
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

// The decoder pads rows and gives either three or four channels, that of TIFF premultiplied.
PictureImage::Pixels PixelsOf(PictureFormat format, GdkPixbuf* pixbuf) {
  const int width = gdk_pixbuf_get_width(pixbuf);
  const int height = gdk_pixbuf_get_height(pixbuf);
  const bool hasAlpha = gdk_pixbuf_get_has_alpha(pixbuf) != FALSE;
  RowReducer reducer(width, height, hasAlpha, ReductionFor(width, height, kMaximumKeptPixels));
  std::uint8_t* row = gdk_pixbuf_get_pixels(pixbuf);
  for (int y = 0; y < height; ++y, row += gdk_pixbuf_get_rowstride(pixbuf)) {
    if (format == PictureFormat::Tiff && hasAlpha) {
      MakeAlphaStraight({row, 4 * static_cast<std::size_t>(width)});
    }
    reducer.Take(row);
  }
  return reducer.TakePixels();
}

}  // namespace

PictureImage::Pixels DecodeRasterFile(PictureFormat format, PictureBytes bytes) {
  const LoaderRef loader = MakeLoader(format);
  Request request{format};
  g_signal_connect(loader.get(), "size-prepared", G_CALLBACK(TakeSize), &request);
  const bool complete = Feed(loader.get(), bytes);
  if (request.tooLarge) RefuseTooLarge();
  GdkPixbuf* pixbuf = gdk_pixbuf_loader_get_pixbuf(loader.get());
  if (!complete || pixbuf == nullptr) RefuseDamaged();
  return PixelsOf(format, pixbuf);
}

std::int64_t HeaderPixels(PictureBytes bytes) {
  const LoaderRef loader(gdk_pixbuf_loader_new());
  std::int64_t pixels = 0;
  g_signal_connect(loader.get(), "size-prepared", G_CALLBACK(NotePixelsOnly), &pixels);
  Feed(loader.get(), bytes);
  return pixels;
}

}  // namespace pagivo::native
