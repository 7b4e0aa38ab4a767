#include <cmath>
#include <functional>
#include <limits>
#include <vector>

#include "engine/native/engine_test.h"

namespace pagivo::native {
namespace {

class PaperTest : public EngineTest {
 protected:
  void ExpectPage(double width, double height) {
    EXPECT_EQ(engine->GetPageWidth(), Variant(width));
    EXPECT_EQ(engine->GetPageHeight(), Variant(height));
  }
  PageGeometry GeometryOf(std::int32_t page) { return engine->GetDocument().GeometryOf(page); }
};

constexpr PageGeometry kA4{11906, 16838};
constexpr PageGeometry kA4Landscape{16838, 11906};

TEST_F(PaperTest, EveryKnownCodeGivesItsSize) {
  for (const Paper& paper : KnownPapers()) {
    engine->PutPaperSize(paper.code);
    EXPECT_EQ(engine->GetPaperSize(), paper.code);
    ExpectPage(paper.width, paper.height);
  }
}

TEST_F(PaperTest, EveryKnownSizeLiesWithinTheLimitsOfUserDefinedOnes) {
  for (const Paper& paper : KnownPapers()) {
    for (const std::int32_t extent : {paper.width, paper.height}) {
      EXPECT_GE(extent, kMinimumPaperExtent) << paper.code;
      EXPECT_LE(extent, kMaximumPaperExtent) << paper.code;
    }
  }
}

TEST_F(PaperTest, LandscapeSwapsWidthAndHeightOfEverySize) {
  engine->PutOrientation(1);
  EXPECT_EQ(engine->GetOrientation(), 1);
  for (const Paper& paper : KnownPapers()) {
    engine->PutPaperSize(paper.code);
    ExpectPage(paper.height, paper.width);
  }
  engine->PutPaperSize(9);
  engine->PutOrientation(0);
  ExpectPage(11906, 16838);
}

TEST_F(PaperTest, WithoutAPrinterEveryKnownCodeIsSupported) {
  for (std::int32_t code = 1; code <= 41; ++code) EXPECT_TRUE(engine->GetPaperSizes(code)) << code;
  EXPECT_TRUE(engine->GetPaperSizes(256));
  for (const std::int32_t code : {-1, 0, 42, 255, 257}) {
    EXPECT_FALSE(engine->GetPaperSizes(code)) << code;
  }
}

TEST_F(PaperTest, UnknownCodesAndOrientationsAreErrorsThatChangeNothing) {
  for (const std::int32_t code : {-1, 0, 42, 255, 257, 100000}) {
    ExpectInvalidValue([&] { engine->PutPaperSize(code); }, std::to_string(code));
  }
  for (const std::int32_t orientation : {-1, 2, 100}) {
    ExpectInvalidValue([&] { engine->PutOrientation(orientation); });
  }
  EXPECT_EQ(engine->GetPaperSize(), 9);
  EXPECT_EQ(engine->GetOrientation(), 0);
}

TEST_F(PaperTest, PuttingAnExtentMakesThePaperUserDefinedAndKeepsTheOther) {
  const std::vector<std::function<void()>> puts = {
      [&] { engine->PutPageWidth(5000.5); }, [&] { engine->PutPageHeight(6000.5); },
      [&] { engine->PutPaperWidth(7000.5F); }, [&] { engine->PutPaperHeight(8000.5F); }};
  const std::vector<std::pair<double, double>> expected = {
      {5000.5, 16838}, {11906, 6000.5}, {7000.5, 16838}, {11906, 8000.5}};
  for (std::size_t i = 0; i < puts.size(); ++i) {
    engine->PutPaperSize(9);
    puts[i]();
    EXPECT_EQ(engine->GetPaperSize(), 256);
    ExpectPage(expected[i].first, expected[i].second);
  }
}

TEST_F(PaperTest, InLandscapeThePaperLiesOnItsSide) {
  engine->PutOrientation(1);
  engine->PutPageWidth(20000);
  ExpectPage(20000, 11906);
  engine->PutPaperWidth(9000);
  ExpectPage(20000, 9000);
  engine->PutPaperHeight(15000);
  ExpectPage(15000, 9000);
  engine->PutPageHeight(8000);
  ExpectPage(15000, 8000);
  engine->PutOrientation(0);
  ExpectPage(8000, 15000);
}

TEST_F(PaperTest, CodeUserDefinedKeepsTheSizeInForce) {
  engine->PutPaperSize(8);
  engine->PutPaperSize(256);
  EXPECT_EQ(engine->GetPaperSize(), 256);
  ExpectPage(16838, 23811);
}

TEST_F(PaperTest, AKnownCodeEndsTheUserDefinedSize) {
  engine->PutPageWidth(5000);
  engine->PutPaperSize(9);
  ExpectPage(11906, 16838);
}

TEST_F(PaperTest, ExtentsOutside3MillimetresTo200InchesAreErrorsThatChangeNothing) {
  for (const double extent : {169.9, 288000.1, 0.0, -11906.0, std::nan(""), 1e30,
                              std::numeric_limits<double>::infinity()}) {
    const auto single = static_cast<float>(extent);
    ExpectInvalidValue([&] { engine->PutPageWidth(extent); });
    ExpectInvalidValue([&] { engine->PutPageHeight(extent); });
    ExpectInvalidValue([&] { engine->PutPaperWidth(single); });
    ExpectInvalidValue([&] { engine->PutPaperHeight(single); });
  }
  EXPECT_EQ(engine->GetPaperSize(), 9);
  ExpectPage(11906, 16838);
  engine->PutPageWidth(3 / 25.4 * 1440);
  engine->PutPageHeight(288000);
  ExpectPage(3 / 25.4 * 1440, 288000);
}

TEST_F(PaperTest, ASinglesThreeMillimetresAreEnough) {
  constexpr auto kThreeMillimetres = static_cast<float>(3 / 25.4 * 1440);
  engine->PutPaperWidth(kThreeMillimetres);
  engine->PutPaperHeight(kThreeMillimetres);
  ExpectPage(kThreeMillimetres, kThreeMillimetres);
}

TEST_F(PaperTest, ABlankPageTakesTheNewPaper) {
  engine->StartDoc();
  engine->PutFontSize(12);
  engine->PutOrientation(1);
  EXPECT_EQ(GeometryOf(1), kA4Landscape);
  engine->PutPageWidth(5000);
  engine->PutPaperHeight(4000);
  EXPECT_EQ(GeometryOf(1), (PageGeometry{4000, 11906}));
  engine->PutPaperSize(9);
  EXPECT_EQ(GeometryOf(1), kA4Landscape);
}

TEST_F(PaperTest, APageOfOnlyPicturesTakesTheNewPaper) {
  engine->StartDoc();
  engine->PutX2(500);
  engine->PutY2(500);
  engine->PutPicture(OnePixel());
  engine->PutOrientation(1);
  EXPECT_EQ(GeometryOf(1), kA4Landscape);
  engine->PutText("x");
  engine->PutOrientation(0);
  EXPECT_EQ(GeometryOf(1), kA4Landscape);
  EXPECT_TRUE(Page(1).starts_with("picture 0 0 500 500 of 1 x 1\n")) << Page(1);
}

TEST_F(PaperTest, ADrawnPageKeepsItsPaperAndTheNextTakesTheNew) {
  engine->StartDoc();
  engine->PutText("x");
  engine->PutOrientation(1);
  EXPECT_EQ(GeometryOf(1), kA4);
  ExpectPage(16838, 11906);
  engine->NewPage();
  EXPECT_EQ(GeometryOf(2), kA4Landscape);
  engine->NewPage();
  engine->PutPaperSize(8);
  engine->PutOrientation(0);
  EXPECT_EQ(GeometryOf(1), kA4);
  EXPECT_EQ(GeometryOf(2), kA4Landscape);
  EXPECT_EQ(GeometryOf(3), (PageGeometry{16838, 23811}));
}

TEST_F(PaperTest, ACompletedDocumentKeepsAllItsPapers) {
  engine->StartDoc();
  engine->EndDoc();
  engine->PutOrientation(1);
  EXPECT_EQ(GeometryOf(1), kA4);
  engine->StartOverlay(std::int16_t{1});
  engine->PutPaperSize(8);
  EXPECT_EQ(GeometryOf(1), kA4);
}

TEST_F(PaperTest, PaperSurvivesDocuments) {
  engine->PutOrientation(1);
  engine->StartDoc();
  EXPECT_EQ(GeometryOf(1), kA4Landscape);
}

TEST_F(PaperTest, WhileAPageIsReopenedThePageMeasuresAreItsOwn) {
  engine->StartDoc();
  engine->PutText("x");
  engine->PutOrientation(1);
  engine->NewPage();
  engine->EndDoc();
  engine->StartOverlay(std::int16_t{1});
  ExpectPage(11906, 16838);
  engine->StartOverlay(std::int16_t{2});
  ExpectPage(16838, 11906);
  engine->StartOverlay(std::int16_t{1});
  engine->EndOverlay();
  ExpectPage(16838, 11906);
}

TEST_F(PaperTest, WithoutAPrinterBothWaysOfMeasuringAgree) {
  engine->StartDoc();
  for (const bool physical : {true, false}) {
    engine->PutPhysicalPage(physical);
    engine->PutCurrentX(100.0);
    engine->PutCurrentY(200.0);
    engine->PutText("x");
  }
  EXPECT_EQ(Page(),
            "text 100 200 \"x\" Arial 10 color 000000\n"
            "text 100 200 \"x\" Arial 10 color 000000\n");
}

struct Margin {
  const char* name;
  Variant (NativeEngine::*get)();
  void (NativeEngine::*put)(const Variant&);
};
constexpr Margin kMargins[] = {
    {"MarginLeft", &NativeEngine::GetMarginLeft, &NativeEngine::PutMarginLeft},
    {"MarginTop", &NativeEngine::GetMarginTop, &NativeEngine::PutMarginTop},
    {"MarginRight", &NativeEngine::GetMarginRight, &NativeEngine::PutMarginRight},
    {"MarginBottom", &NativeEngine::GetMarginBottom, &NativeEngine::PutMarginBottom},
};

TEST_F(PaperTest, MarginsTakeEveryKindOfNumber) {
  const std::vector<std::pair<Variant, double>> values = {
      {std::int16_t{0}, 0}, {std::int16_t{720}, 720}, {std::int32_t{100000}, 100000},
      {720.5F, 720.5},      {1133.858, 1133.858},     {Variant("567"), 567},
      {Variant(), 0},
  };
  for (const Margin& margin : kMargins) {
    for (const auto& [value, expected] : values) {
      (*engine.*margin.put)(value);
      EXPECT_EQ((*engine.*margin.get)(), Variant(expected)) << margin.name;
    }
  }
}

TEST_F(PaperTest, OtherMarginsAreErrorsThatChangeNothing) {
  const std::vector<std::pair<Variant, ErrorNumber>> values = {
      {std::int16_t{-1}, ErrorNumber::InvalidPropertyValue},
      {-0.5, ErrorNumber::InvalidPropertyValue},
      {true, ErrorNumber::InvalidPropertyValue},
      {std::nan(""), ErrorNumber::InvalidPropertyValue},
      {1e300, ErrorNumber::InvalidPropertyValue},
      {Null, ErrorNumber::TypeMismatch},
      {Missing, ErrorNumber::TypeMismatch},
      {Variant("tekst"), ErrorNumber::TypeMismatch},
      {Variant(ObjectRef()), ErrorNumber::TypeMismatch},
  };
  for (const Margin& margin : kMargins) {
    for (const auto& [value, number] : values) {
      ExpectError(
          number, [&] { (*engine.*margin.put)(value); }, margin.name);
    }
    EXPECT_EQ((*engine.*margin.get)(), Variant(1440.0)) << margin.name;
  }
}

}  // namespace
}  // namespace pagivo::native
