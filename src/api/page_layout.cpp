// Margins, orientation, paper and page.
#include "api/engine_access.h"
#include "engine/papers.h"
#include "pagivo/pg_print.h"

namespace pagivo {

namespace {

// What the arrays are given room for while papers are being found.
constexpr std::int32_t kPaperRoom = kLastPaper;

// A printer that fails to answer does not have the paper.
bool IsReported(const Paper& paper) {
  return !paper.reportedName.empty() &&
         ReadOrZero([&] { return Engine().GetPaperSizes(paper.code); });
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
  const auto report = [&](const Paper& paper) {
    if (!IsReported(paper)) return;
    ++count;
    IgnoringErrors([&] { sPaperSizes(count) = paper.reportedName; });
    IgnoringErrors([&] { nPaperSizes(count) = static_cast<std::int16_t>(paper.code); });
  };
  for (std::int32_t code = 1; code <= kLastPaper; ++code) report(*FindPaper(code));
  report(kUserDefinedPaper);
  IgnoringErrors([&] { sPaperSizes.RedimPreserve(0, count); });
  IgnoringErrors([&] { nPaperSizes.RedimPreserve(0, count); });
  return count;
}

}  // namespace pagivo
