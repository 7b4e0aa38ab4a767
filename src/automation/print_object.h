// The object that hosts create: a PgPrint behind the interfaces of automation.
#pragma once

#include <oaidl.h>
#include <ocidl.h>

#include "automation/dual_interface.h"
#include "pagivo/pg_print.h"

namespace pagivo::automation {

// Its main interface is _PgPrint; the two others tell that its errors have descriptions and which
// class it is of. It keeps itself while a method runs, for the host may let it go from an event
// loop under way.
class PrintObject final : public ISupportErrorInfo, public IProvideClassInfo {
 public:
  // Makes an object for the factory, where the others live, and gives one of its interfaces.
  static HRESULT Create(IClassFactory& factory, REFIID interfaceId, void** made) noexcept;

  STDMETHODIMP QueryInterface(REFIID interfaceId, void** found) noexcept override;
  STDMETHODIMP_(ULONG) AddRef() noexcept override;
  STDMETHODIMP_(ULONG) Release() noexcept override;
  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID interfaceId) noexcept override;
  STDMETHODIMP GetClassInfo(ITypeInfo** information) noexcept override;

  HRESULT Call(const Member<PgPrint>& method, const PlacedArguments& arguments,
               VARIANT* result) noexcept;
  HRESULT Invoke(DISPID method, WORD flags, LCID locale, DISPPARAMS* parameters, VARIANT* result,
                 EXCEPINFO* exception) noexcept;

 private:
  PrintObject();
  ~PrintObject();

  DualInterface dual_;
  LONG references_ = 1;
  PgPrint print_;
};

}  // namespace pagivo::automation
