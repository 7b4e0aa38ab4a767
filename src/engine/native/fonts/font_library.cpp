#include "engine/native/fonts/font_library.h"

#include <map>
#include <tuple>

#include "engine/native/fonts/face_catalog.h"
#include "engine/native/fonts/font_metrics.h"
#include "engine/native/fonts/shaper.h"
#include "pagivo/error.h"

namespace pagivo::native {
namespace {

class LibraryFont final : public Font {
 public:
  LibraryFont(FaceCatalog& catalog, const FaceQuery& query, const StyledFace& primary,
              Shaper& shaper)
      : faces_(catalog, query, primary),
        shaper_(shaper),
        metrics_(ReadFontMetrics(*primary.face)) {}

  const FontMetrics& Metrics() const override { return metrics_; }

  void Shape(std::string_view text, ShapedLine& line) override {
    shaper_.Shape(text, faces_, line);
  }

  double Width(std::string_view text) override {
    shaper_.Shape(text, faces_, measured_);
    double width = 0;
    for (const ShapedRun& run : measured_.runs) width += WidthOf(run);
    return width;
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
  using Key = std::tuple<std::string, bool, bool>;
  using KeyView = std::tuple<std::string_view, bool, bool>;

  explicit Implementation(std::unique_ptr<FaceFinder> finder) : catalog(std::move(finder)) {}

  FaceCatalog catalog;
  Shaper shaper;
  std::map<Key, std::unique_ptr<Font>, std::less<>> fonts;
};

FontLibrary& FontLibrary::Instance() {
  static FontLibrary library(MakeFaceFinder());
  return library;
}

FontLibrary::FontLibrary(std::unique_ptr<FaceFinder> finder)
    : implementation_(std::make_unique<Implementation>(std::move(finder))) {}

FontLibrary::~FontLibrary() = default;

Font& FontLibrary::Find(std::string_view name, bool bold, bool italic) {
  auto& [catalog, shaper, fonts] = *implementation_;
  const auto known = fonts.find(Implementation::KeyView(name, bold, italic));
  if (known != fonts.end()) return *known->second;
  const FaceQuery query{std::string(name), bold, italic, std::nullopt};
  const std::optional<StyledFace> primary = catalog.Find(query);
  if (!primary) ThrowNoFonts();
  auto font = std::make_unique<LibraryFont>(catalog, query, *primary, shaper);
  return *fonts.emplace(Implementation::Key(name, bold, italic), std::move(font)).first->second;
}

}  // namespace pagivo::native
