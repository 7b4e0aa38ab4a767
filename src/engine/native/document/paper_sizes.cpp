#include "engine/native/document/paper_sizes.h"

#include <algorithm>

namespace pagivo::native {
namespace {

constexpr std::int32_t Inches(double inches) {
  return static_cast<std::int32_t>(inches * 1440 + 0.5);
}
constexpr std::int32_t Millimetres(double millimetres) {
  return Inches(millimetres / 25.4);
}

constexpr PaperSize InInches(std::int32_t code, double width, double height) {
  return {code, Inches(width), Inches(height)};
}
constexpr PaperSize InMillimetres(std::int32_t code, double width, double height) {
  return {code, Millimetres(width), Millimetres(height)};
}

constexpr PaperSize kPaperSizes[] = {
    InInches(1, 8.5, 11),                                                      // Letter
    InInches(2, 8.5, 11),                                                      // Letter Small
    InInches(3, 11, 17),                                                       // Tabloid
    InInches(4, 17, 11),                                                       // Ledger
    InInches(5, 8.5, 14),                                                      // Legal
    InInches(6, 5.5, 8.5),                                                     // Statement
    InInches(7, 7.25, 10.5),                                                   // Executive
    InMillimetres(8, 297, 420),                                                // A3
    InMillimetres(9, 210, 297),                                                // A4
    InMillimetres(10, 210, 297),                                               // A4 Small
    InMillimetres(11, 148, 210),                                               // A5
    InMillimetres(12, 250, 354),                                               // B4
    InMillimetres(13, 182, 257),                                               // B5
    InInches(14, 8.5, 13),                                                     // Folio
    InMillimetres(15, 215, 275),                                               // Quarto
    InInches(16, 10, 14),        InInches(17, 11, 17), InInches(18, 8.5, 11),  // Note
    InInches(19, 3.875, 8.875),                                                // Envelope 9
    InInches(20, 4.125, 9.5),                                                  // Envelope 10
    InInches(21, 4.5, 10.375),                                                 // Envelope 11
    InInches(22, 4.75, 11),                                                    // Envelope 12
    InInches(23, 5, 11.5),                                                     // Envelope 14
    InInches(24, 17, 22),                                                      // C sheet
    InInches(25, 22, 34),                                                      // D sheet
    InInches(26, 34, 44),                                                      // E sheet
    InMillimetres(27, 110, 220),                                               // Envelope DL
    InMillimetres(28, 162, 229),                                               // Envelope C5
    InMillimetres(29, 324, 458),                                               // Envelope C3
    InMillimetres(30, 229, 324),                                               // Envelope C4
    InMillimetres(31, 114, 162),                                               // Envelope C6
    InMillimetres(32, 114, 229),                                               // Envelope C65
    InMillimetres(33, 250, 353),                                               // Envelope B4
    InMillimetres(34, 176, 250),                                               // Envelope B5
    InMillimetres(35, 176, 125),                                               // Envelope B6
    InMillimetres(36, 110, 230),                                               // Envelope Italy
    InInches(37, 3.875, 7.5),                                                  // Envelope Monarch
    InInches(38, 3.625, 6.5),                                                  // Envelope 6 3/4
    InInches(39, 14.875, 11),  // U.S. Standard Fanfold
    InInches(40, 8.5, 12),     // German Standard Fanfold
    InInches(41, 8.5, 13),     // German Legal Fanfold
};

}  // namespace

std::span<const PaperSize> KnownPaperSizes() {
  return kPaperSizes;
}

const PaperSize* FindPaperSize(std::int32_t code) {
  const auto known = std::ranges::find(kPaperSizes, code, &PaperSize::code);
  return known == std::end(kPaperSizes) ? nullptr : known;
}

}  // namespace pagivo::native
