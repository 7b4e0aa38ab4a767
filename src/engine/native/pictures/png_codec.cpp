#include "engine/native/pictures/png_codec.h"

#include <gio/gio.h>
#include <png.h>

#include <array>
#include <memory>
#include <new>
#include <vector>

namespace pagivo::native {
namespace {

constexpr std::size_t kSignatureSize = 8;
constexpr std::size_t kChunkFrameSize = 12;  // length, type, checksum
constexpr std::uint32_t kHeaderChunk = 0x49484452;
constexpr std::uint32_t kDataChunk = 0x49444154;
constexpr std::uint32_t kEndChunk = 0x49454E44;
// Deflate packs no more into a byte.
constexpr std::int64_t kMostUnpackedBytesAByte = 1032;
// Unpacking more takes more than a second.
constexpr std::int64_t kMaximumPngRawBytes = std::int64_t{3} << 26;

struct Chunk {
  std::uint32_t type = 0;
  PictureBytes data;
};

Chunk ReadChunk(PictureBytes bytes, std::size_t at) {
  const std::size_t length = ReadBig32(bytes, at);
  const PictureBytes chunk = Slice(bytes, at, kChunkFrameSize + length);
  return {ReadBig32(chunk, 4), chunk.subspan(8, length)};
}

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

Header ReadHeader(const Chunk& chunk) {
  if (chunk.type != kHeaderChunk) RefuseDamaged();
  const PictureBytes fields = Slice(chunk.data, 8, 5);
  const Header header{ReadBig32(chunk.data, 0), ReadBig32(chunk.data, 4),
                      fields[0] * SamplesOf(fields[1]), fields[4] != 0};
  RequireDecodableSize(header.width, header.height);
  return header;
}

// Every row starts with a byte that names its filter; a pass without pixels has no rows.
std::int64_t PassBytes(std::int64_t width, std::int64_t height, std::int64_t bitsPerPixel) {
  return width == 0 ? 0 : height * (1 + (width * bitsPerPixel + 7) / 8);
}

struct Pass {
  int left, top, stepX, stepY;
};

std::int64_t RawBytes(const Header& header) {
  if (!header.interlaced) return PassBytes(header.width, header.height, header.bitsPerPixel);
  constexpr std::array kPasses{Pass{0, 0, 8, 8}, Pass{4, 0, 8, 8}, Pass{0, 4, 4, 8},
                               Pass{2, 0, 4, 4}, Pass{0, 2, 2, 4}, Pass{1, 0, 2, 2},
                               Pass{0, 1, 1, 2}};
  std::int64_t sum = 0;
  for (const Pass& pass : kPasses) {
    sum += PassBytes((header.width - pass.left + pass.stepX - 1) / pass.stepX,
                     (header.height - pass.top + pass.stepY - 1) / pass.stepY, header.bitsPerPixel);
  }
  return sum;
}

// Counts what a compressed stream unpacks to, up to a bound, without keeping it.
class UnpackedCounter {
 public:
  void Take(PictureBytes packed, std::int64_t bound) {
    while (!packed.empty() && !ended_ && count_ < bound) {
      gsize read = 0;
      gsize written = 0;
      const GConverterResult result = g_converter_convert(
          G_CONVERTER(unpacker_.get()), packed.data(), packed.size(), buffer_.data(),
          buffer_.size(), G_CONVERTER_NO_FLAGS, &read, &written, nullptr);
      packed = packed.subspan(read);
      count_ += static_cast<std::int64_t>(written);
      // Damaged data ends here too; what it does not yield is missed later.
      ended_ = result != G_CONVERTER_CONVERTED;
    }
  }

  std::int64_t Count() const { return count_; }

 private:
  struct Unref {
    void operator()(GZlibDecompressor* unpacker) const { g_object_unref(unpacker); }
  };
  std::unique_ptr<GZlibDecompressor, Unref> unpacker_{
      g_zlib_decompressor_new(G_ZLIB_COMPRESSOR_FORMAT_ZLIB)};
  std::vector<std::uint8_t> buffer_ = std::vector<std::uint8_t>(1 << 16);
  std::int64_t count_ = 0;
  bool ended_ = false;
};

}  // namespace

void RequireWholePng(PictureBytes bytes) {
  std::size_t at = kSignatureSize;
  Chunk chunk = ReadChunk(bytes, at);
  const std::int64_t rawBytes = RawBytes(ReadHeader(chunk));
  if (rawBytes > static_cast<std::int64_t>(bytes.size()) * kMostUnpackedBytesAByte) RefuseDamaged();
  if (rawBytes > kMaximumPngRawBytes) RefuseTooLarge();
  UnpackedCounter unpacked;
  while (chunk.type != kEndChunk) {
    if (chunk.type == kDataChunk) unpacked.Take(chunk.data, rawBytes);
    at += kChunkFrameSize + chunk.data.size();
    chunk = ReadChunk(bytes, at);
  }
  if (unpacked.Count() < rawBytes) RefuseDamaged();
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
