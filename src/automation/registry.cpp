#include "automation/registry.h"

#include <olectl.h>

#include <string>
#include <vector>

#include "automation/error_information.h"
#include "automation/identities.h"
#include "automation/type_information.h"
#include "system/windows/wide_text.h"

namespace pagivo::automation {
namespace {

// The system's own marshaller, which passes calls between threads by the type library.
constexpr std::wstring_view kTypeLibraryMarshaller = L"{00020424-0000-0000-C000-000000000046}";
constexpr const wchar_t* kSystemName = kSystemKind == SYS_WIN64 ? L"win64" : L"win32";

struct Entry {
  std::wstring key;   // below the classes of the scope
  std::wstring name;  // empty for the key's own value
  std::wstring value;
};

// The keys that are ours, each with all that is below it.
struct Keys {
  std::wstring classKey = L"CLSID\\" + ToWide(kClassId);
  std::wstring interfaceKey = L"Interface\\" + ToWide(kInterfaceId);
  std::wstring programKey = ToWide(kProgramId);
  std::wstring library = L"TypeLib\\" + ToWide(kLibraryId);
  std::wstring version = library + L"\\" + ToWide(kLibraryVersion);
  std::wstring language = version + L"\\0";  // of every language
  std::wstring system = language + L"\\" + kSystemName;
};

std::vector<Entry> Entries() {
  const Keys keys;
  const std::wstring path = ServerPath();
  const std::wstring program = ToWide(kProgramId);
  const std::wstring library = ToWide(kLibraryId);
  const std::wstring version = ToWide(kLibraryVersion);
  return {
      {keys.classKey, L"", program},
      {keys.classKey + L"\\InprocServer32", L"", path},
      {keys.classKey + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
      {keys.classKey + L"\\ProgID", L"", program},
      {keys.classKey + L"\\Programmable", L"", L""},
      {keys.classKey + L"\\TypeLib", L"", library},
      {keys.classKey + L"\\Version", L"", version},
      {keys.programKey, L"", program},
      {keys.programKey + L"\\CLSID", L"", ToWide(kClassId)},
      {keys.interfaceKey, L"", ToWide(kInterfaceName)},
      {keys.interfaceKey + L"\\ProxyStubClsid32", L"", std::wstring(kTypeLibraryMarshaller)},
      {keys.interfaceKey + L"\\TypeLib", L"", library},
      {keys.interfaceKey + L"\\TypeLib", L"Version", version},
      {keys.version, L"", ToWide(kLibraryName)},
      {keys.version + L"\\FLAGS", L"", L"0"},
      {keys.system, L"", path},
      {keys.version + L"\\HELPDIR", L"", path.substr(0, path.find_last_of(L'\\'))},
  };
}

// A key of the registry that is closed with its owner.
class OpenKey {
 public:
  OpenKey(HKEY parent, const std::wstring& path, REGSAM access) {
    RegCreateKeyExW(parent, path.c_str(), 0, nullptr, 0, access, nullptr, &key_, nullptr);
  }
  ~OpenKey() {
    if (key_ != nullptr) RegCloseKey(key_);
  }
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;

  HKEY Get() const { return key_; }

 private:
  HKEY key_ = nullptr;
};

HKEY RootOf(Scope scope) {
  return scope == Scope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

// The key's path from the root of its scope.
std::wstring PathOf(const std::wstring& key) {
  return L"Software\\Classes\\" + key;
}

bool Put(Scope scope, const Entry& entry) {
  const OpenKey key(RootOf(scope), PathOf(entry.key), KEY_SET_VALUE);
  const auto size = static_cast<DWORD>((entry.value.size() + 1) * sizeof(wchar_t));
  return key.Get() != nullptr &&
         RegSetValueExW(key.Get(), entry.name.empty() ? nullptr : entry.name.c_str(), 0, REG_SZ,
                        reinterpret_cast<const BYTE*>(entry.value.c_str()), size) == ERROR_SUCCESS;
}

bool RemoveTree(Scope scope, const std::wstring& key) {
  const LSTATUS removed = RegDeleteTreeW(RootOf(scope), PathOf(key).c_str());
  return removed == ERROR_SUCCESS || removed == ERROR_FILE_NOT_FOUND;
}

bool HasKeysBelow(Scope scope, const std::wstring& key) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(RootOf(scope), PathOf(key).c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) {
    return false;
  }
  wchar_t name[MAX_PATH];
  DWORD length = MAX_PATH;
  const LSTATUS found = RegEnumKeyExW(opened, 0, name, &length, nullptr, nullptr, nullptr, nullptr);
  RegCloseKey(opened);
  return found == ERROR_SUCCESS;
}

bool RemoveAll(Scope scope) {
  const Keys keys;
  bool areRemoved = RemoveTree(scope, keys.classKey);
  areRemoved &= RemoveTree(scope, keys.interfaceKey);
  areRemoved &= RemoveTree(scope, keys.system);
  if (HasKeysBelow(scope, keys.language)) return areRemoved;
  areRemoved &= RemoveTree(scope, keys.library);
  areRemoved &= RemoveTree(scope, keys.programKey);
  return areRemoved;
}

}  // namespace

HRESULT Register(Scope scope) noexcept {
  bool isDone = true;
  const HRESULT done = ReportingStatus(
      [&] {
        for (const Entry& entry : Entries()) isDone = isDone && Put(scope, entry);
      },
      LeaveError);
  if (SUCCEEDED(done) && isDone) return S_OK;
  Unregister(scope);
  return FAILED(done) ? done : SELFREG_E_CLASS;
}

HRESULT Unregister(Scope scope) noexcept {
  bool isDone = false;
  const HRESULT done = ReportingStatus([&] { isDone = RemoveAll(scope); }, LeaveError);
  if (FAILED(done)) return done;
  return isDone ? S_OK : SELFREG_E_CLASS;
}

}  // namespace pagivo::automation
