#include "engine/native/pictures/png_structure.h"

#include <libdeflate.h>
#include <png.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <new>
#include <utility>

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

// --- Data that PDF readers unpack themselves

constexpr std::uint32_t kColorsChunk = 0x504C5445;
constexpr std::uint32_t kDataChunk = 0x49444154;
constexpr std::uint32_t kEndChunk = 0x49454E44;
constexpr std::uint32_t kTransparencyChunk = 0x74524E53;
constexpr std::size_t kChunkHeadSize = 8;    // length and type
constexpr std::size_t kChunkFrameSize = 12;  // and a checksum behind the data
constexpr std::size_t kHeaderChunkEnd = kSignatureSize + kChunkFrameSize + kHeaderSize;

struct Chunk {
  std::uint32_t type = 0;
  PictureBytes whole;

  PictureBytes Data() const {
    return whole.subspan(kChunkHeadSize, whole.size() - kChunkFrameSize);
  }
  // Type and data are what the checksum is of.
  bool IsIntact() const {
    return libdeflate_crc32(0, &whole[4], whole.size() - 8) == ReadBig32(whole, whole.size() - 4);
  }
  // Of other chunks decoders pass over those whose type begins with a small letter.
  bool MayBeLeftOut() const {
    const auto isLetter = [](std::uint8_t byte) {
      return (byte | 0x20) >= 'a' && (byte | 0x20) <= 'z';
    };
    return type != kTransparencyChunk && (whole[4] & 0x20) != 0 &&
           std::ranges::all_of(whole.subspan(4, 4), isLetter);
  }
};

Chunk ReadChunk(PictureBytes bytes, std::size_t at) {
  const std::uint64_t length = ReadBig32(bytes, at);
  return {ReadBig32(bytes, at + 4), Slice(bytes, at, kChunkFrameSize + length)};
}

// The chunks that make the picture.
struct Layout {
  std::optional<Chunk> colors;
  std::vector<Chunk> data;
};

// None for a file with other chunks that count, or with any in another order.
std::optional<Layout> LayoutOf(PictureBytes bytes) {
  Layout layout;
  bool isBehindData = false;
  std::size_t at = kHeaderChunkEnd;
  for (;;) {
    const Chunk chunk = ReadChunk(bytes, at);
    at += chunk.whole.size();
    switch (chunk.type) {
      case kColorsChunk:
        if (layout.colors || !layout.data.empty()) return std::nullopt;
        layout.colors = chunk;
        break;
      case kDataChunk:
        if (isBehindData) return std::nullopt;
        layout.data.push_back(chunk);
        break;
      case kEndChunk:
        return chunk.IsIntact() ? std::optional(std::move(layout)) : std::nullopt;
      default:
        if (!chunk.MayBeLeftOut()) return std::nullopt;
        isBehindData = !layout.data.empty();
        continue;
    }
    if (!chunk.IsIntact()) return std::nullopt;
  }
}

// Opaque rows of eight bits a sample, one after another.
bool HasPlainRows(PictureBytes file) {
  if (ReadBig32(file, kSignatureSize) != kHeaderSize) return false;
  const Chunk header = ReadChunk(file, kSignatureSize);
  const PictureBytes fields = header.Data();
  const bool isOpaque = fields[9] == PNG_COLOR_TYPE_GRAY || fields[9] == PNG_COLOR_TYPE_RGB ||
                        fields[9] == PNG_COLOR_TYPE_PALETTE;
  return fields[8] == 8 && isOpaque && fields[10] == 0 && fields[11] == 0 && fields[12] == 0 &&
         header.IsIntact();
}

bool IsTableOfColors(const std::optional<Chunk>& chunk) {
  return chunk && !chunk->Data().empty() && chunk->Data().size() % 3 == 0 &&
         chunk->Data().size() <= std::size_t{3} * PNG_MAX_PALETTE_LENGTH;
}

// Data that reach back no further than their header says, and are smaller than what they stand for
// but large enough to hold it.
bool IsPackedWell(const Layout& layout, std::int64_t rawBytes) {
  std::int64_t size = 0;
  for (const Chunk& chunk : layout.data) size += std::ssize(chunk.Data());
  if (layout.data.empty() || layout.data.front().Data().empty()) return false;
  if (size > rawBytes || rawBytes > size * kMostUnpackedBytesAByte) return false;
  constexpr unsigned kLargestWindow = 7;
  const unsigned window = layout.data.front().Data()[0] >> 4;
  return window == kLargestWindow || (window < kLargestWindow && rawBytes <= 256LL << window);
}

// Leaves of the file, in its own place, what makes the picture: the header, a table of colours, all
// data in one chunk, and the end.
class FileTidier {
 public:
  explicit FileTidier(std::vector<std::uint8_t>& file) : file_(file) {}

  StoredPicture Tidy(const Layout& layout, bool hasColors) {
    StoredPicture stored;
    stored.coding = StoredPicture::Coding::Png;
    if (hasColors) {
      const PictureBytes colors = layout.colors->Data();
      stored.colors.assign(colors.begin(), colors.end());
      Put(layout.colors->whole);
    }
    const std::size_t head = end_;
    end_ += kChunkHeadSize;
    stored.dataBegin = end_;
    for (const Chunk& chunk : layout.data) Put(chunk.Data());
    stored.dataSize = end_ - stored.dataBegin;
    PutNumber(head, static_cast<std::uint32_t>(stored.dataSize));
    PutNumber(head + 4, kDataChunk);
    Finish(head + 4);
    PutNumber(end_, 0);
    PutNumber(end_ + 4, kEndChunk);
    end_ += kChunkHeadSize;
    Finish(end_ - 4);
    file_.resize(end_);
    return stored;
  }

 private:
  // Nothing moves but towards the file's beginning.
  void Put(PictureBytes bytes) {
    std::memmove(&file_[end_], bytes.data(), bytes.size());
    end_ += bytes.size();
  }

  void PutNumber(std::size_t at, std::uint32_t number) {
    for (std::size_t i = 0; i < 4; ++i) {
      file_[at + i] = static_cast<std::uint8_t>(number >> (24 - 8 * i));
    }
  }

  // The checksum of a chunk from its type on.
  void Finish(std::size_t begin) {
    PutNumber(end_, libdeflate_crc32(0, &file_[begin], end_ - begin));
    end_ += 4;
  }

  std::vector<std::uint8_t>& file_;
  std::size_t end_ = kHeaderChunkEnd;
};

// What zlib's format begins with: the method, no dictionary agreed on before, and a check of both.
bool BeginsLikeZlib(PictureBytes data) {
  constexpr unsigned kDeflate = 8;
  constexpr unsigned kHasDictionary = 0x20;
  constexpr unsigned kCheckDivisor = 31;
  const unsigned header = ReadBig16(data, 0);
  return header % kCheckDivisor == 0 && (data[0] & 0x0F) == kDeflate &&
         (header & kHasDictionary) == 0;
}

// Whether all rows are there, and each index has its colour, which rows that are not predicted
// tell.
bool HasEveryColor(PictureBytes data, const Header& header, std::size_t colors) {
  const auto size = static_cast<std::size_t>(RawBytes(header));
  const auto raw = std::make_unique_for_overwrite<std::uint8_t[]>(size);
  const std::unique_ptr<libdeflate_decompressor, decltype(&libdeflate_free_decompressor)> unpacker(
      libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
  if (!unpacker) throw std::bad_alloc();
  if (libdeflate_zlib_decompress(unpacker.get(), data.data(), data.size(), raw.get(), size,
                                 nullptr) != LIBDEFLATE_SUCCESS) {
    return false;
  }
  const std::size_t rowSize = size / static_cast<std::size_t>(header.height);
  for (std::size_t at = 0; at < size; at += rowSize) {
    const PictureBytes row(&raw[at], rowSize);
    if (row[0] != PNG_FILTER_VALUE_NONE || std::ranges::max(row) >= colors) return false;
  }
  return true;
}

}  // namespace

void RequireBoundedPng(PictureBytes bytes) {
  const Header header = ReadHeader(bytes);
  const std::int64_t rawBytes = RawBytes(header);
  if (rawBytes > static_cast<std::int64_t>(bytes.size()) * kMostUnpackedBytesAByte) RefuseDamaged();
  constexpr std::int64_t kDecoderBytesAPixel = 4;
  if (rawBytes > kMaximumPngRawBytes ||
      header.width * header.height > kMaximumDecoderBytes / kDecoderBytesAPixel) {
    RefuseTooLarge();
  }
}

std::optional<StoredPicture> TakePackedPng(std::vector<std::uint8_t>& file) {
  RequireBoundedPng(file);
  const Header header = ReadHeader(file);
  const std::optional<Layout> layout = HasPlainRows(file) ? LayoutOf(file) : std::nullopt;
  if (!layout || !IsPackedWell(*layout, RawBytes(header))) return std::nullopt;
  const bool hasColors = file[kSignatureSize + kChunkHeadSize + 9] == PNG_COLOR_TYPE_PALETTE;
  if (hasColors && !IsTableOfColors(layout->colors)) return std::nullopt;
  StoredPicture stored = FileTidier(file).Tidy(*layout, hasColors);
  const PictureBytes data = PictureBytes(file).subspan(stored.dataBegin, stored.dataSize);
  if (!BeginsLikeZlib(data)) return std::nullopt;
  if (hasColors && !HasEveryColor(data, header, stored.colors.size() / 3)) return std::nullopt;
  stored.width = static_cast<std::int32_t>(header.width);
  stored.height = static_cast<std::int32_t>(header.height);
  stored.samplesPerPixel = static_cast<int>(header.bitsPerPixel / 8);
  stored.file = std::move(file);
  return stored;
}

}  // namespace pagivo::native
