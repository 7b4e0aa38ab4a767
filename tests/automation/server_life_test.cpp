// Objects made and let go, threads, and when the server may be unloaded.
#include <thread>

#include "automation_test.h"

namespace pagivo::automation::testing {
namespace {

ComPtr<_PgPrint> MakePrint() {
  ComPtr<_PgPrint> print;
  EXPECT_EQ(CoCreateInstance(CLSID_PgPrint, nullptr, CLSCTX_INPROC_SERVER, IID__PgPrint, &print),
            S_OK);
  return print;
}

TEST(ServerLife, MakesAndReleasesManyObjects) {
  for (int i = 0; i < 10'000; ++i) {
    _PgPrint* print = MakePrint().Detach();
    ASSERT_NE(print, nullptr);
    ASSERT_EQ(print->Release(), 0U);
  }
}

TEST(ServerLife, MakesNoPartOfAnotherObject) {
  ComPtr<IUnknown> outer = MakePrint();
  ComPtr<IUnknown> inner;
  EXPECT_EQ(
      CoCreateInstance(CLSID_PgPrint, outer.Get(), CLSCTX_INPROC_SERVER, IID_IUnknown, &inner),
      CLASS_E_NOAGGREGATION);
}

TEST(ServerLife, ServesAThreadOfTheMultithreadedApartmentThroughAProxy) {
  HRESULT byVtable = E_FAIL;
  Outcome byName;
  Outcome failure;
  SHORT pages = -1;
  std::thread([&] {
    CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    {
      const ComPtr<_PgPrint> print = MakePrint();
      if (print == nullptr) return;
      Value position(100);
      BSTR text = SysAllocString(L"Goedemorgen");
      Value missing = Value::Missing();
      EXPECT_EQ(print->VsPPInit(), S_OK);
      EXPECT_EQ(print->VsPPPrint(&text, position.Address(), position.Address(), missing.Address(),
                                 missing.Address(), missing.Address(), missing.Address(),
                                 missing.Address()),
                S_OK);
      SysFreeString(text);
      byVtable = print->VsPPGetPageCount(&pages);
      byName = CallWith(*print.Get(), L"VsPPGetPageCount", {});
      failure = CallWith(*print.Get(), L"VsPPSetScaleMode", {L"zes"});
      EXPECT_EQ(print->VsPPEinde(), S_OK);
    }
    CoUninitialize();
  }).join();
  EXPECT_EQ(byVtable, S_OK);
  EXPECT_GE(pages, 1);
  EXPECT_EQ(byName.result.Number(), pages);
  EXPECT_EQ(failure.code, HostError(13));
}

TEST(ServerLife, ServesOneThreadAtATime) {
  const auto createElsewhere = [] {
    HRESULT status = S_OK;
    std::thread([&] {
      CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
      {
        ComPtr<_PgPrint> print;
        status =
            CoCreateInstance(CLSID_PgPrint, nullptr, CLSCTX_INPROC_SERVER, IID__PgPrint, &print);
      }
      CoUninitialize();
    }).join();
    return status;
  };
  ComPtr<_PgPrint> print = MakePrint();
  EXPECT_EQ(createElsewhere(), RPC_E_WRONG_THREAD);
  print.Reset();
  EXPECT_EQ(createElsewhere(), S_OK);
  EXPECT_NE(MakePrint(), nullptr);
}

// A copy of the server that nobody else uses.
class ServerCopy {
 public:
  ServerCopy() {
    EXPECT_TRUE(CopyFileW(ServerFile().c_str(), kName, FALSE));
    module_ = LoadLibraryW(kName);
    EXPECT_NE(module_, nullptr);
  }
  ~ServerCopy() {
    FreeLibrary(module_);
    DeleteFileW(kName);
  }

  ComPtr<IClassFactory> Factory() const {
    ComPtr<IClassFactory> factory;
    auto* get = Exported<HRESULT WINAPI(REFCLSID, REFIID, void**)>(module_, "DllGetClassObject");
    EXPECT_EQ(get(CLSID_PgPrint, IID_PPV_ARGS(&factory)), S_OK);
    EXPECT_EQ(get(IID_IDispatch, IID_PPV_ARGS(ComPtr<IClassFactory>().GetAddressOf())),
              CLASS_E_CLASSNOTAVAILABLE);
    return factory;
  }
  HRESULT CanUnload() const { return Exported<RegisterFunction>(module_, "DllCanUnloadNow")(); }

  static constexpr const wchar_t* kName = L"pagivo_copy.dll";

 private:
  HMODULE module_ = nullptr;
};

TEST(ServerLife, GoesWhenItsObjectsAndLocksHaveGone) {
  {
    const ServerCopy server;
    EXPECT_EQ(server.CanUnload(), S_OK);
    ComPtr<IClassFactory> factory = server.Factory();
    EXPECT_EQ(server.CanUnload(), S_FALSE);
    ComPtr<_PgPrint> print;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID__PgPrint,
                                      reinterpret_cast<void**>(print.GetAddressOf())),
              S_OK);
    factory->LockServer(TRUE);
    factory.Reset();
    EXPECT_EQ(server.CanUnload(), S_FALSE);
    print.Reset();
    EXPECT_EQ(server.CanUnload(), S_FALSE);
    server.Factory()->LockServer(FALSE);
    EXPECT_EQ(server.CanUnload(), S_OK);
  }
  EXPECT_EQ(GetModuleHandleW(ServerCopy::kName), nullptr);
}

TEST(ServerLife, StaysWithItsDocumentOnceAMethodWasCalled) {
  const ServerCopy server;
  ComPtr<_PgPrint> print;
  server.Factory()->CreateInstance(nullptr, IID__PgPrint,
                                   reinterpret_cast<void**>(print.GetAddressOf()));
  EXPECT_EQ(print->VsPPClose(), S_OK);
  print.Reset();
  EXPECT_EQ(server.CanUnload(), S_FALSE);
}

}  // namespace
}  // namespace pagivo::automation::testing
