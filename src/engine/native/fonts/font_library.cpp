#include "engine/native/fonts/font_library.h"

#include <hb-ot.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <utility>

#include "engine/native/fonts/advance_table.h"
#include "engine/native/fonts/face_catalog.h"
#include "engine/native/fonts/shaper.h"
#include "pagivo/error.h"
#include "values/process_wide.h"

namespace pagivo::native {
namespace {

double MetricOf(const Face& face, hb_ot_metrics_tag_t tag) {
  hb_position_t value = 0;
  if (!hb_ot_metrics_get_position(face.HarfBuzzFont(), tag, &value)) return 0;
  return static_cast<double>(value) / face.UnitsPerEm();
}

void ReadLines(const Face& face, FontMetrics& metrics) {
  const double ascent = MetricOf(face, HB_OT_METRICS_TAG_HORIZONTAL_ASCENDER);
  const double descent = -MetricOf(face, HB_OT_METRICS_TAG_HORIZONTAL_DESCENDER);
  const double gap = MetricOf(face, HB_OT_METRICS_TAG_HORIZONTAL_LINE_GAP);
  const bool sane = ascent > 0 && ascent + descent > 0;
  metrics.ascent = sane ? ascent : 0.8;
  metrics.lineSpacing = sane ? ascent + descent + std::max(gap, 0.0) : 1.2;
}

// The table gives the line's upper edge. A face without a sane line gets one as most faces have.
void ReadUnderline(const Face& face, FontMetrics& metrics) {
  const double thickness = MetricOf(face, HB_OT_METRICS_TAG_UNDERLINE_SIZE);
  const double center = -MetricOf(face, HB_OT_METRICS_TAG_UNDERLINE_OFFSET) + thickness / 2;
  const bool sane = thickness > 0 && thickness < 0.25 && center > 0 && center < 0.5;
  metrics.underlineThickness = sane ? thickness : 0.05;
  metrics.underlinePosition = sane ? center : 0.125;
}

class LibraryFont final : public Font {
 public:
  LibraryFont(FaceChoice faces, std::shared_ptr<AdvanceTable> advances, Shaper& shaper)
      : faces_(std::move(faces)),
        advances_(std::move(advances)),
        shaper_(shaper),
        metrics_(ReadFontMetrics(*faces_.Primary().face)) {}

  const FontMetrics& Metrics() const override { return metrics_; }

  void Shape(std::string_view text, ShapedLine& line) override {
    if (!advances_->Shape(text, line.glyphs)) return shaper_.Shape(text, faces_, line);
    const auto& [face, emboldened, slanted] = faces_.Primary();
    line.runs.clear();
    if (text.empty()) return;
    line.runs.push_back(
        {face, emboldened, slanted, false, 0, static_cast<std::uint32_t>(line.glyphs.size())});
  }

  std::optional<SimpleLine> ShapeSimple(std::string_view text) override {
    const auto characters = advances_->ShapeSimple(text);
    if (!characters) return std::nullopt;
    const auto& [face, emboldened, slanted] = faces_.Primary();
    return SimpleLine{face, emboldened, slanted, *characters};
  }

  double Width(std::string_view text) override {
    const std::optional<std::int64_t> width = advances_->Width(text);
    if (width) return static_cast<double>(*width) / faces_.Primary().face->UnitsPerEm();
    shaper_.Shape(text, faces_, measured_);
    double total = 0;
    for (const ShapedRun& run : measured_.runs) total += WidthOf(run);
    return total;
  }

 private:
  double WidthOf(const ShapedRun& run) const {
    std::int64_t advances = 0;
    for (std::uint32_t i = run.glyphBegin; i < run.glyphEnd; ++i) {
      advances += measured_.glyphs[i].advance;
    }
    return static_cast<double>(advances) / run.face->UnitsPerEm();
  }

  FaceChoice faces_;  // holds the face that the table is about
  std::shared_ptr<AdvanceTable> advances_;
  Shaper& shaper_;
  FontMetrics metrics_;
  ShapedLine measured_;
};

[[noreturn]] void ThrowNoFonts() {
  throw Error(ErrorNumber::FileAccess,
              "Er is geen bruikbaar lettertype geïnstalleerd; installeer TrueType- of "
              "OpenType-lettertypen, bijvoorbeeld het pakket fonts-liberation");
}

}  // namespace

FontMetrics ReadFontMetrics(const Face& face) {
  FontMetrics metrics;
  ReadLines(face, metrics);
  ReadUnderline(face, metrics);
  return metrics;
}

struct FontLibrary::Implementation {
  struct FoundFont {
    std::shared_ptr<Font> font;
    std::uint64_t lastFound = 0;
  };
  // Fonts of one name stand together, each under its style.
  using Key = std::pair<std::string, std::size_t>;
  using KeyView = std::pair<std::string_view, std::size_t>;
  struct Less {
    using is_transparent = void;
    bool operator()(const KeyView& one, const KeyView& other) const { return one < other; }
  };

  explicit Implementation(std::unique_ptr<FaceFinder> finder) : catalog(std::move(finder)) {}

  std::shared_ptr<AdvanceTable> AdvancesOf(const Face& face) {
    std::erase_if(advances, [](const auto& entry) { return entry.second.expired(); });
    std::shared_ptr<AdvanceTable> table = advances[&face].lock();
    if (!table) advances[&face] = table = std::make_shared<AdvanceTable>(face, shaper);
    return table;
  }

  FoundFont Make(const FaceQuery& query) {
    const std::optional<StyledFace> primary = catalog.Find(query);
    if (!primary) ThrowNoFonts();
    FaceChoice choice(catalog, query, *primary);
    return {std::make_shared<LibraryFont>(std::move(choice), AdvancesOf(*primary->face), shaper)};
  }

  void DropOldestFont() {
    const auto age = [](const auto& entry) { return entry.second.lastFound; };
    fonts.erase(std::ranges::min_element(fonts, {}, age));
  }

  FaceCatalog catalog;
  Shaper shaper;
  std::map<const Face*, std::weak_ptr<AdvanceTable>> advances;
  std::map<Key, FoundFont, Less> fonts;
  std::uint64_t findings = 0;
};

FontLibrary& FontLibrary::Instance() {
  return ProcessWide<FontLibrary>([] {
    std::atexit([] { Instance().implementation_->catalog.ForgetInstallation(); });
    return new FontLibrary(MakeFaceFinder());
  });
}

FontLibrary::FontLibrary(std::unique_ptr<FaceFinder> finder)
    : implementation_(std::make_unique<Implementation>(std::move(finder))) {}

FontLibrary::~FontLibrary() = default;

Font& FontLibrary::Find(std::string_view name, bool bold, bool italic) {
  Implementation& library = *implementation_;
  const std::size_t style = (bold ? 1U : 0U) + (italic ? 2U : 0U);
  auto found = library.fonts.find(Implementation::KeyView(name, style));
  if (found == library.fonts.end()) {
    Implementation::FoundFont font = library.Make({std::string(name), bold, italic, std::nullopt});
    if (library.fonts.size() >= kMostFonts) library.DropOldestFont();
    found = library.fonts.emplace(Implementation::Key(name, style), std::move(font)).first;
  }
  found->second.lastFound = ++library.findings;
  return *found->second.font;
}

}  // namespace pagivo::native
