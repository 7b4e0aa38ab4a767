// Embedding a font: of any file that opens, a font program comes out for the glyphs asked for.
#include <array>
#include <cstdint>

#include "engine/native/pdf/font_program.h"
#include "font_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::array<std::uint32_t, 5> kGlyphs = {0, 1, 2, 7, 65535};
  const pagivo::fuzz::FontFile file(data, size);
  const auto face = file.Open();
  if (!face) return 0;
  try {
    pagivo::native::MakeFontProgram(*face, kGlyphs);
    pagivo::native::MakeWholeFontProgram(*face, kGlyphs);
  } catch (const pagivo::Error&) {
  }
  return 0;
}
