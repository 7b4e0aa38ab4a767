#include "automation/print_object.h"

#include <wrl/client.h>

#include "automation/dispatch.h"
#include "automation/error_information.h"
#include "automation/identities.h"
#include "automation/server_life.h"
#include "automation/type_information.h"

namespace pagivo::automation {
namespace {

// --- The functions of IDispatch in the vtable

HRESULT STDMETHODCALLTYPE DualQueryInterface(DualInterface* self, REFIID id,
                                             void** found) noexcept {
  return self->object->QueryInterface(id, found);
}

ULONG STDMETHODCALLTYPE DualAddRef(DualInterface* self) noexcept {
  return self->object->AddRef();
}

ULONG STDMETHODCALLTYPE DualRelease(DualInterface* self) noexcept {
  return self->object->Release();
}

HRESULT STDMETHODCALLTYPE DualGetTypeInfoCount(DualInterface*, UINT* count) noexcept {
  if (count == nullptr) return E_POINTER;
  *count = 1;
  return S_OK;
}

HRESULT STDMETHODCALLTYPE DualGetTypeInfo(DualInterface*, UINT index, LCID,
                                          ITypeInfo** information) noexcept {
  if (information == nullptr) return E_POINTER;
  *information = nullptr;
  return index == 0 ? FindTypeInfo(kInterfaceGuid, information) : DISP_E_BADINDEX;
}

HRESULT STDMETHODCALLTYPE DualGetIDsOfNames(DualInterface*, REFIID, LPOLESTR* names, UINT count,
                                            LCID, DISPID* ids) noexcept {
  return FindDispatchIds(names, count, ids);
}

HRESULT STDMETHODCALLTYPE DualInvoke(DualInterface* self, DISPID method, REFIID id, LCID locale,
                                     WORD flags, DISPPARAMS* parameters, VARIANT* result,
                                     EXCEPINFO* exception, UINT*) noexcept {
  if (id != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  return self->object->Invoke(method, flags, locale, parameters, result, exception);
}

template <typename Function>
const void* AddressOf(Function function) {
  return reinterpret_cast<const void*>(function);
}

const void* const* DualVtable() {
  static const Vtable vtable =
      MakeVtable({AddressOf(&DualQueryInterface), AddressOf(&DualAddRef), AddressOf(&DualRelease),
                  AddressOf(&DualGetTypeInfoCount), AddressOf(&DualGetTypeInfo),
                  AddressOf(&DualGetIDsOfNames), AddressOf(&DualInvoke)},
                 std::make_index_sequence<method_table::kRows.size()>());
  return vtable.data();
}

}  // namespace

HRESULT CallFromSlot(const DualInterface& self, const Member<PgPrint>& method,
                     const PlacedArguments& arguments, VARIANT* result) noexcept {
  return self.object->Call(method, arguments, result);
}

PrintObject::PrintObject() : dual_{DualVtable(), this} {}

PrintObject::~PrintObject() {
  RemoveObject();
}

HRESULT PrintObject::Create(IClassFactory& factory, REFIID interfaceId, void** made) noexcept {
  if (!AddObject(factory)) return CreateAtHome(factory, interfaceId, made);
  Microsoft::WRL::ComPtr<ISupportErrorInfo> object;
  // Attach of mingw-w64's ComPtr counts a reference more.
  const HRESULT result =
      ReportingStatus([&] { *object.GetAddressOf() = new PrintObject; }, LeaveError);
  if (FAILED(result)) {
    RemoveObject();
    return result;
  }
  return object.CopyTo(interfaceId, made);
}

HRESULT PrintObject::QueryInterface(REFIID id, void** found) noexcept {
  if (found == nullptr) return E_POINTER;
  *found = nullptr;
  if (id == IID_IUnknown || id == IID_IDispatch || id == kInterfaceGuid) {
    *found = &dual_;
  } else if (id == IID_ISupportErrorInfo) {
    *found = static_cast<ISupportErrorInfo*>(this);
  } else if (id == IID_IProvideClassInfo) {
    *found = static_cast<IProvideClassInfo*>(this);
  } else {
    return E_NOINTERFACE;
  }
  AddRef();
  return S_OK;
}

ULONG PrintObject::AddRef() noexcept {
  return static_cast<ULONG>(InterlockedIncrement(&references_));
}

ULONG PrintObject::Release() noexcept {
  const LONG left = InterlockedDecrement(&references_);
  if (left == 0) delete this;
  return static_cast<ULONG>(left);
}

HRESULT PrintObject::InterfaceSupportsErrorInfo(REFIID id) noexcept {
  return id == kInterfaceGuid ? S_OK : S_FALSE;
}

HRESULT PrintObject::GetClassInfo(ITypeInfo** information) noexcept {
  return information == nullptr ? E_POINTER : FindTypeInfo(kClassGuid, information);
}

HRESULT PrintObject::Call(const Member<PgPrint>& method, const PlacedArguments& arguments,
                          VARIANT* result) noexcept {
  const Microsoft::WRL::ComPtr<ISupportErrorInfo> keep(this);
  StayForGood();
  return ReportingStatus(
      [&] { CallMethod(print_, method, arguments, result, LOCALE_USER_DEFAULT); }, LeaveError);
}

HRESULT PrintObject::Invoke(DISPID method, WORD flags, LCID locale, DISPPARAMS* parameters,
                            VARIANT* result, EXCEPINFO* exception) noexcept {
  const Microsoft::WRL::ComPtr<ISupportErrorInfo> keep(this);
  StayForGood();
  return InvokeByDispatchId(print_, method, flags, locale, parameters, result, exception);
}

}  // namespace pagivo::automation
