// Tagged values: what the automation interface passes where several kinds are allowed.
#pragma once

#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>

#include "pagivo/array.h"
#include "pagivo/export.h"
#include "pagivo/object.h"

namespace pagivo {

// The marker of an optional argument that was left out.
struct MissingMarker {
  friend bool operator==(MissingMarker, MissingMarker) = default;
};
// The value Null: known to be unknown.
struct NullMarker {
  friend bool operator==(NullMarker, NullMarker) = default;
};

// A number of whatever type; bool is none.
template <typename T>
concept Number = std::is_arithmetic_v<T> && !std::same_as<T, bool>;

// A value and its kind. Integer is 16-bit, Long 32-bit; text is UTF-8. Arrays are references to an
// array that the caller shares, so a callee that resizes one changes the caller's.
class PAGIVO_EXPORT Variant {
 public:
  // In the order of the alternatives of Value and AnyArray below.
  enum class Kind : std::uint8_t {
    Empty,
    Null,
    Missing,
    Boolean,
    Integer,
    Long,
    Single,
    Double,
    String,
    Object,
    IntegerArray,
    SingleArray,
    StringArray,
  };

  Variant() = default;
  constexpr Variant(NullMarker marker) : value_(marker) {}
  constexpr Variant(MissingMarker marker) : value_(marker) {}
  Variant(std::same_as<bool> auto value) : value_(value) {}
  Variant(std::int16_t value) : value_(value) {}
  Variant(std::int32_t value) : value_(value) {}
  Variant(float value) : value_(value) {}
  Variant(double value) : value_(value) {}
  // A number of another type: a whole one is a Long, beyond its range a Double, as all others are.
  template <Number T>
  Variant(T value) : Variant(static_cast<double>(value)) {
    if (std::is_integral_v<T> && FitsLong(static_cast<double>(value))) {
      value_ = static_cast<std::int32_t>(value);
    }
  }
  Variant(std::string value) : value_(std::move(value)) {}
  Variant(std::string_view value) : value_(std::in_place_type<std::string>, value) {}
  // Null is the empty text.
  Variant(const char* value)
      : value_(std::in_place_type<std::string>, value == nullptr ? "" : value) {}
  Variant(ObjectRef value) : value_(std::move(value)) {}
  template <std::derived_from<Object> T>
  Variant(std::shared_ptr<T> value) : value_(ObjectRef(std::move(value))) {}
  Variant(std::shared_ptr<Array<std::int16_t>> value) : value_(AnyArray(std::move(value))) {}
  Variant(std::shared_ptr<Array<float>> value) : value_(AnyArray(std::move(value))) {}
  Variant(std::shared_ptr<Array<std::string>> value) : value_(AnyArray(std::move(value))) {}

  Kind GetKind() const noexcept {
    const AnyArray* array = std::get_if<AnyArray>(&value_);
    return static_cast<Kind>(value_.index() + (array == nullptr ? 0 : array->index()));
  }
  bool IsMissing() const noexcept { return std::holds_alternative<MissingMarker>(value_); }
  bool IsNull() const noexcept { return std::holds_alternative<NullMarker>(value_); }

  // The value in another kind. Empty is 0, False and the empty text; True is -1, and any number but
  // 0 is true; texts are read and written in the regional notation of numbers, True and False in
  // any case. ToInteger and ToLong round to the nearest whole number, exact halves to the even
  // neighbour. Each raises ErrorNumber::TypeMismatch for a value that has no counterpart in the
  // wanted kind (Null, Missing, an object, an array, a text that is no number) and
  // ErrorNumber::Overflow for one outside its range.
  bool ToBoolean() const;
  std::int16_t ToInteger() const;
  std::int32_t ToLong() const;
  float ToSingle() const;
  double ToDouble() const {
    const double* number = GetIf<double>();  // as most are already
    return number != nullptr ? *number : ConvertToDouble();
  }
  std::string ToText() const;
  ObjectRef ToObject() const;

  // The value when it is exactly of kind T, else null. No conversion takes place.
  template <typename T>
  const T* GetIf() const noexcept {
    if constexpr (std::constructible_from<AnyArray, T>) {
      const AnyArray* array = std::get_if<AnyArray>(&value_);
      return array == nullptr ? nullptr : std::get_if<T>(array);
    } else {
      return std::get_if<T>(&value_);
    }
  }

  // What `visitor` answers to the value in its own type; Empty comes as std::monostate.
  template <typename Visitor>
  decltype(auto) Visit(Visitor&& visitor) const {
    return std::visit(
        [&visitor](const auto& value) -> decltype(auto) {
          if constexpr (std::same_as<decltype(value), const AnyArray&>) {
            return std::visit(visitor, value);
          } else {
            return visitor(value);
          }
        },
        value_);
  }

  // Same kind and same value; objects and arrays are the same when they are one and the same.
  friend bool operator==(const Variant&, const Variant&) = default;
  // By value, whatever the kinds: two texts byte by byte, everything else as Doubles. What has no
  // counterpart there is neither less nor greater than anything.
  friend PAGIVO_EXPORT std::partial_ordering operator<=>(const Variant& left, const Variant& right);
  // By value, too: a Single 12 equals the number 12, though not the Variant of a Long.
  template <Number T>
  friend bool operator==(const Variant& left, T right) {
    return std::is_eq(left <=> Variant(right));
  }

 private:
  static constexpr bool FitsLong(double value) {
    return value >= std::numeric_limits<std::int32_t>::min() &&
           value <= std::numeric_limits<std::int32_t>::max();
  }
  double ConvertToDouble() const;

  // On their own, for the library tells up to eleven alternatives apart by a switch in line, more
  // by a call through a table, even where nothing is to be destroyed.
  using AnyArray = std::variant<std::shared_ptr<Array<std::int16_t>>, std::shared_ptr<Array<float>>,
                                std::shared_ptr<Array<std::string>>>;
  using Value = std::variant<std::monostate, NullMarker, MissingMarker, bool, std::int16_t,
                             std::int32_t, float, double, std::string, ObjectRef, AnyArray>;
  Value value_;
};

// The two markers as values. An optional argument is left out by passing Missing.
PAGIVO_EXPORT extern const Variant Missing;
PAGIVO_EXPORT extern const Variant Null;

// The kind's own name, e.g. "Integer"; a reference to an array reads "Integer()".
PAGIVO_EXPORT std::string_view NameOf(Variant::Kind kind);

}  // namespace pagivo
