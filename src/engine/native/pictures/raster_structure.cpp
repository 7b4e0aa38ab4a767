#include "engine/native/pictures/raster_structure.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <tuple>

#include "engine/native/pictures/picture_loader.h"

namespace pagivo::native {
namespace {

// --- BMP

constexpr std::uint32_t kBmpFileHeaderSize = 14;
constexpr std::uint32_t kOldBmpInfoSize = 12;
constexpr std::uint32_t kBmpRunLength8 = 1;
constexpr std::uint32_t kBmpRunLength4 = 2;

struct BmpHeader {
  std::int64_t width = 0;
  std::int64_t height = 0;
  std::int64_t bitsPerPixel = 0;
  std::uint32_t compression = 0;
  std::uint32_t imageSize = 0;
};

BmpHeader ReadBmpHeader(PictureBytes info) {
  if (ReadLittle32(info, 0) == kOldBmpInfoSize) {
    return {ReadLittle16(info, 4), ReadLittle16(info, 6), ReadLittle16(info, 10), 0, 0};
  }
  const std::int64_t height = static_cast<std::int32_t>(ReadLittle32(info, 8));
  return {static_cast<std::int32_t>(ReadLittle32(info, 4)),
          height < 0 ? -height : height,  // rows top down
          ReadLittle16(info, 14), ReadLittle32(info, 16), ReadLittle32(info, 20)};
}

// Our decoder takes memory for as long a header and as many colours as are named.
void RequireWholeBmpHeader(PictureBytes info) {
  const std::uint64_t size = ReadLittle32(info, 0);
  Slice(info, 0, size);
  if (size != kOldBmpInfoSize) Slice(info, size, std::uint64_t{4} * ReadLittle32(info, 32));
}

std::int64_t PixelBytes(const BmpHeader& header) {
  if (header.compression == kBmpRunLength8 || header.compression == kBmpRunLength4) {
    return header.imageSize;
  }
  return (header.width * header.bitsPerPixel + 31) / 32 * 4 * header.height;
}

// --- GIF

constexpr std::size_t kGifScreenEnd = 13;
constexpr std::size_t kGifImageDescriptorSize = 10;
constexpr std::uint8_t kGifExtension = 0x21;
constexpr std::uint8_t kGifImage = 0x2C;
constexpr std::uint8_t kGifTrailer = 0x3B;
// A code of twelve bits stands for 4096 pixels at most.
constexpr std::int64_t kMostGifPixelsAByte = 4096 * 8 / 12;
constexpr std::int64_t kGifPixelsOfAnyFile = 1 << 16;

std::size_t ColorTableSize(std::uint8_t flags) {
  return (flags & 0x80) == 0 ? 0 : std::size_t{3} << ((flags & 7) + 1);
}

// Where the data blocks that start at `at` end; the last one is empty.
std::size_t EndOfGifBlocks(PictureBytes bytes, std::size_t at) {
  for (;;) {
    const std::size_t length = Slice(bytes, at, 1)[0];
    at += 1 + length;
    if (length == 0) return at;
  }
}

// Where the descriptor of the first frame stands, behind the screen's colours and extensions.
std::size_t FirstGifImage(PictureBytes bytes) {
  const PictureBytes screen = Slice(bytes, 0, kGifScreenEnd);
  std::size_t at = kGifScreenEnd + ColorTableSize(screen[10]);
  while (Slice(bytes, at, 1)[0] == kGifExtension) at = EndOfGifBlocks(bytes, at + 2);
  if (bytes[at] != kGifImage) RefuseDamaged();
  return at;
}

std::size_t EndOfGifImage(PictureBytes bytes, std::size_t at) {
  const PictureBytes descriptor = Slice(bytes, at, kGifImageDescriptorSize);
  RequireDecodableSize(ReadLittle16(descriptor, 5), ReadLittle16(descriptor, 7));
  constexpr std::size_t kCodeSizeByte = 1;
  return EndOfGifBlocks(
      bytes, at + kGifImageDescriptorSize + ColorTableSize(descriptor[9]) + kCodeSizeByte);
}

// The screen is as large as its frames cover, or nearly so.
void RequirePlausibleGif(PictureBytes screen, std::size_t fileSize) {
  const std::int64_t pixels = std::int64_t{ReadLittle16(screen, 6)} * ReadLittle16(screen, 8);
  const auto bytes = static_cast<std::int64_t>(fileSize);
  if (pixels <= kMaximumPixels && pixels > kGifPixelsOfAnyFile + bytes * kMostGifPixelsAByte) {
    RefuseDamaged();
  }
}

// --- TIFF

constexpr std::uint16_t kTiffWidth = 256;
constexpr std::uint16_t kTiffHeight = 257;
constexpr std::uint16_t kTiffBitsPerSample = 258;
constexpr std::uint16_t kTiffSamplesPerPixel = 277;
constexpr std::uint16_t kTiffTileWidth = 322;
constexpr std::uint16_t kTiffTileHeight = 323;

class TiffFields {
 public:
  explicit TiffFields(PictureBytes bytes)
      : bytes_(bytes), isLittle_(bytes[0] == 'I'), directory_(Long(4)), count_(Short(directory_)) {}

  // The field's first number, or `otherwise` where the file does not have it.
  std::int64_t Number(std::uint16_t tag, std::int64_t otherwise) const {
    constexpr std::uint64_t kEntrySize = 12;
    constexpr std::uint16_t kShortType = 3;
    for (std::uint64_t i = 0; i < count_; ++i) {
      const std::uint64_t entry = directory_ + 2 + i * kEntrySize;
      if (Short(entry) != tag) continue;
      if (Short(entry + 2) != kShortType) return Long(entry + 8);
      const bool isInside = Long(entry + 4) <= 2;
      return Short(isInside ? entry + 8 : Long(entry + 8));
    }
    return otherwise;
  }

 private:
  std::uint16_t Short(std::uint64_t at) const {
    return isLittle_ ? ReadLittle16(bytes_, at) : ReadBig16(bytes_, at);
  }
  std::uint32_t Long(std::uint64_t at) const {
    return isLittle_ ? ReadLittle32(bytes_, at) : ReadBig32(bytes_, at);
  }

  PictureBytes bytes_;
  bool isLittle_;
  std::uint64_t directory_;
  std::uint64_t count_;
};

// --- ICO

constexpr std::size_t kIconHeaderSize = 6;
constexpr std::size_t kIconEntrySize = 16;

struct IconEntry {
  PictureBytes entry;
  PictureBytes image;
  int width = 0;  // stored as a byte, 0 stands for 256
  int height = 0;
  int bitsPerPixel = 0;

  auto Rank() const { return std::tuple(width * height, bitsPerPixel); }
};

IconEntry ReadIconEntry(PictureBytes bytes, std::size_t index) {
  const PictureBytes entry = Slice(bytes, kIconHeaderSize + index * kIconEntrySize, kIconEntrySize);
  const auto side = [](std::uint8_t stored) { return stored == 0 ? 256 : int{stored}; };
  return {entry, Slice(bytes, ReadLittle32(entry, 12), ReadLittle32(entry, 8)), side(entry[0]),
          side(entry[1]), ReadLittle16(entry, 6)};
}

std::vector<std::uint8_t> IconFileOf(const IconEntry& icon) {
  constexpr std::uint8_t kImageOffset = kIconHeaderSize + kIconEntrySize;
  std::array<std::uint8_t, kImageOffset> header{0, 0, 1, 0, 1};  // an icon of one picture
  std::copy(icon.entry.begin(), icon.entry.end() - 4, header.begin() + kIconHeaderSize);
  header[kImageOffset - 4] = kImageOffset;
  std::vector<std::uint8_t> file;
  file.reserve(header.size() + icon.image.size());
  std::copy(header.begin(), header.end(), std::back_inserter(file));
  std::copy(icon.image.begin(), icon.image.end(), std::back_inserter(file));
  return file;
}

// What the decoder holds of a pixel at one time, an animation's frame and its screen included.
std::int64_t DecoderBytesAPixel(PictureFormat format) {
  return format == PictureFormat::Gif ? 8 : 4;
}

}  // namespace

bool IsTooLargeToDecode(PictureFormat format, std::int64_t width, std::int64_t height) {
  const std::int64_t pixels = width * height;
  return pixels > kMaximumPixels || pixels * DecoderBytesAPixel(format) > kMaximumDecoderBytes;
}

void RequireWholeBmp(PictureBytes bytes) {
  const std::uint32_t pixels = ReadLittle32(bytes, 10);
  const PictureBytes info = bytes.subspan(kBmpFileHeaderSize);
  RequireWholeBmpHeader(info);
  const BmpHeader header = ReadBmpHeader(info);
  RequireDecodableSize(header.width, header.height);
  Slice(bytes, pixels, static_cast<std::uint64_t>(PixelBytes(header)));
}

std::vector<std::uint8_t> FirstGifFrame(PictureBytes bytes) {
  RequirePlausibleGif(Slice(bytes, 0, kGifScreenEnd), bytes.size());
  const PictureBytes frame = bytes.first(EndOfGifImage(bytes, FirstGifImage(bytes)));
  std::vector<std::uint8_t> file(frame.begin(), frame.end());
  file.push_back(kGifTrailer);
  return file;
}

GifPlace PlaceOfFirstGifFrame(PictureBytes bytes) {
  const PictureBytes descriptor = Slice(bytes, FirstGifImage(bytes), kGifImageDescriptorSize);
  return {ReadLittle16(bytes, 6), ReadLittle16(bytes, 8), ReadLittle16(descriptor, 1),
          ReadLittle16(descriptor, 3)};
}

void RequireBoundedTiff(PictureBytes bytes) {
  const TiffFields fields(bytes);
  // A tile may be larger than the picture, and is unpacked whole.
  const std::int64_t width =
      std::max(fields.Number(kTiffWidth, 0), fields.Number(kTiffTileWidth, 0));
  const std::int64_t height =
      std::max(fields.Number(kTiffHeight, 0), fields.Number(kTiffTileHeight, 0));
  RequireDecodableSize(width, height);
  const std::int64_t bits =
      fields.Number(kTiffBitsPerSample, 1) * fields.Number(kTiffSamplesPerPixel, 1);
  if (width * height > kMaximumDecoderBytes * 8 / std::max<std::int64_t>(bits, 1)) RefuseTooLarge();
}

std::vector<std::uint8_t> LargestIcon(PictureBytes bytes) {
  const std::size_t count = ReadLittle16(bytes, 4);
  if (count == 0) RefuseDamaged();
  IconEntry largest = ReadIconEntry(bytes, 0);
  for (std::size_t index = 1; index < count; ++index) {
    const IconEntry icon = ReadIconEntry(bytes, index);
    if (icon.Rank() > largest.Rank()) largest = icon;
  }
  if (FormatOf(largest.image) != PictureFormat::Png) return IconFileOf(largest);
  return {largest.image.begin(), largest.image.end()};
}

void RequireBoundedIcon(PictureBytes bytes) {
  const BmpHeader header = ReadBmpHeader(ReadIconEntry(bytes, 0).image);
  const std::int64_t height = header.height / 2;  // the mask stands below the picture
  RequireDecodableSize(header.width, height);
  if (IsTooLargeToDecode(PictureFormat::Ico, header.width, height)) RefuseTooLarge();
}

}  // namespace pagivo::native
