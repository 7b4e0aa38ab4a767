// The window that follows a print job, as a user sees and stops it.
#include "engine/native/printing/print_progress.h"

#include <QAbstractButton>
#include <QLabel>
#include <chrono>
#include <functional>
#include <thread>

#include "window/qt/qt_test.h"

namespace pagivo::testing {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kPage = 10ms;  // what writing one takes

class PrintProgressInQt : public QtWindowsTest {
 protected:
  // Prints until the user stops it or the pages are over; whether it was stopped. The user acts
  // once the window has been there for a moment.
  bool PrintPages(int count, const std::function<void(QWidget& window)>& user) {
    native::PrintProgressWindow progress(windows, {"Rapport", "Laser", "ipp://laser"});
    QTimer timer;
    timer.setSingleShot(true);
    timer.callOnTimeout([&] {
      acted = Clock::now();
      QWidget* window = Window();
      ASSERT_NE(window, nullptr);
      user(*window);
    });
    timer.start(700ms);
    for (int page = 1; page <= count; ++page) {
      if (!progress.Continues({.copy = 1, .copies = 1, .page = page, .pages = count})) return true;
      std::this_thread::sleep_for(kPage);
    }
    return false;
  }

  static QWidget* Window() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->isVisible() && window->windowTitle() == "Afdrukken...") return window;
    }
    return nullptr;
  }

  static QStringList LabelsOf(QWidget& window) {
    QStringList texts;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
      if (label->isVisible()) texts << label->text();
    }
    return texts;
  }

  static QAbstractButton& ButtonOf(QWidget& window) {
    return *window.findChild<QAbstractButton*>();
  }

  Clock::time_point acted;
};

TEST_F(PrintProgressInQt, TellsWhatIsPrintedWhereAndHowFarItIs) {
  QStringList texts;
  EXPECT_FALSE(PrintPages(100, [&](QWidget& window) {
    texts = LabelsOf(window);
    EXPECT_EQ(ButtonOf(window).text(), "Annuleren");
  }));
  ASSERT_EQ(texts.size(), 4);
  EXPECT_TRUE(texts.contains("Rapport"));
  EXPECT_TRUE(texts.contains("op de Laser op ipp://laser"));
  const QString page = texts.filter("Afdrukken pagina ").value(0);
  EXPECT_GT(page.section(' ', 2, 2).toInt(), 5) << page.toStdString();
  EXPECT_TRUE(texts.contains("blad " + page.section(' ', 2, 2) + " van 100"))
      << texts.join('\n').toStdString();
  EXPECT_EQ(Window(), nullptr);
}

TEST_F(PrintProgressInQt, ItsButtonStopsTheJobWithinAFifthOfASecond) {
  EXPECT_TRUE(PrintPages(
      1000, [](QWidget& window) { QTest::mouseClick(&ButtonOf(window), Qt::LeftButton); }));
  EXPECT_LT(Clock::now() - acted, 200ms);
  EXPECT_EQ(Window(), nullptr);
}

TEST_F(PrintProgressInQt, ItsCloseBoxStopsTheJobWithinAFifthOfASecond) {
  EXPECT_TRUE(PrintPages(1000, [](QWidget& window) { window.close(); }));
  EXPECT_LT(Clock::now() - acted, 200ms);
  EXPECT_EQ(Window(), nullptr);
}

}  // namespace
}  // namespace pagivo::testing
