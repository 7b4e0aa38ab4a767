// What connects a font's codes with the glyphs of its program and with text.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace pagivo::native {

struct CodeMapping {
  std::uint16_t code = 0;
  std::uint32_t character = 0;  // in the font program
  std::string_view text;        // UTF-8
};

// The registry, ordering and supplement of character collections of our own making.
inline constexpr std::string_view kCharacterCollection =
    "<</Registry(Adobe)/Ordering(Identity)/Supplement 0>>";

// The name that an encoding's stream dictionary must repeat.
std::string_view EncodingName(int codeBytes);

// From codes to characters of the font program.
std::string MakeEncoding(int codeBytes, std::span<const CodeMapping> mappings);

// From codes to text.
std::string MakeToUnicode(int codeBytes, std::span<const CodeMapping> mappings);

}  // namespace pagivo::native
