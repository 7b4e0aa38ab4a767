#include "engine/native/pictures/png_codec.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <new>

#include "engine/native/pictures/decoded_pixels.h"
#include "engine/native/pictures/picture_loader.h"

namespace pagivo::native {
namespace {

// --- What the header says

constexpr std::size_t kSignatureSize = 8;
constexpr std::uint32_t kHeaderChunk = 0x49484452;
constexpr std::size_t kHeaderSize = 13;
// Deflate packs no more into a byte.
constexpr std::int64_t kMostUnpackedBytesAByte = 1032;
// Unpacking more takes more than a second.
constexpr std::int64_t kMaximumPngRawBytes = std::int64_t{3} << 26;

struct Header {
  std::int64_t width = 0;
  std::int64_t height = 0;
  std::int64_t bitsPerPixel = 0;
  bool interlaced = false;
};

std::int64_t SamplesOf(std::uint8_t colorType) {
  constexpr std::array<std::uint8_t, 7> kSamples{1, 0, 3, 1, 2, 0, 4};
  return colorType < kSamples.size() ? kSamples[colorType] : 0;
}

Header ReadHeader(PictureBytes bytes) {
  if (ReadBig32(bytes, kSignatureSize) < kHeaderSize ||
      ReadBig32(bytes, kSignatureSize + 4) != kHeaderChunk) {
    RefuseDamaged();
  }
  const PictureBytes fields = Slice(bytes, kSignatureSize + 8, kHeaderSize);
  const Header header{ReadBig32(fields, 0), ReadBig32(fields, 4), fields[8] * SamplesOf(fields[9]),
                      fields[12] != 0};
  RequireDecodableSize(header.width, header.height);
  return header;
}

// Every row starts with a byte that names its filter; a pass without pixels has no rows.
std::int64_t PassBytes(std::int64_t width, std::int64_t height, std::int64_t bitsPerPixel) {
  return width == 0 ? 0 : height * (1 + (width * bitsPerPixel + 7) / 8);
}

std::int64_t RawBytes(const Header& header) {
  if (!header.interlaced) return PassBytes(header.width, header.height, header.bitsPerPixel);
  std::int64_t sum = 0;
  for (int pass = 0; pass < PNG_INTERLACE_ADAM7_PASSES; ++pass) {
    sum += PassBytes(PNG_PASS_COLS(header.width, pass), PNG_PASS_ROWS(header.height, pass),
                     header.bitsPerPixel);
  }
  return sum;
}

void RequireBoundedWork(PictureBytes bytes) {
  const Header header = ReadHeader(bytes);
  const std::int64_t rawBytes = RawBytes(header);
  if (rawBytes > static_cast<std::int64_t>(bytes.size()) * kMostUnpackedBytesAByte) RefuseDamaged();
  constexpr std::int64_t kDecoderBytesAPixel = 4;
  if (rawBytes > kMaximumPngRawBytes ||
      header.width * header.height > kMaximumDecoderBytes / kDecoderBytesAPixel) {
    RefuseTooLarge();
  }
}

// --- The decoder

class PngReader {
 public:
  explicit PngReader(PictureBytes bytes)
      : rest_(bytes),
        png_(png_create_read_struct(PNG_LIBPNG_VER_STRING, this, GiveUp, IgnoreWarning)) {
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
    Do([this] { Begin(); });
    const auto width = static_cast<std::int32_t>(png_get_image_width(png_, info_));
    const auto height = static_cast<std::int32_t>(png_get_image_height(png_, info_));
    const bool hasAlpha = (png_get_color_type(png_, info_) & PNG_COLOR_MASK_ALPHA) != 0;
    RowReducer reducer(width, height, hasAlpha, ReductionFor(width, height, kMaximumKeptPixels));
    const bool interlaced = png_get_interlace_type(png_, info_) != PNG_INTERLACE_NONE;
    interlaced ? TakeInterlaced(reducer) : TakeRows(reducer);
    Do([this] { png_read_end(png_, nullptr); });
    return reducer.TakePixels();
  }

 private:
  static void GiveUp(png_structp png, png_const_charp) {
    static_cast<PngReader*>(png_get_error_ptr(png))->wayOut_.Take();
  }
  static void IgnoreWarning(png_structp, png_const_charp) {}

  static void Read(png_structp png, png_bytep to, png_size_t count) {
    PictureBytes& rest = static_cast<PngReader*>(png_get_io_ptr(png))->rest_;
    if (count > rest.size()) png_error(png, "the file ends here");
    std::memcpy(to, rest.data(), count);
    rest = rest.subspan(count);
  }

  // Refuses the picture when the library gives up. The step holds nothing that needs tidying up.
  template <typename Step>
  void Do(Step step) {
    if (!wayOut_.IsNotTaken(step)) RefuseDamaged();
  }

  // Rows come as RGB, or as RGBA where something is transparent. Of the chunks that a decoder may
  // pass over only the one of transparency is looked at.
  void Begin() {
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

  void TakeRows(RowReducer& reducer) {
    std::vector<std::uint8_t> row(png_get_rowbytes(png_, info_));
    const std::uint32_t height = png_get_image_height(png_, info_);
    for (std::uint32_t y = 0; y < height; ++y) {
      Do([this, &row] { png_read_row(png_, row.data(), nullptr); });
      reducer.Take(row.data());
    }
  }

  void TakeInterlaced(RowReducer& reducer) {
    const std::size_t rowSize = png_get_rowbytes(png_, info_);
    std::vector<std::uint8_t> data(rowSize * png_get_image_height(png_, info_));
    std::vector<png_bytep> rows(png_get_image_height(png_, info_));
    for (std::size_t y = 0; y < rows.size(); ++y) rows[y] = &data[y * rowSize];
    Do([this, &rows] { png_read_image(png_, rows.data()); });
    for (const png_bytep row : rows) reducer.Take(row);
  }

  PictureBytes rest_;  // of the file, not read yet
  WayOut wayOut_;
  png_structp png_;
  png_infop info_ = nullptr;
};

}  // namespace

PictureImage::Pixels DecodePng(PictureBytes bytes) {
  RequireBoundedWork(bytes);
  return PngReader(bytes).ReadPixels();
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
