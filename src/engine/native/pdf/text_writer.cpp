#include "engine/native/pdf/text_writer.h"

#include <algorithm>
#include <cmath>

#include "values/characters.h"

namespace pagivo::native {
namespace {

// Numbers in a string of glyphs are thousandths of the em. From this size on, they get a decimal.
constexpr double kLargeSize = 15;

// The part of a line's text that a glyph stands for.
std::string_view TextOf(const ShapedGlyph& glyph, std::string_view text) {
  return {text.data() + glyph.textBegin, glyph.textEnd - glyph.textBegin};
}

std::size_t CountCodePoints(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < text.size(); i += DecodeUtf8(text, i).length) ++count;
  return count;
}

}  // namespace

void TextWriter::DrawGlyph(const ShapedGlyph& glyph, std::string_view text, Pen pen) {
  if (glyph.xOffset != 0) pen.x += glyph.xOffset * unitsToPage_;
  if (glyph.yOffset != 0) pen.y += glyph.yOffset * unitsToPage_;
  DrawCode(codes_->CodeOf(glyph.glyph, text), pen);
}

void TextWriter::DrawCode(const GlyphCode& code, Pen pen) {
  stream_.SelectFont(code.font, size_);
  const bool inPlace =
      stream_.IsInString() && pen.y == penY_ && std::abs(pen.x - readerPen_) <= kTolerance;
  if (!inPlace) PlacePen(pen);
  stream_.AddCode(code.code, code.bytes);
  readerPen_ += code.advance * thousandthToPage_;
}

// Most glyphs of a document pass through the inner loop: those that go on with the string of the
// one before, because the reader's pen is where they stand. DrawCode does all the rest.
double TextWriter::Draw(const SimpleLine& line, const TextPlacement& placement) {
  SetStyle({line.face, line.emboldened, line.slanted}, placement);
  GlyphCodes& codes = *codes_;
  const double unitsToPage = unitsToPage_;
  const double thousandthToPage = thousandthToPage_;
  const SimpleCharacter* next = line.characters.data();
  const SimpleCharacter* const end = next + line.characters.size();
  std::int64_t advances = 0;
  double x = placement.x;
  while (next != end) {
    const GlyphCode first = codes.CodeOf(*next);
    DrawCode(first, {x, placement.baseline});
    const auto rest = static_cast<std::size_t>(end - next) - 1;
    const std::span<char> room = stream_.RoomForCodes(first.bytes == 1 ? rest : 0);
    const SimpleCharacter* const stop = next + room.size() + 1;
    char* stringEnd = room.data();
    double readerPen = readerPen_;
    for (;;) {
      advances += next->advance;
      x = placement.x + static_cast<double>(advances) * unitsToPage;
      if (++next == stop) break;
      const GlyphCode* code = codes.FindIn(first.font, *next);
      if (code == nullptr || std::abs(x - readerPen) > kTolerance) break;
      *stringEnd++ = static_cast<char>(code->code);
      readerPen += code->advance * thousandthToPage;
    }
    stream_.EndCodesAt(stringEnd);
    readerPen_ = readerPen;
  }
  return x;
}

// Calls visit(run, glyphs, x) for the glyphs of each piece of text, from left to right, and gives
// where the pen ends.
template <typename Visit>
double TextWriter::VisitClusters(const ShapedLine& line, const TextPlacement& placement,
                                 Visit visit) {
  double runBegin = placement.x;
  for (const ShapedRun& run : line.runs) {
    const double scale = placement.size / run.face->UnitsPerEm();
    std::int64_t advances = 0;
    for (std::uint32_t i = run.glyphBegin, next = i; i < run.glyphEnd; i = next) {
      const double x = runBegin + static_cast<double>(advances) * scale;
      const std::uint32_t textBegin = line.glyphs[i].textBegin;
      for (; next < run.glyphEnd && line.glyphs[next].textBegin == textBegin; ++next) {
        advances += line.glyphs[next].advance;
      }
      visit(run, std::span(line.glyphs).subspan(i, next - i), x);
    }
    runBegin += static_cast<double>(advances) * scale;
  }
  return runBegin;
}

double TextWriter::Draw(const ShapedLine& line, std::string_view text,
                        const TextPlacement& placement) {
  const ShapedRun* styled = nullptr;
  const auto draw = [&](const ShapedRun& run, std::span<const ShapedGlyph> glyphs, double x) {
    if (&run != styled) SetStyle(run, placement);
    styled = &run;
    const std::string_view part = TextOf(glyphs.front(), text);
    const Pen pen{x, placement.baseline};
    if (glyphs.size() == 1) return DrawGlyph(glyphs.front(), part, pen);
    DrawCluster({&run, glyphs, x}, part, pen);
  };
  if (std::ranges::is_sorted(line.glyphs, {}, &ShapedGlyph::textBegin)) {
    return VisitClusters(line, placement, draw);
  }

  std::vector<Cluster> clusters;
  const auto collect = [&](const ShapedRun& run, std::span<const ShapedGlyph> glyphs, double x) {
    clusters.push_back({&run, glyphs, x});
  };
  const double penEnd = VisitClusters(line, placement, collect);
  std::ranges::stable_sort(clusters, {}, &Cluster::TextBegin);
  for (const Cluster& cluster : clusters) draw(*cluster.run, cluster.glyphs, cluster.x);
  return penEnd;
}

void TextWriter::SetStyle(const ShapedRun& run, const TextPlacement& placement) {
  if (run.emboldened) {
    Embolden(placement);
  } else {
    stream_.FillGlyphs();
  }
  stream_.SetTextColor(placement.color);
  if (const double slant = run.slanted ? kSlant : 0; slant != slant_) {
    stream_.EndString();
    slant_ = slant;
  }
  if (run.face != face_ || placement.size != exactSize_) SetFont(*run.face, placement.size);
}

// A face that lacks bold is thickened by a stroke around its glyphs.
void TextWriter::Embolden(const TextPlacement& placement) {
  const Hundredths width = RoundAway(kEmboldenStroke * placement.size * 100);
  stream_.OutlineGlyphs({.color = placement.color, .width = width, .join = 1});
}

void TextWriter::SetFont(const Face& face, double size) {
  face_ = &face;
  exactSize_ = size;
  size_ = std::max<std::int64_t>(RoundAway(size * 1000), 1);  // advances are divided by it
  codes_ = &fonts_.CodesOf(face);
  unitsToPage_ = size / face.UnitsPerEm();
  thousandthToPage_ = static_cast<double>(size_) / 1e6;
}

// The text of a cluster is told as a whole: a glyph without a code point of its own has none to
// give, and there are readers that take a mark's glyph for the end of a word. Those readers turn
// texts that run from right to left around, so there glyphs that have code points speak for
// themselves.
void TextWriter::DrawCluster(const Cluster& cluster, std::string_view text, Pen pen) {
  if (cluster.run->rightToLeft && cluster.glyphs.size() <= CountCodePoints(text)) {
    return DrawGlyphs(cluster, text, pen);
  }
  PlacePen(pen);
  stream_.BeginActualText(text);
  DrawGlyphs(cluster, text, pen);
  stream_.EndActualText();
}

// In the text's order each glyph stands for one code point and the last for what is left, so that
// the text comes out as it was written.
void TextWriter::DrawGlyphs(const Cluster& cluster, std::string_view text, Pen pen) {
  const std::span<const ShapedGlyph> glyphs = cluster.glyphs;
  std::vector<double> pens;
  for (const ShapedGlyph& glyph : glyphs) {
    pens.push_back(pen.x);
    pen.x += glyph.advance * unitsToPage_;
  }
  for (std::size_t i = 0; i < glyphs.size(); ++i) {
    const bool last = i + 1 == glyphs.size();
    const std::size_t length = last || text.empty() ? text.size() : DecodeUtf8(text, 0).length;
    const std::size_t glyph = cluster.run->rightToLeft ? glyphs.size() - 1 - i : i;
    DrawGlyph(glyphs[glyph], text.substr(0, length), {pens[glyph], pen.y});
    text.remove_prefix(length);
  }
}

void TextWriter::PlacePen(Pen pen) {
  if (pen.y != penY_) {
    penY_ = pen.y;
    baseline_ = RoundAway(pen.y * 100);
  }
  if (!stream_.IsOnLine(baseline_, slant_)) {
    const Hundredths start = RoundAway(pen.x * 100);
    stream_.StartLine({start, baseline_}, slant_);
    readerPen_ = static_cast<double>(start) / 100;
  }
  const double gap = pen.x - readerPen_;
  if (std::abs(gap) <= kTolerance) return;

  const int decimals = static_cast<double>(size_) < kLargeSize * 1000 ? 0 : 1;
  const double steps = decimals == 0 ? 1 : 10;
  const std::int64_t distance = RoundAway(-gap / thousandthToPage_ * steps);
  stream_.MovePenBack(distance, decimals);
  readerPen_ -= static_cast<double>(distance) / steps * thousandthToPage_;
}

}  // namespace pagivo::native
