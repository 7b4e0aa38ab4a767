#include "automation/type_information.h"

#include <oleauto.h>
#include <wrl/client.h>

#include "automation/error_information.h"

// The linker puts this symbol where the library begins in memory.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace pagivo::automation {

std::wstring ServerPath() {
  const auto module = reinterpret_cast<HINSTANCE>(&__ImageBase);
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(2 * path.size());  // the path was cut off
  }
}

HRESULT FindTypeInfo(const GUID& id, ITypeInfo** information) noexcept {
  *information = nullptr;
  HRESULT found = TYPE_E_CANTLOADLIBRARY;
  const HRESULT looked = ReportingStatus(
      [&] {
        Microsoft::WRL::ComPtr<ITypeLib> library;
        found = LoadTypeLibEx(ServerPath().c_str(), REGKIND_NONE, &library);
        if (SUCCEEDED(found)) found = library->GetTypeInfoOfGuid(id, information);
      },
      LeaveError);
  return FAILED(looked) ? looked : found;
}

}  // namespace pagivo::automation
