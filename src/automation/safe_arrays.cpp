#include "automation/safe_arrays.h"

#include <oleauto.h>

#include <cstring>
#include <limits>

#include "automation/automation_values.h"

namespace pagivo::automation {
namespace {

// An error that only arrays of automation have.
constexpr auto kArrayIsLocked = static_cast<ErrorNumber>(10);

// The memory of an array's elements as long as it lives.
class ElementAccess {
 public:
  explicit ElementAccess(SAFEARRAY* array) : array_(array) {
    if (FAILED(SafeArrayAccessData(array_, &data_))) ThrowTypeMismatch();
  }
  ~ElementAccess() { SafeArrayUnaccessData(array_); }
  ElementAccess(const ElementAccess&) = delete;
  ElementAccess& operator=(const ElementAccess&) = delete;

  template <typename Element>
  Element* As() const {
    return static_cast<Element*>(data_);
  }

 private:
  SAFEARRAY* array_;
  void* data_ = nullptr;
};

// One element as a value that owns nothing.
VARIANT ElementAt(SAFEARRAY* array, const ElementAccess& elements, VARTYPE kind, ULONG index) {
  const auto* address =
      elements.As<const char>() + std::size_t{index} * SafeArrayGetElemsize(array);
  VARIANT element;
  VariantInit(&element);
  V_VT(&element) = static_cast<VARTYPE>(VT_BYREF | kind);
  V_BYREF(&element) = const_cast<char*>(address);
  return Dereferenced(element);
}

VARTYPE KindOfElements(SAFEARRAY* array) {
  VARTYPE kind = VT_EMPTY;
  if (FAILED(SafeArrayGetVartype(array, &kind))) ThrowTypeMismatch();
  return kind;
}

template <typename Element>
Variant ReadElements(SAFEARRAY* array, ValueKind elementKind, LCID locale) {
  auto result = std::make_shared<Array<Element>>();
  if (array == nullptr) return result;
  const VARTYPE kind = KindOfElements(array);
  if (SafeArrayGetDim(array) != 1 || kind == VT_RECORD) ThrowTypeMismatch();
  LONG lowerBound = 0;
  LONG upperBound = -1;
  SafeArrayGetLBound(array, 1, &lowerBound);
  SafeArrayGetUBound(array, 1, &upperBound);
  result->Redim(lowerBound, upperBound);
  const ElementAccess elements(array);
  for (std::int64_t i = lowerBound; i <= upperBound; ++i) {
    const VARIANT element = ElementAt(array, elements, kind, static_cast<ULONG>(i - lowerBound));
    (*result)(static_cast<std::int32_t>(i)) =
        BindingOf<Element>::Convert(ReadValue(element, elementKind, locale));
  }
  return result;
}

void PutElement(SHORT& element, std::int16_t value) {
  element = value;
}
void PutElement(FLOAT& element, float value) {
  element = value;
}
void PutElement(BSTR& element, const std::string& value) {
  element = MakeBstr(value);
}
template <typename Element>
void PutElement(VARIANT& element, const Element& value) {
  element = MakeVariant(value);
}

// An array that is freed unless it is handed over.
class OwnedArray {
 public:
  OwnedArray(VARTYPE kind, LONG lowerBound, ULONG count) {
    SAFEARRAYBOUND bound{count, lowerBound};
    array_ = SafeArrayCreate(kind, 1, &bound);
    if (array_ == nullptr) ThrowOutOfMemory();
  }
  ~OwnedArray() {
    if (array_ != nullptr) SafeArrayDestroy(array_);
  }
  OwnedArray(const OwnedArray&) = delete;
  OwnedArray& operator=(const OwnedArray&) = delete;

  SAFEARRAY* Get() const { return array_; }
  SAFEARRAY* Release() { return std::exchange(array_, nullptr); }

 private:
  SAFEARRAY* array_;
};

template <typename Stored, typename Element>
SAFEARRAY* MakeArray(const Array<Element>& values, VARTYPE kind) {
  const std::int64_t count = std::int64_t{values.UpperBound()} - values.LowerBound() + 1;
  OwnedArray made(kind, values.LowerBound(), static_cast<ULONG>(count));
  {
    const ElementAccess elements(made.Get());
    for (std::int64_t i = 0; i < count; ++i) {
      PutElement(elements.As<Stored>()[i],
                 values(static_cast<std::int32_t>(values.LowerBound() + i)));
    }
  }
  return made.Release();
}

// An array with elements of the kind that the variable takes: their own or Variants.
template <typename Stored, typename Element>
SAFEARRAY* MakeArrayOf(VARTYPE wanted, VARTYPE own, const Array<Element>& values) {
  if (wanted == own) return MakeArray<Stored>(values, own);
  if (wanted == VT_VARIANT) return MakeArray<VARIANT>(values, VT_VARIANT);
  ThrowTypeMismatch();
}

SAFEARRAY* MakeArrayOf(VARTYPE wanted, const Variant& array) {
  if (const auto* integers = array.GetIf<std::shared_ptr<Array<std::int16_t>>>()) {
    return MakeArrayOf<SHORT>(wanted, VT_I2, **integers);
  }
  if (const auto* singles = array.GetIf<std::shared_ptr<Array<float>>>()) {
    return MakeArrayOf<FLOAT>(wanted, VT_R4, **singles);
  }
  if (const auto* texts = array.GetIf<std::shared_ptr<Array<std::string>>>()) {
    return MakeArrayOf<BSTR>(wanted, VT_BSTR, **texts);
  }
  ThrowTypeMismatch();
}

VARTYPE OwnKindOf(const Variant& array) {
  switch (array.GetKind()) {
    case Variant::Kind::IntegerArray:
      return VT_I2;
    case Variant::Kind::SingleArray:
      return VT_R4;
    default:
      return VT_BSTR;
  }
}

// What kind of elements an array has that comes into a variable without a kind.
VARTYPE KindForVariable(const VARIANT& held, VARTYPE own) {
  const bool holdsOwnKind = V_VT(&held) == (VT_ARRAY | own) && V_ARRAY(&held) != nullptr;
  return holdsOwnKind ? own : VARTYPE{VT_VARIANT};
}

}  // namespace

Variant ReadArray(const VARIANT& value, ValueKind wanted, LCID locale) {
  const bool isArray = (V_VT(&value) & VT_ARRAY) != 0;
  if (!isArray && V_VT(&value) != VT_EMPTY) ThrowTypeMismatch();
  SAFEARRAY* array = isArray ? V_ARRAY(&value) : nullptr;
  switch (wanted) {
    case ValueKind::IntegerArray:
      return ReadElements<std::int16_t>(array, ValueKind::Integer, locale);
    case ValueKind::SingleArray:
      return ReadElements<float>(array, ValueKind::Single, locale);
    case ValueKind::StringArray:
      return ReadElements<std::string>(array, ValueKind::String, locale);
    default:
      ThrowTypeMismatch();
  }
}

Variant ReadArrayOfAnyKind(const VARIANT& value) {
  if (V_ARRAY(&value) != nullptr && SafeArrayGetDim(V_ARRAY(&value)) != 1) return ObjectRef();
  switch (V_VT(&value) & ~VT_ARRAY) {
    case VT_I2:
      return ReadArray(value, ValueKind::IntegerArray, LOCALE_USER_DEFAULT);
    case VT_R4:
      return ReadArray(value, ValueKind::SingleArray, LOCALE_USER_DEFAULT);
    case VT_BSTR:
      return ReadArray(value, ValueKind::StringArray, LOCALE_USER_DEFAULT);
    default:
      return ObjectRef();
  }
}

void RequireReplaceable(const VARIANT& given) {
  const VARIANT value = Dereferenced(given);
  if ((V_VT(&value) & VT_ARRAY) == 0 || V_ARRAY(&value) == nullptr) return;
  constexpr USHORT kFixed = FADF_AUTO | FADF_STATIC | FADF_EMBEDDED | FADF_FIXEDSIZE;
  const SAFEARRAY& array = *V_ARRAY(&value);
  if (array.cLocks == 0 && (array.fFeatures & kFixed) == 0) return;
  throw Error(kArrayIsLocked, "De matrix is vast of tijdelijk vergrendeld");
}

void PutArrayIntoVariable(VARIANT& given, const Variant& array) {
  if ((V_VT(&given) & VT_BYREF) == 0) return;
  VARIANT& variable = VariableOf(given);
  VARIANT held = Dereferenced(variable);
  if ((V_VT(&variable) & VT_BYREF) != 0) {  // of one kind for good
    SAFEARRAY* fresh = MakeArrayOf(static_cast<VARTYPE>(V_VT(&held) & ~VT_ARRAY), array);
    if (V_ARRAY(&held) != nullptr) SafeArrayDestroy(V_ARRAY(&held));
    *V_ARRAYREF(&variable) = fresh;
    return;
  }
  const VARTYPE kind = KindForVariable(held, OwnKindOf(array));
  SAFEARRAY* fresh = MakeArrayOf(kind, array);
  VariantClear(&variable);
  V_VT(&variable) = static_cast<VARTYPE>(VT_ARRAY | kind);
  V_ARRAY(&variable) = fresh;
}

}  // namespace pagivo::automation
