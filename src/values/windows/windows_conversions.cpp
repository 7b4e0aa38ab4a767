#include <windows.h>
// After the header that it needs.
#include <oleauto.h>

#include <new>

#include "pagivo/error.h"
#include "system/regional_settings.h"
#include "system/windows/wide_text.h"
#include "values/conversions.h"
#include "values/text_conversions.h"

namespace pagivo {
namespace {

[[noreturn]] void Raise(HRESULT failure) {
  if (failure == E_OUTOFMEMORY) throw std::bad_alloc();
  if (failure == DISP_E_OVERFLOW) ThrowOverflow();
  ThrowTypeMismatch();
}

// What one of the system's conversions makes of a text.
template <typename Value, typename Text>
Value Converted(const std::string& text, HRESULT(WINAPI* convert)(Text, LCID, ULONG, Value*)) {
  std::wstring wide = ToWide(text);
  Value value{};
  const HRESULT result = convert(wide.data(), CurrentRegionalSettings().locale, 0, &value);
  if (FAILED(result)) Raise(result);
  return value;
}

}  // namespace

bool BooleanIn(const std::string& text) {
  return Converted(text, VarBoolFromStr) != VARIANT_FALSE;
}

std::int16_t IntegerIn(const std::string& text) {
  return Converted(text, VarI2FromStr);
}

std::int32_t LongIn(const std::string& text) {
  return Converted(text, VarI4FromStr);
}

float SingleIn(const std::string& text) {
  return Converted(text, VarR4FromStr);
}

double DoubleIn(const std::string& text) {
  return Converted(text, VarR8FromStr);
}

}  // namespace pagivo
