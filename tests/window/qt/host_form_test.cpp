#include <QPushButton>
#include <QWindow>
#include <memory>

#include "pagivo/error.h"
#include "pagivo/qt_windows.h"
#include "pagivo/variant.h"
#include "values/conversions.h"
#include "window/qt/qt_test.h"

namespace pagivo {
namespace {

class HostForm : public testing::QtWindowsTest {
 protected:
  double Member(std::string_view name) { return ToDouble(host->GetMember(name)); }

  std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
  ObjectRef host = MakeHostForm(*window);
};

TEST_F(HostForm, AnswersItsFrameInTwips) {
  window->show();
  window->resize(400, 300);
  window->move(30, 40);
  QCoreApplication::processEvents();
  const QRect frame = window->frameGeometry();
  EXPECT_EQ(Member("Left"), 450);
  EXPECT_EQ(Member("Top"), 600);
  EXPECT_EQ(Member("Width"), frame.width() * 15);
  EXPECT_EQ(Member("Height"), frame.height() * 15);
  EXPECT_GE(Member("Width"), 6000);
  EXPECT_EQ(Member("WindowState"), 0);
}

TEST_F(HostForm, ThatHasOnlyJustBeenShownAnswersOnceItIsOnTheScreen) {
  window->show();
  Member("Top");
  EXPECT_TRUE(window->windowHandle()->isExposed());
  EXPECT_EQ(Member("Height"), window->frameGeometry().height() * 15);
}

TEST_F(HostForm, AnswersInAnyCase) {
  EXPECT_EQ(Member("windowstate"), Member("WindowState"));
}

TEST_F(HostForm, AnswersItsWindowState) {
  window->showMaximized();
  QCoreApplication::processEvents();
  EXPECT_EQ(Member("WindowState"), 2);
  window->showMinimized();
  QCoreApplication::processEvents();
  EXPECT_EQ(Member("WindowState"), 1);
}

TEST_F(HostForm, IsTheWindowThatAWidgetLiesIn) {
  QPushButton button(window.get());
  window->move(30, 40);
  EXPECT_EQ(ToDouble(MakeHostForm(button)->GetMember("Left")), Member("Left"));
}

TEST_F(HostForm, HasNoOtherMembers) {
  EXPECT_THROW(host->GetMember("Caption"), Error);
  EXPECT_THROW(host->PutMember("Left", Variant()), Error);
}

TEST_F(HostForm, SaysSoWhenItsWidgetIsGone) {
  window.reset();
  try {
    host->GetMember("Left");
    ADD_FAILURE() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::InvalidArgument);
    EXPECT_STREQ(error.what(), "Het venster van het hoofdprogramma bestaat niet meer");
  }
}

}  // namespace
}  // namespace pagivo
