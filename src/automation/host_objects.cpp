#include "automation/host_objects.h"

#include <wrl/client.h>

#include <utility>

#include "automation/automation_values.h"
#include "system/windows/wide_text.h"
#include "values/late_binding.h"

namespace pagivo::automation {
namespace {

using Microsoft::WRL::ComPtr;

// The description that an object gave of its failure, and frees the rest of what it gave.
std::string TakeDescription(EXCEPINFO& exception) {
  if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
  const std::string description = TextOf(exception.bstrDescription);
  SysFreeString(exception.bstrSource);
  SysFreeString(exception.bstrDescription);
  SysFreeString(exception.bstrHelpFile);
  return description;
}

HRESULT ReadProperty(IDispatch& object, DISPID property, OwnedValue& value,
                     std::string* description) {
  DISPPARAMS none{};
  EXCEPINFO exception{};
  const HRESULT result =
      object.Invoke(property, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET | DISPATCH_METHOD,
                    &none, value.Address(), &exception, nullptr);
  if (result == DISP_E_EXCEPTION) {
    std::string text = TakeDescription(exception);
    if (description != nullptr) *description = std::move(text);
  }
  return result;
}

ComPtr<IDispatch> DispatchOf(IUnknown* object) {
  ComPtr<IDispatch> dispatch;
  if (object != nullptr) object->QueryInterface(IID_PPV_ARGS(&dispatch));
  return dispatch;
}

class HostObject final : public Object {
 public:
  explicit HostObject(ComPtr<IDispatch> object) : object_(std::move(object)) {}

  // The component may have moved to another thread since, on which the object is not the host's.
  Variant GetMember(std::string_view name) override {
    if (GetCurrentThreadId() != thread_) ThrowUnknownMember(name);
    std::wstring wide = ToWide(name);
    LPOLESTR names = wide.data();
    DISPID member = DISPID_UNKNOWN;
    const HRESULT found = object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &member);
    if (FAILED(found)) ThrowUnknownMember(name);
    OwnedValue value;
    std::string description;
    const HRESULT read = ReadProperty(*object_.Get(), member, value, &description);
    if (read == DISP_E_MEMBERNOTFOUND) ThrowUnknownMember(name);
    if (FAILED(read)) {
      throw Error(ErrorNumber::InvalidArgument, std::string(name) + ": " + description);
    }
    return ReadAnyValue(value.Get());
  }

 private:
  ComPtr<IDispatch> object_;
  DWORD thread_ = GetCurrentThreadId();
};

}  // namespace

ObjectRef MakeHostObject(IUnknown* object) {
  ComPtr<IDispatch> dispatch = DispatchOf(object);
  return dispatch == nullptr ? nullptr : std::make_shared<HostObject>(std::move(dispatch));
}

bool ReadDefaultProperty(IUnknown* object, OwnedValue& value) {
  const ComPtr<IDispatch> dispatch = DispatchOf(object);
  return dispatch != nullptr &&
         SUCCEEDED(ReadProperty(*dispatch.Get(), DISPID_VALUE, value, nullptr));
}

}  // namespace pagivo::automation
