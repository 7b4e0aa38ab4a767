#include "pagivo/variant.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "values/conversions.h"
#include "values/variant_arithmetic.h"

namespace pagivo {
namespace {

// In the order of Variant::Kind.
constexpr std::array<std::string_view, 13> kKindNames = {
    "Empty",  "Null",   "Missing", "Boolean",   "Integer",  "Long",    "Single",
    "Double", "String", "Object",  "Integer()", "Single()", "String()"};

bool IsTextBeside(const Variant& value, const Variant& other) {
  return value.GetKind() == Variant::Kind::String ||
         (value.GetKind() == Variant::Kind::Empty && other.GetKind() == Variant::Kind::String);
}

// --- Arithmetic -------------------------------------------------------------------------------

using Kind = Variant::Kind;

// What an operand counts as: Integer, Long, Single, Double or Null.
Kind NumericKindOf(const Variant& operand) {
  switch (operand.GetKind()) {
    case Kind::Empty:
    case Kind::Boolean:
    case Kind::Integer:
      return Kind::Integer;
    case Kind::String:
    case Kind::Double:
      return Kind::Double;
    case Kind::Long:
    case Kind::Single:
    case Kind::Null:
      return operand.GetKind();
    default:
      ThrowTypeMismatch();
  }
}

template <typename Whole>
bool Fits(double value) {
  return value >= std::numeric_limits<Whole>::min() && value <= std::numeric_limits<Whole>::max();
}

Kind KindOfProduct(Kind left, Kind right) {
  if (left == right) return left;
  const bool longWithSingle = (left == Kind::Long && right == Kind::Single) ||
                              (left == Kind::Single && right == Kind::Long);
  // The kinds stand in the order of their width.
  return longWithSingle ? Kind::Double : std::max(left, right);
}

Variant DoubleResult(double value) {
  if (std::isinf(value)) ThrowOverflow();
  return value;
}

bool FitsSingle(double value) {
  return !std::isinf(static_cast<float>(value));
}

// `product` in the given kind, or in the next wider one that holds it.
Variant ProductOfKind(Kind kind, double product) {
  if (kind == Kind::Integer && Fits<std::int16_t>(product)) return ToInteger(product);
  if ((kind == Kind::Integer || kind == Kind::Long) && Fits<std::int32_t>(product)) {
    return ToLong(product);
  }
  if (kind == Kind::Single && FitsSingle(product)) return static_cast<float>(product);
  return DoubleResult(product);
}

bool CountsAsSingle(Kind kind) {
  return kind == Kind::Integer || kind == Kind::Single;
}

}  // namespace

// Ready before any other static object is made.
constinit const Variant Missing{MissingMarker{}};
constinit const Variant Null{NullMarker{}};

std::partial_ordering operator<=>(const Variant& left, const Variant& right) {
  if (IsTextBeside(left, right) && IsTextBeside(right, left)) {
    return left.ToText() <=> right.ToText();
  }
  try {
    return left.ToDouble() <=> right.ToDouble();
  } catch (const Error&) {
    return std::partial_ordering::unordered;
  }
}

std::string_view NameOf(Variant::Kind kind) {
  return kKindNames.at(static_cast<std::size_t>(kind));
}

Variant Multiply(const Variant& left, const Variant& right) {
  const Kind leftKind = NumericKindOf(left);
  const Kind rightKind = NumericKindOf(right);
  if (leftKind == Kind::Null || rightKind == Kind::Null) return Null;
  return ProductOfKind(KindOfProduct(leftKind, rightKind), ToDouble(left) * ToDouble(right));
}

Variant MultiplyBySingle(const Variant& value, float factor) {
  return Multiply(value, factor);
}

Variant Divide(const Variant& left, const Variant& right) {
  const Kind leftKind = NumericKindOf(left);
  const Kind rightKind = NumericKindOf(right);
  if (leftKind == Kind::Null || rightKind == Kind::Null) return Null;
  const double dividend = ToDouble(left);
  const double divisor = ToDouble(right);
  if (divisor == 0) ThrowDivisionByZero();
  const double quotient = dividend / divisor;
  if (CountsAsSingle(leftKind) && CountsAsSingle(rightKind)) return ToSingle(quotient);
  return DoubleResult(quotient);
}

}  // namespace pagivo
