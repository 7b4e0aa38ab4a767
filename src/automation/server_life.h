// What keeps the server loaded, and the apartment in which its objects live.
#pragma once

#include <unknwn.h>

namespace pagivo::automation {

// All objects live where the oldest of them was made, for they share the module state: in the
// apartment of one thread, their home. Makes the calling thread the home when there is no object,
// and counts one; false when the home is another thread. `factory` is what other apartments ask
// there.
bool AddObject(IClassFactory& factory) noexcept;
void RemoveObject() noexcept;

// Has the factory at the home make the object, and gives what the caller's apartment reaches it
// with. RPC_E_WRONG_THREAD, with a description, where COM does not lead from the one to the other.
HRESULT CreateAtHome(const IClassFactory& factory, REFIID interfaceId, void** made) noexcept;

// References to the class factory and locks of it.
void AddLock() noexcept;
void RemoveLock() noexcept;

// Says that a method was called. From then on the server stays until the process ends: the
// document, the preview window and the host's window outlive the objects, as hosts expect that
// release one object and go on with another, and so do the fonts and pictures that were read.
void StayForGood() noexcept;

bool MayBeUnloaded() noexcept;

}  // namespace pagivo::automation
