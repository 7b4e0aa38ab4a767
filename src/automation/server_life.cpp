#include "automation/server_life.h"

#include <atomic>

namespace pagivo::automation {
namespace {

// The system asks from whichever thread, and so may an object's maker be of whichever.
std::atomic<DWORD> servedThread{0};
std::atomic<long> objects{0};
std::atomic<long> locks{0};
std::atomic<bool> stays{false};

}  // namespace

bool AddObject() noexcept {
  const DWORD caller = GetCurrentThreadId();
  DWORD served = 0;
  if (!servedThread.compare_exchange_strong(served, caller) && served != caller) return false;
  ++objects;
  return true;
}

void RemoveObject() noexcept {
  if (--objects == 0) servedThread = 0;
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
