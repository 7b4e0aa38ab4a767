#include "system/posix/late_library.h"

#include <gnu/libc-version.h>
#include <gtest/gtest.h>

#include <string>

#include "pagivo/error.h"

namespace pagivo {
namespace {

namespace late {
constinit const LateLibrary kC("libc.so.6");
PAGIVO_LATE_FUNCTION(kC, gnu_get_libc_version);
}  // namespace late

std::string ErrorOf(const LateLibrary& library, const char* symbol) {
  try {
    library.Find(symbol);
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::FileAccess);
    return error.what();
  }
  return "";
}

TEST(LateLibrary, ItsFunctionsAreCalledLikeThoseOfTheirHeader) {
  EXPECT_STREQ(late::gnu_get_libc_version(), ::gnu_get_libc_version());
  EXPECT_STREQ(late::gnu_get_libc_version(), ::gnu_get_libc_version());
}

TEST(LateLibrary, OneThatIsMissingIsAnError) {
  EXPECT_EQ(ErrorOf(LateLibrary("libnergens.so.1"), "gnu_get_libc_version"),
            "De bibliotheek libnergens.so.1 ontbreekt");
}

TEST(LateLibrary, SoIsWhatItDoesNotHave) {
  EXPECT_EQ(ErrorOf(LateLibrary("libc.so.6"), "tell_no_version"),
            "In de bibliotheek libc.so.6 ontbreekt tell_no_version");
}

}  // namespace
}  // namespace pagivo
