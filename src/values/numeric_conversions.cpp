#include <cmath>
#include <limits>

#include "values/conversions.h"

namespace pagivo {

namespace {

constexpr double kTrue = -1;

// Halves go to the even neighbour whatever rounding mode the host has set.
double RoundToEven(double value) {
  return value - std::remainder(value, 1.0);
}

template <typename Whole>
Whole ToWhole(double value) {
  const double rounded = RoundToEven(value);
  const bool fits =
      rounded >= std::numeric_limits<Whole>::min() && rounded <= std::numeric_limits<Whole>::max();
  if (!fits) ThrowOverflow();  // so does what is no number
  return static_cast<Whole>(rounded);
}

}  // namespace

std::int16_t ToInteger(double value) {
  return ToWhole<std::int16_t>(value);
}

std::int16_t ToInteger(const Variant& value) {
  return ToInteger(ToDouble(value));
}

std::int32_t ToLong(double value) {
  return ToWhole<std::int32_t>(value);
}

std::int32_t ToLong(const Variant& value) {
  return ToLong(ToDouble(value));
}

float ToSingle(double value) {
  const auto narrowed = static_cast<float>(value);
  if (std::isinf(narrowed)) ThrowOverflow();
  return narrowed;
}

float ToSingle(const Variant& value) {
  if (const float* single = value.GetIf<float>()) return *single;
  return ToSingle(ToDouble(value));
}

double ToDouble(const Variant& value) {
  using Kind = Variant::Kind;
  switch (value.GetKind()) {
    case Kind::Empty:
      return 0;
    case Kind::Boolean:
      return *value.GetIf<bool>() ? kTrue : 0;
    case Kind::Integer:
      return *value.GetIf<std::int16_t>();
    case Kind::Long:
      return *value.GetIf<std::int32_t>();
    case Kind::Single:
      return double{*value.GetIf<float>()};
    case Kind::Double:
      return *value.GetIf<double>();
    case Kind::String:
      return ParseNumber(*value.GetIf<std::string>());
    default:
      ThrowTypeMismatch();
  }
}

}  // namespace pagivo
