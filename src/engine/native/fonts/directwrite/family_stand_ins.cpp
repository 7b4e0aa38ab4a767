#include "engine/native/fonts/directwrite/family_stand_ins.h"

#include <algorithm>
#include <array>
#include <span>

#include "values/characters.h"

namespace pagivo::native {
namespace {

using Names = std::span<const std::string_view>;

// --- Families of the same advances: any of a row stands in for any other, and no line breaks
// elsewhere.

constexpr std::array<std::string_view, 7> kArial{
    "Arial", "Liberation Sans", "Arimo", "Albany", "Helvetica", "Nimbus Sans", "TeX Gyre Heros"};
constexpr std::array<std::string_view, 4> kArialNarrow{"Arial Narrow", "Liberation Sans Narrow",
                                                       "Helvetica Narrow", "Nimbus Sans Narrow"};
constexpr std::array<std::string_view, 7> kTimes{
    "Times New Roman", "Liberation Serif", "Tinos",          "Thorndale",
    "Times",           "Nimbus Roman",     "TeX Gyre Termes"};
constexpr std::array<std::string_view, 7> kCourier{
    "Courier New", "Liberation Mono", "Cousine",        "Cumberland",
    "Courier",     "Nimbus Mono PS",  "TeX Gyre Cursor"};
constexpr std::array<std::string_view, 2> kCalibri{"Calibri", "Carlito"};
constexpr std::array<std::string_view, 2> kCambria{"Cambria", "Caladea"};
constexpr std::array<std::string_view, 2> kGeorgia{"Georgia", "Gelasio"};
constexpr std::array<std::string_view, 5> kPalatino{"Palatino Linotype", "Palatino", "Book Antiqua",
                                                    "P052", "TeX Gyre Pagella"};
constexpr std::array<std::string_view, 3> kBookman{"Bookman Old Style", "ITC Bookman",
                                                   "Bookman URW"};
constexpr std::array<std::string_view, 4> kSchoolbook{
    "Century Schoolbook", "New Century Schoolbook", "C059", "TeX Gyre Schola"};
constexpr std::array<std::string_view, 4> kAvantGarde{"Century Gothic", "ITC Avant Garde Gothic",
                                                      "URW Gothic", "TeX Gyre Adventor"};
constexpr std::array<std::string_view, 3> kChancery{"Monotype Corsiva", "ITC Zapf Chancery",
                                                    "Z003"};
constexpr std::array<std::string_view, 2> kSymbol{"Symbol", "Standard Symbols PS"};
constexpr std::array<std::string_view, 2> kDingbats{"ITC Zapf Dingbats", "D050000L"};

constexpr std::array<Names, 14> kSameAdvances{
    kArial,    kArialNarrow, kTimes,      kCourier,    kCalibri,  kCambria, kGeorgia,
    kPalatino, kBookman,     kSchoolbook, kAvantGarde, kChancery, kSymbol,  kDingbats};

// --- Families that look alike: the wide ones of screens, and what stands in for the bitmaps that
// programs named when dialogs were made of them, and which DirectWrite does not have.

struct LookAlikes {
  Names replaced;
  Names replacements;
};

constexpr std::array<std::string_view, 3> kScreen{"Tahoma", "MS Shell Dlg 2", "Verdana"};
constexpr std::array<std::string_view, 4> kForScreen{"Tahoma", "Verdana", "DejaVu Sans",
                                                     "Segoe UI"};
constexpr std::array<std::string_view, 5> kDialog{"Microsoft Sans Serif", "MS Sans Serif",
                                                  "MS Shell Dlg", "Helv", "System"};
constexpr std::array<std::string_view, 3> kForDialog{"Microsoft Sans Serif", "Arial",
                                                     "Liberation Sans"};
constexpr std::array<std::string_view, 2> kOldSerif{"MS Serif", "Tms Rmn"};
constexpr std::array<std::string_view, 2> kForOldSerif{"Times New Roman", "Liberation Serif"};
constexpr std::array<std::string_view, 2> kOldMono{"Fixedsys", "Terminal"};
constexpr std::array<std::string_view, 2> kForOldMono{"Courier New", "Liberation Mono"};

constexpr std::array<LookAlikes, 4> kLookAlikes{{{kScreen, kForScreen},
                                                 {kDialog, kForDialog},
                                                 {kOldSerif, kForOldSerif},
                                                 {kOldMono, kForOldMono}}};

// --- The kinds of families; what is in neither list counts as sans serif.

constexpr std::array<std::string_view, 13> kSerifFamilies{
    "Cambria",        "Caladea",           "Constantia",         "Elephant",
    "Garamond",       "Georgia",           "Palatino",           "Palatino Linotype",
    "Book Antiqua",   "Bookman Old Style", "Century Schoolbook", "Times",
    "Times New Roman"};
constexpr std::array<std::string_view, 9> kMonoFamilies{
    "Andale Mono",   "Cascadia Mono", "Consolas",       "Courier",
    "Courier New",   "Inconsolata",   "Lucida Console", "Lucida Sans Typewriter",
    "OCR A Extended"};

constexpr std::array<std::string_view, 4> kUsualSerif{"Times New Roman", "DejaVu Serif",
                                                      "Liberation Serif", "Cambria"};
constexpr std::array<std::string_view, 4> kUsualMono{"Courier New", "DejaVu Sans Mono",
                                                     "Liberation Mono", "Consolas"};
constexpr std::array<std::string_view, 5> kUsualSans{"Arial", "DejaVu Sans", "Liberation Sans",
                                                     "Segoe UI", "Tahoma"};

bool Contain(Names names, std::string_view family) {
  return std::ranges::any_of(
      names, [family](std::string_view name) { return EqualInAnyCase(name, family); });
}

}  // namespace

std::vector<std::string_view> StandInsFor(std::string_view family) {
  std::vector<std::string_view> standIns;
  const auto append = [&standIns](Names names) {
    standIns.insert(standIns.end(), names.begin(), names.end());
  };
  for (const Names names : kSameAdvances) {
    if (Contain(names, family)) append(names);
  }
  for (const auto& [replaced, replacements] : kLookAlikes) {
    if (Contain(replaced, family)) append(replacements);
  }
  if (Contain(kSerifFamilies, family)) append(kUsualSerif);
  if (Contain(kMonoFamilies, family)) append(kUsualMono);
  append(kUsualSans);
  return standIns;
}

}  // namespace pagivo::native
