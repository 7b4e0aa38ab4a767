// A form whose window is out of sight. Runs on an X server.
#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <QWidget>
#include <memory>

#include "pagivo/qt_windows.h"
#include "platform/platform.h"
#include "window/form.h"
#include "window/qt/x_client.h"

namespace pagivo {
namespace {

constexpr FormDesign kDesign{
    .caption = "Venster", .client = {.width = 3000, .height = 1500}, .sizable = true};

class PlainForm : public Form {
 public:
  explicit PlainForm(std::shared_ptr<WindowSystem> windows) : Form(std::move(windows), kDesign) {}
};

// The window manager's part: it gives a window the keyboard.
void Activate(const QWidget& window) {
  const testing::XClient manager;
  xcb_set_input_focus(&manager.Connection(), XCB_INPUT_FOCUS_PARENT,
                      static_cast<xcb_window_t>(window.winId()), XCB_CURRENT_TIME);
  xcb_flush(&manager.Connection());
  QTest::qWait(50);
}

TEST(MinimisedForm, ComesBackWhenTheHostsWindowIsActivated) {
  UseQtWindows();
  QWidget host;
  host.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&host));
  const auto form = std::make_shared<PlainForm>(CurrentPlatform().windows);
  QTimer::singleShot(0, &host, [&] {
    QWidget* window = QApplication::activeModalWidget();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window));
    const Placement place{form->Left(), form->Top(), form->Width(), form->Height()};
    Activate(*window);
    form->TakePlacement(place, {}, WindowState::Minimised);
    QTest::qWait(50);
    EXPECT_EQ(form->GetWindowState(), WindowState::Minimised);
    Activate(host);
    EXPECT_EQ(form->GetWindowState(), WindowState::Normal);
    form->Hide();
  });
  form->ShowModal();
}

}  // namespace
}  // namespace pagivo
