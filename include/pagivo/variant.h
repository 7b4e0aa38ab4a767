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
  // In the order of the alternatives of Value below.
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
  Variant(std::shared_ptr<Array<std::int16_t>> value) : value_(std::move(value)) {}
  Variant(std::shared_ptr<Array<float>> value) : value_(std::move(value)) {}
  Variant(std::shared_ptr<Array<std::string>> value) : value_(std::move(value)) {}

  Kind GetKind() const noexcept { return static_cast<Kind>(value_.index()); }
  bool IsMissing() const noexcept { return GetKind() == Kind::Missing; }
  bool IsNull() const noexcept { return GetKind() == Kind::Null; }

  // The value when it is exactly of kind T, else null. No conversion takes place; see
  // src/values/conversions.h for those.
  template <typename T>
  const T* GetIf() const noexcept {
    return std::get_if<T>(&value_);
  }

  // What `visitor` answers to the value in its own type; Empty comes as std::monostate.
  template <typename Visitor>
  decltype(auto) Visit(Visitor&& visitor) const {
    return std::visit(std::forward<Visitor>(visitor), value_);
  }

  // Same kind and same value; objects and arrays are the same when they are one and the same.
  friend bool operator==(const Variant&, const Variant&) = default;

 private:
  using Value =
      std::variant<std::monostate, NullMarker, MissingMarker, bool, std::int16_t, std::int32_t,
                   float, double, std::string, ObjectRef, std::shared_ptr<Array<std::int16_t>>,
                   std::shared_ptr<Array<float>>, std::shared_ptr<Array<std::string>>>;
  Value value_;
};

inline constexpr MissingMarker Missing{};
inline constexpr NullMarker Null{};

// The kind's own name, e.g. "Integer"; a reference to an array reads "Integer()".
std::string_view NameOf(Variant::Kind kind);

}  // namespace pagivo
