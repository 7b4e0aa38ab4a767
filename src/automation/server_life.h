// What keeps the server loaded, and the one thread that it serves.
#pragma once

#include <windows.h>

namespace pagivo::automation {

// The component serves one thread at a time, for its module state is shared by all objects: the one
// that made the oldest object that still lives. Takes the calling thread and counts an object;
// false when the component belongs to another thread.
bool AddObject() noexcept;
void RemoveObject() noexcept;

// References to the class factory and locks of it.
void AddLock() noexcept;
void RemoveLock() noexcept;

// Says that a method was called. From then on the server stays until the process ends: the
// document, the preview window and the host's window outlive the objects, as hosts expect that
// release one object and go on with another, and so do the fonts and pictures that were read.
void StayForGood() noexcept;

bool MayBeUnloaded() noexcept;

}  // namespace pagivo::automation
