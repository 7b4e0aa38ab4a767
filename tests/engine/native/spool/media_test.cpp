#include "engine/native/spool/media.h"

#include <gtest/gtest.h>

#include "engine/papers.h"
#include "values/measures.h"

namespace pagivo::native {
namespace {

PrinterMedia Taking(std::vector<MediaSize> sizes) {
  PrinterMedia printer;
  for (const MediaSize& size : sizes) printer.media.push_back({.size = size, .margins = {}});
  return printer;
}

PrinterMedia TakingCustom(MediaSize smallest, MediaSize largest) {
  return {.media = {},
          .custom = {{.smallest = smallest, .largest = largest, .margins = {1, 2, 3, 4}}}};
}

TEST(UprightSize, OfEveryKnownPaperIsThatOfThePaper) {
  for (const Paper& paper : KnownPapers()) {
    const MediaSize size = UprightSize(paper.width, paper.height);
    EXPECT_LE(size.width, size.height) << paper.code;
    EXPECT_EQ(UprightSize(paper.height, paper.width), size) << paper.code;
  }
  EXPECT_EQ(UprightSize(11906, 16838), (MediaSize{21000, 29700}));
  EXPECT_EQ(UprightSize(12240, 15840), (MediaSize{21590, 27940}));
}

TEST(FindMedium, TakesThePrintersOwnWithinAMillimetre) {
  const PrinterMedia printer = Taking({{21000, 29700}});
  for (const double millimetres : {209.01, 210.0, 210.99}) {
    const auto medium = FindMedium(printer, millimetres * kTwipsPerMillimetre, 16838);
    ASSERT_TRUE(medium) << millimetres;
    EXPECT_EQ(medium->size, (MediaSize{21000, 29700}));
  }
  EXPECT_FALSE(FindMedium(printer, 208.9 * kTwipsPerMillimetre, 16838));
  EXPECT_FALSE(FindMedium(printer, 11906, 298.1 * kTwipsPerMillimetre));
}

TEST(FindMedium, TakesTheNearest) {
  const PrinterMedia printer = Taking({{21050, 29700}, {21000, 29700}, {20950, 29700}});
  EXPECT_EQ(FindMedium(printer, 11906, 16838)->size, (MediaSize{21000, 29700}));
}

TEST(FindMedium, TakesTheFirstOfEqualOnes) {
  PrinterMedia printer = Taking({{21000, 29700}, {21000, 29700}});
  printer.media[1].margins.left = 500;
  EXPECT_EQ(FindMedium(printer, 11906, 16838)->margins.left, 0);
}

TEST(FindMedium, TakesAPaperWhicheverSideIsFedFirst) {
  const PrinterMedia printer = Taking({{27940, 43180}});
  EXPECT_TRUE(FindMedium(printer, 15840, 24480));
  EXPECT_TRUE(FindMedium(printer, 24480, 15840));
}

TEST(FindMedium, TakesCustomSizesRoundedUp) {
  const PrinterMedia printer = TakingCustom({9000, 12000}, {21600, 35600});
  const auto medium = FindMedium(printer, 8000, 6000);
  ASSERT_TRUE(medium);
  EXPECT_EQ(medium->size, (MediaSize{10584, 14112}));
  EXPECT_EQ(medium->margins, (MediaMargins{1, 2, 3, 4}));
  EXPECT_FALSE(FindMedium(printer, 5000, 8000));
}

TEST(FindMedium, KeepsCustomSizesWithinTheRange) {
  const PrinterMedia printer = TakingCustom({9000, 12000}, {21000, 29700});
  EXPECT_EQ(FindMedium(printer, 11906, 16838)->size, (MediaSize{21000, 29700}));
}

TEST(SupportsPaper, TakesEveryKnownCodeOfAPrinterThatDoesNotTell) {
  for (const Paper& paper : KnownPapers()) EXPECT_TRUE(SupportsPaper({}, paper.code));
  EXPECT_TRUE(SupportsPaper({}, kPaperUserDefined));
  for (const int code : {-1, 0, 42, 255, 257}) EXPECT_FALSE(SupportsPaper({}, code)) << code;
}

TEST(SupportsPaper, GoesByTheSizeOfTheMedia) {
  const PrinterMedia printer = Taking({{21000, 29700}, {27940, 43180}});
  for (const Paper& paper : KnownPapers()) {
    const int code = paper.code;
    const bool isA4 = code == 9 || code == 10;
    const bool isTabloid = code == 3 || code == 4 || code == 17;
    EXPECT_EQ(SupportsPaper(printer, code), isA4 || isTabloid) << code;
  }
}

TEST(SupportsPaper, HasTheUserDefinedCodeOnlyWithCustomSizes) {
  EXPECT_FALSE(SupportsPaper(Taking({{21000, 29700}}), kPaperUserDefined));
  EXPECT_TRUE(SupportsPaper(TakingCustom({1, 1}, {2, 2}), kPaperUserDefined));
  EXPECT_FALSE(SupportsPaper(TakingCustom({1, 1}, {50000, 50000}), kPaperA4));
}

TEST(PrintableCorner, IsThatOfThePagesPaper) {
  PrinterMedia printer = Taking({{21000, 29700}});
  printer.media[0].margins = {.left = 254, .top = 508, .right = 762, .bottom = 1016};
  const PrintableCorner corner = PrintableCornerOf(printer, 11906, 16838);
  EXPECT_DOUBLE_EQ(corner.x, 144);
  EXPECT_DOUBLE_EQ(corner.y, 288);
}

TEST(PrintableCorner, OfALandscapePageIsPrintableWhicheverWayItIsTurned) {
  PrinterMedia printer = Taking({{21000, 29700}});
  printer.media[0].margins = {.left = 254, .top = 508, .right = 762, .bottom = 1016};
  const PrintableCorner corner = PrintableCornerOf(printer, 16838, 11906);
  EXPECT_DOUBLE_EQ(corner.x, 576);
  EXPECT_DOUBLE_EQ(corner.y, 432);
}

TEST(PrintableCorner, IsThePapersWhereThePrinterHasNoSuchPaper) {
  const PrintableCorner corner = PrintableCornerOf(Taking({{100, 100}}), 11906, 16838);
  EXPECT_EQ(corner.x, 0);
  EXPECT_EQ(corner.y, 0);
}

}  // namespace
}  // namespace pagivo::native
