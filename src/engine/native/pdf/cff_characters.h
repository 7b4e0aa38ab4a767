// Which characters the glyphs of a CFF font program are.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace pagivo::native {

// The character number of every glyph of a CFF table, as PDF readers take it: by the charset of a
// CID-keyed program, empty for any other, whose glyphs are numbered as they stand. Empty, too, for
// bytes that make no sense.
std::vector<std::uint32_t> CffCharacters(std::string_view cff);

}  // namespace pagivo::native
