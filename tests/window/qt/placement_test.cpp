// Twips and pixels: where windows and controls stand, and what is taken back from the user.
#include <QFontDatabase>
#include <QGroupBox>
#include <QLabel>
#include <QScreen>
#include <vector>

#include "window/qt/fonts.h"
#include "window/qt/qt_conversions.h"
#include "window/qt/qt_test.h"

namespace pagivo {
namespace {

using testing::QtWindowsTest;
using testing::TestForm;

TEST(Pixels, AreFifteenTwipsRoundedToTheNearest) {
  EXPECT_EQ(qt::ToPixels(0), 0);
  EXPECT_EQ(qt::ToPixels(1500), 100);
  EXPECT_EQ(qt::ToPixels(22), 1);
  EXPECT_EQ(qt::ToPixels(23), 2);
  EXPECT_EQ(qt::ToPixels(-1500), -100);
  EXPECT_EQ(qt::ToTwips(100), 1500);
}

TEST(Pixels, StayWithinWhatWindowsTake) {
  EXPECT_EQ(qt::ToPixels(1e12F), 32767);
  EXPECT_EQ(qt::ToPixels(-1e12F), -32767);
}

TEST(Pixels, OfARectangleAreThoseOfItsEdges) {
  // 10 + 10 twips end in the same pixel as 20 do.
  EXPECT_EQ(qt::ToPixels(Placement{10, 10, 10, 10}), QRect(1, 1, 0, 0));
  EXPECT_EQ(qt::ToPixels(Placement{2280, 480, 180, 288}), QRect(152, 32, 12, 19));
  EXPECT_EQ(qt::ToPixels(Placement{0, 0, -300, -300}), QRect(0, 0, 0, 0));
}

constexpr ControlDesign kControls[] = {
    {.name = "frame", .kind = ControlKind::Frame, .placement = {120, 135, 3000, 1500}},
    {.name = "label",
     .kind = ControlKind::Label,
     .caption = "Tekst",
     .placement = {240, 300, 900, 255},
     .container = "frame"},
};
constexpr FormDesign kDialog{
    .caption = "Dialoog", .client = {.width = 4500, .height = 3000}, .controls = kControls};
constexpr FormDesign kSizable{.caption = "Venster",
                              .client = {.width = 4500, .height = 3000},
                              .sizable = true,
                              .controls = kControls};

class Placing : public QtWindowsTest {};

TEST_F(Placing, PutsControlsWhereTheyWereDesignedWithinTheirContainers) {
  auto form = MakeForm(kDialog);
  Show(*form, [&](QWidget& window) {
    EXPECT_EQ(window.size(), QSize(300, 200));
    EXPECT_EQ(Find(window, "frame").geometry(), QRect(8, 9, 200, 100));
    EXPECT_EQ(Find(window, "label").geometry(), QRect(16, 20, 60, 17));
    EXPECT_EQ(Find(window, "label").parentWidget(), &Find(window, "frame"));
  });
}

TEST_F(Placing, ShowsAControlsChangesAtOnce) {
  auto form = MakeForm(kDialog);
  Show(*form, [&](QWidget& window) {
    Control& label = form->Get("label");
    auto& shown = Find<QLabel>(window, "label");
    label.PutLeft(300);
    label.PutWidth(1200);
    EXPECT_EQ(shown.geometry(), QRect(20, 20, 80, 17));
    label.PutCaption("Anders");
    EXPECT_EQ(shown.text(), "Anders");
    label.PutEnabled(false);
    EXPECT_FALSE(shown.isEnabled());
    label.PutVisible(false);
    EXPECT_FALSE(shown.isVisible());
    form->Get("frame").PutCaption("Kader");
    EXPECT_EQ(Find<QGroupBox>(window, "frame").title(), "Kader");
    form->PutCaption("Titel [*]");
    EXPECT_EQ(window.windowTitle(), "Titel [*][*]");
  });
}

TEST_F(Placing, GivesFontsTheirSizeAtNinetySixPixelsAnInch) {
  auto form = MakeForm(kDialog);
  form->Get("label").PutFontSize(8);
  Show(*form, [&](QWidget& window) {
    const QFont font = Find(window, "label").font();
    EXPECT_NEAR(font.pointSizeF() * window.logicalDpiY() / 72, 8 * 96 / 72.0, 0.01);
  });
}

TEST_F(Placing, GivesAFamilyThatIsNotInstalledToOneThatIs) {
  const QWidget device;
  const QFont font = qt::FontFor("Geen Lettertype", 8, device);
  EXPECT_TRUE(QFontDatabase::hasFamily(font.family())) << font.family().toStdString();
  EXPECT_EQ(qt::FontFor("DejaVu Sans", 8, device).family(), "DejaVu Sans");
}

// --- Dialogs

TEST_F(Placing, LetsNobodySizeADialog) {
  auto form = MakeForm(kDialog);
  Show(*form, [&](QWidget& window) {
    EXPECT_EQ(window.minimumSize(), window.maximumSize());
    EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowCloseButtonHint));
  });
}

TEST_F(Placing, SizesADialogAnewWhenTheProgramAsks) {
  auto form = MakeForm(kDialog);
  Show(*form, [&](QWidget& window) {
    form->PutHeight(form->Height() + 150);
    EXPECT_EQ(window.size(), QSize(300, 210));
  });
}

TEST_F(Placing, CentresADialogOnTheScreenWhenThereIsNoOtherWindow) {
  auto form = MakeForm(kDialog);
  Show(*form, [&](QWidget& window) {
    const QPoint middle = window.screen()->availableGeometry().center();
    EXPECT_LE((window.frameGeometry().center() - middle).manhattanLength(), 2);
    EXPECT_EQ(form->Left(), qt::ToTwips(window.frameGeometry().left()));
    EXPECT_EQ(form->Top(), qt::ToTwips(window.frameGeometry().top()));
  });
}

TEST_F(Placing, CentresADialogOnTheActiveWindow) {
  auto outer = MakeForm(kSizable);
  auto inner = MakeForm(kDialog);
  outer->PutLeft(1500);
  outer->PutTop(1200);
  Show(*outer, [&](QWidget& below) {
    Show(*inner, [&](QWidget& window) {
      const QPoint middle = below.frameGeometry().center();
      EXPECT_LE((window.frameGeometry().center() - middle).manhattanLength(), 2);
      EXPECT_EQ(window.windowHandle()->transientParent(), below.windowHandle());
    });
  });
}

TEST_F(Placing, KeepsADialogWholeOnTheScreen) {
  auto outer = MakeForm(kSizable);
  auto inner = MakeForm(kDialog);
  outer->PutLeft(-15000);
  outer->PutTop(-15000);
  Show(*outer, [&](QWidget&) {
    Show(*inner,
         [&](QWidget& window) { EXPECT_EQ(window.frameGeometry().topLeft(), QPoint(0, 0)); });
  });
}

// --- Windows that can be sized

TEST_F(Placing, PutsAWindowWhereTheProgramAsksWithItsFrame) {
  auto form = MakeForm(kSizable);
  form->PutLeft(1500);
  form->PutTop(750);
  form->PutWidth(6000);
  form->PutHeight(4500);
  Show(*form, [&](QWidget& window) {
    EXPECT_EQ(window.frameGeometry(), QRect(100, 50, 400, 300));
    EXPECT_EQ(form->Left(), 1500);
    EXPECT_EQ(form->Width(), 6000);
    form->PutLeft(3000);
    form->PutWidth(3000);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.frameGeometry(), QRect(200, 50, 200, 300));
  });
}

TEST_F(Placing, TakesTheUsersMovingAndSizingAndRaisesResizeOnce) {
  auto form = MakeForm(kSizable);
  Show(*form, [&](QWidget& window) {
    int resizes = 0;
    form->atResize = [&] { ++resizes; };
    window.resize(500, 400);
    QCoreApplication::processEvents();
    EXPECT_EQ(form->ClientWidth(), 7500);
    EXPECT_EQ(form->ClientHeight(), 6000);
    EXPECT_EQ(resizes, 1);
    window.move(30, 40);
    QCoreApplication::processEvents();
    EXPECT_EQ(form->Left(), 450);
    EXPECT_EQ(form->Top(), 600);
    EXPECT_EQ(resizes, 1);
  });
}

TEST_F(Placing, KeepsAProgramsFractionsOfPixels) {
  auto form = MakeForm(kSizable);
  form->PutLeft(1504);
  form->PutWidth(6004);
  Show(*form, [&](QWidget& window) {
    QCoreApplication::processEvents();
    EXPECT_EQ(window.frameGeometry().width(), 400);
    EXPECT_EQ(form->Left(), 1504);
    EXPECT_EQ(form->Width(), 6004);
  });
}

TEST_F(Placing, RaisesResizeOnceForASizeThatTheProgramPuts) {
  auto form = MakeForm(kSizable);
  Show(*form, [&](QWidget&) {
    int resizes = 0;
    form->atResize = [&] { ++resizes; };
    form->PutWidth(6000);
    QCoreApplication::processEvents();
    EXPECT_EQ(resizes, 1);
  });
}

TEST_F(Placing, MaximisesAndRestores) {
  auto form = MakeForm(kSizable);
  form->PutWindowState(WindowState::Maximised);
  Show(*form, [&](QWidget& window) {
    QCoreApplication::processEvents();
    EXPECT_TRUE(window.isMaximized());
    EXPECT_EQ(form->ClientWidth(), qt::ToTwips(window.width()));
    EXPECT_GT(form->ClientWidth(), 4500);
    form->PutWindowState(WindowState::Normal);
    QCoreApplication::processEvents();
    EXPECT_FALSE(window.isMaximized());
  });
}

TEST_F(Placing, TakesTheUsersMaximising) {
  auto form = MakeForm(kSizable);
  Show(*form, [&](QWidget& window) {
    window.showMaximized();
    QCoreApplication::processEvents();
    EXPECT_EQ(form->GetWindowState(), WindowState::Maximised);
    window.showNormal();
    QCoreApplication::processEvents();
    EXPECT_EQ(form->GetWindowState(), WindowState::Normal);
  });
}

}  // namespace
}  // namespace pagivo
