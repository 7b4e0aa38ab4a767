// Documents composed through PgPrint on the native platform, as the engine recorded them.
#include <gmock/gmock.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <vector>

#include "engine/native/native_engine.h"
#include "pagivo/pg_print.h"
#include "pagivo/picture.h"
#include "platform/platform.h"
#include "preview/preview_form.h"
#include "support/data/test_data.h"
#include "support/trace/trace_player.h"

namespace pagivo {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

class NativeDocumentTest : public testing::Test {
 protected:
  NativeDocumentTest() { print.VsPPInit(); }
  ~NativeDocumentTest() override { print.VsPPEinde(); }

  static native::NativeEngine& Engine() {
    return dynamic_cast<native::NativeEngine&>(*PreviewForm().vsPrint());
  }
  static std::string Page(std::int32_t page) {
    return native::TracePage(Engine().GetDocument(), page);
  }

  PgPrint print;
};

TEST_F(NativeDocumentTest, TextGoesWhereTheHostPutsItInItsOwnUnits) {
  print.VsPPSetScaleMode(5);
  print.VsPPPrint("Hallo", 1.0, 0.5, "Arial", 10.0, true);
  EXPECT_EQ(Page(1), "text 1440 720 \"Hallo\" Arial 10 bold color 000000\n");
}

TEST_F(NativeDocumentTest, TextWithoutAPositionStartsAtTheMarginsOnEveryPageOfEveryDocument) {
  const auto composeTwoPages = [this] {
    for (int page = 1; page <= 2; ++page) {
      print.VsPPPrint("Hallo");
      print.VsPPNewPage();
    }
  };
  for (const double margin : {0.0, 567.0}) {
    for (int document = 1; document <= 2; ++document) {
      print.VsPPInit();
      if (margin > 0) print.VsPPSetMarginLeft(margin);
      if (margin > 0) print.VsPPSetMarginTop(margin);
      composeTwoPages();
      const std::string corner = margin > 0 ? "567 567" : "0 0";
      for (const std::int32_t page : {1, 2}) {
        EXPECT_EQ(Page(page), "text " + corner + " \"Hallo\" Arial 10 color 000000\n");
      }
    }
  }
}

TEST_F(NativeDocumentTest, RightAlignedTextEndsWhereTheHostPutsIt) {
  print.VsPPSetFont("Arial", 10.0, false);
  print.VsPPPrintR("123,45", 5000.0, 100.0);
  const double width = Engine().GetTextWidth("123,45");
  native::Document document;
  native::Recorder recorder(document);
  recorder.BeginPage({});
  recorder.DrawText({static_cast<float>(5000 - width), 100}, "123,45");
  EXPECT_EQ(Page(1), native::TracePage(document, 1));
}

TEST_F(NativeDocumentTest, FiguresTakeTheirPensAndBrushes) {
  print.VsPPLine(0.0, 0.0, 100.0, 100.0);
  print.VsPPLine(0.0, 0.0, 100.0, 100.0, true, true, std::int32_t{0xFF}, std::int32_t{6},
                 std::int32_t{1}, std::int16_t{20});
  print.VsPPCircle(50.0, 50.0, 25.0, -0.5, -1.0);
  auto x = Array<float>::FromValues({0, 10, 20}, 1);
  auto y = Array<float>::FromValues({0, 0, 10}, 1);
  print.VsPPDrawPolyline(x, y, true);
  EXPECT_EQ(Page(1),
            "line 0 0 100 100 pen solid 0 000000\n"
            "rectangle 0 0 100 100 pen dash 20 FF0000 brush cross FF0000\n"
            "arc 50 50 25 from 0.5 radius-line to 1 radius-line pen solid 0 000000 "
            "brush transparent FFFFFF\n"
            "polygon 0 0 10 0 20 10 pen solid 0 000000 brush transparent FFFFFF\n");
}

TEST_F(NativeDocumentTest, APolylineInMillimetresReadsBackInTwips) {
  print.VsPPSetScaleMode(6);
  auto x = Array<float>::FromValues({10, 20.5F}, 1);
  auto y = Array<float>::FromValues({10, 20}, 1);
  print.VsPPDrawPolyline(x, y);
  EXPECT_THAT(Page(1), StartsWith("polyline 566.929"));
}

TEST_F(NativeDocumentTest, TheWatermarkLiesOnEveryPageFromItsChoiceOn) {
  print.VsPPNewPage();
  print.VsPPWatermerkInit(2);
  print.VsPPNewPage();
  print.VsPPFinish("Rapport");
  EXPECT_EQ(Page(1), "");
  EXPECT_EQ(Page(2), "picture 50 50 11806 16738 of 288 x 396\n");
  EXPECT_EQ(Page(3), Page(2));
}

// The sizes of the pages of a document that changes its paper at the start of each, with
// `watermark` (0 for none), which is expected to fit every page.
std::vector<native::PageGeometry> PageSizesWithWatermark(PgPrint& print, std::int16_t watermark) {
  print.VsPPInit();
  print.VsPPWatermerkInit(watermark);
  for (std::int16_t code = 1; code <= 41; ++code) {
    for (const std::int16_t orientation : {std::int16_t{1}, std::int16_t{2}}) {
      print.VsPPSetPaperSize(code);
      print.VsPPSetOrientation(orientation);
      print.VsPPPrint("Tekst", 0.0, 0.0);
      print.VsPPNewPage();
    }
  }
  const auto& engine = dynamic_cast<native::NativeEngine&>(*PreviewForm().vsPrint());
  const native::Document& document = engine.GetDocument();
  std::vector<native::PageGeometry> sizes;
  for (std::int32_t page = 1; page < document.PageCount(); ++page) {
    sizes.push_back(document.GeometryOf(page));
    if (watermark == 0) continue;
    const auto [width, height] = sizes.back();
    std::ostringstream expected;
    expected << "picture 50 50 " << width - 100 << ' ' << height - 100 << " of 288 x 396\n";
    EXPECT_THAT(native::TracePage(document, page), StartsWith(expected.str())) << page;
  }
  return sizes;
}

TEST_F(NativeDocumentTest, EveryPaperIsTheSameWithAWatermarkWhichFitsIt) {
  const auto sizes = PageSizesWithWatermark(print, 0);
  ASSERT_EQ(sizes.size(), 82U);
  for (std::size_t i = 0; i < sizes.size(); i += 2) {
    const Paper& paper = *FindPaper(static_cast<std::int32_t>(i / 2 + 1));
    EXPECT_EQ(sizes[i].width, paper.width);
    EXPECT_EQ(sizes[i].height, paper.height);
    EXPECT_EQ(sizes[i + 1], (native::PageGeometry{sizes[i].height, sizes[i].width}));
  }
  for (const std::int16_t watermark : {std::int16_t{1}, std::int16_t{2}, std::int16_t{3}}) {
    EXPECT_EQ(PageSizesWithWatermark(print, watermark), sizes) << watermark;
  }
}

TEST_F(NativeDocumentTest, AWatermarkFitsALabelOfThreeMillimetres) {
  print.VsPPWatermerkInit(1);
  print.VsPPSetScaleMode(6);
  print.VsPPSetPaperWidth(40);
  print.VsPPSetPaperHeight(3);
  print.VsPPPrint("Etiket", 0.0, 0.0);
  const auto [width, height] = Engine().GetDocument().GeometryOf(1);
  EXPECT_NEAR(width, 40 / 25.4 * 1440, 0.01);
  EXPECT_NEAR(height, 3 / 25.4 * 1440, 0.01);
  EXPECT_THAT(Page(1), StartsWith("picture 50 50 2167."));
}

TEST_F(NativeDocumentTest, PageNumbersAreDrawnOverTheFinishedPages) {
  for (int page = 1; page <= 2; ++page) {
    print.VsPPPrint("Tekst", 100.0, 100.0);
    print.VsPPNewPage();
  }
  print.VsPPFinish("Rapport");
  const std::int16_t pages = static_cast<std::int16_t>(print.VsPPGetPageCount() - 1);
  for (std::int16_t page = 1; page <= pages; ++page) {
    print.VsPPStartOverlay(page);
    print.VsPPPrint("Blad " + std::to_string(page) + " van " + std::to_string(pages), 9000.0,
                    16000.0);
    print.VsPPEndOverlay();
  }
  EXPECT_EQ(pages, 2);
  EXPECT_THAT(Page(1), EndsWith("text 9000 16000 \"Blad 1 van 2\" Arial 10 color 000000\n"));
  EXPECT_THAT(Page(2), EndsWith("text 9000 16000 \"Blad 2 van 2\" Arial 10 color 000000\n"));
  EXPECT_EQ(Engine().GetDocument().Title(), "Rapport");
}

TEST_F(NativeDocumentTest, ALandscapePageStandsAmongUprightOnes) {
  print.VsPPNewPage();
  print.VsPPSetOrientation(std::int16_t{2});
  print.VsPPPrint("Breed", 100.0, 100.0);
  print.VsPPSetOrientation(std::int16_t{1});
  print.VsPPNewPage();
  const native::Document& document = Engine().GetDocument();
  EXPECT_LT(document.GeometryOf(1).width, document.GeometryOf(1).height);
  EXPECT_GT(document.GeometryOf(2).width, document.GeometryOf(2).height);
  EXPECT_LT(document.GeometryOf(3).width, document.GeometryOf(3).height);
}

TEST_F(NativeDocumentTest, ThePaperSizesAreTheNamedOnesThatTheEngineSupports) {
  Array<std::string> names;
  Array<std::int16_t> codes;
  EXPECT_EQ(print.VsPPGetPaperSizes(names, codes), 22);
  EXPECT_EQ(names(9), "A4 210 x 297 mm");
  EXPECT_EQ(codes(22), 256);
}

TEST_F(NativeDocumentTest, APictureObjectIsDrawnAsOftenAsTheHostLikes) {
  const std::string path = TestDataPath("pictures");
  const ObjectRef empty = LoadPicture("");
  print.VsPPRealPicture(empty, 0, 0, 100, 100);
  EXPECT_EQ(Page(1), "");
  EXPECT_THROW(LoadPicture(path + "/er is niets.png"), Error);
}

TEST_F(NativeDocumentTest, APictureFileThatIsNoneIsSkipped) {
  print.VsPPPicture("/dev/null/niets.png", 0, 0, 100, 100);
  EXPECT_EQ(Page(1), "");
}

template <typename Statement>
std::optional<ErrorNumber> NumberOfErrorIn(Statement statement) {
  try {
    statement();
  } catch (const Error& error) {
    return error.Number();
  }
  return std::nullopt;
}

TEST_F(NativeDocumentTest, ADocumentOfNothingButItsLastPageIsNotExported) {
  print.VsPPFinish("Leeg");
  try {
    print.VSPDF("/tmp/pagivo leeg.pdf");
    ADD_FAILURE() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::PageOutOfRange);
    EXPECT_THAT(error.what(), HasSubstr("/tmp/pagivo leeg.pdf"));
  }
  EXPECT_FALSE(std::filesystem::exists("/tmp/pagivo leeg.pdf"));
}

// What is missing counts in this order: a finished document, a page of it, the folder.
TEST_F(NativeDocumentTest, AnExportFailsAlikeBoundLateOrNot) {
  const std::string path = "/geen/map/rapport.pdf";
  const auto expectFailure = [&](ErrorNumber expected) {
    std::array<Variant, 1> arguments{path};
    EXPECT_EQ(NumberOfErrorIn([&] { print.VSPDF(path); }), expected);
    EXPECT_EQ(NumberOfErrorIn([&] { print.CallMember("VSPDF", arguments); }), expected);
  };
  expectFailure(ErrorNumber::NoDocument);
  print.VsPPFinish("Leeg");
  expectFailure(ErrorNumber::PageOutOfRange);
  print.VsPPInit();
  print.VsPPNewPage();
  expectFailure(ErrorNumber::NoDocument);
  print.VsPPFinish("Rapport");
  expectFailure(ErrorNumber::FileAccess);
}

TEST_F(NativeDocumentTest, PrintingWithoutAPrinterIsSilent) {
  print.VsPPNewPage();
  print.VsPPFinish("Rapport");
  print.VsPrintFile(1);
  EXPECT_EQ(print.VsPPGetNDevices(), 0);
  EXPECT_EQ(print.VsPPGetDevice(), "");
}

TEST_F(NativeDocumentTest, RenderingAWindowThatIsNotThereReachesTheHost) {
  EXPECT_THROW(print.VsPPRenderControl(12345), Error);
}

TEST(NativePlatformTest, NamesEveryServiceAndNoPrinter) {
  const Platform platform = NativePlatform();
  EXPECT_NE(platform.windows, nullptr);
  EXPECT_NE(platform.makeEngine(platform), platform.makeEngine(platform))
      << "an engine of its own every time";
  EXPECT_NE(platform.makePdfExporter(), nullptr);
  EXPECT_NE(platform.loadPicture(""), nullptr);
  EXPECT_EQ(platform.defaultPrinter(), "");
  EXPECT_THROW(platform.decodePicture({}), Error);
}

}  // namespace
}  // namespace pagivo
