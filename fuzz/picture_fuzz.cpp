// Picture files of one format: whatever the bytes are, a picture comes out or an Error.
#include <libdeflate.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/picture_loader.h"
#include "pagivo/error.h"

namespace {

using namespace pagivo::native;

constexpr PictureFormat kFormat = PictureFormat::PAGIVO_FUZZ_FORMAT;

void Decode(PictureBytes bytes) {
  try {
    DecodePicture(bytes)->GetPixels();  // those of some files are decoded late
  } catch (const pagivo::Error&) {
  }
}

// A PNG is refused for a wrong checksum before anything else is looked at.
std::vector<std::uint8_t> WithRightChecksums(PictureBytes png) {
  constexpr std::size_t kFrameSize = 12;  // length and type before the data, a checksum behind
  std::vector<std::uint8_t> file(png.begin(), png.end());
  std::size_t at = 8;
  while (file.size() - at >= kFrameSize) {
    const std::size_t size = ReadBig32(file, at);
    if (size > file.size() - at - kFrameSize) break;
    const std::uint32_t sum = libdeflate_crc32(0, &file[at + 4], size + 4);
    at += kFrameSize + size;
    for (std::size_t i = 1; i <= 4; ++i) {
      file[at - i] = static_cast<std::uint8_t>(sum >> (8 * (i - 1)));
    }
  }
  return file;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const std::uint8_t> bytes(data, size);
  // What another target is for is kept out of this one's corpus.
  if (FormatOf(bytes) != kFormat) return -1;
  Decode(bytes);
  if (kFormat == PictureFormat::Png) Decode(WithRightChecksums(bytes));
  return 0;
}
