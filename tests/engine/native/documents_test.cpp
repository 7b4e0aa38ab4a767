#include <algorithm>
#include <functional>
#include <initializer_list>
#include <vector>

#include "engine/native/engine_test.h"

namespace pagivo::native {
namespace {

using DocumentsTest = EngineTest;

TEST_F(DocumentsTest, AFreshEngineHasNoPages) {
  EXPECT_EQ(engine->GetPageCount(), 0);
  EXPECT_EQ(engine->GetCurrentPage(), 0);
  EXPECT_FALSE(engine->IsComplete());
}

TEST_F(DocumentsTest, AFreshEngineIsInItsStandardState) {
  EXPECT_EQ(engine->GetFontName(), "Arial");
  EXPECT_EQ(engine->GetFontSize(), 10);
  EXPECT_EQ(engine->GetPenColor(), 0);
  EXPECT_EQ(engine->GetMarginLeft(), Variant(1440.0));
  EXPECT_EQ(engine->GetMarginTop(), Variant(1440.0));
  EXPECT_EQ(engine->GetMarginRight(), Variant(1440.0));
  EXPECT_EQ(engine->GetMarginBottom(), Variant(1440.0));
  EXPECT_EQ(engine->GetPaperSize(), 9);
  EXPECT_EQ(engine->GetOrientation(), 0);
  EXPECT_EQ(engine->GetPageWidth(), Variant(11906.0));
  EXPECT_EQ(engine->GetPageHeight(), Variant(16838.0));
  EXPECT_EQ(engine->GetCopies(), 1);
  EXPECT_EQ(engine->GetZoomMode(), kZoomWholePage);
  EXPECT_EQ(engine->GetPreviewPage(), 1);
  engine->StartDoc();
  engine->PutText("x");
  engine->DrawRectangle(0.0, 0.0, 1.0, 1.0);
  EXPECT_EQ(Page(1),
            "text 1440 1440 \"x\" Arial 10 color 000000\n"
            "rectangle 0 0 1 1 pen solid 0 000000 brush transparent FFFFFF\n");
}

TEST_F(DocumentsTest, StartDocOpensPageOne) {
  engine->StartDoc();
  EXPECT_EQ(engine->GetPageCount(), 1);
  EXPECT_EQ(engine->GetCurrentPage(), 1);
}

TEST_F(DocumentsTest, NewPageCountsUp) {
  engine->StartDoc();
  engine->NewPage();
  engine->NewPage();
  EXPECT_EQ(engine->GetPageCount(), 3);
  EXPECT_EQ(engine->GetCurrentPage(), 3);
}

TEST_F(DocumentsTest, EndDocKeepsEveryPageAnEmptyLastOneToo) {
  engine->StartDoc();
  engine->PutText("x");
  engine->NewPage();
  engine->EndDoc();
  EXPECT_TRUE(engine->IsComplete());
  EXPECT_EQ(engine->GetPageCount(), 2);
  EXPECT_EQ(engine->GetCurrentPage(), 2);
  EXPECT_EQ(Page(2), "");
}

TEST_F(DocumentsTest, StartDocReplacesACompletedDocument) {
  engine->StartDoc();
  engine->PutText("old");
  engine->NewPage();
  engine->EndDoc();
  engine->StartDoc();
  EXPECT_EQ(engine->GetPageCount(), 1);
  EXPECT_FALSE(engine->IsComplete());
  EXPECT_EQ(Page(1), "");
}

TEST_F(DocumentsTest, StartDocReplacesADocumentBeingComposedOrOverlaid) {
  engine->StartDoc();
  engine->PutText("old");
  engine->StartDoc();
  EXPECT_EQ(Page(1), "");
  engine->EndDoc();
  engine->StartOverlay(std::int16_t{1});
  engine->StartDoc();
  engine->NewPage();
  EXPECT_EQ(engine->GetCurrentPage(), 2);
}

TEST_F(DocumentsTest, SettingsSurvivePagesAndDocuments) {
  engine->PutFontName("Courier New");
  engine->PutFontBold(true);
  engine->PutTextColor(0x0000FF);
  engine->PutPenStyle(1);
  engine->PutPenWidth(20.0);
  engine->PutPenColor(0x00FF00);
  engine->PutBrushStyle(6);
  engine->PutBrushColor(0xFF0000);
  engine->PutMarginLeft(100.0);
  engine->PutMarginTop(200.0);
  const std::string expected =
      "text 100 200 \"x\" Courier New 10 bold color FF0000\n"
      "rectangle 0 0 1 1 pen dash 20 00FF00 brush cross 0000FF\n";
  const auto draw = [&] {
    engine->PutText("x");
    engine->DrawRectangle(0.0, 0.0, 1.0, 1.0);
  };
  engine->StartDoc();
  draw();
  engine->NewPage();
  draw();
  EXPECT_EQ(Page(1), expected);
  EXPECT_EQ(Page(2), expected);
  engine->StartDoc();
  draw();
  EXPECT_EQ(Page(1), expected);
}

TEST_F(DocumentsTest, ThePrintPositionGoesToTheMarginsCorner) {
  engine->PutMarginLeft(300.0);
  engine->PutMarginTop(400.0);
  const std::string expected = "text 300 400 \"x\" Arial 10 color 000000\n";
  engine->PutCurrentX(9.0);
  engine->StartDoc();
  engine->PutText("x");
  EXPECT_EQ(Page(1), expected);
  engine->NewPage();
  engine->PutText("x");
  EXPECT_EQ(Page(2), expected);
  engine->NewPage();
  engine->EndDoc();
  engine->StartOverlay(std::int16_t{3});
  engine->PutText("x");
  EXPECT_EQ(Page(3), expected);
}

TEST_F(DocumentsTest, ThePrintPositionTakesTheMarginsThatAreInForceWhenItIsFirstUsed) {
  const auto putMargins = [&](double left, double top) {
    engine->PutMarginLeft(left);
    engine->PutMarginTop(top);
  };
  engine->StartDoc();
  putMargins(30, 40);
  engine->PutText("x");
  EXPECT_EQ(Page(1), "text 30 40 \"x\" Arial 10 color 000000\n");
  engine->NewPage();
  putMargins(50, 60);
  engine->PutText("x");
  EXPECT_EQ(Page(2), "text 50 60 \"x\" Arial 10 color 000000\n");
  engine->EndDoc();
  engine->StartOverlay(std::int16_t{2});
  putMargins(70, 80);
  engine->PutText("x");
  EXPECT_TRUE(Page(2).ends_with("text 70 80 \"x\" Arial 10 color 000000\n")) << Page(2);
}

TEST_F(DocumentsTest, ACoordinateThatWasPutDoesNotFollowTheMargins) {
  engine->StartDoc();
  engine->PutCurrentX(9.0);
  engine->PutMarginLeft(30.0);
  engine->PutMarginTop(40.0);
  engine->PutText("x");
  EXPECT_EQ(Page(1), "text 9 40 \"x\" Arial 10 color 000000\n");
}

TEST_F(DocumentsTest, MarginsThatFollowATextDoNotMoveThePrintPosition) {
  engine->StartDoc();
  engine->PutText("");
  engine->PutMarginLeft(0.0);
  engine->PutMarginTop(0.0);
  engine->PutText("x");
  EXPECT_EQ(Page(1), "text 1440 1440 \"x\" Arial 10 color 000000\n");
}

TEST_F(DocumentsTest, TheNameBecomesTheTitleOfThisAndLaterDocuments) {
  engine->PutDocName("Voor");
  engine->StartDoc();
  EXPECT_EQ(engine->GetDocument().Title(), "Voor");
  engine->PutDocName(" Rapport ");
  EXPECT_EQ(engine->GetDocument().Title(), " Rapport ");
  engine->EndDoc();
  engine->StartDoc();
  EXPECT_EQ(engine->GetDocument().Title(), " Rapport ");
}

std::vector<std::function<void(NativeEngine&)>> DrawingOperations() {
  return {
      [](NativeEngine& e) { e.PutText("x"); },
      [](NativeEngine& e) { e.PutText(""); },
      [](NativeEngine& e) { e.DrawLine(0.0, 0.0, 1.0, 1.0); },
      [](NativeEngine& e) { e.DrawRectangle(0.0, 0.0, 1.0, 1.0); },
      [](NativeEngine& e) { e.DrawCircle(0.0, 0.0, 1.0, Missing, Missing); },
      [](NativeEngine& e) { e.DrawCircle(0.0, 0.0, 1.0, 0.0, 1.0); },
      [](NativeEngine& e) { e.PutPolyline("0 0 1 1 "); },
      [](NativeEngine& e) { e.PutPolygon("0 0 1 1 2 0 "); },
      [](NativeEngine& e) { e.PutPicture(OnePixel()); },
  };
}

TEST_F(DocumentsTest, DrawingWithNoDocumentOpenIsAnError) {
  for (const auto& draw : DrawingOperations()) {
    ExpectError(ErrorNumber::NoDocument, [&] { draw(*engine); });
  }
  EXPECT_EQ(engine->GetPageCount(), 0);
}

TEST_F(DocumentsTest, DrawingOnACompletedDocumentIsAnError) {
  engine->StartDoc();
  engine->EndDoc();
  for (const auto& draw : DrawingOperations()) {
    ExpectError(ErrorNumber::NoDocument, [&] { draw(*engine); });
  }
  EXPECT_EQ(Page(1), "");
}

TEST_F(DocumentsTest, NewPageNeedsADocumentBeingComposed) {
  ExpectError(ErrorNumber::NoDocument, [&] { engine->NewPage(); });
  engine->StartDoc();
  engine->EndDoc();
  ExpectError(ErrorNumber::NoDocument, [&] { engine->NewPage(); });
  engine->StartOverlay(std::int16_t{1});
  ExpectError(ErrorNumber::NoDocument, [&] { engine->NewPage(); });
  EXPECT_EQ(engine->GetPageCount(), 1);
}

TEST_F(DocumentsTest, EndDocNeedsADocumentBeingComposed) {
  ExpectError(ErrorNumber::NoDocument, [&] { engine->EndDoc(); });
  engine->StartDoc();
  engine->EndDoc();
  ExpectError(ErrorNumber::NoDocument, [&] { engine->EndDoc(); });
  EXPECT_TRUE(engine->IsComplete());
}

TEST_F(DocumentsTest, HoldsAsManyPagesAsAnIntegerCountsAndRefusesTheNextWhole) {
  engine->StartDoc();
  for (int i = 1; i < 32767; ++i) engine->NewPage();
  engine->PutText("last");
  EXPECT_EQ(engine->GetPageCount(), 32767);
  ExpectError(ErrorNumber::DocumentFull, [&] { engine->NewPage(); });
  EXPECT_EQ(engine->GetPageCount(), 32767);
  EXPECT_EQ(engine->GetCurrentPage(), 32767);
  engine->EndDoc();
  engine->StartOverlay(std::int16_t{32767});
  engine->PutCurrentX(0.0);
  engine->PutCurrentY(0.0);
  engine->PutText("over");
  EXPECT_EQ(Page(32767),
            "text 1440 1440 \"last\" Arial 10 color 000000\n"
            "text 0 0 \"over\" Arial 10 color 000000\n");
}

class OverlaysTest : public EngineTest {
 protected:
  // Two pages with text, and the empty last one.
  OverlaysTest() {
    engine->StartDoc();
    for (const char* text : {"een", "twee"}) {
      engine->PutText(text);
      engine->NewPage();
    }
    engine->EndDoc();
  }
};

TEST_F(OverlaysTest, DrawOntoTheReopenedPage) {
  for (std::int16_t page = 1; page <= 2; ++page) {
    engine->StartOverlay(page);
    EXPECT_EQ(engine->GetCurrentPage(), page);
    engine->PutText("Blad " + std::to_string(page) + " van 2");
    engine->EndOverlay();
  }
  EXPECT_EQ(Page(1),
            "text 1440 1440 \"een\" Arial 10 color 000000\n"
            "text 1440 1440 \"Blad 1 van 2\" Arial 10 color 000000\n");
  EXPECT_EQ(Page(2),
            "text 1440 1440 \"twee\" Arial 10 color 000000\n"
            "text 1440 1440 \"Blad 2 van 2\" Arial 10 color 000000\n");
  EXPECT_EQ(Page(3), "");
  EXPECT_EQ(engine->GetPageCount(), 3);
  EXPECT_EQ(engine->GetCurrentPage(), 3);
}

TEST_F(OverlaysTest, KeepTheStylesInForce) {
  engine->PutFontSize(7);
  engine->PutTextColor(0x0000FF);
  engine->StartOverlay(std::int16_t{1});
  engine->PutText("x");
  engine->EndOverlay();
  EXPECT_TRUE(Page(1).ends_with("text 1440 1440 \"x\" Arial 7 color FF0000\n")) << Page(1);
}

TEST_F(OverlaysTest, OutsideTheDocumentIsAnError) {
  for (const std::int16_t page : std::initializer_list<std::int16_t>{-3, 0, 4, 32767}) {
    ExpectError(
        ErrorNumber::PageOutOfRange, [&] { engine->StartOverlay(page); }, std::to_string(page));
    ExpectError(ErrorNumber::NoDocument, [&] { engine->PutText("x"); });
  }
}

TEST_F(OverlaysTest, OfAnUnfinishedDocumentIsAnError) {
  engine->StartDoc();
  ExpectError(ErrorNumber::NoDocument, [&] { engine->StartOverlay(std::int16_t{1}); });
  engine->PutText("still composing");
  EXPECT_NE(Page(1), "");
}

TEST_F(OverlaysTest, WithoutADocumentIsAnError) {
  NativeEngine fresh;
  ExpectError(ErrorNumber::NoDocument, [&] { fresh.StartOverlay(std::int16_t{1}); });
}

TEST_F(OverlaysTest, EndOverlayWithoutAnOverlayIsAnError) {
  ExpectError(ErrorNumber::NoDocument, [&] { engine->EndOverlay(); });
  engine->StartOverlay(std::int16_t{1});
  engine->EndOverlay();
  ExpectError(ErrorNumber::NoDocument, [&] { engine->EndOverlay(); });
  engine->StartDoc();
  ExpectError(ErrorNumber::NoDocument, [&] { engine->EndOverlay(); });
}

TEST_F(OverlaysTest, StartingTheNextOneEndsTheOneThatIsOpen) {
  engine->StartOverlay(std::int16_t{1});
  engine->StartOverlay(std::int16_t{3});
  engine->PutText("x");
  engine->EndOverlay();
  EXPECT_EQ(Page(1), "text 1440 1440 \"een\" Arial 10 color 000000\n");
  EXPECT_EQ(Page(3), "text 1440 1440 \"x\" Arial 10 color 000000\n");
}

TEST_F(OverlaysTest, AFailedStartLeavesTheOpenOneOpen) {
  engine->StartOverlay(std::int16_t{3});
  ExpectError(ErrorNumber::PageOutOfRange, [&] { engine->StartOverlay(std::int16_t{9}); });
  engine->PutText("x");
  EXPECT_EQ(Page(3), "text 1440 1440 \"x\" Arial 10 color 000000\n");
}

}  // namespace
}  // namespace pagivo::native
