// The host's units.
#include "api/engine_access.h"
#include "pagivo/pg_print.h"
#include "values/measures.h"

namespace pagivo {

namespace {

constexpr double kMillimetresPerTenthOfInch = 2.54;
constexpr double kCentimetresPerInch = 2.54;

void UseFactors(double x, double y) {
  State().ScaleX = static_cast<float>(x);
  State().ScaleY = static_cast<float>(y);
}

void UseFactor(double factor) {
  UseFactors(factor, factor);
}

void UsePixels() {
  IgnoringErrors([] { State().ScaleX = ToSingle(Engine().GetTwipsPerPixelX()); });
  IgnoringErrors([] { State().ScaleY = ToSingle(Engine().GetTwipsPerPixelY()); });
}

void UseScaleMode(std::int16_t mode) {
  switch (mode) {
    case ScaleMode::Points:
      return UseFactor(kTwipsPerPoint);
    case ScaleMode::Pixels:
      return UsePixels();
    case ScaleMode::Characters:
      return UseFactors(120, 240);
    case ScaleMode::Inches:
      return UseFactor(kTwipsPerInch);
    case ScaleMode::Millimetres:
      return UseFactor(kTwipsPerInch / 10 / kMillimetresPerTenthOfInch);
    case ScaleMode::Centimetres:
      return UseFactor(kTwipsPerInch / kCentimetresPerInch);
    default:
      return UseFactor(1);
  }
}

// An engine's value in host units, unrounded.
template <typename Read>
Variant InHostUnits(float ModuleState::*scale, Read&& read) {
  return ReadOrZero([&] {
    Variant quotient = Divide(read(), State().*scale);
    if (quotient.IsNull()) ThrowTypeMismatch();
    return quotient;
  });
}

// The same for a value that counts as a Double, divided by the widened factor.
template <typename Read>
Variant DoubleInHostUnits(float ModuleState::*scale, Read&& read) {
  return ReadOrZero([&] {
    const double value = ToDouble(read());
    return Divide(value, static_cast<double>(State().*scale));
  });
}

}  // namespace

void PgPrint::VsPPSetScaleMode(const IntegerArgument& ScaleMode) {
  IgnoringErrors([&] { UseScaleMode(ScaleMode); });
}

Variant PgPrint::VsPPTextWidthS(const TextArgument& Tekst) {
  return DoubleInHostUnits(&ModuleState::ScaleX, [&] { return Engine().GetTextWidth(Tekst); });
}

Variant PgPrint::VsPPTextHeightS(const TextArgument& Tekst) {
  return DoubleInHostUnits(&ModuleState::ScaleY, [&] { return Engine().GetTextHeight(Tekst); });
}

Variant PgPrint::VsPPGetMarginLeftS() {
  return InHostUnits(&ModuleState::ScaleX, [] { return Engine().GetMarginLeft(); });
}

Variant PgPrint::VsPPGetMarginRightS() {
  return InHostUnits(&ModuleState::ScaleX, [] { return Engine().GetMarginRight(); });
}

Variant PgPrint::VsPPGetMarginTopS() {
  return InHostUnits(&ModuleState::ScaleY, [] { return Engine().GetMarginTop(); });
}

Variant PgPrint::VsPPGetMarginBottomS() {
  return InHostUnits(&ModuleState::ScaleY, [] { return Engine().GetMarginBottom(); });
}

// The paper getters answer the page's dimensions, as their unscaled twins do.

Variant PgPrint::VsPPGetPageHeightS() {
  return DoubleInHostUnits(&ModuleState::ScaleY, [] { return Engine().GetPageHeight(); });
}

Variant PgPrint::VsPPGetPaperHeightS() {
  return DoubleInHostUnits(&ModuleState::ScaleY, [] { return Engine().GetPageHeight(); });
}

Variant PgPrint::VsPPGetPageWidthS() {
  return DoubleInHostUnits(&ModuleState::ScaleX, [] { return Engine().GetPageWidth(); });
}

Variant PgPrint::VsPPGetPaperWidthS() {
  return DoubleInHostUnits(&ModuleState::ScaleX, [] { return Engine().GetPageWidth(); });
}

}  // namespace pagivo
