#include "engine/native/document/recorder.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/native/document/storage.h"
#include "support/trace/trace_player.h"

namespace pagivo::native {
namespace {

constexpr PageGeometry kA4{11906, 16838};
constexpr PageGeometry kA4Landscape{16838, 11906};

class RecorderTest : public testing::Test {
 protected:
  std::string Page(std::int32_t page) const { return TracePage(document, page); }

  Document document;
  Recorder recorder{document};
};

TEST_F(RecorderTest, ADocumentBeginsWithoutPages) {
  EXPECT_EQ(document.PageCount(), 0);
}

TEST_F(RecorderTest, ABegunPageIsBlankAndHasItsPaper) {
  recorder.BeginPage(kA4);
  EXPECT_EQ(document.PageCount(), 1);
  EXPECT_EQ(document.GeometryOf(1), kA4);
  EXPECT_EQ(Page(1), "");
}

PictureImageRef OnePixel() {
  return std::make_shared<PictureImage>(PictureImage::Pixels{1, 1, false, {0, 0, 0}});
}

TEST_F(RecorderTest, EverythingButAPictureEndsAPageOfOnlyPictures) {
  const std::vector<Point> points{{0, 0}, {1, 1}};
  const std::vector<std::function<void()>> drawings = {
      [&] { recorder.DrawText({0, 0}, "x"); }, [&] { recorder.DrawLine({0, 0}, {1, 1}); },
      [&] { recorder.DrawRectangle({}); },     [&] { recorder.DrawCircle({}, 1); },
      [&] { recorder.DrawArc({}); },           [&] { recorder.DrawPolyline(points); },
      [&] { recorder.DrawPolygon(points); }};
  for (const auto& draw : drawings) {
    recorder.BeginPage(kA4);
    recorder.SetPen({PenStyle::Dash, 20, 0xFF});
    recorder.SetFont({.name = "Times New Roman"});
    EXPECT_TRUE(recorder.HasOnlyPictures());
    recorder.DrawPicture({0, 0, 1, 1}, OnePixel());
    EXPECT_TRUE(recorder.HasOnlyPictures());
    draw();
    EXPECT_FALSE(recorder.HasOnlyPictures());
  }
}

TEST_F(RecorderTest, PagesKeepTheirOwnPaper) {
  recorder.BeginPage(kA4);
  recorder.BeginPage(kA4Landscape);
  recorder.BeginPage(kA4);
  recorder.ChangePaper({1440, 2880}, {});
  EXPECT_EQ(document.GeometryOf(1), kA4);
  EXPECT_EQ(document.GeometryOf(2), kA4Landscape);
  EXPECT_EQ(document.GeometryOf(3), (PageGeometry{1440, 2880}));
}

TEST_F(RecorderTest, APictureThatCoversThePageCoversItsNewPaper) {
  recorder.BeginPage(kA4);
  recorder.DrawPicture({50, 50, 11806, 16738}, OnePixel());
  recorder.DrawPicture({11906, 16838, 0, 0}, OnePixel());
  recorder.ChangePaper(kA4Landscape, {});
  EXPECT_EQ(Page(1),
            "picture 50 50 16738 11806 of 1 x 1\n"
            "picture 16838 11906 0 0 of 1 x 1\n");
  EXPECT_EQ(document.GeometryOf(1), kA4Landscape);
  recorder.ChangePaper(kA4, {});
  EXPECT_TRUE(Page(1).starts_with("picture 50 50 11806 16738 of 1 x 1\n")) << Page(1);
}

TEST_F(RecorderTest, OtherPicturesStayWhereTheyAreOnNewPaper) {
  recorder.BeginPage(kA4);
  recorder.DrawPicture({0, 0, 11906, 2000}, OnePixel());
  recorder.DrawPicture({1440, 1440, 10466, 15398}, OnePixel());
  const std::string drawn = Page(1);
  recorder.ChangePaper(kA4Landscape, {});
  EXPECT_EQ(Page(1), drawn);
}

TEST_F(RecorderTest, PicturesMoveWithThePapersOrigin) {
  recorder.BeginPage(kA4);
  recorder.SetOrigin({100, 200});
  recorder.DrawPicture({50, 50, 11806, 16738}, OnePixel());
  recorder.DrawPicture({0, 0, 10, 20}, OnePixel());
  recorder.ChangePaper(kA4Landscape, {200, 100});
  EXPECT_EQ(Page(1),
            "picture 250 150 16938 11906 of 1 x 1\n"
            "picture 200 100 210 120 of 1 x 1\n");
  recorder.DrawText({1, 1}, "x");
  EXPECT_TRUE(Page(1).ends_with("text 201 101 \"x\" Arial 10 color 000000\n")) << Page(1);
}

TEST_F(RecorderTest, APageOnNewPaperHasANewRevisionWhenItHasPictures) {
  recorder.BeginPage(kA4);
  recorder.DrawPicture({0, 0, 11906, 16838}, OnePixel());
  const std::size_t before = document.RevisionOf(1);
  recorder.ChangePaper(kA4, {});
  EXPECT_EQ(document.RevisionOf(1), before);
  recorder.ChangePaper({11905, 16838}, {});
  EXPECT_NE(document.RevisionOf(1), before);
}

TEST_F(RecorderTest, EveryCommandReplaysAsItWasRecorded) {
  recorder.BeginPage(kA4);
  recorder.SetFont({.name = "Arial", .size = 10, .bold = true});
  recorder.DrawText({1440, 720}, "Hallo");
  recorder.SetPen({PenStyle::DashDot, 20, 0x0000FF});
  recorder.DrawLine({0, 0}, {100.5F, -3});
  recorder.SetBrush({BrushStyle::Cross, 0x00FF00});
  recorder.DrawRectangle({1, 2, 3, 4});
  recorder.DrawCircle({5, 6}, 7);
  recorder.DrawArc(
      {.center = {5, 6}, .radius = 7, .start = 0.5F, .end = 1, .radiusLineAtEnd = true});
  recorder.DrawPolyline(std::vector<Point>{{1, 2}, {3, 4}});
  recorder.DrawPolygon(std::vector<Point>{{1, 2}, {3, 4}, {5, 6}});
  recorder.DrawPicture({9, 8, 7, 6}, std::make_shared<PictureImage>(
                                         PictureImage::Pixels{2, 1, false, {0, 0, 0, 0, 0, 0}}));
  EXPECT_EQ(Page(1),
            "text 1440 720 \"Hallo\" Arial 10 bold color 000000\n"
            "line 0 0 100.5 -3 pen dash-dot 20 FF0000\n"
            "rectangle 1 2 3 4 pen dash-dot 20 FF0000 brush cross 00FF00\n"
            "circle 5 6 7 pen dash-dot 20 FF0000 brush cross 00FF00\n"
            "arc 5 6 7 from 0.5 to 1 radius-line pen dash-dot 20 FF0000 brush cross 00FF00\n"
            "polyline 1 2 3 4 pen dash-dot 20 FF0000\n"
            "polygon 1 2 3 4 5 6 pen dash-dot 20 FF0000 brush cross 00FF00\n"
            "picture 9 8 7 6 of 2 x 1\n");
}

// Counts how often each style is set.
class StyleCounter final : public Player {
 public:
  int fonts = 0, textColors = 0, pens = 0, brushes = 0, texts = 0;

  void SetFont(const FontDescription&) override { ++fonts; }
  void SetTextColor(Color) override { ++textColors; }
  void SetPen(const Pen&) override { ++pens; }
  void SetBrush(const Brush&) override { ++brushes; }
  void DrawText(Point, std::string_view) override { ++texts; }
  void DrawLine(Point, Point) override {}
  void DrawRectangle(const Rectangle&) override {}
  void DrawCircle(Point, float) override {}
  void DrawArc(const Arc&) override {}
  void DrawPolyline(std::span<const Point>) override {}
  void DrawPolygon(std::span<const Point>) override {}
  void DrawPicture(const Rectangle&, const PictureImageRef&) override {}
};

TEST_F(RecorderTest, StylesAreRecordedOnlyWhenACommandUsesThem) {
  recorder.BeginPage(kA4);
  for (int i = 1; i <= 5; ++i) {
    recorder.SetFont({.size = static_cast<float>(i)});
    recorder.SetBrush({BrushStyle::Solid, static_cast<Color>(i)});
  }
  recorder.DrawText({0, 0}, "a");
  recorder.SetFont({.size = 99});
  recorder.SetFont({.size = 5});
  recorder.DrawText({0, 0}, "b");
  recorder.DrawLine({0, 0}, {1, 1});
  StyleCounter counter;
  document.Play(1, counter);
  EXPECT_EQ(counter.fonts, 1);
  EXPECT_EQ(counter.textColors, 1);
  EXPECT_EQ(counter.pens, 1);
  EXPECT_EQ(counter.brushes, 0) << "a line uses no brush";
}

TEST_F(RecorderTest, EveryPageReplaysOnItsOwn) {
  recorder.SetFont({.name = "Courier New", .size = 8});
  recorder.SetTextColor(0x0000FF);
  recorder.BeginPage(kA4);
  recorder.DrawText({1, 1}, "a");
  recorder.BeginPage(kA4);
  recorder.DrawText({2, 2}, "b");
  EXPECT_EQ(Page(2), "text 2 2 \"b\" Courier New 8 color FF0000\n");
  EXPECT_EQ(Page(1), "text 1 1 \"a\" Courier New 8 color FF0000\n");
}

TEST_F(RecorderTest, AnOverlayAddsToItsPageInTheStylesInForce) {
  recorder.BeginPage(kA4);
  recorder.DrawText({1, 1}, "first");
  recorder.BeginPage(kA4);
  recorder.SetFont({.size = 8});
  recorder.DrawText({2, 2}, "second");
  recorder.BeginOverlay(1);
  recorder.DrawText({3, 3}, "over");
  recorder.EndOverlay();
  EXPECT_EQ(Page(1),
            "text 1 1 \"first\" Arial 10 color 000000\n"
            "text 3 3 \"over\" Arial 8 color 000000\n");
  EXPECT_EQ(Page(2), "text 2 2 \"second\" Arial 8 color 000000\n");
}

TEST_F(RecorderTest, OverlaysOfOnePageReplayInTheirOrder) {
  recorder.BeginPage(kA4);
  recorder.BeginPage(kA4);
  for (const char* text : {"a", "b", "c"}) {
    recorder.BeginOverlay(1);
    recorder.DrawText({0, 0}, text);
    recorder.BeginOverlay(2);
    recorder.DrawText({9, 9}, text);
  }
  recorder.EndOverlay();
  EXPECT_EQ(Page(1),
            "text 0 0 \"a\" Arial 10 color 000000\n"
            "text 0 0 \"b\" Arial 10 color 000000\n"
            "text 0 0 \"c\" Arial 10 color 000000\n");
}

TEST_F(RecorderTest, AnOverlayThatDrawsNothingLeavesABlankPageBlank) {
  recorder.BeginPage(kA4);
  recorder.BeginOverlay(1);
  recorder.EndOverlay();
  EXPECT_EQ(Page(1), "");
}

TEST_F(RecorderTest, APageMaySpanManyChunks) {
  recorder.BeginPage(kA4);
  std::string expected;
  const std::string text(1000, 'x');
  for (int i = 0; i < 500; ++i) {
    recorder.DrawText({static_cast<float>(i), 0}, text);
    expected += "text " + std::to_string(i) + " 0 \"" + text + "\" Arial 10 color 000000\n";
  }
  ASSERT_GT(document.RecordBytes(), 5 * Arena::kChunkSize);
  EXPECT_EQ(Page(1), expected);
}

TEST_F(RecorderTest, TextsAndPointListsLargerThanAChunkAreKept) {
  recorder.BeginPage(kA4);
  const std::string text(3 * Arena::kChunkSize, 'x');
  const std::vector<Point> points(Arena::kChunkSize, Point{1, 2});
  recorder.DrawText({0, 0}, text);
  recorder.DrawPolygon(points);
  recorder.DrawText({7, 7}, "after");
  const std::string trace = Page(1);
  EXPECT_TRUE(
      trace.starts_with("text 0 0 \"" + text + "\" Arial 10 color 000000\npolygon 1 2 1 2"));
  EXPECT_TRUE(trace.ends_with("text 7 7 \"after\" Arial 10 color 000000\n"));
}

TEST_F(RecorderTest, EmptyTextsAndPointListsAreKept) {
  recorder.BeginPage(kA4);
  recorder.DrawText({0, 0}, "");
  recorder.DrawPolyline({});
  EXPECT_EQ(Page(1), "text 0 0 \"\" Arial 10 color 000000\npolyline pen solid 0 000000\n");
}

TEST_F(RecorderTest, ManyStylesKeepTheirNumbersApart) {
  recorder.BeginPage(kA4);
  std::string expected;
  for (int i = 0; i < 1000; ++i) {
    recorder.SetPen({PenStyle::Solid, static_cast<float>(i), 0});
    recorder.DrawLine({0, 0}, {1, 1});
    expected += "line 0 0 1 1 pen solid " + std::to_string(i) + " 000000\n";
  }
  EXPECT_EQ(Page(1), expected);
}

TEST_F(RecorderTest, APictureDrawnOftenIsOneObject) {
  const auto picture = std::make_shared<PictureImage>();
  for (int page = 0; page < 10; ++page) {
    recorder.BeginPage(kA4);
    recorder.DrawPicture({0, 0, 1, 1}, picture);
  }
  EXPECT_EQ(picture.use_count(), 2) << "ours and the document's";
}

// A page of a calculation report, as a host composes it.
void ComposeReportPage(Recorder& recorder, const PictureImageRef& logo) {
  recorder.BeginPage(kA4);
  for (int i = 0; i < 185; ++i) {
    recorder.SetFont({.size = i % 10 == 0 ? 12.0F : 10.0F, .bold = i % 10 == 0});
    recorder.DrawText({static_cast<float>(i % 5 * 2000), static_cast<float>(i / 5 * 240)},
                      "1234,5678 kg");
  }
  recorder.SetPen({PenStyle::Solid, 10, 0});
  for (int i = 0; i < 15; ++i) recorder.DrawLine({0, 0}, {9000, static_cast<float>(i)});
  recorder.SetBrush({BrushStyle::Solid, 0xC0C0C0});
  recorder.DrawRectangle({1, 1, 2, 2});
  recorder.DrawRectangle({2, 2, 3, 3});
  recorder.DrawArc({.center = {5, 5}, .radius = 5, .start = 0, .end = 1});
  recorder.DrawPolygon(std::vector<Point>(12));
  recorder.DrawPicture({0, 0, 1000, 1000}, logo);
}

TEST_F(RecorderTest, AReportPageWithItsPageNumberTakesLessThanItsBudget) {
  constexpr int kPages = 1000;
  const auto logo = std::make_shared<PictureImage>();
  for (int i = 0; i < kPages; ++i) ComposeReportPage(recorder, logo);
  for (int i = 1; i <= kPages; ++i) {
    recorder.BeginOverlay(i);
    recorder.DrawText({9000, 16000}, "Blad " + std::to_string(i) + " van 1000");
  }
  EXPECT_LT(document.RecordBytes() / kPages, 4900U);
}

TEST_F(RecorderTest, HoldsAsManyPagesAsAnIntegerCounts) {
  for (int i = 1; i <= 32767; ++i) {
    recorder.BeginPage(kA4);
    recorder.DrawText({0, 0}, std::to_string(i));
  }
  EXPECT_EQ(document.PageCount(), 32767);
  EXPECT_EQ(Page(1), "text 0 0 \"1\" Arial 10 color 000000\n");
  EXPECT_EQ(Page(32767), "text 0 0 \"32767\" Arial 10 color 000000\n");
}

TEST_F(RecorderTest, AnUnfinishedPageCanBeReplayed) {
  recorder.BeginPage(kA4);
  recorder.DrawText({0, 0}, "a");
  EXPECT_EQ(Page(1), "text 0 0 \"a\" Arial 10 color 000000\n");
  recorder.DrawText({1, 0}, "b");
  EXPECT_EQ(Page(1),
            "text 0 0 \"a\" Arial 10 color 000000\ntext 1 0 \"b\" Arial 10 color 000000\n");
}

TEST(TracePlayer, EscapesQuotesAndBackslashes) {
  Document document;
  Recorder recorder(document);
  recorder.BeginPage(kA4);
  recorder.DrawText({0, 0}, R"(a"b\c)");
  EXPECT_EQ(TracePage(document, 1), "text 0 0 \"a\\\"b\\\\c\" Arial 10 color 000000\n");
}

TEST(TracePlayer, PrintsNumbersThatReadBackTheSame) {
  Document document;
  Recorder recorder(document);
  recorder.BeginPage(kA4);
  recorder.DrawLine({0.1F, 1e-7F}, {-12345.678F, 3e10F});
  EXPECT_EQ(TracePage(document, 1), "line 0.1 1e-07 -12345.678 3e+10 pen solid 0 000000\n");
}

}  // namespace
}  // namespace pagivo::native
