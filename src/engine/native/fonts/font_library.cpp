#include "engine/native/fonts/font_library.h"

#include <array>
#include <map>
#include <optional>
#include <utility>

#include "engine/native/fonts/advance_table.h"
#include "engine/native/fonts/face_catalog.h"
#include "engine/native/fonts/font_metrics.h"
#include "engine/native/fonts/shaper.h"
#include "pagivo/error.h"

namespace pagivo::native {
namespace {

class LibraryFont final : public Font {
 public:
  LibraryFont(FaceChoice faces, AdvanceTable& advances, Shaper& shaper)
      : faces_(std::move(faces)),
        advances_(advances),
        shaper_(shaper),
        metrics_(ReadFontMetrics(*faces_.Primary().face)) {}

  const FontMetrics& Metrics() const override { return metrics_; }

  void Shape(std::string_view text, ShapedLine& line) override {
    if (!advances_.Shape(text, line.glyphs)) return shaper_.Shape(text, faces_, line);
    const auto& [face, emboldened, slanted] = faces_.Primary();
    line.runs.clear();
    if (text.empty()) return;
    line.runs.push_back(
        {face, emboldened, slanted, 0, static_cast<std::uint32_t>(line.glyphs.size())});
  }

  double Width(std::string_view text) override {
    const std::optional<std::int64_t> width = advances_.Width(text);
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

  FaceChoice faces_;
  AdvanceTable& advances_;
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

struct FontLibrary::Implementation {
  // The four styles of one name, made when they are first asked for.
  using Family = std::array<std::unique_ptr<Font>, 4>;

  explicit Implementation(std::unique_ptr<FaceFinder> finder) : catalog(std::move(finder)) {}

  AdvanceTable& AdvancesOf(const Face& face) {
    std::unique_ptr<AdvanceTable>& table = advances[&face];
    if (!table) table = std::make_unique<AdvanceTable>(face, shaper);
    return *table;
  }

  Family& FamilyOf(std::string_view name) {
    const auto known = families.find(name);
    return known != families.end() ? known->second : families[std::string(name)];
  }

  FaceCatalog catalog;
  Shaper shaper;
  std::map<const Face*, std::unique_ptr<AdvanceTable>> advances;
  std::map<std::string, Family, std::less<>> families;
};

FontLibrary& FontLibrary::Instance() {
  static FontLibrary library(MakeFaceFinder());
  return library;
}

FontLibrary::FontLibrary(std::unique_ptr<FaceFinder> finder)
    : implementation_(std::make_unique<Implementation>(std::move(finder))) {}

FontLibrary::~FontLibrary() = default;

Font& FontLibrary::Find(std::string_view name, bool bold, bool italic) {
  Implementation& library = *implementation_;
  std::unique_ptr<Font>& font = library.FamilyOf(name).at((bold ? 1U : 0U) + (italic ? 2U : 0U));
  if (font) return *font;
  const FaceQuery query{std::string(name), bold, italic, std::nullopt};
  const std::optional<StyledFace> primary = library.catalog.Find(query);
  if (!primary) ThrowNoFonts();
  font = std::make_unique<LibraryFont>(FaceChoice(library.catalog, query, *primary),
                                       library.AdvancesOf(*primary->face), library.shaper);
  return *font;
}

}  // namespace pagivo::native
