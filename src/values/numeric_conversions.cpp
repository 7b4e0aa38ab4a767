#include <cmath>
#include <limits>

#include "values/conversions.h"
#include "values/overloaded.h"
#include "values/rounding.h"

namespace pagivo {

namespace {

constexpr double kTrue = -1;

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

std::int16_t Variant::ToInteger() const {
  return pagivo::ToInteger(ToDouble());
}

std::int32_t ToLong(double value) {
  return ToWhole<std::int32_t>(value);
}

std::int32_t Variant::ToLong() const {
  return pagivo::ToLong(ToDouble());
}

float ToSingle(double value) {
  const auto narrowed = static_cast<float>(value);
  if (std::isinf(narrowed)) ThrowOverflow();
  return narrowed;
}

float Variant::ToSingle() const {
  if (const float* single = GetIf<float>()) return *single;
  return pagivo::ToSingle(ToDouble());
}

double Variant::ConvertToDouble() const {
  return Visit(Overloaded{
      [](std::monostate) { return 0.0; },
      [](bool boolean) { return boolean ? kTrue : 0.0; },
      [](std::int16_t number) { return static_cast<double>(number); },
      [](std::int32_t number) { return static_cast<double>(number); },
      [](float number) { return static_cast<double>(number); },
      [](double number) { return number; },
      [](const std::string& text) { return ParseNumber(text); },
      [](const auto&) -> double { ThrowTypeMismatch(); },
  });
}

}  // namespace pagivo
