// Faces by fontconfig, whose rules know the metric-compatible replacements and the user's choices.
#include <fontconfig/fontconfig.h>

#include <map>
#include <string_view>
#include <tuple>

#include "engine/native/fonts/face_finder.h"
#include "engine/native/fonts/font_file.h"

namespace pagivo::native {
namespace {

template <auto kRelease>
struct Releaser {
  template <class T>
  void operator()(T* object) const {
    kRelease(object);
  }
};
using Config = std::unique_ptr<FcConfig, Releaser<&FcConfigDestroy>>;
using FontSet = std::unique_ptr<FcFontSet, Releaser<&FcFontSetDestroy>>;
using Pattern = std::unique_ptr<FcPattern, Releaser<&FcPatternDestroy>>;

std::string_view StringOf(const FcPattern* pattern, const char* object) {
  FcChar8* value = nullptr;
  if (FcPatternGetString(pattern, object, 0, &value) != FcResultMatch) return {};
  return reinterpret_cast<const char*>(value);
}

int IntegerOf(const FcPattern* pattern, const char* object, int otherwise) {
  int value = 0;
  return FcPatternGetInteger(pattern, object, 0, &value) == FcResultMatch ? value : otherwise;
}

// Bitmap and Type 1 files cannot be embedded the way the rest is; colour faces have no outlines.
// An index beyond 16 bits is a named instance of a variable face: only the default one is used.
bool IsUsable(const FcPattern* face) {
  const std::string_view format = StringOf(face, FC_FONTFORMAT);
  FcBool color = FcFalse;
  FcPatternGetBool(face, FC_COLOR, 0, &color);
  return (format == "TrueType" || format == "CFF") && color == FcFalse &&
         !StringOf(face, FC_FILE).empty() && (IntegerOf(face, FC_INDEX, 0) >> 16) == 0;
}

bool HasCacheFolder(FcConfig* config) {
  FcStrList* const folders = FcConfigGetCacheDirs(config);
  const bool found = folders != nullptr && FcStrListNext(folders) != nullptr;
  if (folders != nullptr) FcStrListDone(folders);
  return found;
}

// A configuration of our own: the host may use fontconfig in its own way. Fontconfig's function for
// it goes on to read the rules that lie ready but are not in force, only to be able to list them,
// which is more than a third of its work. It is called where fontconfig must do without a sound
// configuration.
Config LoadConfig() {
  Config config(FcConfigCreate());
  if (config && FcConfigParseAndLoad(config.get(), nullptr, FcTrue) != FcFalse &&
      HasCacheFolder(config.get()) && FcConfigBuildFonts(config.get()) != FcFalse) {
    return config;
  }
  return Config(FcInitLoadConfigAndFonts());
}

FontSet UsableFaces(FcConfig* config) {
  FontSet usable(FcFontSetCreate());
  for (const FcSetName name : {FcSetSystem, FcSetApplication}) {
    const FcFontSet* all = FcConfigGetFonts(config, name);
    for (int i = 0; all != nullptr && i < all->nfont; ++i) {
      if (!IsUsable(all->fonts[i])) continue;
      FcPatternReference(all->fonts[i]);
      FcFontSetAdd(usable.get(), all->fonts[i]);
    }
  }
  return usable;
}

bool HasCharacter(const FcPattern* face, char32_t codePoint) {
  FcCharSet* characters = nullptr;
  return FcPatternGetCharSet(face, FC_CHARSET, 0, &characters) == FcResultMatch &&
         FcCharSetHasChar(characters, codePoint) != FcFalse;
}

// The same bounds as fontconfig's own rules for synthetic styles: up to medium is no bold.
FaceFile FileOf(const FcPattern* face) {
  FaceFile file;
  file.path = StringOf(face, FC_FILE);
  file.index = IntegerOf(face, FC_INDEX, 0);
  file.bold = IntegerOf(face, FC_WEIGHT, FC_WEIGHT_NORMAL) > FC_WEIGHT_MEDIUM;
  file.italic = IntegerOf(face, FC_SLANT, FC_SLANT_ROMAN) != FC_SLANT_ROMAN;
  return file;
}

class FontconfigFaceFinder final : public FaceFinder {
 public:
  FontconfigFaceFinder() { Load(); }

  std::optional<FaceFile> Find(const FaceQuery& query, std::size_t rank) override {
    if (!config_) Load();
    const FcFontSet* sorted = Sorted(query);
    for (int i = 0; sorted != nullptr && i < sorted->nfont; ++i) {
      if (query.codePoint && !HasCharacter(sorted->fonts[i], *query.codePoint)) continue;
      if (rank-- == 0) return FileOf(sorted->fonts[i]);
    }
    return std::nullopt;
  }

  // The leak sanitizer of a host would call a configuration leaked that is kept to the end, for
  // fontconfig writes pointers in a form of its own.
  void Forget() noexcept override {
    sorted_.clear();
    faces_.reset();
    config_.reset();
  }

 private:
  using Style = std::tuple<std::string, bool, bool>;

  // Hosts may ask for any number of names; then their orders are made anew.
  static constexpr std::size_t kMostOrders = 256;

  void Load() {
    config_ = LoadConfig();
    faces_ = UsableFaces(config_.get());
  }

  // Holds until the next call.
  const FcFontSet* Sorted(const FaceQuery& query) {
    Style style{query.family, query.bold, query.italic};
    if (sorted_.size() >= kMostOrders && !sorted_.contains(style)) sorted_.clear();
    FontSet& sorted = sorted_[std::move(style)];
    if (!sorted) sorted = Sort(query);
    return sorted.get();
  }

  FontSet Sort(const FaceQuery& query) const {
    const Pattern pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY,
                       reinterpret_cast<const FcChar8*>(query.family.c_str()));
    FcPatternAddInteger(pattern.get(), FC_WEIGHT, query.bold ? FC_WEIGHT_BOLD : FC_WEIGHT_NORMAL);
    FcPatternAddInteger(pattern.get(), FC_SLANT, query.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    // Without a language of its own, the pattern would take the one of the user's environment.
    FcPatternAddString(pattern.get(), FC_LANG, reinterpret_cast<const FcChar8*>("nl"));
    FcConfigSubstitute(config_.get(), pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    FcFontSet* sets[] = {faces_.get()};
    FcResult result = FcResultNoMatch;
    return FontSet(FcFontSetSort(config_.get(), sets, 1, pattern.get(), FcFalse, nullptr, &result));
  }

  Config config_;
  FontSet faces_;
  std::map<Style, FontSet> sorted_;
};

}  // namespace

std::unique_ptr<FaceFinder> MakeFaceFinder() {
  return std::make_unique<FontconfigFaceFinder>();
}

hb_blob_t* OpenFontFile(const std::string& path) {
  return hb_blob_create_from_file_or_fail(path.c_str());
}

}  // namespace pagivo::native
