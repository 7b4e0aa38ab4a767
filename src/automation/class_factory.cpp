#include "automation/class_factory.h"

#include "automation/print_object.h"
#include "automation/server_life.h"

namespace pagivo::automation {

HRESULT ClassFactory::QueryInterface(REFIID id, void** found) noexcept {
  if (found == nullptr) return E_POINTER;
  const bool isOffered = id == IID_IUnknown || id == IID_IClassFactory;
  *found = isOffered ? this : nullptr;
  if (!isOffered) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

// The factory is never destroyed, so any number that is not 0 will do for an answer.
ULONG ClassFactory::AddRef() noexcept {
  AddLock();
  return 2;
}

ULONG ClassFactory::Release() noexcept {
  RemoveLock();
  return 1;
}

HRESULT ClassFactory::CreateInstance(IUnknown* outer, REFIID id, void** made) noexcept {
  if (made == nullptr) return E_POINTER;
  *made = nullptr;
  return outer == nullptr ? PrintObject::Create(*this, id, made) : CLASS_E_NOAGGREGATION;
}

HRESULT ClassFactory::LockServer(BOOL lock) noexcept {
  lock != FALSE ? AddLock() : RemoveLock();
  return S_OK;
}

}  // namespace pagivo::automation
