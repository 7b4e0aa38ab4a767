// Windows on the screen, drawn into a document by a host. Runs on an X server.
#include <gtest/gtest.h>

#include <QPainter>
#include <QWidget>
#include <algorithm>

#include "pagivo/error.h"
#include "pagivo/page_image.h"
#include "pagivo/pg_print.h"
#include "pagivo/qt_windows.h"
#include "support/read_file.h"
#include "support/scratch_folder.h"
#include "window/qt/x_client.h"

namespace pagivo {
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFFFF;
constexpr std::uint32_t kRed = 0xFFFF0000;
constexpr std::uint32_t kBlue = 0xFF0000FF;

class BlueWidget final : public QWidget {
 private:
  void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), Qt::blue); }
};

class RenderControl : public ::testing::Test {
 protected:
  RenderControl() {
    UseQtWindows();
    print.VsPPInit();
  }
  ~RenderControl() override { print.VsPPEinde(); }

  void Render(std::uint32_t window) { print.VsPPRenderControl(static_cast<std::int32_t>(window)); }
  // Moves the print position there, in 96ths of an inch.
  void MoveTo(int x, int y) {
    print.VsPPPrint("", static_cast<double>(x) * 15, static_cast<double>(y) * 15);
  }
  PageImage Page() {
    print.VsPPFinish("Vensters");
    return DrawPageImage(1, 96);
  }
  static std::uint32_t At(const PageImage& page, int x, int y) {
    return page.pixels.at(static_cast<std::size_t>(y * page.width + x));
  }

  PgPrint print;
  testing::XClient other;
};

TEST_F(RenderControl, AnotherProgramsWindowStandsOnThePage) {
  const auto window = other.ShowWindow({50, 60, 40, 20});
  other.Fill(window, {0, 0, 40, 20}, kRed);
  other.Fill(window, {0, 0, 10, 20}, kBlue);
  MoveTo(100, 200);
  Render(window);
  const PageImage page = Page();
  EXPECT_EQ(std::ranges::count(page.pixels, kBlue), 10 * 20);
  EXPECT_EQ(std::ranges::count(page.pixels, kRed), 30 * 20);
  EXPECT_EQ(At(page, 100, 200), kBlue);
  EXPECT_EQ(At(page, 110, 200), kRed);
  EXPECT_EQ(At(page, 139, 219), kRed);
  EXPECT_EQ(At(page, 140, 219), kWhite);
  EXPECT_EQ(At(page, 139, 220), kWhite);
}

TEST_F(RenderControl, AWindowOfTheHostsOwnStandsOnThePage) {
  BlueWidget widget;
  widget.setFixedSize(30, 12);
  widget.show();
  MoveTo(10, 20);
  Render(static_cast<std::uint32_t>(widget.winId()));
  const PageImage page = Page();
  EXPECT_EQ(std::ranges::count(page.pixels, kBlue), 30 * 12);
  EXPECT_EQ(At(page, 10, 20), kBlue);
  EXPECT_EQ(At(page, 39, 31), kBlue);
}

TEST_F(RenderControl, TheFileHasTheWindowOnceHoweverOftenItIsDrawn) {
  const auto window = other.ShowWindow({0, 0, 40, 20});
  Render(window);
  print.VsPPNewPage();
  Render(window);
  print.VsPPFinish("Vensters");
  const ScratchFolder folder;
  print.VSPDF(folder.FileNamed("vensters.pdf"));
  const std::string bytes = ReadFile(folder.FileNamed("vensters.pdf"));
  const auto first = bytes.find("/Subtype/Image");
  EXPECT_NE(first, std::string::npos);
  EXPECT_EQ(bytes.find("/Subtype/Image", first + 1), std::string::npos);
}

TEST_F(RenderControl, AWindowThatIsGoneReachesTheHostAsAnErrorAndDrawsNothing) {
  const auto window = other.ShowWindow({0, 0, 40, 20});
  other.Destroy(window);
  EXPECT_THROW(Render(window), Error);
  const PageImage page = Page();
  EXPECT_EQ(std::ranges::count(page.pixels, kWhite),
            static_cast<std::ptrdiff_t>(page.pixels.size()));
}

TEST_F(RenderControl, ANumberThatIsNoWindowReachesTheHostAsAnError) {
  for (const std::int32_t number : {0, -1, 12345, 2147483647}) {
    try {
      print.VsPPRenderControl(number);
      ADD_FAILURE() << number;
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::InvalidArgument);
    }
  }
}

}  // namespace
}  // namespace pagivo
