#include "pagivo/object.h"

#include "pagivo/error.h"
#include "pagivo/variant.h"

namespace pagivo {

Object::~Object() = default;

Variant Object::GetMember(std::string_view name) {
  ThrowUnknownMember(name);
}

void Object::PutMember(std::string_view name, const Variant&) {
  ThrowUnknownMember(name);
}

Variant Object::CallMember(std::string_view name, std::span<Variant>) {
  ThrowUnknownMember(name);
}

}  // namespace pagivo
