// The engine's printers, on a print server in memory.
#include <gmock/gmock.h>

#include "engine/native/engine_test.h"
#include "engine/native/spool/memory_print_server.h"

namespace pagivo::native {
namespace {

class EnginePrintersTest : public testing::Test {
 protected:
  EnginePrintersTest() {
    for (const char* name : {"Balie", "Tekenkamer"}) {
      server->printers.push_back(
          {.name = name, .uri = {}, .deviceAddress = name + std::string("!"), .stateReasons = {}});
    }
    server->defaultPrinter = "Tekenkamer";
    server->media["Balie"].media = {{.size = {21000, 29700}, .margins = {254, 508, 762, 1016}}};
    engine->PutMarginLeft(std::int16_t{0});
    engine->PutMarginTop(std::int16_t{0});
    engine->PutDevice("Balie");
    engine->StartDoc();
  }

  std::string Page() { return TracePage(engine->GetDocument(), engine->GetDocument().PageCount()); }
  void DrawDot() { engine->DrawLine(0.0, 0.0, 0.0, 0.0); }
  std::string DotAt(const std::string& x, const std::string& y) {
    const std::string corner = " " + x + " " + y;
    return "line" + corner + corner + " pen solid 0 000000\n";
  }

  std::shared_ptr<MemoryPrintServer> server = std::make_shared<MemoryPrintServer>();
  std::shared_ptr<NativeEngine> engine =
      std::make_shared<NativeEngine>(EngineServices{.printers = server});
};

TEST_F(EnginePrintersTest, AFreshEngineHasTheDefaultPrinterAndA4) {
  server->questions = 0;
  const auto fresh = std::make_shared<NativeEngine>(EngineServices{.printers = server});
  EXPECT_EQ(fresh->GetPaperSize(), kPaperA4);
  EXPECT_EQ(server->questions, 0);
  EXPECT_EQ(fresh->GetDevice(), "Tekenkamer");
  EXPECT_EQ(fresh->GetPort(), "Tekenkamer!");
}

TEST_F(EnginePrintersTest, WithoutADefaultPrinterItHasTheFirst) {
  server->defaultPrinter.clear();
  const auto fresh = std::make_shared<NativeEngine>(EngineServices{.printers = server});
  EXPECT_EQ(fresh->GetDevice(), "Balie");
}

TEST_F(EnginePrintersTest, AnyPrinterCanBeAskedAboutAndTheEngineKeepsItsOwn) {
  server->printers.back().acceptsJobs = false;
  server->media["Tekenkamer"].media = {{.size = {42000, 59400}, .margins = {}}};
  EXPECT_EQ(engine->Printers().PortOf("Tekenkamer"), "Tekenkamer!");
  EXPECT_FALSE(SupportsPaper(engine->Printers().MediaOf("Tekenkamer"), kPaperA4));
  EXPECT_TRUE(SupportsPaper(engine->Printers().MediaOf("Balie"), kPaperA4));
  EXPECT_EQ(engine->Printers().ConditionOf("Tekenkamer"),
            "Deze printer neemt geen afdruktaken aan");
  EXPECT_EQ(engine->Printers().ConditionOf("Balie"), "");
  EXPECT_EQ(engine->GetDevice(), "Balie");
}

TEST_F(EnginePrintersTest, OfAPrinterThatIsGoneOrCannotBeAskedNothingIsKnown) {
  ExpectError(ErrorNumber::PrinterFailure, [&] { engine->Printers().PortOf("Weg"); });
  EXPECT_EQ(engine->Printers().ConditionOf("Weg"), "");
  server->isAway = true;
  ExpectError(ErrorNumber::PrinterFailure, [&] { engine->Printers().PortOf("Balie"); });
  EXPECT_TRUE(SupportsPaper(engine->Printers().MediaOf("Balie"), kPaperA4));
  EXPECT_EQ(engine->Printers().ConditionOf("Balie"), "");
}

TEST_F(EnginePrintersTest, ASetupIsAppliedAsAWhole) {
  PageSetup setup;
  setup.paper.PutCode(8);
  setup.margins.left = 100;
  setup.printer = "Tekenkamer";
  engine->Apply(setup);
  EXPECT_EQ(engine->GetPaperSize(), 8);
  EXPECT_EQ(engine->Setup().margins.left, 100);
  EXPECT_EQ(engine->GetDevice(), "Tekenkamer");
  EXPECT_EQ(engine->GetDocument().GeometryOf(1), setup.paper.Geometry());
}

TEST_F(EnginePrintersTest, ASetupWhosePrinterIsGoneChangesNothing) {
  const PageSetup before = engine->Setup();
  PageSetup setup;
  setup.paper.PutCode(8);
  setup.margins.left = 100;
  setup.printer = "Weg";
  ExpectError(ErrorNumber::PrinterFailure, [&] { engine->Apply(setup); });
  EXPECT_EQ(engine->Setup(), before);
  EXPECT_EQ(engine->GetDevice(), "Balie");
  EXPECT_EQ(engine->GetDocument().GeometryOf(1), before.paper.Geometry());
}

TEST_F(EnginePrintersTest, ComposingAsksNothing) {
  server->questions = 0;
  for (int page = 0; page < 10; ++page) {
    engine->PutText("Blad");
    engine->PutOrientation(page % 2);
    engine->NewPage();
  }
  engine->EndDoc();
  EXPECT_EQ(server->questions, 0);
}

TEST_F(EnginePrintersTest, AServerThatIsAwayHasNoPrinters) {
  server->isAway = true;
  const auto fresh = std::make_shared<NativeEngine>(EngineServices{.printers = server});
  EXPECT_EQ(fresh->GetNDevices(), 0);
  EXPECT_EQ(fresh->GetDevice(), "");
  EXPECT_EQ(fresh->GetPort(), "");
  EXPECT_TRUE(fresh->GetPaperSizes(kPaperA4));
  ExpectError(ErrorNumber::PrinterFailure, [&] { fresh->PutDevice("Balie"); });
}

TEST_F(EnginePrintersTest, AServerWithoutPrintersPrintsNothing) {
  server->printers.clear();
  const auto fresh = std::make_shared<NativeEngine>(EngineServices{.printers = server});
  fresh->StartDoc();
  fresh->EndDoc();
  ExpectError(ErrorNumber::PrinterFailure, [&] { fresh->PrintDoc(false, 1, 1); });
  EXPECT_TRUE(server->jobs.empty());
}

TEST_F(EnginePrintersTest, APageRangeWithoutPagesIsAnError) {
  engine->EndDoc();
  for (const auto& [first, last] : {std::pair(1, 0), std::pair(2, 5), std::pair(-4, -1)}) {
    ExpectError(ErrorNumber::PageOutOfRange, [&, from = first, to = last] {
      engine->PrintDoc(false, static_cast<std::int16_t>(from), static_cast<std::int16_t>(to));
    });
  }
  EXPECT_TRUE(server->jobs.empty());
}

TEST_F(EnginePrintersTest, ADialogIsNeverShownForPrinting) {
  engine->EndDoc();
  engine->PrintDoc(true, 1, 1);
  EXPECT_EQ(server->jobs.size(), 1U);
}

TEST_F(EnginePrintersTest, PositionsCountFromThePapersCornerUnlessAskedOtherwise) {
  DrawDot();
  EXPECT_EQ(Page(), DotAt("0", "0"));
}

TEST_F(EnginePrintersTest, PositionsCountFromThePrintableAreaWhenAsked) {
  engine->PutPhysicalPage(false);
  DrawDot();
  EXPECT_EQ(Page(), DotAt("144", "288"));
  engine->PutPhysicalPage(true);
  engine->NewPage();
  DrawDot();
  EXPECT_EQ(Page(), DotAt("0", "0"));
}

TEST_F(EnginePrintersTest, WhatIsDrawnStaysWhereItIs) {
  DrawDot();
  engine->PutPhysicalPage(false);
  EXPECT_EQ(Page(), DotAt("0", "0"));
}

TEST_F(EnginePrintersTest, EveryKindOfDrawingCountsFromThePrintableArea) {
  engine->PutPhysicalPage(false);
  engine->PutPenStyle(0);
  engine->DrawRectangle(0.0, 0.0, 10.0, 10.0);
  engine->DrawCircle(0.0, 0.0, 10.0, Missing, Missing);
  engine->DrawCircle(0.0, 0.0, 10.0, 1.0, 2.0);
  engine->PutPolyline("0 0 10 10");
  engine->PutPolygon("0 0 10 10 0 10");
  engine->PutText("Blad");
  std::istringstream lines(Page());
  int count = 0;
  for (std::string line; std::getline(lines, line); ++count) {
    EXPECT_THAT(line, testing::HasSubstr(" 144 288 "));
  }
  EXPECT_EQ(count, 6);
}

TEST_F(EnginePrintersTest, ALandscapePageHasACornerThatIsPrintableBothWays) {
  engine->PutPhysicalPage(false);
  engine->PutOrientation(1);
  DrawDot();
  EXPECT_EQ(Page(), DotAt("576", "432"));
}

TEST_F(EnginePrintersTest, ANewPrinterHasItsOwnPrintableArea) {
  server->media["Tekenkamer"].media = {{.size = {21000, 29700}, .margins = {508, 508, 508, 508}}};
  engine->PutPhysicalPage(false);
  engine->PutDevice("Tekenkamer");
  DrawDot();
  EXPECT_EQ(Page(), DotAt("288", "288"));
}

TEST_F(EnginePrintersTest, AReopenedPageCountsFromItsOwnPrintableArea) {
  engine->PutPhysicalPage(false);
  engine->PutOrientation(1);
  engine->NewPage();
  engine->EndDoc();
  engine->StartOverlay(1);
  DrawDot();
  EXPECT_EQ(TracePage(engine->GetDocument(), 1), DotAt("576", "432"));
}

TEST_F(EnginePrintersTest, NewPagesAskNothingOfThePrintableArea) {
  engine->PutPhysicalPage(false);
  server->questions = 0;
  server->isAway = true;
  engine->NewPage();
  DrawDot();
  EXPECT_EQ(Page(), DotAt("144", "288"));
  EXPECT_EQ(server->questions, 0);
}

}  // namespace
}  // namespace pagivo::native
