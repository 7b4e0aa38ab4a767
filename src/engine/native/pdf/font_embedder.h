// The fonts of a file.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <unordered_map>

#include "engine/native/pdf/glyph_codes.h"
#include "engine/native/pdf/pdf_file.h"

namespace pagivo::native {

// It hands out codes while pages are written. The fonts themselves follow when all their glyphs are
// known.
class FontEmbedder {
 public:
  // The reference holds as long as the embedder.
  GlyphCodes& CodesOf(const Face& face);

  // Writes the fonts and gives the resource dictionary that names them.
  PdfDictionary WriteFonts(PdfFile& file) const;

 private:
  std::uint16_t fontCount_ = 0;
  std::deque<GlyphCodes> faces_;  // in order of first use
  std::unordered_map<const Face*, GlyphCodes*> byFace_;
};

}  // namespace pagivo::native
