// What is read of printers: the list, the default, addresses, states and paper.
#include <cstdlib>

#include "engine/native/spool/cups/printing_test.h"
#include "support/trace/trace_player.h"

namespace pagivo {
namespace {

using native::PrinterState;
using testing::ElementsAre;

constexpr const char* kColor = TestPrintServer::kColorPrinter;
constexpr const char* kDrawing = TestPrintServer::kDrawingPrinter;

class PrintersTest : public PrintingTest {
 protected:
  std::vector<std::string> Listed() {
    std::vector<std::string> names;
    const std::int16_t count = Engine().GetNDevices();
    for (std::int16_t index = 0; index < count; ++index)
      names.push_back(Engine().GetDevices(index));
    return names;
  }

  const native::Printer& StateOf(const std::string& name) {
    printers->Refresh();
    return *std::ranges::find(printers->Printers(), name, &native::Printer::name);
  }

  // What the host is told of the printer's paper.
  std::vector<std::int16_t> PaperOf(const std::string& printer) {
    print.VsPPSetDevice(printer);
    Array<std::string> names;
    Array<std::int16_t> codes;
    const std::int16_t count = print.VsPPGetPaperSizes(names, codes);
    std::vector<std::int16_t> found;
    for (std::int16_t index = 1; index <= count; ++index) found.push_back(codes(index));
    return found;
  }
};

TEST_F(PrintersTest, AreListedInTheServersOrder) {
  EXPECT_EQ(print.VsPPGetNDevices(), 2);
  EXPECT_THAT(Listed(), ElementsAre(kColor, kDrawing));
}

TEST_F(PrintersTest, TheDefaultPrinterIsCurrentUntilAnotherIsChosen) {
  EXPECT_EQ(print.VsPPGetDevice(), kColor);
  print.VsPPSetDevice(kDrawing);
  EXPECT_EQ(print.VsPPGetDevice(), kDrawing);
}

TEST_F(PrintersTest, TheUsersOwnDefaultPrinterComesBeforeTheServers) {
  setenv("LPDEST", kDrawing, 1);
  EXPECT_EQ(print.VsPPGetDevice(), kDrawing);
}

TEST_F(PrintersTest, ADefaultPrinterThatIsGoneGivesWayToTheFirst) {
  setenv("LPDEST", "Verdwenen", 1);
  EXPECT_EQ(print.VsPPGetDevice(), kColor);
}

TEST_F(PrintersTest, ThePortIsTheDevicesAddress) {
  EXPECT_EQ(Engine().GetPort(), Server().Color().Address());
  print.VsPPSetDevice(kDrawing);
  EXPECT_EQ(Engine().GetPort(), Server().Drawing().Address());
}

TEST_F(PrintersTest, AnUnknownPrinterIsRefusedAndTheChoiceStays) {
  print.VsPPSetDevice(kDrawing);
  EXPECT_EQ(PrinterFailureOf([&] { Engine().PutDevice("Verdwenen"); }),
            "De printer \"Verdwenen\" bestaat niet");
  print.VsPPSetDevice("Verdwenen");
  EXPECT_EQ(print.VsPPGetDevice(), kDrawing);
}

TEST_F(PrintersTest, OneThatComesLaterIsListedAndCanBeChosen) {
  EXPECT_EQ(Listed().size(), 2U);
  Server().AddQueue("Balie", Server().Color());
  print.VsPPSetDevice("Balie");
  EXPECT_EQ(print.VsPPGetDevice(), "Balie");
  EXPECT_THAT(Listed(), ElementsAre("Balie", kColor, kDrawing));
  Server().RemoveQueue("Balie");
  EXPECT_THAT(Listed(), ElementsAre(kColor, kDrawing));
}

TEST_F(PrintersTest, WhatWasReadOfThemIsKeptUntilTheListIsOpenedAnew) {
  EXPECT_EQ(print.VsPPGetNDevices(), 2);
  const auto paper = PaperOf(kDrawing);
  UsePrintServer("127.0.0.1:1");
  EXPECT_EQ(print.VsPPGetDevice(), kDrawing);
  EXPECT_EQ(Engine().GetDevices(1), kDrawing);
  EXPECT_EQ(Engine().GetPort(), Server().Drawing().Address());
  EXPECT_EQ(PaperOf(kDrawing), paper);
  EXPECT_EQ(print.VsPPGetNDevices(), 0);
}

TEST_F(PrintersTest, AnIndexOutsideTheListIsAnError) {
  for (const std::int16_t index : {std::int16_t{-1}, std::int16_t{2}})
    EXPECT_THROW(Engine().GetDevices(index), Error);
}

TEST_F(PrintersTest, TellTheirStateAndItsReasons) {
  EXPECT_EQ(StateOf(kDrawing).state, PrinterState::Idle);
  EXPECT_TRUE(StateOf(kDrawing).acceptsJobs);
  Server().Pause(kDrawing);
  EXPECT_EQ(StateOf(kDrawing).state, PrinterState::Stopped);
  EXPECT_THAT(StateOf(kDrawing).stateReasons, ElementsAre("paused"));
  Server().Resume(kDrawing);
  Server().Reject(kDrawing);
  EXPECT_EQ(StateOf(kDrawing).state, PrinterState::Idle);
  EXPECT_FALSE(StateOf(kDrawing).acceptsJobs);
  Server().Accept(kDrawing);
}

TEST_F(PrintersTest, SupportThePaperThatTheyHave) {
  EXPECT_THAT(PaperOf(kColor), ElementsAre(1, 2, 9, 10, 11, 18, 256));
  EXPECT_THAT(PaperOf(kDrawing), ElementsAre(3, 4, 8, 9, 10, 17));
}

TEST_F(PrintersTest, NamelessCodesAreSupportedByTheEngineOnly) {
  EXPECT_FALSE(Engine().GetPaperSizes(20));
  EXPECT_FALSE(Engine().GetPaperSizes(0));
  EXPECT_FALSE(Engine().GetPaperSizes(42));
}

// 4 mm from the left and 3 mm from the top, in twips.
TEST_F(PrintersTest, PositionsCountFromThePrintableAreaWhenTheHostAsksForIt) {
  print.VsPPSetPhysicalPage(false);
  print.VsPPLine(0.0, 0.0, 100.0, 100.0);
  EXPECT_EQ(native::TracePage(Engine().GetDocument(), 1),
            "line 226.77165 170.07874 326.77167 270.07874 pen solid 0 000000\n");
}

TEST_F(PrintersTest, ComposingAsksThemNothing) {
  UsePrintServer("127.0.0.1:1");
  Compose(3);
  UsePrintServer(Server().Address());
  EXPECT_EQ(print.VsPPGetDevice(), kColor);
}

}  // namespace
}  // namespace pagivo
