#include "api/api_test.h"

namespace pagivo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Overlays : public ApiTest {
 protected:
  Overlays() {
    Engine().Answer("PageWidth", 11906.0);
    Engine().Answer("PageHeight", 16838.0);
  }

  static std::string PictureLine(int element) {
    return Describe("put Picture", {PreviewForm().imageWatermerk(Integer(element)).Picture()});
  }

  static Lines StepsOf(int element) {
    return {"put X1 Integer 50", "put Y1 Integer 50",   "get PageWidth",     "put X2 Double 11806",
            "get PageHeight",    "put Y2 Double 16738", PictureLine(element)};
  }
};

// --- Overlays -----------------------------------------------------------------------------------

TEST_F(Overlays, AnOverlayOpensThePageAsItIsGiven) {
  for (const int page : {1, 7, 32767}) {
    EXPECT_THAT(LogOf([&] { print.VsPPStartOverlay(Integer(page)); }),
                ElementsAre(Describe("call StartOverlay", {Integer(page)})));
  }
}

TEST_F(Overlays, APageBelowOneOpensNoOverlayAndTheEndIsPassedOn) {
  for (const int page : {0, -3, -32768}) {
    EXPECT_THAT(LogOf([&] {
                  print.VsPPStartOverlay(Integer(page));
                  print.VsPPEndOverlay();
                }),
                ElementsAre("call EndOverlay"));
  }
}

TEST_F(Overlays, AnOverlayThatTheEngineRefusesIsNotReported) {
  Engine().FailOn("call StartOverlay");
  Engine().FailOn("call EndOverlay");
  EXPECT_THAT(LogOf([&] {
                print.VsPPStartOverlay(Integer(99));
                print.VsPPEndOverlay();
              }),
              ElementsAre("call StartOverlay Integer 99 (failed)", "call EndOverlay (failed)"));
}

// --- The watermark ------------------------------------------------------------------------------

TEST_F(Overlays, ChoosingAWatermarkDrawsItsPictureOnNearlyTheWholePage) {
  for (int watermark = 1; watermark <= 3; ++watermark) {
    const Lines expected = StepsOf(watermark - 1);
    EXPECT_EQ(LogOf([&] { print.VsPPWatermerkInit(Integer(watermark)); }), expected);
    EXPECT_EQ(State().WatermarkOn, watermark);
  }
}

TEST_F(Overlays, TheThreeWatermarksAreDifferentPictures) {
  EXPECT_NE(PictureLine(0), PictureLine(1));
  EXPECT_NE(PictureLine(1), PictureLine(2));
  EXPECT_NE(PictureLine(0), PictureLine(2));
  EXPECT_EQ(PictureLine(0), PictureLine(0));
}

TEST_F(Overlays, TheWatermarksRectangleIsNotScaled) {
  UseScale(2, 3);
  const Lines expected = StepsOf(0);
  EXPECT_EQ(LogOf([&] { print.VsPPWatermerkInit(Integer(1)); }), expected);
}

TEST_F(Overlays, ThePageMayBeReportedInLong) {
  Engine().Answer("PageWidth", Long(11906));
  Engine().Answer("PageHeight", Long(16838));
  const Lines expected = StepsOf(0);
  EXPECT_EQ(LogOf([&] { print.VsPPWatermerkInit(Integer(1)); }), expected);
}

TEST_F(Overlays, AnUnknownWatermarkChangesNothing) {
  print.VsPPWatermerkInit(Integer(2));
  for (const int watermark : {-32768, -1, 0, 4, 5, 32767}) {
    EXPECT_THAT(LogOf([&] { print.VsPPWatermerkInit(Integer(watermark)); }), IsEmpty());
    EXPECT_EQ(State().WatermarkOn, 2);
  }
}

TEST_F(Overlays, EveryNewPageCarriesTheChosenWatermark) {
  const Lines steps = StepsOf(1);
  print.VsPPNewPage();
  print.VsPPNewPage();
  Lines expected = steps;
  for (int page = 4; page <= 5; ++page) {
    expected.emplace_back("call NewPage");
    expected.insert(expected.end(), steps.begin(), steps.end());
  }
  EXPECT_EQ(LogOf([&] {
              print.VsPPWatermerkInit(Integer(2));
              print.VsPPNewPage();
              print.VsPPNewPage();
            }),
            expected);
}

TEST_F(Overlays, WithoutAWatermarkANewPageIsNothingButThat) {
  EXPECT_THAT(LogOf([&] { print.VsPPNewPage(); }), ElementsAre("call NewPage"));
}

TEST_F(Overlays, ChoosingAWatermarkTwiceDrawsItTwice) {
  const Lines once = StepsOf(0);
  Lines expected = once;
  expected.insert(expected.end(), once.begin(), once.end());
  EXPECT_EQ(LogOf([&] {
              print.VsPPWatermerkInit(Integer(1));
              print.VsPPWatermerkInit(Integer(1));
            }),
            expected);
}

TEST_F(Overlays, OnlyInitAndANewObjectSwitchTheWatermarkOff) {
  print.VsPPWatermerkInit(Integer(1));
  print.VsPPFinish("rapport");
  print.VsPPEinde();
  EXPECT_EQ(State().WatermarkOn, 1);
  print.VsPPInit();
  EXPECT_EQ(State().WatermarkOn, 0);
  print.VsPPWatermerkInit(Integer(1));
  const PgPrint another;
  EXPECT_EQ(State().WatermarkOn, 0);
}

TEST_F(Overlays, NoWatermarkIsDrawnForANumberOutsideItsRange) {
  for (const int watermark : {-1, 0, 4, 32767}) {
    State().WatermarkOn = Integer(watermark);
    EXPECT_THAT(LogOf([&] { print.VsWatermerkAfdrukken(); }), IsEmpty()) << watermark;
  }
}

TEST_F(Overlays, EveryFailingWriteIsLostAlone) {
  State().WatermarkOn = 1;
  const Lines steps = StepsOf(0);
  for (const std::size_t failing : {0U, 1U, 3U, 5U, 6U}) {
    Engine().Answer("PageWidth", 11906.0);
    Engine().Answer("PageHeight", 16838.0);
    Engine().FailOn(steps[failing]);
    Lines expected = steps;
    expected[failing] += " (failed)";
    EXPECT_EQ(LogOf([&] { print.VsWatermerkAfdrukken(); }), expected);
    Engine().FailNothing();
  }
}

TEST_F(Overlays, AnUnknownPageSizeLosesThatEdgeAlone) {
  State().WatermarkOn = 1;
  Engine().FailOn("get PageWidth");
  EXPECT_THAT(
      WritesOf([&] { print.VsWatermerkAfdrukken(); }),
      ElementsAre("put X1 Integer 50", "put Y1 Integer 50", "put Y2 Double 16738", PictureLine(0)));
}

TEST_F(Overlays, ANewPageThatFailsIsStampedAllTheSame) {
  State().WatermarkOn = 1;
  Lines expected = StepsOf(0);
  expected.insert(expected.begin(), "call NewPage (failed)");
  Engine().FailOn("call NewPage");
  EXPECT_EQ(LogOf([&] { print.VsPPNewPage(); }), expected);
}

// --- Calls through the object's own interface ---------------------------------------------------

class OverridingPrint : public PgPrint {
 public:
  void VsPPSetPreviewMode(const IntegerArgument& PreviewMode) override {
    calls.push_back("preview mode " + std::to_string(std::int16_t{PreviewMode}) + ", watermark " +
                    std::to_string(State().WatermarkOn));
  }
  void VsWatermerkAfdrukken() override { calls.emplace_back("draw the watermark"); }

  Lines calls;
};

TEST_F(Overlays, ChoosingAWatermarkCallsTheObjectsOwnMethods) {
  OverridingPrint overriding;
  EXPECT_THAT(LogOf([&] { overriding.VsPPWatermerkInit(Integer(3)); }), IsEmpty());
  EXPECT_THAT(overriding.calls, ElementsAre("preview mode 1, watermark 3", "draw the watermark"));
}

TEST_F(Overlays, ANewPageCallsTheObjectsOwnWatermark) {
  OverridingPrint overriding;
  EXPECT_THAT(LogOf([&] { overriding.VsPPNewPage(); }), ElementsAre("call NewPage"));
  EXPECT_THAT(overriding.calls, ElementsAre("draw the watermark"));
}

}  // namespace
}  // namespace pagivo::testing
