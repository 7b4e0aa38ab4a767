// Windows drawn into a document, and the engine's dialogs as a host asks for them.
#include <map>
#include <span>
#include <string_view>
#include <vector>

#include "engine/native/engine_test.h"
#include "engine/native/pdf/pdf_writer.h"
#include "support/read_file.h"
#include "support/scratch_folder.h"
#include "support/user/headless_user.h"
#include "values/conversions.h"
#include "window/headless/headless_windows.h"

namespace pagivo::native {
namespace {

// A desktop whose windows a test has put there.
class Desktop : public HeadlessWindows {
 public:
  // A window of one colour, 40 × 20 pixels, on a screen of that many device pixels a pixel.
  void AddWindow(std::int32_t handle, std::uint32_t color, std::int32_t density = 1) {
    const std::int32_t width = 40 * density;
    const std::int32_t height = 20 * density;
    windows_[handle] = {.width = width,
                        .height = height,
                        .pixels = std::vector(static_cast<std::size_t>(width * height), color),
                        .size = {.width = 600, .height = 300}};
  }
  void AddEmptyWindow(std::int32_t handle) { windows_[handle] = {}; }

  WindowImage CaptureWindow(std::int32_t handle) override {
    const auto window = windows_.find(handle);
    return window == windows_.end() ? HeadlessWindows::CaptureWindow(handle) : window->second;
  }

 private:
  std::map<std::int32_t, WindowImage> windows_;
};

class WindowsTest : public ComposingTest {
 protected:
  WindowsTest() {
    engine = std::make_shared<NativeEngine>(EngineServices{.windows = desktop});
    engine->PutMarginLeft(std::int16_t{0});
    engine->PutMarginTop(std::int16_t{0});
    engine->StartDoc();
    desktop->AddWindow(7, 0xFF102030);
  }

  void PutPosition(double x, double y) {
    engine->PutCurrentX(x);
    engine->PutCurrentY(y);
  }
  std::size_t PicturesInPdf() {
    const ScratchFolder folder;
    const std::string file = folder.FileNamed("vensters.pdf");
    engine->EndDoc();
    NativePdfExporter().ExportPdf(engine, file, 1, engine->GetPageCount());
    const std::string bytes = ReadFile(file);
    std::size_t count = 0;
    for (std::size_t at = 0; (at = bytes.find("/Subtype/Image", at)) != std::string::npos; ++at) {
      ++count;
    }
    return count;
  }

  std::shared_ptr<Desktop> desktop = std::make_shared<Desktop>();
};

// The pictures of a page.
class PictureCollector final : public Player {
 public:
  void SetFont(const FontDescription&) override {}
  void SetTextColor(Color) override {}
  void SetPen(const Pen&) override {}
  void SetBrush(const Brush&) override {}
  void DrawText(Point, std::string_view) override {}
  void DrawLine(Point, Point) override {}
  void DrawRectangle(const Rectangle&) override {}
  void DrawCircle(Point, float) override {}
  void DrawArc(const Arc&) override {}
  void DrawPolyline(std::span<const Point>) override {}
  void DrawPolygon(std::span<const Point>) override {}
  void DrawPicture(const Rectangle& rectangle, const PictureImageRef& picture) override {
    rectangles.push_back(rectangle);
    pictures.push_back(picture);
  }
  std::vector<Rectangle> rectangles;
  std::vector<PictureImageRef> pictures;
};

// --- RenderControl ----------------------------------------------------------------------------

TEST_F(WindowsTest, AWindowIsDrawnAtThePrintPositionInItsOwnSize) {
  PutPosition(1000, 2000);
  engine->PutRenderControl(7);
  EXPECT_EQ(Page(), "picture 1000 2000 1600 2300 of 40 x 20\n");
}

TEST_F(WindowsTest, ADenseScreenGivesMorePixelsInTheSameSize) {
  desktop->AddWindow(8, 0xFFFFFFFF, 2);
  engine->PutRenderControl(8);
  EXPECT_EQ(Page(), "picture 0 0 600 300 of 80 x 40\n");
}

TEST_F(WindowsTest, ItsColoursAreThoseOfTheScreen) {
  engine->PutRenderControl(7);
  PictureCollector page;
  engine->GetDocument().Play(1, page);
  ASSERT_EQ(page.pictures.size(), 1U);
  const PictureImage::Pixels pixels = *page.pictures[0]->GetPixels();
  EXPECT_FALSE(pixels.hasAlpha);
  EXPECT_EQ(pixels.data.size(), std::size_t{40} * 20 * 3);
  for (std::size_t at = 0; at < pixels.data.size(); at += 3) {
    EXPECT_EQ(pixels.data[at], 0x10);
    EXPECT_EQ(pixels.data[at + 1], 0x20);
    EXPECT_EQ(pixels.data[at + 2], 0x30);
  }
}

TEST_F(WindowsTest, ThePrintPositionStays) {
  PutPosition(300, 400);
  engine->PutText("Venster:");
  engine->PutRenderControl(7);
  const double afterText = 300 + engine->GetTextWidth("Venster:");
  PictureCollector page;
  engine->GetDocument().Play(1, page);
  ASSERT_EQ(page.rectangles.size(), 1U);
  EXPECT_FLOAT_EQ(page.rectangles[0].x1, static_cast<float>(afterText));
  EXPECT_EQ(page.rectangles[0].y1, 400);
  engine->PutRenderControl(7);
  PictureCollector again;
  engine->GetDocument().Play(1, again);
  ASSERT_EQ(again.rectangles.size(), 2U);
  EXPECT_EQ(again.rectangles[0], again.rectangles[1]);
}

TEST_F(WindowsTest, TheRectangleOfPicturesIsNotAsked) {
  engine->PutX2(5.0);
  engine->PutRenderControl(7);
  EXPECT_EQ(Page(), "picture 0 0 600 300 of 40 x 20\n");
}

TEST_F(WindowsTest, ANumberThatIsNoWindowIsAnErrorThatDrawsNothing) {
  for (const std::int32_t handle : {0, -1, 8, 2147483647}) {
    ExpectError(ErrorNumber::InvalidArgument, [&] { engine->PutRenderControl(handle); });
  }
  EXPECT_EQ(Page(), "");
}

TEST_F(WindowsTest, AWindowOfNoSizeDrawsNothing) {
  desktop->AddEmptyWindow(9);
  engine->PutRenderControl(9);
  EXPECT_EQ(Page(), "");
}

TEST_F(WindowsTest, NeedsAnOpenDocumentWhateverTheNumberIs) {
  engine->EndDoc();
  for (const std::int32_t handle : {7, 8}) {
    ExpectError(ErrorNumber::NoDocument, [&] { engine->PutRenderControl(handle); });
  }
  const std::int16_t page = 1;
  engine->StartOverlay(page);
  engine->PutRenderControl(7);
  EXPECT_EQ(Page(), "picture 0 0 600 300 of 40 x 20\n");
}

TEST_F(WindowsTest, WithoutWindowsEveryNumberIsAnError) {
  engine = std::make_shared<NativeEngine>();
  engine->StartDoc();
  for (const std::int32_t handle : {0, 1, -1, 2147483647}) {
    ExpectError(ErrorNumber::InvalidArgument, [&] { engine->PutRenderControl(handle); });
  }
  EXPECT_EQ(Page(), "");
}

TEST_F(WindowsTest, WindowsThatLookTheSameAreOnePictureInTheFile) {
  desktop->AddWindow(8, 0xFF102030);
  desktop->AddWindow(9, 0xFF102031);
  engine->PutRenderControl(7);
  engine->PutRenderControl(8);
  engine->NewPage();
  engine->PutRenderControl(7);
  engine->PutRenderControl(9);
  EXPECT_EQ(PicturesInPdf(), 2U);
}

TEST_F(WindowsTest, AnotherDocumentKeepsNoPictureOfTheOneBefore) {
  engine->PutRenderControl(7);
  std::weak_ptr<const PictureImage> before;
  {
    PictureCollector page;
    engine->GetDocument().Play(1, page);
    before = page.pictures.at(0);
  }
  engine->StartDoc();
  EXPECT_TRUE(before.expired());
  engine->PutRenderControl(7);
  EXPECT_EQ(Page(), "picture 0 0 600 300 of 40 x 20\n");
}

// --- The engine's dialogs ---------------------------------------------------------------------

TEST_F(WindowsTest, PageSetupPutsWhatTheUserConfirms) {
  desktop->AddScript([](Form& form) {
    HeadlessUser user(form);
    user.Replace("marginLeft", "12,7");
    user.Click("landscape");
    user.Click("ok");
  });
  EXPECT_TRUE(engine->GetPrintDialog(kPageSetupDialog));
  EXPECT_EQ(engine->GetOrientation(), 1);
  EXPECT_DOUBLE_EQ(ToDouble(engine->GetMarginLeft()), 720);
  EXPECT_EQ(ToDouble(engine->GetMarginTop()), 0);
  EXPECT_EQ(ToDouble(engine->GetPageWidth()), 16838);
}

TEST_F(WindowsTest, PrinterSetupChoosesPaperWithoutAPrinter) {
  desktop->AddScript([](Form& form) {
    HeadlessUser user(form);
    user.Pick("paper", 1);
    user.Click("ok");
  });
  EXPECT_TRUE(engine->GetPrintDialog(kPrinterSetupDialog));
  EXPECT_EQ(engine->GetPaperSize(), 8);
}

TEST_F(WindowsTest, ASizeOfTheHostsOwnSurvivesItsDialogs) {
  engine->PutPageWidth(5000);
  engine->PutPageHeight(3000);
  for (const std::int32_t dialog : {kPrinterSetupDialog, kPageSetupDialog}) {
    desktop->AddScript([](Form& form) { HeadlessUser(form).Click("ok"); });
    EXPECT_TRUE(engine->GetPrintDialog(dialog));
  }
  EXPECT_EQ(engine->GetPaperSize(), kPaperUserDefined);
  EXPECT_EQ(ToDouble(engine->GetPageWidth()), 5000);
  EXPECT_EQ(ToDouble(engine->GetPageHeight()), 3000);
}

TEST_F(WindowsTest, DialogsThatNobodyAnswersAreNotConfirmed) {
  EXPECT_FALSE(engine->GetPrintDialog(kPrinterSetupDialog));
  EXPECT_FALSE(engine->GetPrintDialog(kPageSetupDialog));
  ExpectInvalidValue([&] { engine->GetPrintDialog(2); });
}

TEST_F(WindowsTest, WithoutWindowsDialogsAreNotConfirmed) {
  engine = std::make_shared<NativeEngine>();
  EXPECT_FALSE(engine->GetPrintDialog(kPrinterSetupDialog));
  EXPECT_FALSE(engine->GetPrintDialog(kPageSetupDialog));
  ExpectInvalidValue([&] { engine->GetPrintDialog(-1); });
}

}  // namespace
}  // namespace pagivo::native
