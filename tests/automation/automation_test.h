// What the tests of the automation server share: the server registered, values as hosts pass them,
// and calls by name.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <oaidl.h>
#include <oleauto.h>
#include <wrl/client.h>

#include <string>
#include <utility>
#include <vector>

#include "pagivo_automation.h"

namespace pagivo::automation::testing {

using Microsoft::WRL::ComPtr;

// The server's file, as the build has made it.
std::wstring ServerFile();

// A function that a loaded server exports.
template <typename Function>
Function* Exported(HMODULE server, const char* name) {
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(server, name)));
}
using RegisterFunction = HRESULT WINAPI();
using InstallFunction = HRESULT WINAPI(BOOL, LPCWSTR);

// A value that a host passes, freed with its owner.
class Value {
 public:
  Value() { VariantInit(&value_); }
  Value(int value) : Value() { Set(VT_I4) = value; }
  Value(bool value) : Value() {
    V_VT(&value_) = VT_BOOL;
    V_BOOL(&value_) = value ? VARIANT_TRUE : VARIANT_FALSE;
  }
  Value(double value) : Value() {
    V_VT(&value_) = VT_R8;
    V_R8(&value_) = value;
  }
  Value(const wchar_t* text) : Value() {
    V_VT(&value_) = VT_BSTR;
    V_BSTR(&value_) = SysAllocString(text);
  }
  Value(IUnknown* object) : Value() {
    V_VT(&value_) = VT_UNKNOWN;
    V_UNKNOWN(&value_) = object;
    if (object != nullptr) object->AddRef();
  }
  Value(const Value& other) : Value() { other.CopyTo(&value_); }
  Value& operator=(const Value& other) {
    other.CopyTo(&value_);  // which frees what was there
    return *this;
  }
  ~Value() { VariantClear(&value_); }

  static Value Missing() {
    Value value;
    value.Set(VT_ERROR) = DISP_E_PARAMNOTFOUND;
    return value;
  }
  // The value in another kind, e.g. a currency or a date.
  Value As(VARTYPE kind) const;

  HRESULT CopyTo(VARIANT* target) const {
    VARIANT source = value_;  // the system reads it only
    return VariantCopy(target, &source);
  }
  VARIANT* Address() { return &value_; }
  const VARIANT& Get() const { return value_; }
  VARTYPE Kind() const { return V_VT(&value_); }
  double Number() const;
  std::wstring Text() const;

 private:
  LONG& Set(VARTYPE kind) {
    V_VT(&value_) = kind;
    return V_I4(&value_);
  }

  VARIANT value_;
};

// A host's variable, passed by reference as scripts do.
VARIANT Reference(Value& variable);

// What becomes of a call by name.
struct Outcome {
  HRESULT status = E_FAIL;
  HRESULT code = S_OK;  // of the exception
  std::wstring description;
  std::wstring source;
  Value result;
};

// An argument with its name.
using Named = std::pair<const wchar_t*, Value>;

Outcome Call(IDispatch& object, const wchar_t* method, std::vector<VARIANT> arguments,
             std::vector<VARIANT> named = {}, std::vector<DISPID> places = {});
Outcome CallWith(IDispatch& object, const wchar_t* method, const std::vector<Value>& arguments);
// With arguments by name alone.
Outcome CallNamed(IDispatch& object, const wchar_t* method, const std::vector<Named>& arguments);

// A test with one object, of a document that was begun.
class AutomationTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  Outcome Print(const wchar_t* method, const std::vector<Value>& arguments = {}) {
    return CallWith(*print_.Get(), method, arguments);
  }

  ComPtr<_PgPrint> print_;
};

// The status of an error by which hosts of the Basic family know its number.
constexpr HRESULT HostError(int number) {
  return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number);
}

}  // namespace pagivo::automation::testing
