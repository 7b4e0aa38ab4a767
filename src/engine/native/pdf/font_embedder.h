// The fonts of a file.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <unordered_map>

#include "engine/native/pdf/glyph_codes.h"
#include "engine/native/pdf/pdf_file.h"

namespace pagivo::native {

// The name of a font resource: F and its number.
void AppendFontName(std::string& out, std::uint16_t number);

// Hands out codes while pages are written; the fonts follow when all their glyphs are known.
class FontEmbedder {
 public:
  // The reference holds as long as the embedder.
  GlyphCodes& CodesOf(const Face& face);

  // Writes the fonts and gives the entries of the font resource dictionary.
  std::string WriteFonts(PdfFile& file) const;

 private:
  std::uint16_t fontCount_ = 0;
  std::deque<GlyphCodes> faces_;  // in order of first use
  std::unordered_map<const Face*, GlyphCodes*> byFace_;
};

}  // namespace pagivo::native
