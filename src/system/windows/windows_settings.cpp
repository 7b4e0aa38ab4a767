#include <windows.h>

#include <array>

#include "system/regional_settings.h"

namespace pagivo {

// The user's own separator, which need not be that of the country. One that takes more than a
// character of ASCII is none that numbers in text can be read with.
RegionalSettings RegionalSettingsOfEnvironment() {
  constexpr wchar_t kFirstBeyondAscii = 0x80;
  std::array<wchar_t, 4> separator{};  // with the null character behind it
  const int length = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, separator.data(),
                                     static_cast<int>(separator.size()));
  RegionalSettings settings;
  if (length == 2 && separator.front() < kFirstBeyondAscii) {
    settings.decimalSeparator = static_cast<char>(separator.front());
  }
  return settings;
}

}  // namespace pagivo
