// The host's units.
#include "api/engine_access.h"
#include "pagivo/pg_print.h"

namespace pagivo {

namespace {

enum ScaleMode : std::int16_t {
  kTwips = 1,
  kPoints,
  kPixels,
  kCharacters,
  kInches,
  kMillimetres,
  kCentimetres,
};

constexpr double kTwipsPerPoint = 20;
constexpr double kTwipsPerInch = 1440;
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

// An engine's value in host units, unrounded.
template <typename Read>
Variant InHostUnits(float ModuleState::*scale, Read&& read) {
  return ReadOrZero([&] { return Divide(read(), State().*scale); });
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

void PgPrint::VsPPSetScaleMode(const std::int16_t& ScaleMode) {
  switch (ScaleMode) {
    case kPoints:
      return UseFactor(kTwipsPerPoint);
    case kPixels:
      return UsePixels();
    case kCharacters:
      return UseFactors(120, 240);
    case kInches:
      return UseFactor(kTwipsPerInch);
    case kMillimetres:
      return UseFactor(kTwipsPerInch / 10 / kMillimetresPerTenthOfInch);
    case kCentimetres:
      return UseFactor(kTwipsPerInch / kCentimetresPerInch);
    default:
      return UseFactor(1);
  }
}

Variant PgPrint::VsPPTextWidthS(const std::string& Tekst) {
  return DoubleInHostUnits(&ModuleState::ScaleX, [&] { return Engine().GetTextWidth(Tekst); });
}

Variant PgPrint::VsPPTextHeightS(const std::string& Tekst) {
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
