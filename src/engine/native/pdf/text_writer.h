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
  double baseline = 0;  // the same, upwards
  double size = 0;      // of the em, the same
  Color color = 0;
};

// Follows a reader's pen glyph by glyph, so that none ends up further than kTolerance from where it
// was recorded, and moves the pen only when it has to: glyphs on one baseline share one string,
// wherever they stand.
class TextWriter {
 public:
  // In units of the page.
  static constexpr double kTolerance = 0.015;

  TextWriter(ContentStream& stream, FontEmbedder& fonts) : stream_(stream), fonts_(fonts) {}

  // The stream has begun a new page.
  void BeginPage();

  // `text` is what the line was shaped from. Glyphs are drawn in the text's order, which readers
  // copy, and not from left to right where the two differ. Gives where the pen would end.
  double Draw(const ShapedLine& line, std::string_view text, const TextPlacement& placement);

  // Closes the text object, for operators that are none of text.
  void End();

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

  double DrawPlain(const ShapedLine& line, std::string_view text, const TextPlacement& placement);
  double DrawPlainRun(std::span<const ShapedGlyph> glyphs, std::string_view text, Pen start);
  std::size_t RoomInString();
  double DrawClusters(const ShapedLine& line, std::string_view text,
                      const TextPlacement& placement);
  template <typename Visit>
  static double VisitClusters(const ShapedLine& line, const TextPlacement& placement, Visit visit);
  void SetStyle(const ShapedRun& run, const TextPlacement& placement);
  void SetFont(const Face& face, double size);
  void SetEmboldened(bool emboldened, const TextPlacement& placement);
  void SelectFont(std::uint16_t font);
  void DrawCluster(const Cluster& cluster, std::string_view text, Pen pen);
  void DrawGlyphs(const Cluster& cluster, std::string_view text, Pen pen);
  void DrawGlyph(const ShapedGlyph& glyph, std::string_view text, Pen pen);
  void PlacePen(Pen pen);
  void StartLine(PdfPoint start, double slant);
  void OpenString();
  void CloseString();

  ContentStream& stream_;
  FontEmbedder& fonts_;

  // How text operators draw until told otherwise.
  std::int32_t font_ = -1;
  std::int64_t fontSize_ = 0;  // thousandths
  bool emboldened_ = false;

  // How the next glyphs are to be drawn.
  const Face* face_ = nullptr;
  GlyphCodes* codes_ = nullptr;  // of the face
  double exactSize_ = 0;
  std::int64_t size_ = 0;  // thousandths, as it is written and as readers therefore take it
  double slant_ = 0;
  double unitsToPage_ = 0;       // of a design unit of the face
  double thousandthToPage_ = 0;  // of a thousandth of the em

  bool inText_ = false;    // between BT and ET
  bool inString_ = false;  // within "[(" and ")]TJ"
  std::size_t stringBegin_ = 0;
  PdfPoint lineStart_;  // where Td counts from
  double lineSlant_ = 0;
  double readerPen_ = 0;  // where a reader's pen stands, horizontally

  // Of the glyph drawn last: its pen's height in units and in hundredths.
  double penY_ = 0;
  Hundredths baseline_ = 0;
};

}  // namespace pagivo::native
