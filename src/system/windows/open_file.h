// Files that are open.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>

namespace pagivo {

struct HandleCloser {
  void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};

// Closed with its holder; empty where the system opened nothing, and GetLastError says why.
using Handle = std::unique_ptr<void, HandleCloser>;

inline Handle Held(HANDLE handle) {
  return Handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

// What is open for this does not keep others from anything, nor is it kept from others.
inline constexpr DWORD kLook = FILE_READ_ATTRIBUTES;
inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Opens folders, too. Links are followed.
inline Handle OpenExisting(const std::wstring& path, DWORD access) {
  return Held(CreateFileW(path.c_str(), access, kShareAll, nullptr, OPEN_EXISTING,
                          FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

// How much of it the system takes or gives at once.
inline DWORD AtOnce(std::size_t count) {
  constexpr std::size_t kMost = std::size_t{1} << 30;
  return static_cast<DWORD>(std::min(count, kMost));
}

}  // namespace pagivo
