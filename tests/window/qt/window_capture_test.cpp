// Pictures of the process's own widgets.
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <algorithm>

#include "pagivo/error.h"
#include "window/qt/qt_test.h"

namespace pagivo {
namespace {

// A white widget with a red bar, an inch wide and a sixth of one high.
class PatternWidget final : public QWidget {
 public:
  PatternWidget() { setFixedSize(96, 16); }

 private:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.fillRect(QRectF(8.5, 0, 40, 16), Qt::red);
  }
};

class WindowCapture : public testing::QtWindowsTest {
 protected:
  WindowImage Capture(const QWidget& widget) {
    return QtWindows().CaptureWindow(static_cast<std::int32_t>(widget.winId()));
  }
  static std::ptrdiff_t Count(const WindowImage& image, std::uint32_t color) {
    return std::ranges::count(image.pixels, color);
  }
};

TEST_F(WindowCapture, AWidgetIsTakenPixelForPixelInItsOwnSize) {
  PatternWidget widget;
  widget.show();
  const WindowImage image = Capture(widget);
  const QImage expected = widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
  EXPECT_EQ(image.width, 96 * widget.devicePixelRatio());
  ASSERT_EQ(image.width, expected.width());
  ASSERT_EQ(image.height, expected.height());
  EXPECT_EQ(image.size.width, 1440);
  EXPECT_EQ(image.size.height, 240);
  for (int y = 0; y < image.height; ++y) {
    for (int x = 0; x < image.width; ++x) {
      ASSERT_EQ(image.pixels[static_cast<std::size_t>(y * image.width + x)], expected.pixel(x, y));
    }
  }
  EXPECT_GE(Count(image, 0xFFFF0000), 39 * 16);
}

TEST_F(WindowCapture, AWidgetThatIsNotShownIsTakenToo) {
  PatternWidget widget;
  EXPECT_GE(Count(Capture(widget), 0xFFFF0000), 39 * 16);
}

TEST_F(WindowCapture, AWindowIsTakenWithTheWidgetsInIt) {
  QWidget dialog;
  dialog.resize(200, 100);
  auto* label = new QLabel(QStringLiteral("Naam"), &dialog);
  dialog.show();
  const WindowImage whole = Capture(dialog);
  EXPECT_EQ(whole.size.width, 3000);
  EXPECT_GT(std::ranges::count_if(
                whole.pixels, [&](std::uint32_t pixel) { return pixel != whole.pixels.back(); }),
            10);
  EXPECT_EQ(Capture(*label).size.width, 15.0F * static_cast<float>(label->width()));
}

TEST_F(WindowCapture, WhereAWidgetIsTransparentThePaperShows) {
  QWidget widget;
  widget.setAttribute(Qt::WA_TranslucentBackground);
  widget.resize(10, 10);
  const WindowImage image = Capture(widget);
  EXPECT_EQ(Count(image, 0xFFFFFFFF), static_cast<std::ptrdiff_t>(image.pixels.size()));
}

TEST_F(WindowCapture, AWidgetOfNoSizeHasNoPixels) {
  QWidget widget;
  widget.setGeometry(0, 0, 0, 0);
  EXPECT_TRUE(Capture(widget).pixels.empty());
}

TEST_F(WindowCapture, AWidgetThatIsGoneIsNoWindow) {
  std::int32_t handle = 0;
  {
    PatternWidget widget;
    handle = static_cast<std::int32_t>(widget.winId());
  }
  EXPECT_THROW(QtWindows().CaptureWindow(handle), Error);
}

TEST_F(WindowCapture, NumbersThatAreNoWindowAreErrors) {
  for (const std::int32_t handle : {0, -1, 123456789, 2147483647, -2147483647 - 1}) {
    EXPECT_THROW(QtWindows().CaptureWindow(handle), Error) << handle;
  }
}

}  // namespace
}  // namespace pagivo
