#include "engine/native/pictures/png_codec.h"

#include <png.h>

#include <algorithm>
#include <cstring>
#include <new>

#include "engine/native/pictures/picture_loader.h"
#include "engine/native/pictures/png_structure.h"

namespace pagivo::native {
namespace {

constexpr std::uint8_t kWhite = 0xFF;  // of each sample

class PngReader {
 public:
  explicit PngReader(PictureBytes bytes)
      : rest_(bytes),
        png_(png_create_read_struct_2(PNG_LIBPNG_VER_STRING, this, GiveUp, IgnoreWarning, this,
                                      Allocate, Free)) {
    if (png_ != nullptr) info_ = png_create_info_struct(png_);
    if (info_ == nullptr) {
      png_destroy_read_struct(&png_, nullptr, nullptr);
      throw std::bad_alloc();
    }
  }
  ~PngReader() { png_destroy_read_struct(&png_, &info_, nullptr); }
  PngReader(const PngReader&) = delete;
  PngReader& operator=(const PngReader&) = delete;

  PictureImage::Pixels ReadPixels() {
    RowReducer reducer = Begin();
    const bool interlaced = png_get_interlace_type(png_, info_) != PNG_INTERLACE_NONE;
    interlaced ? TakeInterlaced(reducer) : TakeRows(reducer, Damage::IsRefused);
    Do([this] { png_read_end(png_, nullptr); });
    return reducer.TakePixels();
  }

  // The rows up to the first that cannot be read, and white below. The chunks' checksums were
  // compared before, and that of the rows would only take the last one away.
  PictureImage::Pixels ReadReadablePixels() {
    png_set_crc_action(png_, PNG_CRC_QUIET_USE, PNG_CRC_QUIET_USE);
    png_set_option(png_, PNG_IGNORE_ADLER32, PNG_OPTION_ON);
    RowReducer reducer = Begin();
    TakeRows(reducer, Damage::LeavesWhite);
    return reducer.TakePixels();
  }

 private:
  enum class Damage : std::uint8_t { IsRefused, LeavesWhite };

  static void GiveUp(png_structp png, png_const_charp) {
    static_cast<PngReader*>(png_get_error_ptr(png))->wayOut_.Take();
  }
  static void IgnoreWarning(png_structp, png_const_charp) {}

  // The library does not tell a lack of memory from other reasons to give up.
  static png_voidp Allocate(png_structp png, png_alloc_size_t size) {
    void* const memory = ::operator new(size, std::nothrow);
    if (memory == nullptr) static_cast<PngReader*>(png_get_mem_ptr(png))->lacksMemory_ = true;
    return memory;
  }
  static void Free(png_structp, png_voidp memory) { ::operator delete(memory); }

  static void Read(png_structp png, png_bytep to, png_size_t count) {
    PictureBytes& rest = static_cast<PngReader*>(png_get_io_ptr(png))->rest_;
    if (count > rest.size()) png_error(png, "the file ends here");
    std::memcpy(to, rest.data(), count);
    rest = rest.subspan(count);
  }

  // Whether the library did not give up. The step holds nothing that needs tidying up.
  template <typename Step>
  bool IsDone(Step step) {
    if (wayOut_.IsNotTaken(step)) return true;
    if (lacksMemory_) throw std::bad_alloc();
    return false;
  }

  // Refuses the picture when the library gives up.
  template <typename Step>
  void Do(Step step) {
    if (!IsDone(step)) RefuseDamaged();
  }

  RowReducer Begin() {
    Do([this] { ReadHead(); });
    const auto width = static_cast<std::int32_t>(png_get_image_width(png_, info_));
    const auto height = static_cast<std::int32_t>(png_get_image_height(png_, info_));
    const bool hasAlpha = (png_get_color_type(png_, info_) & PNG_COLOR_MASK_ALPHA) != 0;
    return {width, height, hasAlpha, ReductionFor(width, height, kMaximumKeptPixels)};
  }

  // Rows come as RGB, or as RGBA where something is transparent. Of the chunks that a decoder may
  // pass over only the one of transparency is looked at.
  void ReadHead() {
    png_set_read_fn(png_, this, Read);
    png_set_user_limits(png_, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
    png_set_keep_unknown_chunks(png_, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
    png_read_info(png_, info_);
    png_set_expand(png_);
    png_set_strip_16(png_);
    png_set_gray_to_rgb(png_);
    png_set_interlace_handling(png_);
    png_read_update_info(png_, info_);
  }

  // The library fills a row when it has read all of it.
  void TakeRows(RowReducer& reducer, Damage damage) {
    std::vector<std::uint8_t> row(png_get_rowbytes(png_, info_));
    const std::uint32_t height = png_get_image_height(png_, info_);
    bool isReadable = true;
    for (std::uint32_t y = 0; y < height; ++y) {
      std::ranges::fill(row, kWhite);
      isReadable = isReadable && IsDone([this, &row] { png_read_row(png_, row.data(), nullptr); });
      if (!isReadable && damage == Damage::IsRefused) RefuseDamaged();
      reducer.Take(row.data());
    }
  }

  void TakeInterlaced(RowReducer& reducer) {
    const std::size_t rowSize = png_get_rowbytes(png_, info_);
    std::vector<std::uint8_t> data(rowSize * png_get_image_height(png_, info_));
    std::vector<png_bytep> rows(png_get_image_height(png_, info_));
    for (std::size_t y = 0; y < rows.size(); ++y) rows[y] = &data[y * rowSize];
    Do([this, &rows] { png_read_image(png_, rows.data()); });
    for (const std::uint8_t* row : rows) reducer.Take(row);
  }

  PictureBytes rest_;  // of the file, not read yet
  WayOut wayOut_;
  bool lacksMemory_ = false;
  png_structp png_;
  png_infop info_ = nullptr;
};

}  // namespace

PictureImage::Pixels DecodePng(PictureBytes bytes) {
  RequireBoundedPng(bytes);
  return PngReader(bytes).ReadPixels();
}

PictureImage::Pixels DecodePackedPng(PictureBytes file) {
  return PngReader(file).ReadReadablePixels();
}

std::vector<std::uint8_t> WritePng(const PictureImage::Pixels& pixels) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(pixels.width);
  image.height = static_cast<png_uint_32>(pixels.height);
  image.format = pixels.hasAlpha ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
  image.flags = PNG_IMAGE_FLAG_FAST;
  std::vector<std::uint8_t> file(PNG_IMAGE_PNG_SIZE_MAX(image));
  png_alloc_size_t size = file.size();
  // Memory is all that it can lack.
  if (png_image_write_to_memory(&image, file.data(), &size, 0, pixels.data.data(), 0, nullptr) ==
      0) {
    throw std::bad_alloc();
  }
  file.resize(size);
  return file;
}

}  // namespace pagivo::native
