#include "engine/native/raster/png_file.h"

#include <cairo.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "pagivo/error.h"

namespace pagivo::native {
namespace {

cairo_status_t Append(void* file, const unsigned char* bytes, unsigned int count) {
  auto& stream = *static_cast<std::ofstream*>(file);
  stream.write(reinterpret_cast<const char*>(bytes), count);
  return stream ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

bool Write(const Bitmap& bitmap, std::ofstream& file) {
  Bitmap copy = bitmap;  // cairo asks for pixels that it could change
  const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
      cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(copy.pixels.data()),
                                          CAIRO_FORMAT_ARGB32, copy.width, copy.height,
                                          4 * copy.width),
      cairo_surface_destroy);
  return cairo_surface_write_to_png_stream(surface.get(), Append, &file) == CAIRO_STATUS_SUCCESS;
}

}  // namespace

void WritePng(const Bitmap& bitmap, const std::string& path) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  const bool opened = file.is_open();
  if (opened && Write(bitmap, file) && file.flush()) return;
  file.close();
  std::error_code ignored;
  if (opened && std::filesystem::is_regular_file(path, ignored)) {
    std::filesystem::remove(path, ignored);
  }
  throw Error(ErrorNumber::FileAccess, "Het bestand \"" + path + "\" kan niet worden geschreven");
}

}  // namespace pagivo::native
