// Margins, orientation, paper and page.
#include <array>
#include <string_view>

#include "api/engine_access.h"
#include "pagivo/pg_print.h"

namespace pagivo {

namespace {

struct PaperName {
  std::int16_t code;
  std::string_view name;
};

// The papers that are reported, in this order. Codes 19 to 38 have no name and are never reported.
constexpr std::array<PaperName, 22> kPaperNames{{
    {1, "Letter 8 1/2 x 11 inch"},
    {2, "Letter Small 8 1/2 x 11 inch"},
    {3, "Tabloid 11 x 17 inch"},
    {4, "Ledger 17 x 11 inch"},
    {5, "Legal 8 1/2 x 14 inch"},
    {6, "Statement 5 1/2 x 8 1/2 inch"},
    {7, "Executive 7 1/2 x 10 1/2 inch"},
    {8, "A3 297 x 420 mm"},
    {9, "A4 210 x 297 mm"},
    {10, "A4 Small 210 x 297 mm"},
    {11, "A5 148 x 210 mm"},
    {12, "B4 250 x 354 mm"},
    {13, "B5 182 x 257 mm"},
    {14, "Folio 8 1/2 x 13 inch"},
    {15, "Quarto 215 x 275 mm"},
    {16, "10 x 14 inch"},
    {17, "10 x 17 inch"},
    {18, "Note 8 1/2 x 11 inch"},
    {39, "U.S. Standard Fanfold 14 7/8 x 11 inch"},
    {40, "German Standard Fanfold 8 1/2 x 12 inch"},
    {41, "German Legal Fanfold 8 1/2 x 13 inch"},
    {256, "Door de gebruiker gedefinieerd formaat"},
}};

// What the arrays are given room for while papers are being found.
constexpr std::int32_t kPaperRoom = 41;

// A printer that fails to answer does not have the paper.
bool PrinterSupports(std::int16_t code) {
  return ReadOrZero([&] { return Engine().GetPaperSizes(code); });
}

}  // namespace

std::int32_t PgPrint::VsPPGetMarginLeft() {
  return ReadOrZero([] { return ToLong(Engine().GetMarginLeft()); });
}

std::int32_t PgPrint::VsPPGetMarginRight() {
  return ReadOrZero([] { return ToLong(Engine().GetMarginRight()); });
}

std::int32_t PgPrint::VsPPGetMarginTop() {
  return ReadOrZero([] { return ToLong(Engine().GetMarginTop()); });
}

std::int32_t PgPrint::VsPPGetMarginBottom() {
  return ReadOrZero([] { return ToLong(Engine().GetMarginBottom()); });
}

void PgPrint::VsPPSetMarginLeft(const Variant& Margin) {
  IgnoringErrors([&] { Engine().PutMarginLeft(ScaledX(Margin)); });
}

void PgPrint::VsPPSetMarginRight(const Variant& Margin) {
  IgnoringErrors([&] { Engine().PutMarginRight(ScaledX(Margin)); });
}

void PgPrint::VsPPSetMarginTop(const Variant& Margin) {
  IgnoringErrors([&] { Engine().PutMarginTop(ScaledY(Margin)); });
}

void PgPrint::VsPPSetMarginBottom(const Variant& Margin) {
  IgnoringErrors([&] { Engine().PutMarginBottom(ScaledY(Margin)); });
}

// The engine counts orientations from 0, the host from 1.

std::int16_t PgPrint::VsPPGetOrientation() {
  return ReadOrZero([] { return ToInteger(static_cast<double>(Engine().GetOrientation()) + 1); });
}

void PgPrint::VsPPSetOrientation(const Variant& Instelling) {
  IgnoringErrors([&] { Engine().PutOrientation(ToLong(ToDouble(Instelling) - 1)); });
}

std::int16_t PgPrint::VsPPGetPaperSize() {
  return ReadOrZero([] { return ToInteger(static_cast<double>(Engine().GetPaperSize())); });
}

void PgPrint::VsPPSetPaperSize(const Variant& Instelling) {
  IgnoringErrors([&] { Engine().PutPaperSize(ToLong(Instelling)); });
}

std::int32_t PgPrint::VsPPGetPageHeight() {
  return ReadOrZero([] { return ToLong(ToDouble(Engine().GetPageHeight())); });
}

// Hosts expect a paper getter to answer what the page getter answers.

std::int32_t PgPrint::VsPPGetPaperHeight() {
  return ReadOrZero([] { return ToLong(ToDouble(Engine().GetPageHeight())); });
}

std::int32_t PgPrint::VsPPGetPageWidth() {
  return ReadOrZero([] { return ToLong(ToDouble(Engine().GetPageWidth())); });
}

std::int32_t PgPrint::VsPPGetPaperWidth() {
  return ReadOrZero([] { return ToLong(ToDouble(Engine().GetPageWidth())); });
}

void PgPrint::VsPPSetPageHeight(const Variant& Instelling) {
  IgnoringErrors([&] { Engine().PutPageHeight(ToDouble(ScaledY(Instelling))); });
}

void PgPrint::VsPPSetPaperHeight(const Variant& Instelling) {
  IgnoringErrors([&] { Engine().PutPaperHeight(ToSingle(ScaledY(Instelling))); });
}

void PgPrint::VsPPSetPageWidth(const Variant& Instelling) {
  IgnoringErrors([&] { Engine().PutPageWidth(ToDouble(ScaledX(Instelling))); });
}

void PgPrint::VsPPSetPaperWidth(const Variant& Instelling) {
  // The vertical factor, on purpose: hosts rely on it.
  IgnoringErrors([&] { Engine().PutPaperWidth(ToSingle(ScaledY(Instelling))); });
}

void PgPrint::VsPPSetPhysicalPage(const bool& Setting) {
  IgnoringErrors([&] { Engine().PutPhysicalPage(Setting); });
}

std::int16_t PgPrint::VsPPGetPaperSizes(Array<std::string>& sPaperSizes,
                                        Array<std::int16_t>& nPaperSizes) {
  IgnoringErrors([&] { sPaperSizes.RedimPreserve(0, kPaperRoom); });
  IgnoringErrors([&] { nPaperSizes.RedimPreserve(0, kPaperRoom); });
  std::int16_t count = 0;
  for (const PaperName& paper : kPaperNames) {
    if (!PrinterSupports(paper.code)) continue;
    ++count;
    IgnoringErrors([&] { sPaperSizes(count) = paper.name; });
    IgnoringErrors([&] { nPaperSizes(count) = paper.code; });
  }
  IgnoringErrors([&] { sPaperSizes.RedimPreserve(0, count); });
  IgnoringErrors([&] { nPaperSizes.RedimPreserve(0, count); });
  return count;
}

}  // namespace pagivo
