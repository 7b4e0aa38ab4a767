#include "engine/native/setup/paper_titles.h"

#include <algorithm>
#include <cmath>

#include "engine/native/setup/millimetres.h"

namespace pagivo::native {
namespace {

constexpr PaperName kPaperNames[] = {
    {9, "A4"},
    {8, "A3"},
    {11, "A5"},
    {10, "A4 klein"},
    {12, "B4"},
    {13, "B5"},
    {1, "Letter"},
    {2, "Letter klein"},
    {5, "Legal"},
    {7, "Executive"},
    {3, "Tabloid"},
    {4, "Ledger"},
    {6, "Statement"},
    {14, "Folio"},
    {15, "Quarto"},
    {18, "Notitie"},
    {16, "10 × 14 inch"},
    {17, "11 × 17 inch"},
    {27, "Envelop DL"},
    {28, "Envelop C5"},
    {31, "Envelop C6"},
    {32, "Envelop C6/C5"},
    {30, "Envelop C4"},
    {29, "Envelop C3"},
    {33, "Envelop B4"},
    {34, "Envelop B5"},
    {35, "Envelop B6"},
    {36, "Envelop Italië"},
    {37, "Envelop Monarch"},
    {38, "Envelop 6¾"},
    {19, "Envelop 9"},
    {20, "Envelop 10"},
    {21, "Envelop 11"},
    {22, "Envelop 12"},
    {23, "Envelop 14"},
    {24, "C-vel"},
    {25, "D-vel"},
    {26, "E-vel"},
    {39, "Kettingpapier Amerikaans"},
    {40, "Kettingpapier Duits"},
    {41, "Kettingpapier Duits legal"},
};

std::string WholeMillimetres(float twips) {
  return std::to_string(std::lround(twips / kTwipsPerMillimetre));
}

}  // namespace

std::span<const PaperName> PaperNames() {
  return kPaperNames;
}

std::string PaperTitle(std::int32_t code, const Extent& size) {
  const auto* known = std::ranges::find(kPaperNames, code, &PaperName::code);
  std::string title(known == std::end(kPaperNames) ? "Aangepast" : known->name);
  return title + " (" + WholeMillimetres(size.width) + " × " + WholeMillimetres(size.height) +
         " mm)";
}

}  // namespace pagivo::native
