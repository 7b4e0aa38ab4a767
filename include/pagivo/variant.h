// Tagged values: what the automation interface passes where several kinds are allowed.
#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "pagivo/array.h"
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

// A value and its kind. Integer is 16-bit, Long 32-bit; text is UTF-8. Arrays are references to an
// array that the caller shares, so a callee that resizes one changes the caller's.
class Variant {
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
  Variant(NullMarker marker) : value_(marker) {}
  Variant(MissingMarker marker) : value_(marker) {}
  Variant(std::same_as<bool> auto value) : value_(value) {}
  Variant(std::int16_t value) : value_(value) {}
  Variant(std::int32_t value) : value_(value) {}
  Variant(float value) : value_(value) {}
  Variant(double value) : value_(value) {}
  Variant(std::string value) : value_(std::move(value)) {}
  Variant(std::string_view value) : value_(std::string(value)) {}
  Variant(const char* value) : value_(std::string(value)) {}
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

  // The value when it is exactly of kind T, else null. No conversion takes place; see
  // src/values/conversions.h for those.
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

 private:
  // On their own, for the library tells up to eleven alternatives apart by a switch in line, more
  // by a call through a table, even where nothing is to be destroyed.
  using AnyArray = std::variant<std::shared_ptr<Array<std::int16_t>>, std::shared_ptr<Array<float>>,
                                std::shared_ptr<Array<std::string>>>;
  using Value = std::variant<std::monostate, NullMarker, MissingMarker, bool, std::int16_t,
                             std::int32_t, float, double, std::string, ObjectRef, AnyArray>;
  Value value_;
};

inline constexpr MissingMarker Missing{};
inline constexpr NullMarker Null{};

// The kind's own name, e.g. "Integer"; a reference to an array reads "Integer()".
std::string_view NameOf(Variant::Kind kind);

}  // namespace pagivo
