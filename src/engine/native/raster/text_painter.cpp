#include "engine/native/raster/text_painter.h"

#include <algorithm>
#include <cmath>

#include "values/process_wide.h"

namespace pagivo::native {
namespace {

// Larger glyphs are few and their bitmaps large: they are filled as figures.
constexpr double kLargestCachedEm = 100;

// How far, in em, a glyph may reach from where it stands; more than any face has need of.
constexpr double kGlyphReach = 16;

GlyphCache& KeptGlyphs() {
  return ProcessWide<GlyphCache>();
}

// Lines are drawn one at a time, so they can share the storage.
ShapedLine& SharedLine() {
  return ProcessWide<ShapedLine>();
}

struct QuarterPixel {
  std::int32_t pixel = 0;
  std::uint32_t quarter = 0;
};

// Positions are those of bitmaps, give or take the reach of a cached glyph.
QuarterPixel NearestQuarter(double position) {
  constexpr std::int32_t kBias = 1 << 20;  // makes cutting off round downwards
  const std::int32_t quarters = static_cast<std::int32_t>(position * 4 + (kBias + 0.5)) - kBias;
  return {quarters >> 2, static_cast<std::uint32_t>(quarters & 3)};
}

std::span<const ShapedGlyph> GlyphsOf(const ShapedRun& run) {
  return std::span(SharedLine().glyphs).subspan(run.glyphBegin, run.glyphEnd - run.glyphBegin);
}

// Hands an outline's curves to cairo.
struct OutlinePath {
  cairo_t* cairo;
  double x, y;  // of the pen position
  bool open = false;

  double X(const FT_Vector& point) const {
    return x + static_cast<double>(point.x) / kOutlineUnitsPerPixel;
  }
  double Y(const FT_Vector& point) const {
    return y - static_cast<double>(point.y) / kOutlineUnitsPerPixel;
  }
};

int MoveTo(const FT_Vector* to, void* user) {
  auto& path = *static_cast<OutlinePath*>(user);
  if (path.open) cairo_close_path(path.cairo);
  path.open = true;
  cairo_move_to(path.cairo, path.X(*to), path.Y(*to));
  return 0;
}

int LineTo(const FT_Vector* to, void* user) {
  const auto& path = *static_cast<OutlinePath*>(user);
  cairo_line_to(path.cairo, path.X(*to), path.Y(*to));
  return 0;
}

int CubicTo(const FT_Vector* control1, const FT_Vector* control2, const FT_Vector* to, void* user) {
  const auto& path = *static_cast<OutlinePath*>(user);
  cairo_curve_to(path.cairo, path.X(*control1), path.Y(*control1), path.X(*control2),
                 path.Y(*control2), path.X(*to), path.Y(*to));
  return 0;
}

// A quadratic curve is the cubic one whose controls lie two thirds of the way to its own.
int QuadraticTo(const FT_Vector* control, const FT_Vector* to, void* user) {
  const auto& path = *static_cast<OutlinePath*>(user);
  double fromX = 0;
  double fromY = 0;
  cairo_get_current_point(path.cairo, &fromX, &fromY);
  const auto towards = [](double from, double to_) { return from + (to_ - from) * 2 / 3; };
  const double controlX = path.X(*control);
  const double controlY = path.Y(*control);
  const double toX = path.X(*to);
  const double toY = path.Y(*to);
  cairo_curve_to(path.cairo, towards(fromX, controlX), towards(fromY, controlY),
                 towards(toX, controlX), towards(toY, controlY), toX, toY);
  return 0;
}

}  // namespace

void TextPainter::SetFont(const FontDescription& font) {
  font_ = FontLibrary::Instance().Find(font.name, font.bold, font.italic).shared_from_this();
  underlined_ = font.underline;
  emPixels_ = scale_.Pixels(font.size * kTwipsPerPoint);
}

// Accents and descenders may leave the line by an em.
bool TextPainter::IsOutsideClip(Point position) const {
  const double top = scale_.PixelAt(position.y) - emPixels_;
  const double bottom = top + (font_->Metrics().lineSpacing + 2) * emPixels_;
  return bottom < canvas_.Clip().top || top > canvas_.Clip().bottom ||
         scale_.PixelAt(position.x) - kGlyphReach * emPixels_ > canvas_.Clip().right;
}

void TextPainter::Draw(Point position, std::string_view text) {
  if (!AreFinite(position.x, position.y, emPixels_) || emPixels_ <= 0) return;
  if (IsOutsideClip(position)) return;
  ShapedLine& line = SharedLine();
  font_->Shape(text, line);
  const double baseline = scale_.PixelAt(position.y) + font_->Metrics().ascent * emPixels_;
  const double left = scale_.PixelAt(position.x);
  double x = left;
  for (const ShapedRun& run : line.runs) x = DrawRun(run, x, baseline);
  if (underlined_) DrawUnderline(left, x, baseline);
}

double TextPainter::DrawRun(const ShapedRun& run, double x, double baseline) {
  const GlyphStyle style{run.face, static_cast<float>(emPixels_), run.emboldened, run.slanted};
  const bool isCached = emPixels_ <= kLargestCachedEm;
  GlyphCache::Glyphs* const glyphs = isCached ? KeptGlyphs().Select(style) : nullptr;
  const double unit = emPixels_ / run.face->UnitsPerEm();
  const double reach = kGlyphReach * emPixels_;
  const double low = canvas_.Clip().left - reach;
  const double high = canvas_.Clip().right + reach;
  for (const ShapedGlyph& glyph : GlyphsOf(run)) {
    const double glyphX = x + glyph.xOffset * unit;
    const double glyphY = baseline - glyph.yOffset * unit;
    x += glyph.advance * unit;
    if (glyphX < low || glyphX > high) continue;
    if (isCached) {
      DrawBitmap(glyphs, glyph.glyph, glyphX, glyphY);
    } else {
      DrawOutline(style, glyph.glyph, glyphX, glyphY);
    }
  }
  return x;
}

void TextPainter::DrawBitmap(GlyphCache::Glyphs* glyphs, std::uint32_t glyph, double x, double y) {
  const QuarterPixel column = NearestQuarter(x);
  const QuarterPixel row = NearestQuarter(y);
  const GlyphBitmap bitmap = KeptGlyphs().Find(glyphs, glyph, column.quarter, row.quarter);
  canvas_.DrawCoverage(bitmap.coverage, column.pixel + bitmap.left, row.pixel + bitmap.top, ink_);
}

void TextPainter::DrawOutline(const GlyphStyle& style, std::uint32_t glyph, double x, double y) {
  FT_Outline* outline = LoadGlyphOutline(style, glyph);
  if (outline == nullptr) return;
  constexpr FT_Outline_Funcs kFunctions{MoveTo, LineTo, QuadraticTo, CubicTo, 0, 0};
  OutlinePath path{canvas_.Vectors(), x, y};
  cairo_new_path(path.cairo);
  FT_Outline_Decompose(outline, &kFunctions, &path);
  cairo_set_source_rgb(path.cairo, RedOf(color_) / 255.0, GreenOf(color_) / 255.0,
                       BlueOf(color_) / 255.0);
  cairo_set_fill_rule(path.cairo, CAIRO_FILL_RULE_WINDING);
  cairo_fill(path.cairo);
}

void TextPainter::DrawUnderline(double left, double right, double baseline) {
  const FontMetrics& metrics = font_->Metrics();
  const double thickness = std::max(metrics.underlineThickness * emPixels_, 1.0);
  double middle = baseline + metrics.underlinePosition * emPixels_;
  if (thickness < kThinPixels) middle = AlignedMiddle(middle, thickness);
  canvas_.FillRectangle({left, middle - thickness / 2, right, middle + thickness / 2}, ink_);
}

}  // namespace pagivo::native
