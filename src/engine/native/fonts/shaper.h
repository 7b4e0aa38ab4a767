// Text cut into runs and shaped by HarfBuzz: correct for every script, and slow.
#pragma once

#include <hb.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "engine/native/fonts/face_catalog.h"
#include "engine/native/fonts/font_library.h"

namespace pagivo::native {

// The lookups of a layout table (GSUB or GPOS) that shaping Latin text goes through.
std::vector<std::uint32_t> LatinLookups(const Face& face, hb_tag_t table);

struct DecodedLine {
  std::vector<std::uint32_t> codePoints;
  std::vector<std::uint32_t> offsets;  // of each code point in the text, and the text's length
};

// Code points of one face, script and direction.
struct TextRun {
  std::uint32_t begin = 0;  // into the line's code points
  std::uint32_t end = 0;
  StyledFace face;
  hb_script_t script = HB_SCRIPT_LATIN;
  std::int8_t level = 0;  // of the bidirectional algorithm

  bool RunsFromRightToLeft() const noexcept { return level % 2 != 0; }
};

class Shaper {
 public:
  Shaper();

  // Shapes a line as Font::Shape does.
  void Shape(std::string_view text, FaceChoice& faces, ShapedLine& line);

  // Shapes Latin code points with one face. The glyphs' clusters are indexes of code points. The
  // buffer is the shaper's own, and its next call fills it anew.
  hb_buffer_t* ShapeLatin(const Face& face, std::span<const std::uint32_t> codePoints);

  // How often HarfBuzz was called, for measurements.
  std::uint64_t Calls() const noexcept { return calls_; }

 private:
  struct BufferReleaser {
    void operator()(hb_buffer_t* buffer) const { hb_buffer_destroy(buffer); }
  };

  void ShapeRun(std::span<const std::uint32_t> codePoints, const TextRun& run);
  void Append(const TextRun& run, ShapedLine& line) const;

  std::unique_ptr<hb_buffer_t, BufferReleaser> buffer_;
  DecodedLine decoded_;
  std::uint64_t calls_ = 0;
};

}  // namespace pagivo::native
