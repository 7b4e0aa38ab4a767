#include <gtest/gtest.h>
#include <windows.h>

#include <array>

#include "system/regional_settings.h"

namespace pagivo {
namespace {

// The user's decimal separator for the length of a test.
class UsersSeparator {
 public:
  explicit UsersSeparator(const wchar_t* separator) {
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before_.data(),
                   static_cast<int>(before_.size()));
    SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator);
  }
  ~UsersSeparator() { SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before_.data()); }
  UsersSeparator(const UsersSeparator&) = delete;
  UsersSeparator& operator=(const UsersSeparator&) = delete;

 private:
  std::array<wchar_t, 8> before_{};
};

TEST(RegionalSettingsOfTheUser, AreThoseOfTheControlPanel) {
  for (const wchar_t* separator : {L",", L".", L";"}) {
    const UsersSeparator user(separator);
    EXPECT_EQ(RegionalSettingsOfEnvironment().decimalSeparator, static_cast<char>(*separator));
  }
}

TEST(RegionalSettingsOfTheUser, HaveAPointWhereTheSeparatorIsNoSingleByte) {
  for (const wchar_t* separator : {L"\u066B", L"::"}) {
    const UsersSeparator user(separator);
    EXPECT_EQ(RegionalSettingsOfEnvironment().decimalSeparator, '.');
  }
}

}  // namespace
}  // namespace pagivo
