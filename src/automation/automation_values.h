// Values of automation, VARIANTs, and the component's own: what becomes of each in the other.
#pragma once

#include <oaidl.h>
#include <oleauto.h>

#include <string>

#include "pagivo/variant.h"
#include "values/late_binding.h"

namespace pagivo::automation {

// A value that is freed with its owner.
class OwnedValue {
 public:
  OwnedValue() { VariantInit(&value_); }
  ~OwnedValue() { VariantClear(&value_); }
  OwnedValue(const OwnedValue&) = delete;
  OwnedValue& operator=(const OwnedValue&) = delete;

  VARIANT* Address() { return &value_; }
  const VARIANT& Get() const { return value_; }
  // Hands the value over; what is left here is empty.
  VARIANT Release();

 private:
  VARIANT value_;
};

// A text in UTF-8; null is the empty one.
std::string TextOf(BSTR text);
// Makes a text that its receiver frees. Raises ErrorNumber::OutOfMemory.
BSTR MakeBstr(const std::string& text);

// The kind of VARIANT that a parameter or result of this kind is.
VARTYPE VartypeOf(ValueKind kind);

// The variable that a reference, or a reference to a reference, leads to.
VARIANT& VariableOf(VARIANT& given);

// The value as it is, references followed. It owns nothing and lives as long as `given`.
VARIANT Dereferenced(const VARIANT& given);

bool IsMissing(const VARIANT& given);

// The value of an argument in the kind of its parameter, converted as the system converts it for
// this locale; an object gives its default property first. Raises ErrorNumber::TypeMismatch or
// ErrorNumber::Overflow.
Variant ReadValue(const VARIANT& given, ValueKind wanted, LCID locale);

// The same for a parameter that takes any kind. A date or currency is its number. A picture is one
// of ours, another object the value of its default property, if it has one. What has no counterpart
// at all comes as Nothing, which no statement can use, so that it fails where it is used.
Variant ReadAnyValue(const VARIANT& given);

// Makes a VARIANT, which its receiver frees, of a value that is no array.
VARIANT MakeVariant(const Variant& value);

// Puts a new value into the host's variable: in the kind that it has, or, where it may have any, in
// the value's own when its own cannot hold that. Nothing is put where no variable was passed.
// Raises what the conversion raises.
void PutIntoVariable(VARIANT& given, const Variant& value, LCID locale);

// Raises the error that a failed conversion stands for.
[[noreturn]] void RaiseConversionError(HRESULT failure);

}  // namespace pagivo::automation
