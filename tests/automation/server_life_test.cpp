// Objects made and let go, threads, and when the server may be unloaded.
#include <ocidl.h>

#include <atomic>
#include <thread>

#include "automation_test.h"
#include "host_object.h"

namespace pagivo::automation::testing {
namespace {

ComPtr<_PgPrint> MakePrint() {
  ComPtr<_PgPrint> print;
  EXPECT_EQ(CoCreateInstance(CLSID_PgPrint, nullptr, CLSCTX_INPROC_SERVER, IID__PgPrint, &print),
            S_OK);
  return print;
}

TEST(ServerLife, MakesAndReleasesManyObjects) {
  for (int i = 0; i < 2'000; ++i) {
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

// --- Apartments

// What the body does in a thread with an apartment of its own, while this thread serves calls.
template <typename Body>
void InApartment(COINIT kind, Body body) {
  HANDLE isDone = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  std::thread thread([&] {
    EXPECT_EQ(CoInitializeEx(nullptr, kind), S_OK);
    body();
    CoUninitialize();
    SetEvent(isDone);
  });
  DWORD index = 0;
  EXPECT_EQ(CoWaitForMultipleHandles(0, 60'000, 1, &isDone, &index), S_OK);
  thread.join();
  CloseHandle(isDone);
}

bool IsProxy(const ComPtr<_PgPrint>& print) {
  ComPtr<IClientSecurity> ofProxies;
  return SUCCEEDED(print.As(&ofProxies));
}

std::wstring DescriptionOfLastError() {
  ComPtr<IErrorInfo> information;
  if (GetErrorInfo(0, &information) != S_OK) return {};
  Value description(L"");
  information->GetDescription(&V_BSTR(description.Address()));
  return description.Text();
}

TEST(ServerLife, ServesAThreadOfTheMultithreadedApartmentThroughAProxy) {
  InApartment(COINIT_MULTITHREADED, [] {
    const ComPtr<_PgPrint> print = MakePrint();
    ASSERT_TRUE(IsProxy(print));
    Value position(100);
    BSTR text = SysAllocString(L"Goedemorgen");
    Value missing = Value::Missing();
    EXPECT_EQ(print->VsPPInit(), S_OK);
    EXPECT_EQ(print->VsPPPrint(&text, position.Address(), position.Address(), missing.Address(),
                               missing.Address(), missing.Address(), missing.Address(),
                               missing.Address()),
              S_OK);
    SysFreeString(text);
    SHORT pages = -1;
    EXPECT_EQ(print->VsPPGetPageCount(&pages), S_OK);
    EXPECT_GE(pages, 1);
    EXPECT_EQ(CallWith(*print.Get(), L"VsPPGetPageCount", {}).result.Number(), pages);
    EXPECT_EQ(CallWith(*print.Get(), L"VsPPSetScaleMode", {L"zes"}).code, HostError(13));
    EXPECT_EQ(print->VsPPEinde(), S_OK);
  });
}

TEST(ServerLife, ServesOtherApartmentsWhereItsObjectsLive) {
  const ComPtr<_PgPrint> print = MakePrint();
  EXPECT_FALSE(IsProxy(print));
  for (const COINIT kind : {COINIT_APARTMENTTHREADED, COINIT_MULTITHREADED}) {
    EXPECT_EQ(print->VsPPInit(), S_OK);
    InApartment(kind, [] {
      const ComPtr<_PgPrint> other = MakePrint();
      EXPECT_TRUE(IsProxy(other));
      Value margin(720);
      EXPECT_EQ(other->VsPPSetMarginLeft(margin.Address()), S_OK);
      const Outcome failure = CallWith(*other.Get(), L"VSPDF", {L"Z:\\geen\\map\\x.pdf"});
      EXPECT_EQ(failure.code, HostError(20001));
      EXPECT_NE(failure.description.find(L"er is geen afgesloten document"), std::wstring::npos);
    });
    LONG margin = 0;
    EXPECT_EQ(print->VsPPGetMarginLeft(&margin), S_OK);
    EXPECT_EQ(margin, 720);
  }
  EXPECT_EQ(print->VsPPEinde(), S_OK);
}

// Nobody serves calls here while the other thread runs.
TEST(ServerLife, LivesInAnotherApartmentWhenItsObjectsHaveGone) {
  MakePrint();
  std::thread([] {
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED), S_OK);
    EXPECT_FALSE(IsProxy(MakePrint()));
    CoUninitialize();
  }).join();
  EXPECT_FALSE(IsProxy(MakePrint()));
}

// Where threads wait for one another, and serve calls meanwhile.
class Meeting {
 public:
  explicit Meeting(int threads) : missing_(threads) {}
  ~Meeting() { CloseHandle(isComplete_); }

  void Attend() {
    if (--missing_ == 0) SetEvent(isComplete_);
    DWORD index = 0;
    EXPECT_EQ(CoWaitForMultipleHandles(0, 60'000, 1, &isComplete_, &index), S_OK);
  }

 private:
  std::atomic<int> missing_;
  HANDLE isComplete_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
};

TEST(ServerLife, ServesApartmentsThatBeginAtOnceInOneOfThem) {
  constexpr int kThreads = 4;
  Meeting before(kThreads);
  Meeting made(kThreads);
  Meeting called(kThreads);
  Meeting released(kThreads);
  std::atomic<int> direct{0};
  const auto begin = [&] {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    before.Attend();
    {
      ComPtr<_PgPrint> print = MakePrint();
      made.Attend();
      const bool isDirect = !IsProxy(print);
      direct += isDirect ? 1 : 0;
      EXPECT_EQ(print->VsPPClose(), S_OK);
      called.Attend();
      if (!isDirect) print.Reset();
      released.Attend();  // where the objects live, who serves this stays to the last
    }
    CoUninitialize();
  };
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) threads.emplace_back(begin);
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(direct, 1);
}

TEST(ServerLife, DoesNotAskAHostsWindowInAnotherThread) {
  HostObject window;
  InApartment(COINIT_APARTMENTTHREADED, [&] {
    const ComPtr<_PgPrint> print = MakePrint();
    EXPECT_EQ(CallWith(*print.Get(), L"VsPPStart", {&window}).status, S_OK);
  });
  const ComPtr<_PgPrint> print = MakePrint();
  EXPECT_EQ(CallWith(*print.Get(), L"VsPPInit", {}).status, S_OK);
  EXPECT_EQ(CallWith(*print.Get(), L"VsPPFinish", {L"Rapport"}).status, S_OK);
  EXPECT_EQ(CallWith(*print.Get(), L"VsPreviewFile", {1}).status, S_OK);
  EXPECT_FALSE(window.HasBeenAskedFor(L"WindowState"));
  EXPECT_EQ(print->VsPPEinde(), S_OK);
  EXPECT_EQ(CallWith(*print.Get(), L"VsPPStart", {static_cast<IUnknown*>(nullptr)}).status, S_OK);
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

// COM makes no such object, but who has the factory can.
TEST(ServerLife, RefusesAnotherThreadOfTheSameApartmentWithADescription) {
  const ServerCopy server;
  const auto create = [&] {
    ComPtr<_PgPrint> print;
    const HRESULT status = server.Factory()->CreateInstance(
        nullptr, IID__PgPrint, reinterpret_cast<void**>(print.GetAddressOf()));
    if (status != RPC_E_WRONG_THREAD) return std::make_pair(status, print);
    EXPECT_EQ(DescriptionOfLastError(),
              L"Pagivo wordt al vanuit een andere thread van dit programma gebruikt");
    return std::make_pair(status, print);
  };
  InApartment(COINIT_MULTITHREADED, [&] {
    const auto [status, print] = create();
    EXPECT_EQ(status, S_OK);
    InApartment(COINIT_MULTITHREADED, [&] { EXPECT_EQ(create().first, RPC_E_WRONG_THREAD); });
  });
}

}  // namespace
}  // namespace pagivo::automation::testing
