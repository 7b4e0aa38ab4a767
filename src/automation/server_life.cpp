#include "automation/server_life.h"

#include <objidl.h>
#include <wrl/client.h>

#include <atomic>

#include "automation/error_information.h"

namespace pagivo::automation {
namespace {

using Microsoft::WRL::ComPtr;

struct Home {
  DWORD thread = 0;
  DWORD factory = 0;  // its number in the system's table; 0 when it is not there
};

// The system asks from whichever thread, and so may an object's maker be of whichever.
std::atomic<Home> home;
std::atomic<long> objects{0};
std::atomic<long> locks{0};
std::atomic<bool> stays{false};

// Through which apartments get at each other's interfaces. Null on a thread without COM.
ComPtr<IGlobalInterfaceTable> InterfaceTable() {
  ComPtr<IGlobalInterfaceTable> table;
  CoCreateInstance(CLSID_StdGlobalInterfaceTable, nullptr, CLSCTX_INPROC_SERVER,
                   IID_PPV_ARGS(&table));
  return table;
}

DWORD Announce(IClassFactory& factory) {
  DWORD number = 0;
  if (const ComPtr<IGlobalInterfaceTable> table = InterfaceTable()) {
    table->RegisterInterfaceInGlobal(&factory, IID_IClassFactory, &number);
  }
  return number;
}

void Withdraw(DWORD number) {
  if (number == 0) return;
  if (const ComPtr<IGlobalInterfaceTable> table = InterfaceTable()) {
    table->RevokeInterfaceFromGlobal(number);
  }
}

HRESULT RefuseThread() {
  LeaveError(Error(ErrorNumber::InvalidArgument,
                   "Pagivo wordt al vanuit een andere thread van dit programma gebruikt"));
  return RPC_E_WRONG_THREAD;
}

}  // namespace

bool AddObject(IClassFactory& factory) noexcept {
  const DWORD caller = GetCurrentThreadId();
  Home found = home;
  if (found.thread == 0) {
    const Home here{caller, Announce(factory)};
    if (home.compare_exchange_strong(found, here)) {
      found = here;
    } else {
      Withdraw(here.factory);
    }
  }
  if (found.thread != caller) return false;
  ++objects;
  return true;
}

void RemoveObject() noexcept {
  if (--objects == 0) Withdraw(home.exchange({}).factory);
}

HRESULT CreateAtHome(const IClassFactory& factory, REFIID interfaceId, void** made) noexcept {
  ComPtr<IClassFactory> atHome;
  const ComPtr<IGlobalInterfaceTable> table = InterfaceTable();
  const bool isReached = table != nullptr && SUCCEEDED(table->GetInterfaceFromGlobal(
                                                 home.load().factory, IID_PPV_ARGS(&atHome)));
  // The factory itself comes where both threads are of one apartment, which has several.
  if (!isReached || atHome.Get() == &factory) return RefuseThread();
  return atHome->CreateInstance(nullptr, interfaceId, made);
}

void AddLock() noexcept {
  ++locks;
}

void RemoveLock() noexcept {
  --locks;
}

void StayForGood() noexcept {
  stays = true;
}

bool MayBeUnloaded() noexcept {
  return !stays && objects == 0 && locks == 0;
}

}  // namespace pagivo::automation
