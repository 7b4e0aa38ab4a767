#include "engine/native/pdf/text_string.h"

#include <gtest/gtest.h>

namespace pagivo::native {
namespace {

std::string TextString(std::string_view text) {
  std::string out;
  AppendTextString(out, text);
  return out;
}

std::string Name(std::string_view text) {
  std::string out;
  AppendName(out, text);
  return out;
}

TEST(TextString, PrintableAsciiIsWrittenInLetters) {
  EXPECT_EQ(TextString("Rapport 12"), "(Rapport 12)");
  EXPECT_EQ(TextString(""), "()");
}

TEST(TextString, EscapesWhatEndsAString) {
  EXPECT_EQ(TextString("a(b)c\\d"), "(a\\(b\\)c\\\\d)");
}

TEST(TextString, OtherCharactersAreUtf16) {
  EXPECT_EQ(TextString("\u00E9"), "<FEFF00E9>");
  EXPECT_EQ(TextString("a\tb"), "<FEFF006100090062>");
}

TEST(TextString, CharactersBeyondTheFirstPlaneArePairs) {
  EXPECT_EQ(TextString("\U0001F600"), "<FEFFD83DDE00>");
}

TEST(TextString, BytesThatAreNoUtf8BecomeReplacementCharacters) {
  EXPECT_EQ(TextString("\xFFz"), "<FEFFFFFD007A>");
}

TEST(Name, WritesWhatANameCannotHoldAsNumbers) {
  EXPECT_EQ(Name("Liberation-Sans"), "/Liberation-Sans");
  EXPECT_EQ(Name("a b/c#(\x80"), "/a#20b#2Fc#23#28#80");
}

}  // namespace
}  // namespace pagivo::native
