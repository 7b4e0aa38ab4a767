#include "engine/native/pdf/pdf_syntax.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>

namespace pagivo::native {
namespace {

std::string Decimal(std::int64_t value, int decimals) {
  std::string text;
  AppendDecimal(text, value, decimals);
  return text;
}

TEST(PdfNumbers, WritesNoMoreDigitsThanNeeded) {
  const struct {
    std::int64_t value;
    int decimals;
    const char* text;
  } rows[] = {
      {0, 2, "0"},
      {5, 2, ".05"},
      {-5, 2, "-.05"},
      {50, 2, ".5"},
      {-50, 2, "-.5"},
      {100, 2, "1"},
      {-100, 2, "-1"},
      {123, 2, "1.23"},
      {-12340, 2, "-123.4"},
      {1000, 3, "1"},
      {1, 3, ".001"},
      {-1001, 3, "-1.001"},
      {7, 0, "7"},
      {-7, 0, "-7"},
      {10, 0, "10"},
      {99, 0, "99"},
      {100, 0, "100"},
      {-999, 0, "-999"},
      {1000, 0, "1000"},
      {-13936, 0, "-13936"},
      {20050, 0, "20050"},
      {300007, 0, "300007"},
      {999999, 0, "999999"},
      {1000000, 0, "1000000"},
      {-1234567, 0, "-1234567"},
      {99900, 2, "999"},
      {99909, 2, "999.09"},
      {-99990, 2, "-999.9"},
      {99999, 2, "999.99"},
      {100000, 2, "1000"},
      {100001, 2, "1000.01"},
      {1, 9, ".000000001"},
      {84189, 2, "841.89"},
      {INT64_MAX, 0, "9223372036854775807"},
      {INT64_MIN, 0, "-9223372036854775808"},
      {INT64_MIN, 2, "-92233720368547758.08"},
  };
  for (const auto& row : rows) EXPECT_EQ(Decimal(row.value, row.decimals), row.text);
}

TEST(PdfNumbers, AreRoundedToTheNearestWholeOneAndHalvesAwayFromZero) {
  const struct {
    double value;
    std::int64_t rounded;
  } rows[] = {
      {0, 0},
      {0.49999999999999994, 0},
      {0.5, 1},
      {1.4999999999999998, 1},
      {1.5, 2},
      {2.5, 3},
      {1000000.5, 1000001},
      {4503599627370495.5, 4503599627370496},
      {9007199254740991, 9007199254740991},
      {1e18, 1000000000000000000},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(RoundAway(row.value), row.rounded) << row.value;
    EXPECT_EQ(RoundAway(-row.value), -row.rounded) << -row.value;
  }
}

TEST(PdfNumbers, ReadsBackAsTheSameNumber) {
  for (std::int64_t value = -2000; value <= 2000; ++value) {
    const std::string text = Decimal(value, 2);
    EXPECT_EQ(std::lround(std::strtod(text.c_str(), nullptr) * 100), value) << text;
  }
}

TEST(PdfNumbers, Appends) {
  std::string text = "a ";
  AppendInteger(text, -12);
  text += ' ';
  AppendHundredths(text, 150);
  EXPECT_EQ(text, "a -12 1.5");
}

template <typename Object>
std::string Spelled(const Object& object) {
  std::string out;
  AppendObject(out, object);
  return out;
}

std::string TextString(std::string_view text) {
  return Spelled(PdfText{text});
}

TEST(PdfTexts, PrintableAsciiIsWrittenInLetters) {
  EXPECT_EQ(TextString("Rapport 12"), "(Rapport 12)");
  EXPECT_EQ(TextString(""), "()");
}

TEST(PdfTexts, EscapesWhatEndsAString) {
  EXPECT_EQ(TextString("a(b)c\\d"), "(a\\(b\\)c\\\\d)");
}

TEST(PdfTexts, OtherCharactersAreUtf16) {
  EXPECT_EQ(TextString("\u00E9"), "<FEFF00E9>");
  EXPECT_EQ(TextString("a\tb"), "<FEFF006100090062>");
}

TEST(PdfTexts, CharactersBeyondTheFirstPlaneArePairs) {
  EXPECT_EQ(TextString("\U0001F600"), "<FEFFD83DDE00>");
}

TEST(PdfTexts, BytesThatAreNoUtf8BecomeReplacementCharacters) {
  EXPECT_EQ(TextString("\xFFz"), "<FEFFFFFD007A>");
}

TEST(PdfNames, WriteWhatANameCannotHoldAsNumbers) {
  EXPECT_EQ(Spelled(PdfName{"Liberation-Sans"}), "/Liberation-Sans");
  EXPECT_EQ(Spelled(PdfName{"a b/c#(\x80"}), "/a#20b#2Fc#23#28#80");
  EXPECT_EQ(Spelled(PdfName{std::string_view("a\0b", 3)}), "/ab");
}

TEST(PdfArrays, HaveABlankOnlyWhereObjectsWouldRunTogether) {
  PdfArray array;
  array.Add(1).Add(PdfDecimal{-250}).Add(PdfReference{7}).Add(PdfName{"N"}).Add(8).Add(true);
  array.Add(PdfBytes{"\x01\xFE"}).Add(9).Add(PdfText{"t"}).Add(10);
  array.Add(PdfArray().Add(11)).Add(12).Add(PdfDictionary()).Add(false);
  EXPECT_EQ(Spelled(array), "[1 -2.5 7 0 R/N 8 true<01FE>9(t)10[11]12<<>>false]");
}

TEST(PdfDictionaries, KeepTheOrderOfTheirEntries) {
  PdfDictionary inner;
  inner.Put("Z", 1).Put("A", PdfName{"B"});
  PdfDictionary outer;
  outer.Put("Inner", inner).Put("Next", std::size_t{3}).PutAll(inner);
  EXPECT_EQ(Spelled(outer), "<</Inner<</Z 1/A/B>>/Next 3/Z 1/A/B>>");
  EXPECT_EQ(Spelled(PdfDictionary()), "<<>>");
}

}  // namespace
}  // namespace pagivo::native
