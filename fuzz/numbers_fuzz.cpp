// Numbers and point lists as people and hosts write them: each is read or refused, and what is
// formatted is read back as itself.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "engine/native/document/point_list.h"
#include "pagivo/error.h"
#include "values/number_text.h"

namespace {

// Fifteen significant digits make a text again that they came from.
void RequireStableText(double number) {
  const std::string text = pagivo::FormatGeneral(number, ',');
  if (std::isfinite(number) && pagivo::FormatGeneral(pagivo::ParseNumber(text), ',') != text)
    abort();
}

template <typename Read>
void Try(Read read) {
  try {
    RequireStableText(read());
  } catch (const pagivo::Error&) {
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  Try([&] { return pagivo::ParseNumber(text); });
  Try([&] { return pagivo::LeadingNumber(text); });
  if (const auto points = pagivo::native::ParsePointList(text)) {
    for (const pagivo::native::Point& point : *points) {
      if (!(std::fabs(point.x) <= pagivo::native::kMaximumCoordinate)) abort();
      if (!(std::fabs(point.y) <= pagivo::native::kMaximumCoordinate)) abort();
    }
  }
  return 0;
}
