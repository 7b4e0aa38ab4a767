// What the system's COM objects answer.
#pragma once

#include <windows.h>

#include <new>

namespace pagivo {

// Whether the call did what it was asked. Memory that ran out is no answer but an exception.
inline bool Succeeded(HRESULT result) {
  if (result == E_OUTOFMEMORY) throw std::bad_alloc();
  return SUCCEEDED(result);
}

}  // namespace pagivo
