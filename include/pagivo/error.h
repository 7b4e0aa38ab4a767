// The one exception type of the component.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "pagivo/export.h"

namespace pagivo {

// Error numbers that a host can tell apart. The numbers up to 500 are the run-time error numbers
// that automation clients of the Basic family know; engine errors count from 20000.
enum class ErrorNumber : std::int32_t {
  InvalidArgument = 5,
  Overflow = 6,
  OutOfMemory = 7,
  SubscriptOutOfRange = 9,
  DivisionByZero = 11,
  TypeMismatch = 13,
  FileAccess = 75,
  UnknownMember = 438,
  WrongArgumentCount = 450,
  NoDocument = 20001,
  PageOutOfRange = 20002,
  InvalidPropertyValue = 20003,
  InvalidPicture = 20004,
  PrinterFailure = 20005,
  DocumentFull = 20006,
};

// A failure of the world or of an argument. what() is a description in Dutch, ready to be shown
// to a user.
class PAGIVO_EXPORT Error : public std::runtime_error {
 public:
  Error(ErrorNumber number, const std::string& description)
      : std::runtime_error(description), number_(number) {}

  ErrorNumber Number() const noexcept { return number_; }

 private:
  ErrorNumber number_;
};

// The errors of values and objects, with their standing descriptions.

// "Overloop"
[[noreturn]] PAGIVO_EXPORT void ThrowOverflow();
// "Typen komen niet met elkaar overeen"
[[noreturn]] PAGIVO_EXPORT void ThrowTypeMismatch();
// "Het subscript valt buiten het bereik"
[[noreturn]] PAGIVO_EXPORT void ThrowSubscriptOutOfRange();
// "Deling door nul"
[[noreturn]] PAGIVO_EXPORT void ThrowDivisionByZero();
// "Onvoldoende geheugen"
[[noreturn]] PAGIVO_EXPORT void ThrowOutOfMemory();
// "Onbekend lid: " and the name
[[noreturn]] PAGIVO_EXPORT void ThrowUnknownMember(std::string_view name);
// "Ongeldige waarde voor de eigenschap " and the property
[[noreturn]] PAGIVO_EXPORT void ThrowInvalidPropertyValue(std::string_view property);

}  // namespace pagivo
