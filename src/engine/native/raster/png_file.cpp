#include "engine/native/raster/png_file.h"

#include <memory>
#include <new>
#include <vector>

#include "engine/native/cairo/cairo_library.h"
#include "pagivo/error.h"
#include "system/host_files.h"

namespace pagivo::native {
namespace {

using Bytes = std::vector<std::uint8_t>;

// Called from C, which no exception may cross.
cairo_status_t Append(void* target, const unsigned char* bytes, unsigned int count) {
  try {
    auto& png = *static_cast<Bytes*>(target);
    png.insert(png.end(), bytes, bytes + count);
    return CAIRO_STATUS_SUCCESS;
  } catch (const std::bad_alloc&) {
    return CAIRO_STATUS_NO_MEMORY;
  }
}

// Memory is all that encoding can lack.
Bytes Encode(const Bitmap& bitmap) {
  Bitmap copy = bitmap;  // cairo asks for pixels that it could change
  const std::unique_ptr<cairo_surface_t, decltype(&::cairo_surface_destroy)> surface(
      cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(copy.pixels.data()),
                                          CAIRO_FORMAT_ARGB32, copy.width, copy.height,
                                          4 * copy.width),
      cairo_surface_destroy);
  Bytes png;
  const cairo_status_t status = cairo_surface_write_to_png_stream(surface.get(), Append, &png);
  if (status != CAIRO_STATUS_SUCCESS) ThrowOutOfMemory();
  return png;
}

}  // namespace

void WritePng(const Bitmap& bitmap, const std::string& path) {
  FileReplacement file(path);
  file.Write(Encode(bitmap));
  file.Commit();
}

}  // namespace pagivo::native
