// What hosts of the automation server wait for, a measurement a process:
//
//   pagivo_server_bench start SERVER    does nothing but start: what the others cost besides
//   pagivo_server_bench load SERVER     loads the server's file and has it make an object
//   pagivo_server_bench calls SERVER    calls methods through the vtable and by dispatch id
//
// It prints milliseconds, or lines with a name and nanoseconds a call. measure.py runs them.
#include <oaidl.h>
#include <oleauto.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <string_view>

#include "pagivo_automation.h"

namespace pagivo::automation::bench {
namespace {

double Milliseconds() {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double, std::milli>(now).count();
}

void Require(HRESULT result, const char* step) {
  if (FAILED(result)) throw std::runtime_error(std::string(step) + " fails");
}

// The system's way from a class to an object, without the registry.
_PgPrint* MakePrint(const char* server) {
  const HMODULE module = LoadLibraryA(server);
  if (module == nullptr) throw std::runtime_error(std::string(server) + " cannot be loaded");
  using Get = HRESULT WINAPI(REFCLSID, REFIID, void**);
  auto* const get =
      reinterpret_cast<Get*>(reinterpret_cast<void*>(GetProcAddress(module, "DllGetClassObject")));
  IClassFactory* factory = nullptr;
  _PgPrint* print = nullptr;
  Require(get(CLSID_PgPrint, IID_PPV_ARGS(&factory)), "DllGetClassObject");
  Require(factory->CreateInstance(nullptr, IID__PgPrint, reinterpret_cast<void**>(&print)),
          "CreateInstance");
  factory->Release();
  return print;
}

// Calls in turn, of which the fastest row counts.
template <typename Call>
void Measure(const char* name, Call call) {
  constexpr int kRows = 20;
  constexpr int kCallsOfRow = 5000;
  constexpr double kNanoseconds = 1e6;
  double least = 1e9;
  for (int row = 0; row < kRows; ++row) {
    const double begin = Milliseconds();
    for (int i = 0; i < kCallsOfRow; ++i) Require(call(), name);
    least = std::min(least, Milliseconds() - begin);
  }
  std::printf("%s %.0f\n", name, least * kNanoseconds / kCallsOfRow);
}

// --- The calls: one that only answers, and the one that documents consist of ------------------

DISPID IdOf(_PgPrint& print, const wchar_t* method) {
  LPOLESTR name = const_cast<wchar_t*>(method);
  DISPID id = DISPID_UNKNOWN;
  Require(print.GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id), "GetIDsOfNames");
  return id;
}

HRESULT Invoke(_PgPrint& print, DISPID method, VARIANT* arguments, UINT count, VARIANT* result) {
  DISPPARAMS parameters{arguments, nullptr, count, 0};
  return print.Invoke(method, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, result,
                      nullptr, nullptr);
}

VARIANT Number(double value) {
  VARIANT number;
  V_VT(&number) = VT_R8;
  V_R8(&number) = value;
  return number;
}

VARIANT Missing() {
  VARIANT missing;
  V_VT(&missing) = VT_ERROR;
  V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
  return missing;
}

void MeasureCalls(_PgPrint& print) {
  Require(print.VsPPInit(), "VsPPInit");
  const DISPID getPageCount = IdOf(print, L"VsPPGetPageCount");
  const DISPID printText = IdOf(print, L"VsPPPrint");
  SHORT pages = 0;
  VARIANT result;
  VariantInit(&result);
  Measure("vtable_answer", [&] { return print.VsPPGetPageCount(&pages); });
  Measure("dispatch_answer", [&] { return Invoke(print, getPageCount, nullptr, 0, &result); });

  VARIANT text;
  V_VT(&text) = VT_BSTR;
  V_BSTR(&text) = SysAllocString(L"Hoogte van de ligger");
  VARIANT at = Number(1440);
  VARIANT missing = Missing();
  VARIANT variable;
  V_VT(&variable) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&variable) = &text;
  VARIANT lastFirst[] = {at, at, variable};
  // Each measurement has a document of its own.
  Measure("vtable_print", [&] {
    return print.VsPPPrint(&V_BSTR(&text), &at, &at, &missing, &missing, &missing, &missing,
                           &missing);
  });
  Require(print.VsPPInit(), "VsPPInit");
  Measure("dispatch_print", [&] { return Invoke(print, printText, lastFirst, 3, nullptr); });
  VariantClear(&text);
  Require(print.VsPPEinde(), "VsPPEinde");
}

int Run(std::string_view what, const char* server) {
  Require(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), "CoInitializeEx");
  if (what == "start") return 0;
  const double begin = Milliseconds();
  _PgPrint* print = MakePrint(server);
  if (what == "load") std::printf("%.2f\n", Milliseconds() - begin);
  if (what == "calls") MeasureCalls(*print);
  print->Release();
  CoUninitialize();
  return 0;
}

}  // namespace
}  // namespace pagivo::automation::bench

int main(int count, char** arguments) try {
  if (count == 3) return pagivo::automation::bench::Run(arguments[1], arguments[2]);
  throw std::runtime_error("expects what to measure and the server's file");
} catch (const std::exception& failure) {
  std::fprintf(stderr, "pagivo_server_bench: %s\n", failure.what());
  return 1;
}
