// Faces found for the fonts that a host asks for, and text shaped with them.
//
// All numbers are in the face's own design units, so they depend on no device: preview, printer and
// PDF shape through the same tables and place every glyph at the same spot.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "engine/native/fonts/font_description.h"

namespace pagivo::native {

// One font file's face, opened once while it is in use. Defined in face.h.
class Face;
// What is installed. Defined in face_finder.h.
class FaceFinder;

// Lengths are in the design units of the glyph's face, y up.
struct ShapedGlyph {
  std::uint32_t glyph = 0;   // index in the face
  std::int32_t advance = 0;  // kerning included
  std::int32_t xOffset = 0;  // of the glyph from its pen position; rarely not zero
  std::int32_t yOffset = 0;
  std::uint32_t textBegin = 0;  // the UTF-8 bytes of the line that this glyph's cluster stands
  std::uint32_t textEnd = 0;    // for; several glyphs of one cluster carry the same range
};

// Glyphs of one face and direction that stand side by side.
struct ShapedRun {
  const Face* face = nullptr;    // held by the font that shaped the line
  bool emboldened = false;       // bold was asked for and the face has none: players thicken it
  bool slanted = false;          // likewise for italic
  bool rightToLeft = false;      // the text runs so: the glyphs stand against its order
  std::uint32_t glyphBegin = 0;  // into ShapedLine::glyphs
  std::uint32_t glyphEnd = 0;
};

// A line's glyphs from left to right, in runs.
struct ShapedLine {
  std::vector<ShapedGlyph> glyphs;
  std::vector<ShapedRun> runs;
};

// A character of a simple line: its number (simple_text.h) and its glyph's advance, kerning
// included.
struct SimpleCharacter {
  std::uint16_t slot = 0;
  std::int16_t advance = 0;
};

// A line of which each character has its own glyph of one face and nothing moves it: players need
// not look at glyphs. They stand from left to right.
struct SimpleLine {
  const Face* face = nullptr;  // as in ShapedRun
  bool emboldened = false;
  bool slanted = false;
  std::span<const SimpleCharacter> characters;
};

// Vertical measures of a font; the unit is the font's size (1 em).
//
// Ascent, descent and line gap are those of the face's horizontal header (hhea), or the typographic
// ones of OS/2 where the face asks for them: what desktop programs and browsers use on this system,
// so lines stand as far apart as the user knows them. The Windows values of OS/2 are clipping
// bounds and make lines of some faces half as far apart again; for the families that documents
// mostly use (and their metric-compatible replacements) both rules give the same.
struct FontMetrics {
  double ascent = 0;       // from the line's top to its baseline
  double lineSpacing = 0;  // from a line's top to the next line's top: ascent, descent and gap
  double underlinePosition = 0;  // of the underline's centre, below the baseline
  double underlineThickness = 0;
};

FontMetrics ReadFontMetrics(const Face& face);

// How far players slant and thicken a face that lacks the style that was asked for.
inline constexpr double kSlant = 0.2;                // tangent of the angle
inline constexpr double kEmboldenStroke = 1.0 / 30;  // added to every stem, em

// A font of the library: name, bold and italic. Size and underline do not matter to shaping.
class Font : public std::enable_shared_from_this<Font> {
 public:
  virtual ~Font() = default;

  virtual const FontMetrics& Metrics() const = 0;
  // Shapes one line of UTF-8 without control characters into `line`, reusing its storage. Bytes
  // that are no UTF-8 stand for U+FFFD.
  virtual void Shape(std::string_view text, ShapedLine& line) = 0;
  // The same for simple text, as most is; nothing for any other. The characters stay until the next
  // call for a font of the same face.
  virtual std::optional<SimpleLine> ShapeSimple(std::string_view text) = 0;
  // The sum of the advances that Shape would give, trailing blanks and kerning included, in em.
  virtual double Width(std::string_view text) = 0;
};

// The fonts of one process. Not thread-safe, like the whole component.
class FontLibrary {
 public:
  static FontLibrary& Instance();  // of the faces installed on this system
  explicit FontLibrary(std::unique_ptr<FaceFinder> finder);
  ~FontLibrary();
  FontLibrary(const FontLibrary&) = delete;
  FontLibrary& operator=(const FontLibrary&) = delete;

  // Hosts may ask for any number of names, so the library keeps this many fonts, those asked for
  // last.
  static constexpr std::size_t kMostFonts = 256;

  // Never fails for an unknown name: the closest face stands in, a metric-compatible one where
  // there is one. The reference stays valid until kMostFonts others have been asked for; whoever
  // needs it longer holds the font (shared_from_this), no longer than the library. Raises
  // ErrorNumber::FileAccess when the machine has no scalable face at all.
  Font& Find(std::string_view name, bool bold, bool italic);

 private:
  struct Implementation;
  std::unique_ptr<Implementation> implementation_;
};

}  // namespace pagivo::native
