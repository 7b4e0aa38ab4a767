// Text in a content stream.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/native/fonts/font_library.h"
#include "engine/native/pdf/content_stream.h"
#include "engine/native/pdf/font_embedder.h"

namespace pagivo::native {

// Where a line of glyphs goes and how it looks.
struct TextPlacement {
  double x = 0;         // where the pen starts, in units of the page
  double baseline = 0;  // how far above the page's lower edge, in units
  double size = 0;      // of the em, in units
  Color color = 0;
};

// It follows a reader's pen glyph by glyph, so that no glyph ends up further than kTolerance from
// where it was recorded, and moves the pen only when it has to: glyphs on one baseline share one
// string, wherever they stand.
class TextWriter {
 public:
  // In units of the page.
  static constexpr double kTolerance = 0.015;

  TextWriter(ContentStream& stream, FontEmbedder& fonts) : stream_(stream), fonts_(fonts) {}

  // Gives where the pen would end.
  double Draw(const SimpleLine& line, const TextPlacement& placement);
  // Any line. `text` is what it was shaped from. Glyphs are drawn in the text's order and not from
  // left to right, for readers copy them as they were drawn.
  double Draw(const ShapedLine& line, std::string_view text, const TextPlacement& placement);

 private:
  struct Pen {
    double x = 0;
    double y = 0;
  };

  // The glyphs that stand for one piece of text.
  struct Cluster {
    const ShapedRun* run = nullptr;
    std::span<const ShapedGlyph> glyphs;
    double x = 0;
    std::uint32_t TextBegin() const { return glyphs.front().textBegin; }
  };

  template <typename Visit>
  static double VisitClusters(const ShapedLine& line, const TextPlacement& placement, Visit visit);
  void SetStyle(const ShapedRun& run, const TextPlacement& placement);
  void SetFont(const Face& face, double size);
  void Embolden(const TextPlacement& placement);
  void DrawCluster(const Cluster& cluster, std::string_view text, Pen pen);
  void DrawGlyphs(const Cluster& cluster, std::string_view text, Pen pen);
  void DrawGlyph(const ShapedGlyph& glyph, std::string_view text, Pen pen);
  void DrawCode(const GlyphCode& code, Pen pen);
  void PlacePen(Pen pen);

  ContentStream& stream_;
  FontEmbedder& fonts_;

  // How the next glyphs are to be drawn.
  const Face* face_ = nullptr;
  GlyphCodes* codes_ = nullptr;  // of the face
  double exactSize_ = 0;
  std::int64_t size_ = 0;  // thousandths, as it is written and as readers therefore take it
  double slant_ = 0;
  double unitsToPage_ = 0;       // of a design unit of the face
  double thousandthToPage_ = 0;  // of a thousandth of the em

  double readerPen_ = 0;  // where a reader's pen stands, horizontally

  // Of the glyph drawn last: its pen's height in units and in hundredths.
  double penY_ = 0;
  Hundredths baseline_ = 0;
};

}  // namespace pagivo::native
