#include "engine/native/pictures/png_writer.h"

#include <png.h>

#include <memory>
#include <new>

namespace pagivo::native {
namespace {

// Whatever fails here is memory that is not there: the errors leave the library as exceptions,
// which it is built to let through.
[[noreturn]] void Fail(png_structp, png_const_charp) {
  throw std::bad_alloc();
}

void Append(png_structp png, png_bytep bytes, png_size_t count) {
  auto& file = *static_cast<std::vector<std::uint8_t>*>(png_get_io_ptr(png));
  file.insert(file.end(), bytes, bytes + count);
}

class Writer {
 public:
  Writer() : png_(png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, Fail, nullptr)) {
    if (png_ != nullptr) info_ = png_create_info_struct(png_);
    if (info_ == nullptr) throw std::bad_alloc();
  }
  ~Writer() { png_destroy_write_struct(&png_, &info_); }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  void Write(const PictureImage::Pixels& pixels, std::vector<std::uint8_t>& file) {
    png_set_write_fn(png_, &file, Append, nullptr);
    png_set_compression_level(png_, 1);
    png_set_filter(png_, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
    png_set_IHDR(png_, info_, static_cast<png_uint_32>(pixels.width),
                 static_cast<png_uint_32>(pixels.height), 8,
                 pixels.hasAlpha ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_RGB,
                 PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_write_info(png_, info_);
    const std::size_t rowSize = static_cast<std::size_t>(pixels.width) * (pixels.hasAlpha ? 4 : 3);
    for (std::size_t at = 0; at < pixels.data.size(); at += rowSize) {
      png_write_row(png_, &pixels.data[at]);
    }
    png_write_end(png_, info_);
  }

 private:
  png_structp png_;
  png_infop info_ = nullptr;
};

}  // namespace

std::vector<std::uint8_t> WritePng(const PictureImage::Pixels& pixels) {
  std::vector<std::uint8_t> file;
  Writer().Write(pixels, file);
  return file;
}

}  // namespace pagivo::native
