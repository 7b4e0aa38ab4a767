#include "automation_test.h"

#include <algorithm>

namespace pagivo::automation::testing {
namespace {

// The thread has its apartment and the server its registration as long as the program runs.
class RegisteredServer : public ::testing::Environment {
 public:
  void SetUp() override {
    ASSERT_HRESULT_SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    server_ = LoadLibraryW(ServerFile().c_str());
    ASSERT_NE(server_, nullptr);
    ASSERT_EQ(Exported<RegisterFunction>(server_, "DllRegisterServer")(), S_OK);
    OfferAnObject();
  }
  void TearDown() override {
    EXPECT_EQ(Exported<RegisterFunction>(server_, "DllUnregisterServer")(), S_OK);
  }

 private:
  // To other apartments. Wine's listener for their calls goes when nothing is offered any more, and
  // may miss that something is offered again meanwhile.
  void OfferAnObject() {
    ComPtr<ICreateErrorInfo> object;
    ASSERT_EQ(CreateErrorInfo(&object), S_OK);
    ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(IID_IUnknown, object.Get(), &offered_), S_OK);
  }

  HMODULE server_ = nullptr;
  ComPtr<IStream> offered_;
};

const auto* const kEnvironment = ::testing::AddGlobalTestEnvironment(new RegisteredServer);

std::wstring TakeText(BSTR text) {
  std::wstring taken(text == nullptr ? L"" : text);
  SysFreeString(text);
  return taken;
}

}  // namespace

std::wstring ServerFile() {
  const std::string path = PAGIVO_SERVER;
  std::wstring file(path.begin(), path.end());
  std::ranges::replace(file, L'/', L'\\');
  return file.front() == L'\\' ? L"Z:" + file : file;
}

Value Value::As(VARTYPE kind) const {
  Value converted;
  VARIANT source = value_;
  EXPECT_HRESULT_SUCCEEDED(VariantChangeType(converted.Address(), &source, 0, kind));
  return converted;
}

double Value::Number() const {
  return V_R8(&As(VT_R8).Get());
}

std::wstring Value::Text() const {
  const Value text = As(VT_BSTR);
  return V_BSTR(&text.Get()) == nullptr ? L"" : V_BSTR(&text.Get());
}

VARIANT Reference(Value& variable) {
  VARIANT reference;
  V_VT(&reference) = VT_BYREF | VT_VARIANT;
  V_VARIANTREF(&reference) = variable.Address();
  return reference;
}

Outcome Call(IDispatch& object, const wchar_t* method, std::vector<VARIANT> arguments,
             std::vector<VARIANT> named, std::vector<DISPID> places) {
  Outcome outcome;
  LPOLESTR name = const_cast<wchar_t*>(method);
  DISPID id = DISPID_UNKNOWN;
  outcome.status = object.GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(outcome.status)) return outcome;
  std::ranges::reverse(arguments);
  named.insert(named.end(), arguments.begin(), arguments.end());
  DISPPARAMS parameters{named.data(), places.data(), static_cast<UINT>(named.size()),
                        static_cast<UINT>(places.size())};
  EXCEPINFO exception{};
  outcome.status = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                 outcome.result.Address(), &exception, nullptr);
  outcome.code = exception.scode;
  outcome.description = TakeText(exception.bstrDescription);
  outcome.source = TakeText(exception.bstrSource);
  return outcome;
}

Outcome CallWith(IDispatch& object, const wchar_t* method, const std::vector<Value>& arguments) {
  std::vector<VARIANT> passed;
  for (const Value& argument : arguments) passed.push_back(argument.Get());
  return Call(object, method, passed);
}

Outcome CallNamed(IDispatch& object, const wchar_t* method, const std::vector<Named>& arguments) {
  std::vector<LPOLESTR> names{const_cast<wchar_t*>(method)};
  std::vector<VARIANT> passed;
  for (const auto& [name, value] : arguments) {
    names.push_back(const_cast<wchar_t*>(name));
    passed.push_back(value.Get());
  }
  std::vector<DISPID> ids(names.size());
  Outcome outcome;
  outcome.status = object.GetIDsOfNames(IID_NULL, names.data(), static_cast<UINT>(names.size()),
                                        LOCALE_USER_DEFAULT, ids.data());
  if (FAILED(outcome.status)) return outcome;
  return Call(object, method, {}, passed, {ids.begin() + 1, ids.end()});
}

void AutomationTest::SetUp() {
  ASSERT_HRESULT_SUCCEEDED(
      CoCreateInstance(CLSID_PgPrint, nullptr, CLSCTX_INPROC_SERVER, IID__PgPrint, &print_));
  ASSERT_HRESULT_SUCCEEDED(print_->VsPPInit());
}

void AutomationTest::TearDown() {
  if (print_ != nullptr) print_->VsPPEinde();
}

}  // namespace pagivo::automation::testing
