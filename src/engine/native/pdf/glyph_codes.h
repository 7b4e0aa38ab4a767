// Codes that content streams use for a face's glyphs, and the maps that tell readers what they
// mean.
#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "engine/native/fonts/face.h"
#include "engine/native/fonts/font_library.h"
#include "engine/native/fonts/simple_text.h"
#include "engine/native/pdf/pdf_syntax.h"

namespace pagivo::native {

// How far a reader's pen moves on for a glyph. The number is whole because some readers round it;
// the text writer makes good what is lost before it can be seen.
std::int16_t AdvanceInThousandths(const Face& face, std::uint32_t glyph);

// How a content stream names a glyph.
struct GlyphCode {
  static constexpr std::uint16_t kNoFont = 0xFFFF;

  std::uint16_t font = kNoFont;  // number of the font resource
  std::uint16_t code = 0;        // no string has to escape its bytes
  std::uint8_t bytes = 0;        // 1 or 2; 0 is no code
  std::int16_t advance = 0;      // thousandths of the em
};

// A code and what it stands for.
struct CodeUse {
  std::uint16_t code = 0;
  std::uint32_t glyph = 0;
  std::string text;
};

// A font of a face.
struct CodedFont {
  std::uint16_t number = 0;
  std::uint8_t codeBytes = 1;
  std::vector<CodeUse> uses;
};

// Every pair of a glyph and the text that it stands for gets a code of its own, in order of first
// use: a hyphen and a soft hyphen may share a glyph and are still copied as what they were.
//
// Most documents use few glyphs of a face, so codes have one byte until these are used up; then a
// font with two-byte codes follows.
//
// Some readers look texts up by character number, and take no larger number than a code can hold.
// With TrueType outlines the code is the character number. With CFF outlines the program numbers
// its characters, so a glyph's second text goes to another series of fonts, and a CID-keyed
// program, whose numbers may be large, gets two-byte codes at once.
class GlyphCodes {
 public:
  // `fontCount` is shared by all faces of a file and numbers its fonts.
  GlyphCodes(const Face& face, std::uint16_t& fontCount);

  // `text` is UTF-8 and may be empty. The reference holds until the next call.
  const GlyphCode& CodeOf(std::uint32_t glyph, std::string_view text) {
    const std::uint32_t key = ShortKey(text);
    const bool found = key != 0 && glyph < entries_.size() && entries_[glyph].key == key;
    return found ? entries_[glyph].code : FindOrAdd(glyph, text, key);
  }

  // The code of a simple character and its own glyph.
  const GlyphCode& CodeOf(SimpleCharacter character) {
    const GlyphCode& known = simple_[character.slot];
    return known.bytes != 0 ? known : AddSimple(character.slot);
  }

  // The same for a character that has a code in that font; null for others.
  const GlyphCode* FindIn(std::uint16_t font, SimpleCharacter character) const {
    const GlyphCode& code = simple_[character.slot];
    return code.font == font ? &code : nullptr;
  }

  const Face& FaceUsed() const noexcept { return *face_; }
  bool HasTrueTypeOutlines() const noexcept { return trueType_; }
  const std::vector<CodedFont>& Fonts() const noexcept { return fonts_; }

 private:
  // The first short text of a glyph, which is found without hashing.
  struct Entry {
    std::uint32_t key = 0;
    GlyphCode code;
    std::uint8_t textCount = 0;
  };

  // Fonts that follow each other as their codes are used up.
  struct Series {
    std::optional<std::size_t> font;  // the last one
    std::bitset<256> taken;           // one-byte codes
    std::size_t nextIndex = 0;        // into the codes of the last font
  };

  // Further texts of a glyph share the last series.
  static constexpr std::size_t kMostSeries = 8;

  // Up to four bytes as one number, which is not zero; zero for other texts.
  static std::uint32_t ShortKey(std::string_view text) {
    std::uint32_t key = 0;
    if (text.size() > sizeof key) return 0;
    for (const char byte : text) key = key << 8 | static_cast<unsigned char>(byte);
    return key;
  }

  const GlyphCode& FindOrAdd(std::uint32_t glyph, std::string_view text, std::uint32_t key);
  const GlyphCode& AddSimple(Slot slot);
  GlyphCode Add(std::uint32_t glyph, std::string_view text);
  bool IsFull(const Series& series) const;
  void OpenFont(Series& series);
  std::uint16_t NextCode(Series& series, std::string_view text) const;

  std::shared_ptr<const Face> face_;  // held, for it might be closed before its fonts are written
  std::uint16_t& fontCount_;
  bool trueType_;
  std::vector<CodedFont> fonts_;
  std::array<Series, kMostSeries> series_;
  std::vector<Entry> entries_;                         // by glyph
  std::unordered_map<std::string, GlyphCode> others_;  // by glyph number and text
  std::array<GlyphCode, kSlotCount> simple_{};         // of simple characters once they occurred
};

// What a code means to a reader.
struct CodeMapping {
  std::uint16_t code = 0;
  std::uint32_t character = 0;  // in the font program
  std::string_view text;        // UTF-8
};

// Names a character collection of our own making, as fonts and their maps must.
PdfDictionary CharacterCollection(std::string_view ordering);

// The name that an encoding's stream dictionary must repeat.
std::string_view EncodingName(int codeBytes);

// From codes to characters of the font program.
std::string MakeEncoding(int codeBytes, std::span<const CodeMapping> mappings);

// From codes to text.
std::string MakeToUnicode(int codeBytes, std::span<const CodeMapping> mappings);

}  // namespace pagivo::native
