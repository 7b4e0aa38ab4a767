// Picture files of one format: whatever the bytes are, a picture comes out or an Error.
#include <cstddef>
#include <cstdint>
#include <span>

#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/picture_loader.h"
#include "pagivo/error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using pagivo::native::PictureFormat;
  const std::span<const std::uint8_t> bytes(data, size);
  // What another target is for is kept out of this one's corpus.
  if (pagivo::native::FormatOf(bytes) != PictureFormat::PAGIVO_FUZZ_FORMAT) return -1;
  try {
    pagivo::native::DecodePicture(bytes)->GetPixels();  // those of some files are decoded late
  } catch (const pagivo::Error&) {
  }
  return 0;
}
