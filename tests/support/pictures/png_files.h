// PNG files made chunk by chunk: whole ones, and damaged ones whose checksums are right.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/pictures/picture_files.h"

namespace pagivo::native {

struct PngChunk {
  std::string type;
  Bytes data;
};

// A file of the chunks, each with its checksum.
Bytes PngOf(const std::vector<PngChunk>& chunks);

// The chunks of a whole file.
std::vector<PngChunk> ChunksOf(const Bytes& file);

// The bytes in a block of deflate that stores them as they are, of which there are fewer than
// 65,536.
enum class BlockPlace : std::uint8_t { Inner, Last };
Bytes StoredBlock(BlockPlace place, const Bytes& bytes);

// Packed data, cut in two.
std::vector<PngChunk> DataChunks(const Bytes& data);

// A file of the chunks, of the rows as zlib stores them without packing, and the end.
Bytes PngOfRows(std::vector<PngChunk> chunks, const Bytes& rows);

// What stands in the header of a file that is not interlaced; `color` is PNG's number.
Bytes HeaderOf(std::uint8_t width, std::uint8_t height, std::uint8_t bits, std::uint8_t color);

// A file that libpng has packed, large enough that packing pays. A format with a table has 40
// colours and uses each.
Bytes PackedPng(std::uint32_t format, int width = 50, int height = 40);

}  // namespace pagivo::native
