#include "pagivo/variant.h"

#include <array>

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

}  // namespace pagivo
