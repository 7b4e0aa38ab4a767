#include <gtest/gtest.h>

#include "values/conversions.h"

namespace pagivo {
namespace {

struct Trimming {
  std::string_view text;
  std::string_view left;
  std::string_view right;
  std::string_view both;
};

constexpr Trimming kTrimmings[] = {
    {"", "", "", ""},
    {" ", "", "", ""},
    {"    ", "", "", ""},
    {"a", "a", "a", "a"},
    {"  a", "a", "  a", "a"},
    {"a  ", "a  ", "a", "a"},
    {"  a  b  ", "a  b  ", "  a  b", "a  b"},
    // blanks alone are removed
    {"\ta\n", "\ta\n", "\ta\n", "\ta\n"},
    {" \t a ", "\t a ", " \t a", "\t a"},
    {"\xC2\xA0"
     "a",
     "\xC2\xA0"
     "a",
     "\xC2\xA0"
     "a",
     "\xC2\xA0"
     "a"},
    {" \xC3\xA9 ", "\xC3\xA9 ", " \xC3\xA9", "\xC3\xA9"},
};

TEST(TrimLeft, RemovesLeadingBlanks) {
  for (const Trimming& row : kTrimmings) EXPECT_EQ(TrimLeft(row.text), row.left);
}

TEST(TrimRight, RemovesTrailingBlanks) {
  for (const Trimming& row : kTrimmings) EXPECT_EQ(TrimRight(row.text), row.right);
}

TEST(Trim, RemovesBothKindsOfBlanks) {
  for (const Trimming& row : kTrimmings) EXPECT_EQ(Trim(row.text), row.both);
}

}  // namespace
}  // namespace pagivo
