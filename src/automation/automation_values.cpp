#include "automation/automation_values.h"

#include <cstring>
#include <utility>

#include "automation/host_objects.h"
#include "automation/picture_objects.h"
#include "automation/safe_arrays.h"
#include "system/windows/wide_text.h"

namespace pagivo::automation {
namespace {

// An object may give another one as its default property, but not for ever.
constexpr int kMostDefaultProperties = 8;

std::size_t SizeOfKind(VARTYPE kind) {
  switch (kind) {
    case VT_I1:
    case VT_UI1:
      return sizeof(BYTE);
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return sizeof(SHORT);
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
      return sizeof(double);
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return sizeof(void*);
    default:
      return (kind & VT_ARRAY) != 0 ? sizeof(void*) : sizeof(LONG);
  }
}

bool IsObject(const VARIANT& value) {
  return V_VT(&value) == VT_DISPATCH || V_VT(&value) == VT_UNKNOWN;
}

// Converts as scripts see it: a Boolean is written True or False.
void Convert(const VARIANT& value, VARTYPE wanted, LCID locale, OwnedValue& converted) {
  VARIANT source = value;  // the system reads it only
  const HRESULT result =
      VariantChangeTypeEx(converted.Address(), &source, locale, VARIANT_ALPHABOOL, wanted);
  if (FAILED(result)) RaiseConversionError(result);
}

// What the value is when it is no object, following default properties.
const VARIANT& ValueBehindObjects(const VARIANT& value, OwnedValue& behind) {
  const VARIANT* current = &value;
  for (int i = 0; i < kMostDefaultProperties && IsObject(*current); ++i) {
    OwnedValue next;
    if (!ReadDefaultProperty(V_UNKNOWN(current), next)) break;
    VariantClear(behind.Address());
    *behind.Address() = next.Release();
    current = &behind.Get();
  }
  return *current;
}

Variant ReadNumber(const VARIANT& value) {
  OwnedValue number;
  Convert(value, VT_R8, LOCALE_USER_DEFAULT, number);
  return V_R8(&number.Get());
}

// A picture is one itself: its own default property, a handle, means nothing to us.
Variant ReadAnyObject(const VARIANT& value, int mostDefaultProperties = kMostDefaultProperties) {
  if (ObjectRef picture = ReadPicture(V_UNKNOWN(&value))) return picture;
  OwnedValue next;
  if (mostDefaultProperties == 0 || !ReadDefaultProperty(V_UNKNOWN(&value), next)) {
    return MakeHostObject(V_UNKNOWN(&value));
  }
  return IsObject(next.Get()) ? ReadAnyObject(next.Get(), mostDefaultProperties - 1)
                              : ReadAnyValue(next.Get());
}

Variant ReadPlainValue(const VARIANT& value) {
  switch (V_VT(&value)) {
    case VT_EMPTY:
      return {};
    case VT_NULL:
      return Null;
    case VT_BOOL:
      return V_BOOL(&value) != VARIANT_FALSE;
    case VT_I1:
      return std::int16_t{static_cast<signed char>(V_I1(&value))};
    case VT_UI1:
      return std::int16_t{V_UI1(&value)};
    case VT_I2:
      return std::int16_t{V_I2(&value)};
    case VT_I4:
    case VT_INT:
      return static_cast<std::int32_t>(V_I4(&value));
    case VT_R4:
      return V_R4(&value);
    case VT_R8:
      return V_R8(&value);
    case VT_BSTR:
      return TextOf(V_BSTR(&value));
    case VT_UI2:
    case VT_UI4:
    case VT_UINT:
    case VT_I8:
    case VT_UI8:
    case VT_CY:
    case VT_DATE:
    case VT_DECIMAL:
      return ReadNumber(value);
    default:
      return ObjectRef();
  }
}

Variant ReadObject(const VARIANT& value) {
  if (!IsObject(value)) ThrowTypeMismatch();
  ObjectRef object = MakeHostObject(V_UNKNOWN(&value));
  if (object == nullptr && V_UNKNOWN(&value) != nullptr) ThrowTypeMismatch();
  return object;
}

// `value` in the kind that the variable has, or in its own if the variable may change its kind.
VARIANT InKindOfVariable(const VARIANT& value, const VARIANT& variable, LCID locale) {
  OwnedValue converted;
  Convert(value, V_VT(&variable), locale, converted);
  return converted.Release();
}

// --- A VARIANT of a value in its own type

VARIANT OfKind(VARTYPE kind) {
  VARIANT made;
  VariantInit(&made);
  V_VT(&made) = kind;
  return made;
}

VARIANT Made(NullMarker) {
  return OfKind(VT_NULL);
}
VARIANT Made(bool value) {
  VARIANT made = OfKind(VT_BOOL);
  V_BOOL(&made) = value ? VARIANT_TRUE : VARIANT_FALSE;
  return made;
}
VARIANT Made(std::int16_t value) {
  VARIANT made = OfKind(VT_I2);
  V_I2(&made) = value;
  return made;
}
VARIANT Made(std::int32_t value) {
  VARIANT made = OfKind(VT_I4);
  V_I4(&made) = value;
  return made;
}
VARIANT Made(float value) {
  VARIANT made = OfKind(VT_R4);
  V_R4(&made) = value;
  return made;
}
VARIANT Made(double value) {
  VARIANT made = OfKind(VT_R8);
  V_R8(&made) = value;
  return made;
}
VARIANT Made(const std::string& value) {
  VARIANT made = OfKind(VT_BSTR);
  V_BSTR(&made) = MakeBstr(value);
  return made;
}
template <typename Other>
VARIANT Made(const Other&) {
  return OfKind(VT_EMPTY);
}

bool KeepsItsKind(const VARIANT& variable) {
  const VARTYPE kind = V_VT(&variable);
  return kind != VT_EMPTY && kind != VT_NULL && kind != VT_ERROR && !IsObject(variable) &&
         (kind & VT_ARRAY) == 0;
}

}  // namespace

VARIANT OwnedValue::Release() {
  const VARIANT released = value_;
  VariantInit(&value_);
  return released;
}

std::string TextOf(BSTR text) {
  return text == nullptr ? std::string() : FromWide({text, SysStringLen(text)});
}

BSTR MakeBstr(const std::string& text) {
  const std::wstring wide = ToWide(text);
  BSTR made = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  if (made == nullptr) ThrowOutOfMemory();
  return made;
}

VARTYPE VartypeOf(ValueKind kind) {
  switch (kind) {
    case ValueKind::Boolean:
      return VT_BOOL;
    case ValueKind::Integer:
      return VT_I2;
    case ValueKind::Long:
      return VT_I4;
    case ValueKind::Single:
      return VT_R4;
    case ValueKind::Double:
      return VT_R8;
    case ValueKind::String:
      return VT_BSTR;
    case ValueKind::Variant:
      return VT_VARIANT;
    case ValueKind::Object:
      return VT_DISPATCH;
    case ValueKind::IntegerArray:
      return VT_ARRAY | VT_I2;
    case ValueKind::SingleArray:
      return VT_ARRAY | VT_R4;
    case ValueKind::StringArray:
      return VT_ARRAY | VT_BSTR;
    case ValueKind::Nothing:
      break;
  }
  return VT_EMPTY;
}

VARIANT& VariableOf(VARIANT& given) {
  return V_VT(&given) == (VT_BYREF | VT_VARIANT) ? *V_VARIANTREF(&given) : given;
}

VARIANT Dereferenced(const VARIANT& given) {
  const VARIANT& value = V_VT(&given) == (VT_BYREF | VT_VARIANT) ? *V_VARIANTREF(&given) : given;
  if ((V_VT(&value) & VT_BYREF) == 0) return value;
  VARIANT flat;
  VariantInit(&flat);
  const auto kind = static_cast<VARTYPE>(V_VT(&value) & ~VT_BYREF);
  if (kind == VT_DECIMAL) {
    V_DECIMAL(&flat) = *V_DECIMALREF(&value);
  } else {
    std::memcpy(&V_NONE(&flat), V_BYREF(&value), SizeOfKind(kind));
  }
  V_VT(&flat) = kind;
  return flat;
}

bool IsMissing(const VARIANT& given) {
  const VARIANT value = Dereferenced(given);
  return V_VT(&value) == VT_ERROR && V_ERROR(&value) == DISP_E_PARAMNOTFOUND;
}

Variant ReadValue(const VARIANT& given, ValueKind wanted, LCID locale) {
  if (wanted == ValueKind::Variant) return ReadAnyValue(given);
  const VARIANT value = Dereferenced(given);
  if (wanted == ValueKind::Object) return ReadObject(value);
  const VARTYPE kind = VartypeOf(wanted);
  if ((kind & VT_ARRAY) != 0) return ReadArray(value, wanted, locale);
  if (V_VT(&value) == kind) return ReadPlainValue(value);
  OwnedValue behind;
  OwnedValue converted;
  Convert(ValueBehindObjects(value, behind), kind, locale, converted);
  return ReadPlainValue(converted.Get());
}

Variant ReadAnyValue(const VARIANT& given) {
  const VARIANT value = Dereferenced(given);
  if (IsMissing(value)) return Missing;
  if (IsObject(value)) return ReadAnyObject(value);
  if ((V_VT(&value) & VT_ARRAY) != 0) return ReadArrayOfAnyKind(value);
  return ReadPlainValue(value);
}

VARIANT MakeVariant(const Variant& value) {
  return value.Visit([](const auto& held) { return Made(held); });
}

void PutIntoVariable(VARIANT& given, const Variant& value, LCID locale) {
  if ((V_VT(&given) & VT_BYREF) == 0) return;
  OwnedValue made;
  *made.Address() = MakeVariant(value);
  VARIANT& variable = VariableOf(given);
  if ((V_VT(&variable) & VT_BYREF) != 0) {  // of one kind for good
    VARIANT held = Dereferenced(variable);
    const VARIANT fresh = InKindOfVariable(made.Get(), held, locale);
    if (V_VT(&held) == VT_DECIMAL) {
      *V_DECIMALREF(&variable) = V_DECIMAL(&fresh);
    } else {
      std::memcpy(V_BYREF(&variable), &V_NONE(&fresh), SizeOfKind(V_VT(&held)));
    }
    VariantClear(&held);
    return;
  }
  VARIANT fresh;
  try {
    fresh =
        KeepsItsKind(variable) ? InKindOfVariable(made.Get(), variable, locale) : made.Release();
  } catch (const Error&) {
    fresh = made.Release();
  }
  VariantClear(&variable);
  variable = fresh;
}

void RaiseConversionError(HRESULT failure) {
  if (failure == DISP_E_OVERFLOW) ThrowOverflow();
  if (failure == E_OUTOFMEMORY) ThrowOutOfMemory();
  ThrowTypeMismatch();
}

}  // namespace pagivo::automation
