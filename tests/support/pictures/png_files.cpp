#include "support/pictures/png_files.h"

#include <png.h>

#include <stdexcept>
#include <utility>

namespace pagivo::native {
namespace {

constexpr std::size_t kSignatureSize = 8;
constexpr std::size_t kChunkFrameSize = 12;

void AppendBig(Bytes& out, std::size_t number) {
  for (int shift = 24; shift >= 0; shift -= 8) {
    out.push_back(static_cast<std::uint8_t>(number >> shift));
  }
}

// CRC 32 bit by bit.
std::uint32_t ChecksumFrom(const Bytes& bytes, std::size_t begin) {
  std::uint32_t sum = ~0U;
  for (std::size_t at = begin; at < bytes.size(); ++at) {
    sum ^= bytes[at];
    for (int bit = 0; bit < 8; ++bit) sum = sum >> 1 ^ (0xEDB88320U & (0U - (sum & 1)));
  }
  return ~sum;
}

std::uint32_t Adler32(const Bytes& bytes) {
  std::uint32_t one = 1;
  std::uint32_t two = 0;
  for (const std::uint8_t byte : bytes) {
    one = (one + byte) % 65521;
    two = (two + one) % 65521;
  }
  return two << 16 | one;
}

}  // namespace

Bytes PngOf(const std::vector<PngChunk>& chunks) {
  Bytes file{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  for (const auto& [type, data] : chunks) {
    AppendBig(file, data.size());
    const std::size_t begin = file.size();
    file.insert(file.end(), type.begin(), type.end());
    file.insert(file.end(), data.begin(), data.end());
    AppendBig(file, ChecksumFrom(file, begin));
  }
  return file;
}

std::vector<PngChunk> ChunksOf(const Bytes& file) {
  std::vector<PngChunk> chunks;
  for (std::size_t at = kSignatureSize; at < file.size();) {
    const std::size_t size = png_get_uint_32(&file.at(at));
    const auto type = file.begin() + std::ptrdiff_t(at) + 4;
    const auto data = type + 4;
    chunks.push_back({{type, data}, {data, data + std::ptrdiff_t(size)}});
    at += kChunkFrameSize + size;
  }
  return chunks;
}

Bytes StoredBlock(BlockPlace place, const Bytes& bytes) {
  const auto size = static_cast<std::uint16_t>(bytes.size());
  Bytes block{place == BlockPlace::Last ? std::uint8_t{1} : std::uint8_t{0}};
  for (const int half : {+size, ~size}) {
    block.push_back(static_cast<std::uint8_t>(half));
    block.push_back(static_cast<std::uint8_t>(half >> 8));
  }
  block.insert(block.end(), bytes.begin(), bytes.end());
  return block;
}

std::vector<PngChunk> DataChunks(const Bytes& data) {
  const auto middle = data.begin() + std::ssize(data) / 2;
  return {{"IDAT", {data.begin(), middle}}, {"IDAT", {middle, data.end()}}};
}

Bytes PngOfRows(std::vector<PngChunk> chunks, const Bytes& rows) {
  Bytes data = StoredBlock(BlockPlace::Last, rows);
  data.insert(data.begin(), {0x78, 0x01});
  AppendBig(data, Adler32(rows));
  for (PngChunk& chunk : DataChunks(data)) chunks.push_back(std::move(chunk));
  chunks.push_back({"IEND", {}});
  return PngOf(chunks);
}

Bytes HeaderOf(std::uint8_t width, std::uint8_t height, std::uint8_t bits, std::uint8_t color) {
  return {0, 0, 0, width, 0, 0, 0, height, bits, color, 0, 0, 0};
}

Bytes PackedPng(std::uint32_t format, int width, int height) {
  constexpr std::size_t kColors = 40;
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(width);
  image.height = static_cast<png_uint_32>(height);
  image.format = format;
  image.colormap_entries = kColors;
  const bool hasTable = (format & PNG_FORMAT_FLAG_COLORMAP) != 0;
  Bytes colors(3 * kColors);
  for (std::size_t i = 0; i < colors.size(); ++i) colors[i] = static_cast<std::uint8_t>(2 * i);
  Bytes samples(PNG_IMAGE_SIZE(image));
  for (std::size_t i = 0; i < samples.size(); ++i) {
    samples[i] = static_cast<std::uint8_t>(hasTable ? i / 3 % kColors : i * i / 90);
  }
  Bytes file(PNG_IMAGE_PNG_SIZE_MAX(image));
  png_alloc_size_t size = file.size();
  if (png_image_write_to_memory(&image, file.data(), &size, 0, samples.data(), 0,
                                hasTable ? colors.data() : nullptr) == 0) {
    throw std::runtime_error(image.message);
  }
  file.resize(size);
  return file;
}

}  // namespace pagivo::native
