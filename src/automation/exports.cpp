// The functions through which the system reaches the server.
#include <olectl.h>
#include <windows.h>

#include <string_view>

#include "automation/class_factory.h"
#include "automation/identities.h"
#include "automation/registry.h"
#include "automation/server_life.h"

using namespace pagivo::automation;

STDAPI DllGetClassObject(REFCLSID classId, REFIID interfaceId, void** found) {
  static ClassFactory factory;
  if (found == nullptr) return E_POINTER;
  *found = nullptr;
  return classId == kClassGuid ? factory.QueryInterface(interfaceId, found)
                               : CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
  return MayBeUnloaded() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
  return Register(Scope::Machine);
}

STDAPI DllUnregisterServer() {
  return Unregister(Scope::Machine);
}

// `regsvr32 /n /i:user pagivo.dll` registers for one user alone, and with /u takes that away again.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
  if (commandLine == nullptr || std::wstring_view(commandLine) != L"user") return E_INVALIDARG;
  return install != FALSE ? Register(Scope::User) : Unregister(Scope::User);
}
