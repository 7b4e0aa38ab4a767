// The component's identifiers as the system takes them, and the server's own file.
#pragma once

#include <oaidl.h>

#include <array>
#include <cstdint>
#include <string_view>

#include "type_library/identifiers.h"

namespace pagivo::automation {

// The number that hexadecimal digits write.
constexpr std::uint32_t FromDigits(std::string_view digits) {
  std::uint32_t value = 0;
  for (const char digit : digits) {
    value = value * 16 + static_cast<std::uint32_t>(digit <= '9' ? digit - '0' : digit - 'A' + 10);
  }
  return value;
}

// Reads an identifier in its usual notation, "{A0D9E4BB-...}".
consteval GUID GuidOf(std::string_view text) {
  GUID guid{};
  guid.Data1 = FromDigits(text.substr(1, 8));
  guid.Data2 = static_cast<unsigned short>(FromDigits(text.substr(10, 4)));
  guid.Data3 = static_cast<unsigned short>(FromDigits(text.substr(15, 4)));
  constexpr std::array<std::size_t, 8> kLastBytes = {20, 22, 25, 27, 29, 31, 33, 35};
  std::size_t byte = 0;
  for (const std::size_t at : kLastBytes) {
    guid.Data4[byte++] = static_cast<unsigned char>(FromDigits(text.substr(at, 2)));
  }
  return guid;
}

inline constexpr GUID kLibraryGuid = GuidOf(kLibraryId);
inline constexpr GUID kInterfaceGuid = GuidOf(kInterfaceId);
inline constexpr GUID kClassGuid = GuidOf(kClassId);

// The type library of this system has one of these numbers.
inline constexpr SYSKIND kSystemKind = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;

}  // namespace pagivo::automation
