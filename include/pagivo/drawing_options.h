// The optional arguments of PgPrint's figures by name, so that nobody counts commas:
//
//   print.VsPPLine(25, 30, 185, 60, {.box = true, .color = Color::Blue, .drawWidth = 20});
//   print.VsPPCircle(100, 80, 12, {.filled = true, .fillStyle = BrushStyle::Cross});
//
// Each is what the method's parameter of that name is (varBox, varColor ...) and holds its default
// until it is given.
#pragma once

#include <cstdint>

#include "pagivo/variant.h"

namespace pagivo {

struct LineOptions {
  Variant box = false;
  Variant filled = false;
  Variant color = std::int32_t{0};
  Variant fillStyle = std::int32_t{0};
  Variant drawStyle = std::int32_t{0};
  Variant drawWidth = std::int16_t{0};
};

struct CircleOptions {
  Variant start = Missing;
  Variant end = Missing;
  Variant filled = false;
  Variant color = std::int32_t{0};
  Variant fillStyle = std::int32_t{0};
  Variant drawStyle = std::int32_t{0};
  Variant drawWidth = std::int16_t{0};
};

struct PolylineOptions {
  Variant closed = false;
  Variant filled = false;
  Variant color = std::int32_t{0};
  Variant fillStyle = std::int32_t{0};
  Variant drawStyle = std::int32_t{0};
  Variant drawWidth = std::int16_t{0};
};

}  // namespace pagivo
