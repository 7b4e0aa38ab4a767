// Modal showings: how they end, nest and fail.
#include <QLineEdit>
#include <QPushButton>
#include <stdexcept>

#include "pagivo/error.h"
#include "window/qt/qt_test.h"

namespace pagivo {
namespace {

using ::testing::ElementsAre;
using testing::QtWindowsTest;
using testing::TestForm;

constexpr ControlDesign kControls[] = {
    {.name = "go",
     .kind = ControlKind::Button,
     .caption = "Ga",
     .placement = {300, 300, 1200, 330},
     .tabIndex = 0},
    {.name = "box",
     .kind = ControlKind::TextBox,
     .placement = {300, 900, 1200, 330},
     .tabIndex = 1},
};
constexpr FormDesign kDialog{
    .caption = "Dialoog", .client = {.width = 3000, .height = 1500}, .controls = kControls};

class Showing : public QtWindowsTest {
 protected:
  void ClickGo(QWidget& window) { QTest::mouseClick(&Find(window, "go"), Qt::LeftButton); }

  std::shared_ptr<TestForm> form = MakeForm(kDialog);
};

TEST_F(Showing, OffersNoWayToMinimiseTheWindowButToCloseIt) {
  for (const bool sizable : {false, true}) {
    const auto other = MakeForm({.caption = "Venster",
                                 .client = {.width = 3000, .height = 1500},
                                 .sizable = sizable,
                                 .controls = kControls});
    Show(*other, [&](QWidget& window) {
      EXPECT_FALSE(window.windowFlags().testFlag(Qt::WindowMinimizeButtonHint));
      EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowCloseButtonHint));
      EXPECT_EQ(window.windowFlags().testFlag(Qt::WindowMaximizeButtonHint), sizable);
    });
  }
}

TEST_F(Showing, EndsWhenTheFormHides) {
  form->Get("go").WhenClicked([&] { form->Hide(); });
  Show(*form, [&](QWidget& window) {
    EXPECT_TRUE(window.isVisible());
    ClickGo(window);
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_TRUE(form->IsLoaded());
}

TEST_F(Showing, EndsWhenTheFormUnloads) {
  form->Get("go").WhenClicked([&] { form->Unload(); });
  QPointer<QWidget> window;
  Show(*form, [&](QWidget& shown) {
    window = &shown;
    ClickGo(shown);
    // The click is still being handled in there.
    EXPECT_NE(window, nullptr);
  });
  EXPECT_FALSE(form->IsLoaded());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(window, nullptr);
}

TEST_F(Showing, CanFollowAnotherOfTheSameForm) {
  int showings = 0;
  for (int i = 0; i < 2; ++i) Show(*form, [&](QWidget&) { ++showings; });
  EXPECT_EQ(showings, 2);
}

TEST_F(Showing, BlocksEveryOtherWindow) {
  QWidget host;
  QPushButton button(&host);
  host.show();
  int clicks = 0;
  QObject::connect(&button, &QPushButton::clicked, [&] { ++clicks; });
  Show(*form, [&](QWidget&) {
    QTest::mouseClick(host.windowHandle(), Qt::LeftButton, {}, button.geometry().center());
  });
  EXPECT_EQ(clicks, 0);
  QTest::mouseClick(host.windowHandle(), Qt::LeftButton, {}, button.geometry().center());
  EXPECT_EQ(clicks, 1);
}

TEST_F(Showing, NestsInAnotherOneWhoseWindowStaysAndIsBlocked) {
  auto outer = form;
  auto inner = MakeForm(kDialog);
  std::vector<std::string> notes;
  outer->Get("go").WhenClicked([&] {
    notes.emplace_back("inner opens");
    Show(*inner, [&](QWidget& window) {
      EXPECT_TRUE(outer->Visible());
      EXPECT_EQ(QApplication::activeModalWidget(), &window);
    });
    notes.emplace_back("inner closed");
  });
  Show(*outer, [&](QWidget& window) {
    ClickGo(window);
    EXPECT_EQ(QApplication::activeModalWidget(), &window);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    notes.emplace_back("outer goes on");
  });
  EXPECT_THAT(notes, ElementsAre("inner opens", "inner closed", "outer goes on"));
}

TEST_F(Showing, EndsAfterTheInnerOneWhenTheOuterFormIsUnloadedFromThere) {
  auto inner = MakeForm(kDialog);
  form->Get("go").WhenClicked([&] {
    Show(*inner, [&](QWidget& window) {
      form->Unload();
      EXPECT_TRUE(window.isVisible());
    });
  });
  Show(*form, [&](QWidget& window) { ClickGo(window); });
  EXPECT_FALSE(form->IsLoaded());
}

// --- The close box

TEST_F(Showing, AsksTheFormWhenTheUserClosesTheWindow) {
  std::vector<UnloadMode> modes;
  form->atQueryUnload = [&](bool&, UnloadMode mode) { modes.push_back(mode); };
  Show(*form, [](QWidget& window) { window.windowHandle()->close(); });
  EXPECT_THAT(modes, ElementsAre(UnloadMode::ControlMenu));
  EXPECT_FALSE(form->IsLoaded());
}

TEST_F(Showing, GoesOnWhenTheFormRefusesToClose) {
  form->atQueryUnload = [](bool& cancel, UnloadMode) { cancel = true; };
  Show(*form, [&](QWidget& window) {
    window.windowHandle()->close();
    EXPECT_TRUE(window.isVisible());
  });
  EXPECT_TRUE(form->IsLoaded());
}

TEST_F(Showing, HidesAFormThatHidesWhenItIsClosed) {
  form->atQueryUnload = [&](bool& cancel, UnloadMode) {
    cancel = true;
    form->Hide();
  };
  Show(*form, [&](QWidget& window) {
    window.windowHandle()->close();
    EXPECT_FALSE(window.isVisible());
  });
  EXPECT_TRUE(form->IsLoaded());
}

// --- Errors of handlers

TEST_F(Showing, EndsWithTheErrorOfAHandlerAndTheWindowHidden) {
  bool failed = false;
  form->atShowingFailed = [&] { failed = true; };
  form->Get("go").WhenClicked([] { throw Error(ErrorNumber::Overflow, "Overloop"); });
  EXPECT_THROW(Show(*form,
                    [&](QWidget& window) {
                      ClickGo(window);
                      EXPECT_FALSE(window.isVisible());
                    }),
               Error);
  EXPECT_TRUE(failed);
  EXPECT_FALSE(form->Visible());
}

TEST_F(Showing, PassesOnErrorsOfAnyKindFromAnyHandler) {
  form->Get("box").WhenChanged([] { throw std::runtime_error("anders"); });
  EXPECT_THROW(
      Show(*form, [&](QWidget& window) { QTest::keyClick(&Find(window, "box"), Qt::Key_A); }),
      std::runtime_error);
}

TEST_F(Showing, PassesOnTheErrorOfClosing) {
  form->atQueryUnload = [](bool&, UnloadMode) { ThrowOverflow(); };
  EXPECT_THROW(Show(*form, [](QWidget& window) { window.windowHandle()->close(); }), Error);
}

TEST_F(Showing, PassesOnTheErrorOfPainting) {
  form->atPaint = [] { ThrowOverflow(); };
  EXPECT_THROW(form->ShowModal(), Error);
}

TEST_F(Showing, PassesOnTheFirstOfSeveralErrors) {
  form->Get("go").WhenClicked([] { throw Error(ErrorNumber::Overflow, "eerste"); });
  form->Get("box").WhenFocused([] { throw Error(ErrorNumber::Overflow, "tweede"); });
  try {
    Show(*form, [&](QWidget& window) {
      ClickGo(window);
      Find(window, "box").setFocus();
    });
    ADD_FAILURE() << "no error";
  } catch (const Error& error) {
    EXPECT_STREQ(error.what(), "eerste");
  }
}

TEST_F(Showing, OfAnInnerFormThatFailsIsTheOuterHandlersMatter) {
  auto inner = MakeForm(kDialog);
  inner->Get("go").WhenClicked([] { ThrowOverflow(); });
  bool caught = false;
  form->Get("go").WhenClicked([&] {
    try {
      Show(*inner, [&](QWidget& window) { ClickGo(window); });
    } catch (const Error&) {
      caught = true;
    }
  });
  Show(*form, [&](QWidget& window) {
    ClickGo(window);
    EXPECT_TRUE(window.isVisible());
  });
  EXPECT_TRUE(caught);
}

TEST_F(Showing, OfAFormThatIsVisibleIsAnError) {
  Show(*form, [&](QWidget&) { EXPECT_THROW(form->ShowModal(), Error); });
}

// --- Opened windows

TEST_F(Showing, OfAnOpenedFormLeavesTheCallerToItsWork) {
  int clicks = 0;
  form->Get("go").WhenClicked([&] { ++clicks; });
  form->Open();
  const QPointer<QWidget> window = QApplication::activeModalWidget();
  ASSERT_NE(window, nullptr);
  QTimer::singleShot(0, window, [&] { ClickGo(*window); });
  EXPECT_EQ(clicks, 0);
  form->HandleEvents();
  EXPECT_EQ(clicks, 1);
  form->Hide();
  EXPECT_FALSE(window->isVisible());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(Showing, OfAnOpenedFormPassesOnAHandlersErrorWhenEventsAreHandled) {
  form->Get("go").WhenClicked([] { ThrowOverflow(); });
  form->Open();
  const QPointer<QWidget> window = QApplication::activeModalWidget();
  ASSERT_NE(window, nullptr);
  QTimer::singleShot(0, window, [&] { ClickGo(*window); });
  EXPECT_THROW(form->HandleEvents(), Error);
  EXPECT_FALSE(form->Visible());
}

TEST_F(Showing, OfAnOpenedFormThatUnloadsInAHandlerDestroysItsWindowAfterwards) {
  form->Get("go").WhenClicked([&] { form->Unload(); });
  form->Open();
  const QPointer<QWidget> window = QApplication::activeModalWidget();
  ASSERT_NE(window, nullptr);
  ClickGo(*window);
  EXPECT_FALSE(form->IsLoaded());
  EXPECT_NE(window, nullptr);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(window, nullptr);
}

// --- Paint

TEST_F(Showing, PaintsOnceWhenTheWindowAppearsAndNotWhenAControlDoes) {
  int paints = 0;
  form->atPaint = [&] {
    ++paints;
    form->Get("go").PutCaption("Ga " + std::to_string(paints));
  };
  Show(*form, [&](QWidget& window) {
    EXPECT_EQ(paints, 1);
    form->Get("box").Refresh();
    window.update();
    QTest::qWait(20);
    EXPECT_EQ(paints, 1);
  });
}

// --- The host's application

TEST_F(Showing, DoesNotQuitTheApplicationWhenItIsTheOnlyWindow) {
  bool quit = false;
  const auto connection = QObject::connect(&testing::TheApplication(),
                                           &QCoreApplication::aboutToQuit, [&] { quit = true; });
  QTimer::singleShot(0, [&] {
    Show(*form, [](QWidget& window) { window.windowHandle()->close(); });
    QTimer::singleShot(50, [] { QCoreApplication::exit(7); });
  });
  EXPECT_EQ(QApplication::exec(), 7);
  QObject::disconnect(connection);
}

TEST_F(Showing, EndsAsClosedByTheUserWhenTheApplicationQuits) {
  std::vector<UnloadMode> modes;
  form->atQueryUnload = [&](bool&, UnloadMode mode) { modes.push_back(mode); };
  QTimer::singleShot(0, [&] {
    QTimer::singleShot(0, [] { QCoreApplication::quit(); });
    form->ShowModal();
  });
  EXPECT_EQ(QApplication::exec(), 0);
  EXPECT_THAT(modes, ElementsAre(UnloadMode::ControlMenu));
  EXPECT_FALSE(form->Visible());
}

}  // namespace
}  // namespace pagivo
