// What a content stream ends and begins of itself.
#include "engine/native/pdf/content_stream.h"

#include <gtest/gtest.h>

namespace pagivo::native {
namespace {

class ContentStreamTest : public ::testing::Test {
 protected:
  ContentStreamTest() { stream_.Begin(); }

  void Write(char code) {
    stream_.SelectFont(0, 9000);
    if (!stream_.IsOnLine(5000, 0)) stream_.StartLine({1000, 5000}, 0);
    stream_.AddCode(static_cast<std::uint8_t>(code), 1);
  }

  ContentStream stream_;
};

TEST_F(ContentStreamTest, TheLastStringAndTextEndWithThePage) {
  Write('a');
  Write('b');
  EXPECT_EQ(stream_.Finish(), "/F0 9 Tf\nBT\n10 50 Td\n[(ab)]TJ\nET\n");
}

TEST_F(ContentStreamTest, APageBeginsWithNothingOpenAndNoStyles) {
  Write('a');
  const std::string first(stream_.Finish());
  stream_.Begin();
  Write('a');
  EXPECT_EQ(stream_.Finish(), first);
}

TEST_F(ContentStreamTest, AFigureEndsTheTextBeforeItsStylesAreSet) {
  Write('a');
  stream_.SetStroke({.color = 0, .width = 200});
  stream_.MoveTo({0, 0});
  stream_.LineTo({100, 100});
  stream_.Stroke();
  Write('b');
  EXPECT_EQ(stream_.Finish(),
            "/F0 9 Tf\nBT\n10 50 Td\n[(a)]TJ\nET\n2 w\n0 0 m\n1 1 l\nS\n"
            "BT\n10 50 Td\n[(b)]TJ\nET\n");
}

TEST_F(ContentStreamTest, ARectangleAPictureAndAClipEndTheText) {
  Write('a');
  stream_.AddRectangle({0, 0}, 100, 100);
  stream_.Fill(FillRule::NonZero);
  Write('b');
  stream_.DrawImage("I0", {0, 0}, 100, 100);
  Write('c');
  stream_.SaveState();
  stream_.AddRectangle({0, 0}, 100, 100);
  stream_.Clip(FillRule::EvenOdd);
  stream_.RestoreState();
  EXPECT_EQ(stream_.Finish(),
            "/F0 9 Tf\nBT\n10 50 Td\n[(a)]TJ\nET\n0 0 1 1 re\nf\n"
            "BT\n10 50 Td\n[(b)]TJ\nET\nq 1 0 0 1 0 0 cm/I0 Do Q\n"
            "BT\n10 50 Td\n[(c)]TJ\nET\nq\n0 0 1 1 re\nW* n\nQ\n");
}

TEST_F(ContentStreamTest, AStyleOfGlyphsEndsTheStringOnlyWhenItChanges) {
  Write('a');
  stream_.SetTextColor(0);
  stream_.FillGlyphs();
  Write('b');
  stream_.SetTextColor(0x0000FF);
  stream_.OutlineGlyphs({.color = 0x0000FF, .width = 30, .join = 1});
  Write('c');
  stream_.OutlineGlyphs({.color = 0x0000FF, .width = 30, .join = 1});
  Write('d');
  EXPECT_EQ(
      stream_.Finish(),
      "/F0 9 Tf\nBT\n10 50 Td\n[(ab)]TJ\n1 0 0 rg\n2 Tr\n1 0 0 RG\n.3 w\n1 j\n[(cd)]TJ\nET\n");
}

TEST_F(ContentStreamTest, GreyTakesOneNumber) {
  stream_.SetTextColor(0x808080);
  EXPECT_EQ(stream_.Finish(), ".502 g\n");
}

TEST_F(ContentStreamTest, ActualTextHoldsStringsOfItsOwn) {
  Write('a');
  stream_.BeginActualText("\u00E9");
  Write('b');
  stream_.EndActualText();
  Write('c');
  EXPECT_EQ(stream_.Finish(),
            "/F0 9 Tf\nBT\n10 50 Td\n[(a)]TJ\n/Span<</ActualText<FEFF00E9>>>BDC\n[(b)]TJ\nEMC\n"
            "[(c)]TJ\nET\n");
}

TEST_F(ContentStreamTest, AStringThatGetsTooLongGoesOnInAnother) {
  for (int i = 0; i < 8002; ++i) Write('a');
  EXPECT_TRUE(stream_.Finish().ends_with("a)]TJ\n[(a)]TJ\nET\n"));
}

}  // namespace
}  // namespace pagivo::native
