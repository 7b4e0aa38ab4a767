#include "engine/papers.h"

#include <algorithm>

#include "values/measures.h"

namespace pagivo {
namespace {

constexpr std::int32_t Inches(double inches) {
  return static_cast<std::int32_t>(inches * kTwipsPerInch + 0.5);
}
constexpr std::int32_t Millimetres(double millimetres) {
  return Inches(millimetres / 25.4);
}

constexpr Paper InInches(std::int32_t code, double width, double height, std::string_view title,
                         std::string_view reportedName = {}) {
  return {code, Inches(width), Inches(height), title, reportedName};
}
constexpr Paper InMillimetres(std::int32_t code, double width, double height,
                              std::string_view title, std::string_view reportedName = {}) {
  return {code, Millimetres(width), Millimetres(height), title, reportedName};
}

// Two of the reported names (7 and 17) tell another size than the paper has: hosts know them so.
constexpr Paper kPapers[] = {
    InMillimetres(9, 210, 297, "A4", "A4 210 x 297 mm"),
    InMillimetres(8, 297, 420, "A3", "A3 297 x 420 mm"),
    InMillimetres(11, 148, 210, "A5", "A5 148 x 210 mm"),
    InMillimetres(10, 210, 297, "A4 klein", "A4 Small 210 x 297 mm"),
    InMillimetres(12, 250, 354, "B4", "B4 250 x 354 mm"),
    InMillimetres(13, 182, 257, "B5", "B5 182 x 257 mm"),
    InInches(1, 8.5, 11, "Letter", "Letter 8 1/2 x 11 inch"),
    InInches(2, 8.5, 11, "Letter klein", "Letter Small 8 1/2 x 11 inch"),
    InInches(5, 8.5, 14, "Legal", "Legal 8 1/2 x 14 inch"),
    InInches(7, 7.25, 10.5, "Executive", "Executive 7 1/2 x 10 1/2 inch"),
    InInches(3, 11, 17, "Tabloid", "Tabloid 11 x 17 inch"),
    InInches(4, 17, 11, "Ledger", "Ledger 17 x 11 inch"),
    InInches(6, 5.5, 8.5, "Statement", "Statement 5 1/2 x 8 1/2 inch"),
    InInches(14, 8.5, 13, "Folio", "Folio 8 1/2 x 13 inch"),
    InMillimetres(15, 215, 275, "Quarto", "Quarto 215 x 275 mm"),
    InInches(18, 8.5, 11, "Notitie", "Note 8 1/2 x 11 inch"),
    InInches(16, 10, 14, "10 × 14 inch", "10 x 14 inch"),
    InInches(17, 11, 17, "11 × 17 inch", "10 x 17 inch"),
    InMillimetres(27, 110, 220, "Envelop DL"),
    InMillimetres(28, 162, 229, "Envelop C5"),
    InMillimetres(31, 114, 162, "Envelop C6"),
    InMillimetres(32, 114, 229, "Envelop C6/C5"),
    InMillimetres(30, 229, 324, "Envelop C4"),
    InMillimetres(29, 324, 458, "Envelop C3"),
    InMillimetres(33, 250, 353, "Envelop B4"),
    InMillimetres(34, 176, 250, "Envelop B5"),
    InMillimetres(35, 176, 125, "Envelop B6"),
    InMillimetres(36, 110, 230, "Envelop Italië"),
    InInches(37, 3.875, 7.5, "Envelop Monarch"),
    InInches(38, 3.625, 6.5, "Envelop 6¾"),
    InInches(19, 3.875, 8.875, "Envelop 9"),
    InInches(20, 4.125, 9.5, "Envelop 10"),
    InInches(21, 4.5, 10.375, "Envelop 11"),
    InInches(22, 4.75, 11, "Envelop 12"),
    InInches(23, 5, 11.5, "Envelop 14"),
    InInches(24, 17, 22, "C-vel"),
    InInches(25, 22, 34, "D-vel"),
    InInches(26, 34, 44, "E-vel"),
    InInches(39, 14.875, 11, "Kettingpapier Amerikaans", "U.S. Standard Fanfold 14 7/8 x 11 inch"),
    InInches(40, 8.5, 12, "Kettingpapier Duits", "German Standard Fanfold 8 1/2 x 12 inch"),
    InInches(41, 8.5, 13, "Kettingpapier Duits legal", "German Legal Fanfold 8 1/2 x 13 inch"),
};

}  // namespace

std::span<const Paper> KnownPapers() {
  return kPapers;
}

const Paper* FindPaper(std::int32_t code) {
  const auto* known = std::ranges::find(kPapers, code, &Paper::code);
  return known == std::end(kPapers) ? nullptr : known;
}

}  // namespace pagivo
