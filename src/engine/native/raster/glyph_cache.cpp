#include "engine/native/raster/glyph_cache.h"

#include <array>
#include <bit>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

#include "engine/native/fonts/font_library.h"
#include "values/hashes.h"

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

// Rows are filled up with blanks, so that they can be blended eight pixels at a time.
constexpr std::int32_t PitchOf(std::int32_t width) {
  return (width + 7) & ~7;
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

// A table of glyphs by their numbers, of which at most half of the places are taken, so that a free
// one is near.
class GlyphCache::Glyphs {
 public:
  struct Shape {
    static constexpr std::int16_t kNotMade = -1;

    std::uint32_t begin = 0;  // among the style's bytes
    std::int16_t left = 0;
    std::int16_t top = 0;
    std::int16_t width = kNotMade;
    std::int16_t height = 0;
  };

  Glyphs(const GlyphStyle& style, std::shared_ptr<const Face> face)
      : style_(style), face_(std::move(face)), places_(kFewestPlaces) {}

  const GlyphStyle& Style() const noexcept { return style_; }

  // Null until it is made.
  const Shape* Find(std::uint32_t glyph, std::uint32_t quarters) {
    const Entry& entry = PlaceOf(glyph);
    if (entry.key == 0 || entry.shapes[quarters].width == Shape::kNotMade) return nullptr;
    return &entry.shapes[quarters];
  }

  const Shape* Make(std::uint32_t glyph, std::uint32_t quarters) {
    Shape& shape = EntryOf(glyph).shapes[quarters];
    shape = Rasterize(glyph, quarters);
    return &shape;
  }

  GlyphBitmap BitmapOf(const Shape& shape) const {
    return {{coverages_.data() + shape.begin, shape.width, shape.height, PitchOf(shape.width)},
            shape.left,
            shape.top};
  }

  std::size_t Bytes() const noexcept {
    return sizeof(Glyphs) + places_.size() * sizeof(Entry) + coverages_.size();
  }

  void Clear() {
    places_.assign(kFewestPlaces, {});
    coverages_.clear();
    count_ = 0;
  }

 private:
  static constexpr std::size_t kFewestPlaces = 32;  // a power of two, as every later number

  struct Entry {
    std::uint64_t key = 0;         // 0 is a free place
    std::array<Shape, 16> shapes;  // at every quarter, side by side, for a line meets them all
  };

  static std::uint64_t KeyOf(std::uint32_t glyph) { return std::uint64_t{glyph} + 1; }

  Entry& PlaceOf(std::uint32_t glyph) {
    const std::uint64_t key = KeyOf(glyph);
    const std::size_t last = places_.size() - 1;
    std::size_t place = TableHash(Mix(0, key)) & last;
    while (places_[place].key != 0 && places_[place].key != key) place = (place + 1) & last;
    return places_[place];
  }

  Entry& EntryOf(std::uint32_t glyph) {
    if (PlaceOf(glyph).key == 0 && 2 * (count_ + 1) > places_.size()) Grow();
    Entry& entry = PlaceOf(glyph);
    if (entry.key == 0) ++count_;
    entry.key = KeyOf(glyph);
    return entry;
  }

  void Grow() {
    std::vector<Entry> grown(2 * places_.size());
    places_.swap(grown);
    for (const Entry& entry : grown) {
      if (entry.key != 0) PlaceOf(static_cast<std::uint32_t>(entry.key - 1)) = entry;
    }
  }

  Shape Rasterize(std::uint32_t glyph, std::uint32_t quarters);

  GlyphStyle style_;
  std::shared_ptr<const Face> face_;  // the style's, held so that no other face takes its address
  std::vector<Entry> places_;
  std::vector<std::uint8_t> coverages_;
  std::size_t count_ = 0;
};

GlyphCache::Glyphs::Shape GlyphCache::Glyphs::Rasterize(std::uint32_t glyph,
                                                        std::uint32_t quarters) {
  constexpr Shape kBlank{.width = 0};
  FT_Outline* outline = LoadGlyphOutline(style_, glyph);
  if (outline == nullptr) return kBlank;
  const auto right = static_cast<FT_Pos>(quarters & 3);
  const auto down = static_cast<FT_Pos>(quarters >> 2);
  FT_Outline_Translate(outline, right * kQuarter, -down * kQuarter);
  const FT_BBox box = PixelBounds(*outline);
  if (box.xMax - box.xMin > kMaximumSide || box.yMax - box.yMin > kMaximumSide) return kBlank;
  const auto width = static_cast<std::int32_t>(box.xMax - box.xMin);
  const auto height = static_cast<std::int32_t>(box.yMax - box.yMin);
  const std::size_t begin = coverages_.size();
  coverages_.resize(begin + static_cast<std::size_t>(PitchOf(width) * height));
  FT_Bitmap bitmap{};
  bitmap.rows = static_cast<unsigned>(height);
  bitmap.width = static_cast<unsigned>(width);
  bitmap.pitch = PitchOf(width);
  bitmap.buffer = coverages_.data() + begin;
  bitmap.num_grays = 256;
  bitmap.pixel_mode = FT_PIXEL_MODE_GRAY;
  FT_Outline_Translate(outline, -box.xMin * 64, -box.yMin * 64);
  FT_Outline_Get_Bitmap(style_.face->FreeType()->glyph->library, outline, &bitmap);
  return {static_cast<std::uint32_t>(begin), static_cast<std::int16_t>(box.xMin),
          static_cast<std::int16_t>(-box.yMax), static_cast<std::int16_t>(width),
          static_cast<std::int16_t>(height)};
}

// Adds to the bytes what a style has grown by, also when memory ran out on the way.
class GlyphCache::Counting {
 public:
  Counting(std::size_t& bytes, const Glyphs& glyphs)
      : bytes_(bytes), glyphs_(glyphs), before_(glyphs.Bytes()) {}
  ~Counting() { bytes_ += glyphs_.Bytes() - before_; }
  Counting(const Counting&) = delete;
  Counting& operator=(const Counting&) = delete;

 private:
  std::size_t& bytes_;
  const Glyphs& glyphs_;
  std::size_t before_;
};

std::size_t GlyphCache::Hash::operator()(const GlyphStyle& style) const noexcept {
  const std::uint64_t looks = std::uint64_t{style.emboldened} << 1 | std::uint64_t{style.slanted};
  const std::uint64_t size = std::bit_cast<std::uint32_t>(style.emPixels);
  return TableHash(Mix(std::hash<const Face*>()(style.face), size << 2 | looks));
}

GlyphCache::GlyphCache() = default;
GlyphCache::~GlyphCache() = default;

GlyphCache::Glyphs* GlyphCache::Select(const GlyphStyle& style) {
  if (!styles_.empty() && styles_.front().Style() == style) return &styles_.front();
  if (const auto known = places_.find(style); known != places_.end()) {
    styles_.splice(styles_.begin(), styles_, known->second);
    return &styles_.front();
  }
  std::list<Glyphs> made;  // so that nothing is kept by half when memory runs out
  made.emplace_front(style, style.face->shared_from_this());
  places_.emplace(style, made.begin());
  styles_.splice(styles_.begin(), made);
  bytes_ += styles_.front().Bytes();
  MakeRoom(&styles_.front());
  return &styles_.front();
}

void GlyphCache::MakeRoom(Glyphs* inUse) {
  while (bytes_ > kMaximumBytes && &styles_.back() != inUse) {
    bytes_ -= styles_.back().Bytes();
    places_.erase(styles_.back().Style());
    styles_.pop_back();
  }
  if (bytes_ <= kMaximumBytes) return;
  inUse->Clear();
  bytes_ = inUse->Bytes();
}

GlyphBitmap GlyphCache::Find(Glyphs* glyphs, std::uint32_t glyph, std::uint32_t quarterX,
                             std::uint32_t quarterY) {
  const std::uint32_t quarters = quarterY << 2 | quarterX;
  const Glyphs::Shape* shape = glyphs->Find(glyph, quarters);
  if (shape == nullptr) {
    MakeRoom(glyphs);
    const Counting counting(bytes_, *glyphs);
    shape = glyphs->Make(glyph, quarters);
  }
  return glyphs->BitmapOf(*shape);
}

}  // namespace pagivo::native
