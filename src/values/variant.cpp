#include "pagivo/variant.h"

#include <array>

namespace pagivo {

namespace {

// In the order of Variant::Kind.
constexpr std::array<std::string_view, 13> kKindNames = {
    "Empty",  "Null",   "Missing", "Boolean",   "Integer",  "Long",    "Single",
    "Double", "String", "Object",  "Integer()", "Single()", "String()"};

}  // namespace

std::string_view NameOf(Variant::Kind kind) {
  return kKindNames.at(static_cast<std::size_t>(kind));
}

}  // namespace pagivo
