// The type library in the server's own file.
#pragma once

#include <oaidl.h>

#include <string>

namespace pagivo::automation {

// The full path of this library's file.
std::wstring ServerPath();

// The description of the interface or class with this identifier, which its receiver releases.
HRESULT FindTypeInfo(const GUID& id, ITypeInfo** information) noexcept;

}  // namespace pagivo::automation
