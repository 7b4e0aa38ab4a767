#include "values/conversions.h"

#include <cmath>
#include <limits>

#include "pagivo/arguments.h"
#include "system/regional_settings.h"
#include "values/number_text.h"
#include "values/text_conversions.h"

namespace pagivo {
namespace {

template <typename... Functions>
struct Overloaded : Functions... {
  using Functions::operator()...;
};

template <typename... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>;

constexpr double kTrue = -1;

template <typename Whole>
Whole ToWhole(double value) {
  const double rounded = RoundToEven(value);
  const bool fits =
      rounded >= std::numeric_limits<Whole>::min() && rounded <= std::numeric_limits<Whole>::max();
  if (!fits) ThrowOverflow();  // so does what is no number
  return static_cast<Whole>(rounded);
}

// `value` in another kind, or as it is for a kind that nothing is converted to.
Variant InKind(Variant::Kind kind, const Variant& value) {
  switch (kind) {
    case Variant::Kind::Boolean:
      return value.ToBoolean();
    case Variant::Kind::Integer:
      return value.ToInteger();
    case Variant::Kind::Long:
      return value.ToLong();
    case Variant::Kind::Single:
      return value.ToSingle();
    case Variant::Kind::Double:
      return value.ToDouble();
    case Variant::Kind::String:
      return value.ToText();
    default:
      return value;
  }
}

std::int16_t CheckedInteger(std::int32_t value) {
  if (value < std::numeric_limits<std::int16_t>::min() ||
      value > std::numeric_limits<std::int16_t>::max()) {
    ThrowOverflow();
  }
  return static_cast<std::int16_t>(value);
}

}  // namespace

double RoundToEven(double value) {
  constexpr double kWholeFrom = 4503599627370496;  // 2^52: from here on every Double is whole
  if (!(std::abs(value) < kWholeFrom)) return value;
  const auto towardZero = static_cast<std::int64_t>(value);
  const double rest = std::abs(value - static_cast<double>(towardZero));  // exact
  const bool isFarther = rest > 0.5 || (rest == 0.5 && towardZero % 2 != 0);
  const std::int64_t step = value < 0 ? -1 : 1;
  return static_cast<double>(isFarther ? towardZero + step : towardZero);
}

std::int16_t ToInteger(double value) {
  return ToWhole<std::int16_t>(value);
}

std::int16_t Variant::ToInteger() const {
  if (const auto* text = GetIf<std::string>()) return IntegerIn(*text);
  return pagivo::ToInteger(ToDouble());
}

std::int32_t ToLong(double value) {
  return ToWhole<std::int32_t>(value);
}

std::int32_t Variant::ToLong() const {
  if (const auto* whole = GetIf<std::int32_t>()) return *whole;
  if (const auto* text = GetIf<std::string>()) return LongIn(*text);
  return pagivo::ToLong(ToDouble());
}

float ToSingle(double value) {
  const auto narrowed = static_cast<float>(value);
  if (std::isinf(narrowed)) ThrowOverflow();
  return narrowed;
}

float Variant::ToSingle() const {
  if (const float* single = GetIf<float>()) return *single;
  if (const auto* text = GetIf<std::string>()) return SingleIn(*text);
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
      [](const std::string& text) { return DoubleIn(text); },
      [](const auto&) -> double { ThrowTypeMismatch(); },
  });
}

bool Variant::ToBoolean() const {
  if (const bool* boolean = GetIf<bool>()) return *boolean;
  if (const auto* text = GetIf<std::string>()) return BooleanIn(*text);
  return ToDouble() != 0;
}

std::string Variant::ToText() const {
  const auto format = [](auto number) {
    return FormatGeneral(number, CurrentRegionalSettings().decimalSeparator);
  };
  return Visit(Overloaded{
      [](std::monostate) { return std::string(); },
      [](bool boolean) { return std::string(boolean ? "True" : "False"); },
      [](std::int16_t number) { return std::to_string(number); },
      [](std::int32_t number) { return std::to_string(number); },
      [&](float number) { return format(number); },
      [&](double number) { return format(number); },
      [](const std::string& text) { return text; },
      [](const auto&) -> std::string { ThrowTypeMismatch(); },
  });
}

ObjectRef Variant::ToObject() const {
  const auto* object = GetIf<ObjectRef>();
  if (object == nullptr) ThrowTypeMismatch();
  return *object;
}

void AssignKeepingKind(Variant& variable, const Variant& value) {
  try {
    variable = InKind(variable.GetKind(), value);
  } catch (const Error&) {
    variable = value;
  }
}

std::int16_t AddIntegers(std::int16_t left, std::int16_t right) {
  return CheckedInteger(std::int32_t{left} + right);
}

std::int16_t SubtractIntegers(std::int16_t left, std::int16_t right) {
  return CheckedInteger(std::int32_t{left} - right);
}

IntegerArgument::operator std::int16_t() const {
  return ToInteger(value_);
}

IntegerVariable::IntegerVariable(Variant& variable)
    : value_(variable.ToInteger()), variable_(&variable), put_([](void* held, std::int16_t value) {
        AssignKeepingKind(*static_cast<Variant*>(held), value);
      }) {}

IntegerVariable& IntegerVariable::operator=(std::int16_t value) {
  value_ = value;
  if (put_ != nullptr) put_(variable_, value);
  return *this;
}

}  // namespace pagivo
