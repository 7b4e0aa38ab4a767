// A line of text cut into pieces that can be shaped in one go.
#pragma once

#include <hb.h>

#include <cstdint>
#include <string_view>
#include <vector>

#include "engine/native/fonts/face_catalog.h"

namespace pagivo::native {

struct DecodedLine {
  std::vector<std::uint32_t> codePoints;
  std::vector<std::uint32_t> offsets;  // of each code point in the text, and the text's length
};

// Replaces what `line` holds, keeping its storage.
void Decode(std::string_view text, DecodedLine& line);

// Code points of one face, script and direction.
struct TextRun {
  std::uint32_t begin = 0;  // into the line's code points
  std::uint32_t end = 0;
  StyledFace face;
  hb_script_t script = HB_SCRIPT_LATIN;
  std::int8_t level = 0;  // of the bidirectional algorithm; odd runs from right to left
};

// The runs of a line in visual order, from left to right.
std::vector<TextRun> Itemize(const DecodedLine& line, FaceChoice& faces);

}  // namespace pagivo::native
