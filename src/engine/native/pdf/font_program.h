// The part of a font file that is embedded.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "engine/native/fonts/face.h"

namespace pagivo::native {

enum class OutlineFormat : std::uint8_t { TrueType, Cff };

struct FontProgram {
  OutlineFormat format = OutlineFormat::TrueType;
  std::string bytes;
  std::vector<std::uint32_t> characters;  // what readers call the glyphs asked for, in their order
  bool subset = true;                     // false: the face's whole program
};

// Holds the outlines of these glyphs of the face. Hints are left out, for what is drawn never
// depends on the device. A face that HarfBuzz cannot subset is taken whole.
FontProgram MakeFontProgram(const Face& face, std::span<const std::uint32_t> glyphs);

// The face's whole program.
FontProgram MakeWholeFontProgram(const Face& face, std::span<const std::uint32_t> glyphs);

}  // namespace pagivo::native
