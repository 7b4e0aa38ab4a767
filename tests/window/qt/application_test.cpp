// The application object: made, shared or refused. Each test runs in a process of its own, since a
// process has one application object and keeps it.
#include <gtest/gtest.h>

#include <QApplication>
#include <QGuiApplication>
#include <clocale>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <optional>
#include <string>

#include "pagivo/error.h"
#include "pagivo/qt_windows.h"
#include "platform/platform.h"
#include "window/form.h"
#include "window/qt/qt_windows.h"

namespace pagivo {
namespace {

constexpr ControlDesign kControls[] = {
    {.name = "box", .kind = ControlKind::TextBox, .placement = {0, 0, 1500, 330}, .tabIndex = 0}};
constexpr FormDesign kDesign{
    .caption = "Venster", .client = {.width = 3000, .height = 1500}, .controls = kControls};

class PlainForm : public Form {
 public:
  explicit PlainForm(std::shared_ptr<WindowSystem> windows) : Form(std::move(windows), kDesign) {}
};

bool UsesQt() {
  return std::dynamic_pointer_cast<QtWindows>(CurrentPlatform().windows) != nullptr;
}

void ForgetDisplays() {
  for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR", "QT_QPA_PLATFORM"}) {
    unsetenv(name);
  }
}

// The description of the error that it ends in; none when it goes well.
std::optional<std::string> ErrorOf(const std::function<void()>& action) {
  try {
    action();
    return std::nullopt;
  } catch (const Error& error) {
    return error.what();
  }
}

// For a process's end: 0 when UseQtWindows refuses with a description that has `part` and changes
// nothing.
int Refusal(std::string_view part) {
  const std::optional<std::string> description = ErrorOf(UseQtWindows);
  if (!description || UsesQt()) return 1;
  std::cerr << *description << "\n";
  return description->find(part) == std::string::npos ? 2 : 0;
}

int count = 1;
char name[] = "host";
char* arguments[] = {name, nullptr};

class Application : public ::testing::Test {
 protected:
  Application() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

#define EXPECT_PROCESS(statement) EXPECT_EXIT(statement, ::testing::ExitedWithCode(0), "")

TEST_F(Application, IsMadeWhenTheHostHasNone) {
  const auto run = [] {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    UseQtWindows();
    const auto* application = qobject_cast<QApplication*>(QCoreApplication::instance());
    const auto windows = CurrentPlatform().windows;
    UseQtWindows();
    const bool isSame = CurrentPlatform().windows == windows;
    std::exit(application != nullptr && UsesQt() && isSame ? 0 : 1);
  };
  EXPECT_PROCESS(run());
}

TEST_F(Application, IsTheHostsWhenItHasOne) {
  const auto run = [] {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QApplication host(count, arguments);
    UseQtWindows();
    const bool isHosts =
        QCoreApplication::instance() == &host && QApplication::quitOnLastWindowClosed();
    std::exit(isHosts && UsesQt() ? 0 : 1);
  };
  EXPECT_PROCESS(run());
}

TEST_F(Application, KeepsTheOtherPartsOfThePlatform) {
  const auto run = [] {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    Platform platform = CurrentPlatform();
    platform.defaultPrinter = [] { return std::string("Laser"); };
    UsePlatform(platform);
    UseQtWindows();
    std::exit(UsesQt() && CurrentPlatform().defaultPrinter() == "Laser" ? 0 : 1);
  };
  EXPECT_PROCESS(run());
}

TEST_F(Application, LeavesTheHostsLocaleAsItIs) {
  const auto run = [] {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    std::setlocale(LC_ALL, "C");
    UseQtWindows();
    std::exit(std::string(std::setlocale(LC_ALL, nullptr)) == "C" ? 0 : 1);
  };
  EXPECT_PROCESS(run());
}

// --- Refusals

TEST_F(Application, IsRefusedWithoutFontsAsADocumentIs) {
  const auto run = [] {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    Platform platform = CurrentPlatform();
    platform.requireFonts = [] { throw Error(ErrorNumber::FileAccess, "Er is geen lettertype"); };
    UsePlatform(platform);
    std::exit(Refusal("Er is geen lettertype"));
  };
  EXPECT_PROCESS(run());
}

TEST_F(Application, IsRefusedWithoutADisplay) {
  const auto run = [] {
    ForgetDisplays();
    std::exit(Refusal("geen beeldscherm"));
  };
  EXPECT_PROCESS(run());
}

TEST_F(Application, IsRefusedWhenNothingAnswersAtTheDisplay) {
  const auto run = [] {
    ForgetDisplays();
    setenv("DISPLAY", ":65123", 1);
    setenv("WAYLAND_DISPLAY", "/tmp/no-such-socket", 1);
    std::exit(Refusal("geen beeldscherm"));
  };
  EXPECT_PROCESS(run());
}

TEST_F(Application, IsRefusedForAPlatformThatQtDoesNotHave) {
  const auto run = [] {
    setenv("QT_QPA_PLATFORM", "eglfs;hologram", 1);
    std::exit(Refusal("geen beeldscherm"));
  };
  EXPECT_PROCESS(run());
}

TEST_F(Application, IsMadeOnTheFirstPlatformOfSeveralThatIsThere) {
  const auto run = [] {
    ForgetDisplays();
    setenv("QT_QPA_PLATFORM", "xcb;offscreen:any", 1);
    UseQtWindows();
    std::exit(QGuiApplication::platformName() == "offscreen" ? 0 : 1);
  };
  EXPECT_PROCESS(run());
}

TEST_F(Application, OfAHostWithoutWindowsIsRefused) {
  const auto run = [] {
    const QCoreApplication host(count, arguments);
    std::exit(Refusal("QApplication"));
  };
  EXPECT_PROCESS(run());
}

TEST_F(Application, OfAHostWithoutWidgetsIsRefused) {
  const auto run = [] {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QGuiApplication host(count, arguments);
    std::exit(Refusal("QApplication"));
  };
  EXPECT_PROCESS(run());
}

TEST_F(Application, ThatIsRefusedLeavesWindowsThatNobodySeesAndThatCloseAtOnce) {
  const auto run = [] {
    ForgetDisplays();
    const bool isRefused = ErrorOf(UseQtWindows).has_value();
    const auto form = std::make_shared<PlainForm>(CurrentPlatform().windows);
    form->ShowModal();
    std::exit(isRefused && !form->Visible() ? 0 : 1);
  };
  EXPECT_PROCESS(run());
}

// --- The host's application ends first

TEST_F(Application, ThatIsGoneMakesFormsFail) {
  const auto run = [] {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    {
      const QApplication host(count, arguments);
      UseQtWindows();
    }
    const auto form = std::make_shared<PlainForm>(CurrentPlatform().windows);
    std::exit(ErrorOf([&] { form->ShowModal(); }) && !form->IsLoaded() ? 0 : 1);
  };
  EXPECT_PROCESS(run());
}

TEST_F(Application, ThatIsGoneLeavesLoadedFormsTheirState) {
  const auto run = [] {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    std::shared_ptr<PlainForm> form;
    {
      const QApplication host(count, arguments);
      UseQtWindows();
      form = std::make_shared<PlainForm>(CurrentPlatform().windows);
      form->Load();
    }
    form->PutCaption("Later");
    form->Get("box").PutWidth(3000);
    const bool isRefused = ErrorOf([&] { form->ShowModal(); }).has_value();
    form->Unload();
    std::exit(isRefused && !form->Visible() && !form->IsLoaded() ? 0 : 1);
  };
  EXPECT_PROCESS(run());
}

}  // namespace
}  // namespace pagivo
