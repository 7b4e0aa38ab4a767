// The key codes and shift states that windows report.
#pragma once

#include <cstdint>
#include <initializer_list>

namespace pagivo {

inline constexpr std::int16_t kKeyBackspace = 8;
inline constexpr std::int16_t kKeyTab = 9;
inline constexpr std::int16_t kKeyEnter = 13;
inline constexpr std::int16_t kKeyEscape = 27;
inline constexpr std::int16_t kKeySpace = 32;
inline constexpr std::int16_t kKeyPageUp = 33;
inline constexpr std::int16_t kKeyPageDown = 34;
inline constexpr std::int16_t kKeyEnd = 35;
inline constexpr std::int16_t kKeyHome = 36;
inline constexpr std::int16_t kKeyLeft = 37;
inline constexpr std::int16_t kKeyUp = 38;
inline constexpr std::int16_t kKeyRight = 39;
inline constexpr std::int16_t kKeyDown = 40;
// The first of ten, among the letters and on the number pad.
inline constexpr std::int16_t kKeyZero = 48;
inline constexpr std::int16_t kKeyNumberPadZero = 96;
inline constexpr std::int16_t kKeyNumberPadPlus = 107;
inline constexpr std::int16_t kKeyNumberPadMinus = 109;
inline constexpr std::int16_t kKeyF6 = 117;
inline constexpr std::int16_t kKeyF10 = 121;
// Among the letters; the plus whether or not it is typed with Shift.
inline constexpr std::int16_t kKeyPlus = 187;
inline constexpr std::int16_t kKeyMinus = 189;

// Bits of the shift state.
inline constexpr std::int16_t kShiftKey = 1;
inline constexpr std::int16_t kControlKey = 2;
inline constexpr std::int16_t kAltKey = 4;

// The digit that a key types; 0 when it types none.
constexpr char DigitOf(std::int16_t keyCode, std::int16_t shift) {
  if ((shift & (kControlKey | kAltKey)) != 0) return 0;
  for (const std::int16_t zero : {kKeyZero, kKeyNumberPadZero}) {
    if (keyCode >= zero && keyCode < zero + 10) return static_cast<char>('0' + keyCode - zero);
  }
  return 0;
}

}  // namespace pagivo
