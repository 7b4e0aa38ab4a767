#include "pagivo/error.h"

namespace pagivo {
namespace {

// Made while there is memory: raising it takes none.
const Error kOutOfMemory(ErrorNumber::OutOfMemory, "Onvoldoende geheugen");

}  // namespace

void ThrowOverflow() {
  throw Error(ErrorNumber::Overflow, "Overloop");
}

void ThrowTypeMismatch() {
  throw Error(ErrorNumber::TypeMismatch, "Typen komen niet met elkaar overeen");
}

void ThrowSubscriptOutOfRange() {
  throw Error(ErrorNumber::SubscriptOutOfRange, "Het subscript valt buiten het bereik");
}

void ThrowDivisionByZero() {
  throw Error(ErrorNumber::DivisionByZero, "Deling door nul");
}

void ThrowOutOfMemory() {
  throw Error(kOutOfMemory);
}

void ThrowUnknownMember(std::string_view name) {
  throw Error(ErrorNumber::UnknownMember, "Onbekend lid: " + std::string(name));
}

void ThrowInvalidPropertyValue(std::string_view property) {
  throw Error(ErrorNumber::InvalidPropertyValue,
              "Ongeldige waarde voor de eigenschap " + std::string(property));
}

}  // namespace pagivo
