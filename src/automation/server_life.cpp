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
  DWORD factory = 0;  // its number in the system's table; 0 when it does not come there
};

// The factory's number while a new home still puts it there.
constexpr DWORD kAnnouncing = ~DWORD{0};

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

// What the home has announced, which takes a moment that nothing of the caller's holds up.
DWORD FactoryAtHome() {
  Home at = home;
  for (; at.factory == kAnnouncing; at = home) SwitchToThread();
  return at.factory;
}

HRESULT RefuseThread() {
  LeaveError(Error(ErrorNumber::InvalidArgument,
                   "Pagivo wordt al vanuit een andere thread van dit programma gebruikt"));
  return RPC_E_WRONG_THREAD;
}

}  // namespace

bool AddObject(IClassFactory& factory) noexcept {
  const DWORD caller = GetCurrentThreadId();
  Home found;
  if (home.compare_exchange_strong(found, {caller, kAnnouncing})) {
    found = {caller, Announce(factory)};
    home = found;
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
                                                 FactoryAtHome(), IID_PPV_ARGS(&atHome)));
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
