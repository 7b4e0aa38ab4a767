#include "engine/native/raster/glyph_cache.h"

#include <algorithm>
#include <cmath>

#include "engine/native/fonts/font_library.h"

namespace pagivo::native {
namespace {

// --- Outlines ---------------------------------------------------------------------------------

constexpr double kFixedOne = 65536;  // FreeType's matrices

void Scale(FT_Outline& outline, const GlyphStyle& style) {
  const double scale =
      double{style.emPixels} * kOutlineUnitsPerPixel / style.face->UnitsPerEm() * kFixedOne;
  const FT_Matrix matrix{std::lround(scale), style.slanted ? std::lround(scale * kSlant) : 0, 0,
                         std::lround(scale)};
  FT_Outline_Transform(&outline, &matrix);
}

// FreeType lets outlines grow to the right and upwards only.
void Embolden(FT_Outline& outline, const GlyphStyle& style) {
  const FT_Pos strength =
      std::lround(double{style.emPixels} * kEmboldenStroke * kOutlineUnitsPerPixel);
  FT_Outline_Embolden(&outline, strength);
  FT_Outline_Translate(&outline, -strength / 2, -strength / 2);
}

// --- Bitmaps ----------------------------------------------------------------------------------

constexpr FT_Pos kQuarter = static_cast<FT_Pos>(kOutlineUnitsPerPixel / 4);

// At most half of the places are taken, so that a free one is near.
constexpr std::size_t kPlaces = 2 * GlyphCache::kMaximumGlyphs;

std::uint64_t KeyOf(std::uint32_t style, std::uint32_t glyph) {
  return std::uint64_t{style + 1} << 32 | glyph;
}

std::size_t HashOf(std::uint64_t key) {
  return static_cast<std::size_t>(key * 0x9E3779B97F4A7C15U >> 32) % kPlaces;
}

// Rows are filled up with blanks, so that they can be blended four pixels at a time.
constexpr std::int32_t PitchOf(std::int32_t width) {
  return (width + 3) & ~3;
}

// The whole pixels that an outline touches, as FreeType counts them: y up.
FT_BBox PixelBounds(const FT_Outline& outline) {
  FT_BBox box{};
  FT_Outline_Get_CBox(&outline, &box);
  return {box.xMin >> 6, box.yMin >> 6, (box.xMax + 63) >> 6, (box.yMax + 63) >> 6};
}

}  // namespace

FT_Outline* LoadGlyphOutline(const GlyphStyle& style, std::uint32_t glyph) {
  FT_Face face = style.face->FreeType();
  if (FT_Load_Glyph(face, glyph, FT_LOAD_NO_SCALE | FT_LOAD_NO_BITMAP) != 0) return nullptr;
  if (face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return nullptr;
  FT_Outline& outline = face->glyph->outline;
  if (outline.n_points == 0) return nullptr;
  Scale(outline, style);
  if (style.emboldened) Embolden(outline, style);
  return &outline;
}

GlyphCache::GlyphCache() : places_(kPlaces) {}

void GlyphCache::Clear() {
  std::fill(places_.begin(), places_.end(), Entry{});
  bytes_.clear();
  glyphCount_ = 0;
}

std::uint32_t GlyphCache::Select(const GlyphStyle& style) {
  const auto found = std::find(styles_.begin(), styles_.end(), style);
  if (found != styles_.end()) return static_cast<std::uint32_t>(found - styles_.begin());
  if (styles_.size() == kMaximumStyles) {
    styles_.clear();
    faces_.clear();
    Clear();
  }
  faces_.push_back(style.face->shared_from_this());  // first: no style without its face
  styles_.push_back(style);
  return static_cast<std::uint32_t>(styles_.size() - 1);
}

GlyphCache::Entry& GlyphCache::PlaceOf(std::uint64_t key) {
  std::size_t place = HashOf(key);
  while (places_[place].key != 0 && places_[place].key != key) place = (place + 1) % kPlaces;
  return places_[place];
}

GlyphBitmap GlyphCache::Find(std::uint32_t style, std::uint32_t glyph, std::uint32_t quarterX,
                             std::uint32_t quarterY) {
  const std::uint64_t key = KeyOf(style, glyph);
  Entry* entry = &PlaceOf(key);
  const std::uint32_t quarters = quarterY << 2 | quarterX;
  if (entry->key == 0 || entry->shapes[quarters].width == kNotMade) {
    const bool isNew = entry->key == 0;
    if ((isNew && glyphCount_ == kMaximumGlyphs) || bytes_.size() >= kMaximumBytes) Clear();
    entry = &PlaceOf(key);
    if (entry->key == 0) ++glyphCount_;
    entry->key = key;
    entry->shapes[quarters] = Rasterize(style, glyph, quarterX, quarterY);
  }
  const Shape& shape = entry->shapes[quarters];
  return {{bytes_.data() + shape.begin, shape.width, shape.height, PitchOf(shape.width)},
          shape.left,
          shape.top};
}

GlyphCache::Shape GlyphCache::Rasterize(std::uint32_t style, std::uint32_t glyph,
                                        std::uint32_t quarterX, std::uint32_t quarterY) {
  Shape shape;
  shape.width = 0;
  FT_Outline* outline = LoadGlyphOutline(styles_[style], glyph);
  if (outline == nullptr) return shape;
  FT_Outline_Translate(outline, FT_Pos{quarterX} * kQuarter, -FT_Pos{quarterY} * kQuarter);
  const FT_BBox box = PixelBounds(*outline);
  if (box.xMax - box.xMin > kMaximumSide || box.yMax - box.yMin > kMaximumSide) return shape;
  shape.begin = static_cast<std::uint32_t>(bytes_.size());
  shape.left = static_cast<std::int16_t>(box.xMin);
  shape.top = static_cast<std::int16_t>(-box.yMax);
  shape.width = static_cast<std::int16_t>(box.xMax - box.xMin);
  shape.height = static_cast<std::int16_t>(box.yMax - box.yMin);
  bytes_.resize(bytes_.size() + static_cast<std::size_t>(PitchOf(shape.width) * shape.height));

  FT_Bitmap bitmap{};
  bitmap.rows = static_cast<unsigned>(shape.height);
  bitmap.width = static_cast<unsigned>(shape.width);
  bitmap.pitch = PitchOf(shape.width);
  bitmap.buffer = bytes_.data() + shape.begin;
  bitmap.num_grays = 256;
  bitmap.pixel_mode = FT_PIXEL_MODE_GRAY;
  FT_Outline_Translate(outline, -box.xMin * 64, -box.yMin * 64);
  FT_Outline_Get_Bitmap(styles_[style].face->FreeType()->glyph->library, outline, &bitmap);
  return shape;
}

}  // namespace pagivo::native
