// Text shaped by HarfBuzz: correct for every script, and slow.
#pragma once

#include <hb.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

#include "engine/native/fonts/font_library.h"
#include "engine/native/fonts/itemizer.h"

namespace pagivo::native {

// The lookups of a layout table (GSUB or GPOS) that shaping Latin text goes through.
std::vector<std::uint32_t> LatinLookups(const Face& face, hb_tag_t table);

class Shaper {
 public:
  Shaper();

  // Shapes a line as Font::Shape does.
  void Shape(std::string_view text, FaceChoice& faces, ShapedLine& line);

  // Shapes Latin code points with one face. The glyphs' clusters are indexes of code points. The
  // result holds until the next call of this shaper.
  hb_buffer_t* ShapeLatin(const Face& face, std::span<const std::uint32_t> codePoints);

  // How often HarfBuzz was called; what measurements report.
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
