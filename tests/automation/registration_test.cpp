// What registering puts into the registry, and that taking it away leaves nothing.
#include "automation_test.h"

namespace pagivo::automation::testing {
namespace {

// Everything below a key, a line a value.
std::wstring Export(HKEY root, const std::wstring& path) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return {};
  std::wstring text = path + L"\n";
  wchar_t name[512];
  BYTE data[4096];
  for (DWORD i = 0;; ++i) {
    DWORD nameLength = 512;
    DWORD size = sizeof data;
    DWORD type = 0;
    if (RegEnumValueW(key, i, name, &nameLength, nullptr, &type, data, &size) != ERROR_SUCCESS) {
      break;
    }
    text += path + L" " + name + L"=";
    if (type == REG_SZ) text += reinterpret_cast<const wchar_t*>(data);
    text += L"\n";
  }
  for (DWORD i = 0;; ++i) {
    DWORD nameLength = 512;
    if (RegEnumKeyExW(key, i, name, &nameLength, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      break;
    }
    text += Export(root, path + L"\\" + name);
  }
  RegCloseKey(key);
  return text;
}

std::wstring ValueOf(HKEY root, const std::wstring& key, const wchar_t* name = nullptr) {
  wchar_t value[1024] = L"";
  DWORD size = sizeof value;
  RegGetValueW(root, (L"Software\\Classes\\" + key).c_str(), name, RRF_RT_REG_SZ, nullptr, value,
               &size);
  return value;
}

const std::wstring kClassKey = L"CLSID\\{AD670047-A539-4BCE-A620-76CA332EED6E}";
const std::wstring kInterfaceKey = L"Interface\\{12C714E4-F346-42A7-8A61-9380F1DCFCAF}";
const std::wstring kLibrary = L"{A0D9E4BB-2552-4DF8-81DD-8F5A40269736}";

class Registration : public ::testing::Test {
 protected:
  void SetUp() override { server_ = LoadLibraryW(ServerFile().c_str()); }
  void TearDown() override { FreeLibrary(server_); }

  HRESULT Run(const char* function) { return Exported<RegisterFunction>(server_, function)(); }
  HRESULT Install(BOOL install, LPCWSTR commandLine) {
    return Exported<InstallFunction>(server_, "DllInstall")(install, commandLine);
  }

  HMODULE server_ = nullptr;
};

void ExpectEntries(HKEY root) {
  EXPECT_EQ(ValueOf(root, kClassKey + L"\\InprocServer32"), ServerFile());
  EXPECT_EQ(ValueOf(root, kClassKey + L"\\InprocServer32", L"ThreadingModel"), L"Apartment");
  EXPECT_EQ(ValueOf(root, kClassKey + L"\\ProgID"), L"Pagivo.PgPrint");
  EXPECT_EQ(ValueOf(root, kClassKey + L"\\TypeLib"), kLibrary);
  EXPECT_EQ(ValueOf(root, L"Pagivo.PgPrint\\CLSID"), L"{AD670047-A539-4BCE-A620-76CA332EED6E}");
  EXPECT_EQ(ValueOf(root, kInterfaceKey + L"\\ProxyStubClsid32"),
            L"{00020424-0000-0000-C000-000000000046}");
  EXPECT_EQ(ValueOf(root, kInterfaceKey + L"\\TypeLib", L"Version"), L"1.1");
  EXPECT_EQ(ValueOf(root, L"TypeLib\\" + kLibrary + L"\\1.1"), L"Pagivo");
}

TEST_F(Registration, LetsHostsFindTheClassByItsProgramId) {
  CLSID found{};
  EXPECT_EQ(CLSIDFromProgID(L"Pagivo.PgPrint", &found), S_OK);
  EXPECT_EQ(found, CLSID_PgPrint);
  ComPtr<ITypeLib> library;
  EXPECT_EQ(LoadRegTypeLib(LIBID_Pagivo, 1, 1, LOCALE_NEUTRAL, &library), S_OK);
}

TEST_F(Registration, ForEveryUserLeavesTheRegistryAsItWas) {
  ExpectEntries(HKEY_LOCAL_MACHINE);
  EXPECT_EQ(Run("DllUnregisterServer"), S_OK);
  const std::wstring before = Export(HKEY_LOCAL_MACHINE, L"Software\\Classes");
  EXPECT_EQ(before.find(L"Pagivo.PgPrint"), std::wstring::npos);
  EXPECT_EQ(before.find(kLibrary), std::wstring::npos);
  EXPECT_EQ(Run("DllRegisterServer"), S_OK);
  EXPECT_NE(Export(HKEY_LOCAL_MACHINE, L"Software\\Classes"), before);
  EXPECT_EQ(Run("DllUnregisterServer"), S_OK);
  EXPECT_EQ(Export(HKEY_LOCAL_MACHINE, L"Software\\Classes"), before);
  EXPECT_EQ(Run("DllUnregisterServer"), S_OK);  // what is not there is gone
  EXPECT_EQ(Run("DllRegisterServer"), S_OK);
}

TEST_F(Registration, ForOneUserLeavesTheRegistryAsItWas) {
  const std::wstring before = Export(HKEY_CURRENT_USER, L"Software");
  EXPECT_EQ(Install(TRUE, L"user"), S_OK);
  ExpectEntries(HKEY_CURRENT_USER);
  EXPECT_EQ(Install(FALSE, L"user"), S_OK);
  EXPECT_EQ(ValueOf(HKEY_CURRENT_USER, L"Pagivo.PgPrint\\CLSID"), L"");
  EXPECT_EQ(Export(HKEY_CURRENT_USER, L"Software").find(kLibrary), before.find(kLibrary));
  EXPECT_EQ(Install(TRUE, L"allen"), E_INVALIDARG);
  EXPECT_EQ(Install(TRUE, nullptr), E_INVALIDARG);
}

TEST_F(Registration, KeepsWhatTheServerOfTheOtherWordSizeShares) {
  const std::wstring other = L"Software\\Classes\\TypeLib\\" + kLibrary +
                             (sizeof(void*) == 8 ? L"\\1.1\\0\\win32" : L"\\1.1\\0\\win64");
  RegSetKeyValueW(HKEY_LOCAL_MACHINE, other.c_str(), nullptr, REG_SZ, L"pagivo.dll",
                  sizeof L"pagivo.dll");
  EXPECT_EQ(Run("DllUnregisterServer"), S_OK);
  EXPECT_EQ(ValueOf(HKEY_LOCAL_MACHINE, L"Pagivo.PgPrint"), L"Pagivo.PgPrint");
  EXPECT_EQ(ValueOf(HKEY_LOCAL_MACHINE, kClassKey), L"");
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, other.c_str());
  EXPECT_EQ(Run("DllUnregisterServer"), S_OK);
  EXPECT_EQ(ValueOf(HKEY_LOCAL_MACHINE, L"Pagivo.PgPrint"), L"");
  EXPECT_EQ(Run("DllRegisterServer"), S_OK);
}

}  // namespace
}  // namespace pagivo::automation::testing
