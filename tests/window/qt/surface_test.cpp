#include "window/surface.h"

#include <QAbstractScrollArea>
#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

#include "window/key_codes.h"
#include "window/qt/qt_test.h"

namespace pagivo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::QtWindowsTest;
using testing::TestForm;

constexpr std::uint32_t kRed = 0xFFFF0000;

// A sheet of 600 x 900 pixels that notes what reaches it.
class Sheet : public SurfaceContent {
 public:
  void WhenChanged(Handler handler) override { changed_ = std::move(handler); }
  void PutArea(const SurfaceArea& given) override { area = given; }
  void Draw(const SurfaceBitmap& bitmap, const SurfaceColors& given) override {
    ++drawings;
    colors = given;
    drawn = {.width = bitmap.width, .height = bitmap.height, .scale = area.scale};
    std::ranges::fill(bitmap.pixels, kRed);
    atDraw();
  }
  ScrollRange HorizontalRange() const override { return RangeOf(area.width, width, left); }
  ScrollRange VerticalRange() const override { return RangeOf(area.height, height, top); }
  void ScrollTo(std::int32_t newLeft, std::int32_t newTop) override {
    left = newLeft;
    top = newTop;
    Change();
  }
  bool PressKey(std::int16_t keyCode, std::int16_t) override {
    keys.push_back(keyCode);
    return keyCode == kKeyDown;
  }
  void TurnWheel(SurfacePoint, double horizontal, double vertical, std::int16_t shift) override {
    wheel = {horizontal, vertical, double{static_cast<double>(shift)}};
  }
  void PressPointer(SurfacePoint at) override { Note("press", at); }
  void MovePointer(SurfacePoint at) override { Note("move", at); }
  void ReleasePointer(SurfacePoint at) override { Note("release", at); }
  SurfaceCursor CursorAt(SurfacePoint) const override { return cursor; }
  std::span<const MenuItem> Menu() const override { return menu; }
  void ClickMenu(std::string_view key) override { chosen.emplace_back(key); }

  void Change() {
    if (changed_) changed_();
  }

  std::int32_t width = 600;
  std::int32_t height = 900;
  std::int32_t left = 0;
  std::int32_t top = 0;
  SurfaceArea area;
  SurfaceArea drawn;
  SurfaceColors colors;
  int drawings = 0;
  std::function<void()> atDraw = [] {};
  std::vector<std::int16_t> keys;
  std::vector<double> wheel;
  std::vector<std::string> pointer;
  std::vector<std::string> chosen;
  SurfaceCursor cursor = SurfaceCursor::Arrow;
  std::vector<MenuItem> menu{{.text = "Whole &Page", .key = "whole"},
                             {.text = "-", .key = ""},
                             {.text = "&Two Pages", .key = "two"}};

 private:
  static ScrollRange RangeOf(std::int32_t visible, std::int32_t whole, std::int32_t value) {
    return {.wanted = visible < whole,
            .value = value,
            .maximum = std::max(0, whole - visible),
            .visible = visible,
            .step = 20};
  }
  void Note(const std::string& what, SurfacePoint at) {
    pointer.push_back(what + " " + std::to_string(static_cast<int>(at.x)) + "," +
                      std::to_string(static_cast<int>(at.y)));
  }

  Handler changed_;
};

constexpr ControlDesign kControls[] = {
    {.name = "view",
     .kind = ControlKind::Surface,
     .placement = {0, 0, 15000, 15000},
     .tabIndex = 0},
    {.name = "box",
     .kind = ControlKind::TextBox,
     .placement = {0, 15000, 1500, 330},
     .tabIndex = 1},
};
constexpr FormDesign kDesign{
    .caption = "Vlak", .client = {.width = 15000, .height = 15600}, .controls = kControls};

class SurfaceShown : public QtWindowsTest {
 protected:
  SurfaceShown() { View().PutContent(sheet); }

  Surface& View() { return form->Get<Surface>("view"); }
  static QAbstractScrollArea& AreaOf(QWidget& window) {
    return Find<QAbstractScrollArea>(window, "view");
  }
  static QWidget& ViewportOf(QWidget& window) { return *AreaOf(window).viewport(); }

  std::shared_ptr<Sheet> sheet = std::make_shared<Sheet>();
  std::shared_ptr<TestForm> form = MakeForm(kDesign);
};

TEST_F(SurfaceShown, ShowsTheContentsBitmap) {
  Show(*form, [&](QWidget& window) {
    EXPECT_EQ(sheet->drawn, sheet->area);
    EXPECT_EQ(sheet->area.width, 1000 * window.devicePixelRatioF());
    EXPECT_EQ(sheet->area.scale, window.devicePixelRatioF());
    EXPECT_EQ(ViewportOf(window).grab().toImage().pixel(500, 500), kRed);
  });
}

TEST_F(SurfaceShown, DrawsAnewOnlyWhenTheContentOrItsSizeChanges) {
  Show(*form, [&](QWidget& window) {
    const int before = sheet->drawings;
    ViewportOf(window).repaint();
    EXPECT_EQ(sheet->drawings, before);
    sheet->Change();
    sheet->Change();
    // Not before it is painted.
    EXPECT_EQ(sheet->drawings, before);
    ViewportOf(window).repaint();
    EXPECT_EQ(sheet->drawings, before + 1);
    View().PutHeight(12000);
    ViewportOf(window).repaint();
    EXPECT_EQ(sheet->drawn.height, 800);
    EXPECT_EQ(sheet->drawings, before + 2);
  });
}

TEST_F(SurfaceShown, IsBlankWithoutContent) {
  View().PutContent(nullptr);
  Show(*form, [&](QWidget& window) {
    const auto color = [&](QPalette::ColorRole role) { return window.palette().color(role).rgb(); };
    const auto ground = SurfaceColorsFor(color(QPalette::Window), color(QPalette::WindowText),
                                         color(QPalette::Highlight))
                            .ground;
    EXPECT_EQ(ViewportOf(window).grab().toImage().pixel(10, 10), ground);
  });
  EXPECT_EQ(sheet->drawings, 0);
}

TEST_F(SurfaceShown, PassesOnTheErrorOfDrawing) {
  sheet->atDraw = [] { ThrowOverflow(); };
  EXPECT_THROW(form->ShowModal(), Error);
}

// --- Scroll bars

TEST_F(SurfaceShown, HasScrollBarsOnlyWhereTheContentWantsThem) {
  Show(*form, [&](QWidget& window) {
    EXPECT_FALSE(AreaOf(window).verticalScrollBar()->isVisible());
    sheet->height = 3000;
    sheet->Change();
    const QScrollBar& bar = *AreaOf(window).verticalScrollBar();
    EXPECT_TRUE(bar.isVisible());
    EXPECT_FALSE(AreaOf(window).horizontalScrollBar()->isVisible());
    EXPECT_EQ(bar.maximum(), 3000 - sheet->area.height);
    EXPECT_EQ(bar.pageStep(), sheet->area.height);
    EXPECT_EQ(bar.singleStep(), 20);
    // The bar's room is not the sheet's.
    EXPECT_EQ(sheet->area.width, 1000 - bar.width());
    sheet->height = 900;
    sheet->Change();
    EXPECT_FALSE(bar.isVisible());
    EXPECT_EQ(sheet->area.width, 1000);
  });
}

TEST_F(SurfaceShown, ABarThatTakesTheOthersRoomBringsItUpToo) {
  Show(*form, [&](QWidget& window) {
    sheet->width = 995;
    sheet->height = 3000;
    sheet->Change();
    EXPECT_TRUE(AreaOf(window).horizontalScrollBar()->isVisible());
    EXPECT_TRUE(AreaOf(window).verticalScrollBar()->isVisible());
    EXPECT_EQ(sheet->area.width, ViewportOf(window).width());
    EXPECT_EQ(sheet->area.height, ViewportOf(window).height());
  });
}

TEST_F(SurfaceShown, ScrollsWithItsBarsAndShowsTheContentsOwnScrolling) {
  Show(*form, [&](QWidget& window) {
    sheet->height = 3000;
    sheet->Change();
    QScrollBar& bar = *AreaOf(window).verticalScrollBar();
    bar.triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(sheet->top, 20);
    sheet->ScrollTo(0, 700);
    EXPECT_EQ(bar.value(), 700);
  });
}

// --- The user

TEST_F(SurfaceShown, ReportsThePointerInItsOwnPixels) {
  Show(*form, [&](QWidget& window) {
    QWidget& viewport = ViewportOf(window);
    QTest::mousePress(&viewport, Qt::LeftButton, {}, QPoint(10, 20));
    QTest::mouseMove(&viewport, QPoint(30, 40));
    QTest::mouseRelease(&viewport, Qt::LeftButton, {}, QPoint(50, 60));
    QTest::mousePress(&viewport, Qt::MiddleButton, {}, QPoint(1, 1));
  });
  EXPECT_THAT(sheet->pointer, ElementsAre("press 10,20", "move 30,40", "release 50,60"));
}

TEST_F(SurfaceShown, ShowsTheContentsCursor) {
  Show(*form, [&](QWidget& window) {
    sheet->cursor = SurfaceCursor::ClosedHand;
    QTest::mouseMove(&ViewportOf(window), QPoint(30, 40));
    EXPECT_EQ(ViewportOf(window).cursor().shape(), Qt::ClosedHandCursor);
    sheet->cursor = SurfaceCursor::Arrow;
    QTest::mouseMove(&ViewportOf(window), QPoint(31, 40));
    EXPECT_EQ(ViewportOf(window).cursor().shape(), Qt::ArrowCursor);
  });
}

TEST_F(SurfaceShown, ReportsTheWheelInNotchesWithTheShiftState) {
  Show(*form, [&](QWidget& window) {
    QWheelEvent event({5, 5}, {5, 5}, {}, {60, -120}, {}, Qt::ControlModifier, Qt::NoScrollPhase,
                      false);
    QCoreApplication::sendEvent(&ViewportOf(window), &event);
  });
  EXPECT_THAT(sheet->wheel, ElementsAre(0.5, -1, kControlKey));
}

TEST_F(SurfaceShown, GetsTheFocusByAClickAndTheKeysOfTheForm) {
  Show(*form, [&](QWidget& window) {
    form->Get("box").Focus();
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, QPoint(100, 100));
    EXPECT_EQ(form->Controls().Focused(), &View());
    Press(window, Qt::Key_Down);
    Press(window, Qt::Key_PageUp);
  });
  EXPECT_THAT(sheet->keys, ElementsAre(kKeyDown, kKeyPageUp));
}

TEST_F(SurfaceShown, LeavesKeysThatTheContentHasNoUseForUnused) {
  sheet->height = 3000;
  Show(*form, [&](QWidget& window) {
    sheet->Change();
    Press(window, Qt::Key_PageDown);
    EXPECT_EQ(AreaOf(window).verticalScrollBar()->value(), 0);
  });
}

TEST_F(SurfaceShown, OffersTheContentsMenuToTheRightButtonAndTheMenuKey) {
  Show(*form, [&](QWidget& window) {
    for (const auto reason : {QContextMenuEvent::Mouse, QContextMenuEvent::Keyboard}) {
      QWidget& target = reason == QContextMenuEvent::Mouse ? ViewportOf(window) : AreaOf(window);
      QContextMenuEvent event(reason, {10, 10}, {10, 10});
      QCoreApplication::sendEvent(&target, &event);
      auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
      ASSERT_NE(menu, nullptr);
      ASSERT_EQ(menu->actions().size(), 3);
      EXPECT_TRUE(menu->actions()[1]->isSeparator());
      QTest::keyClick(menu, Qt::Key_T);
    }
  });
  EXPECT_THAT(sheet->chosen, ElementsAre("two", "two"));
}

TEST_F(SurfaceShown, ReportsNothingOnceTheFormIsHidden) {
  Show(*form, [&](QWidget& window) {
    form->Hide();
    QTest::mousePress(&ViewportOf(window), Qt::LeftButton, {}, QPoint(10, 20));
  });
  EXPECT_THAT(sheet->pointer, IsEmpty());
}

}  // namespace
}  // namespace pagivo
