// The class factory, through which the system creates PgPrint objects.
#pragma once

#include <unknwn.h>

namespace pagivo::automation {

// The one factory of the class. It is no object of its own: references to it are locks of the
// server.
class ClassFactory final : public IClassFactory {
 public:
  STDMETHODIMP QueryInterface(REFIID interfaceId, void** found) noexcept override;
  STDMETHODIMP_(ULONG) AddRef() noexcept override;
  STDMETHODIMP_(ULONG) Release() noexcept override;
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID interfaceId, void** made) noexcept override;
  STDMETHODIMP LockServer(BOOL lock) noexcept override;
};

}  // namespace pagivo::automation
