// What the registry tells hosts and the system of the component.
#pragma once

#include <windows.h>

namespace pagivo::automation {

// For every user, which takes an administrator's rights, or for the one who registers.
enum class Scope { Machine, User };

// Registers class, program id, interface and type library, this file in the place of any other.
// When it fails, nothing of it stays.
HRESULT Register(Scope scope) noexcept;

// Takes away what Register has put there; what was not there is no failure. Class name and type
// library stay while the component of the other word size is registered, which shares them.
HRESULT Unregister(Scope scope) noexcept;

}  // namespace pagivo::automation
