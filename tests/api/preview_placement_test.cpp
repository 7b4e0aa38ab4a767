#include <functional>
#include <map>

#include "api/api_test.h"

namespace pagivo::testing {
namespace {

using ::testing::ElementsAre;

// A host's main window, which notes what is read of it.
class HostWindow : public Object {
 public:
  explicit HostWindow(std::map<std::string, Variant, std::less<>> members)
      : members_(std::move(members)) {}

  Variant GetMember(std::string_view name) override {
    reads.emplace_back(name);
    const auto found = members_.find(name);
    return found == members_.end() ? Object::GetMember(name) : found->second;
  }

  Lines reads;

 private:
  std::map<std::string, Variant, std::less<>> members_;
};

struct Placement {
  float left = 0;
  float top = 0;
  float width = 0;
  float height = 0;

  friend bool operator==(const Placement&, const Placement&) = default;
};

class PreviewPlacement : public ApiTest {
 protected:
  static std::shared_ptr<HostWindow> Host(int windowState) {
    return std::make_shared<HostWindow>(
        std::map<std::string, Variant, std::less<>>{{"WindowState", Integer(windowState)},
                                                    {"Left", 300.0F},
                                                    {"Top", 400.0F},
                                                    {"Width", 9000.0F},
                                                    {"Height", 7000.0F}});
  }

  // Where the preview is shown over `host`.
  Placement ShownOver(const ObjectRef& host) {
    print.VsPPStart(host);
    Placement shown;
    platform.Windows().AddScript([&](Form& form, FormUser&) {
      EXPECT_EQ(form.GetWindowState(), WindowState::Normal);
      shown = {form.Left(), form.Top(), form.Width(), form.Height()};
    });
    std::int16_t page = 1;
    print.VsPreviewFile(page);
    EXPECT_EQ(platform.Windows().ScriptsLeft(), 0U) << "the window was not shown";
    return shown;
  }
};

TEST_F(PreviewPlacement, CoversAHostWindowExactly) {
  for (const int windowState : {0, 1}) {
    const auto host = Host(windowState);
    EXPECT_EQ(ShownOver(host), (Placement{300, 400, 9000, 7000}));
    EXPECT_THAT(host->reads, ElementsAre("WindowState", "Top", "Left", "Height", "Width"));
  }
}

TEST_F(PreviewPlacement, IsAHundredTwipsSmallerThanAMaximisedHost) {
  const auto host = Host(2);
  EXPECT_EQ(ShownOver(host), (Placement{0, 0, 8900, 6900}));
  EXPECT_THAT(host->reads, ElementsAre("WindowState", "Height", "Width"));
}

TEST_F(PreviewPlacement, IsNormalAgainWhateverTheUserMadeOfIt) {
  PreviewForm().PutWindowState(WindowState::Maximised);
  EXPECT_EQ(ShownOver(Host(0)), (Placement{300, 400, 9000, 7000}));
}

TEST_F(PreviewPlacement, StaysAsDesignedWithoutAHostThatAnswers) {
  const Placement designed{0, 0, PreviewForm().Width(), PreviewForm().Height()};
  EXPECT_EQ(ShownOver(nullptr), designed);
  EXPECT_EQ(ShownOver(std::make_shared<NamedObject>("no window")), designed);
}

TEST_F(PreviewPlacement, StaysWhereItWasPutWithoutAHostThatAnswers) {
  PreviewForm().PutLeft(450);
  PreviewForm().PutTop(600);
  PreviewForm().PutSize({.width = 7500, .height = 6000});
  const Placement put{450, 600, 7500, 6000};
  EXPECT_EQ(ShownOver(nullptr), put);
  EXPECT_EQ(ShownOver(std::make_shared<NamedObject>("no window")), put);
}

TEST_F(PreviewPlacement, StaysWhereTheUserPutItWithoutAHostThatAnswers) {
  print.VsPPStart(nullptr);
  platform.Windows().AddScript([](Form& form, FormUser& user) {
    form.PutLeft(450);
    form.PutTop(600);
    user.Resize({.width = 7500, .height = 6000});
  });
  std::int16_t page = 1;
  print.VsPreviewFile(page);
  EXPECT_EQ(ShownOver(nullptr), (Placement{450, 600, 7500, 6000}));
}

TEST_F(PreviewPlacement, AHostThatHidesItsStateCountsAsMaximised) {
  const auto host = std::make_shared<HostWindow>(
      std::map<std::string, Variant, std::less<>>{{"Width", 9000.0F}, {"Height", 7000.0F}});
  EXPECT_EQ(ShownOver(host), (Placement{0, 0, 8900, 6900}));
}

TEST_F(PreviewPlacement, AHostWithoutAStateIsNotMaximised) {
  const auto host = std::make_shared<HostWindow>(std::map<std::string, Variant, std::less<>>{
      {"WindowState", Null}, {"Left", 300.0F}, {"Top", 400.0F}});
  const Placement designed{300, 400, PreviewForm().Width(), PreviewForm().Height()};
  EXPECT_EQ(ShownOver(host), designed);
}

TEST_F(PreviewPlacement, TakesWhatAHostAnswersAndLeavesTheRest) {
  const float designedHeight = PreviewForm().Height();
  const auto host = std::make_shared<HostWindow>(std::map<std::string, Variant, std::less<>>{
      {"WindowState", Long(0)}, {"Top", "boven"}, {"Left", 300.0F}, {"Width", 9000.0F}});
  EXPECT_EQ(ShownOver(host), (Placement{300, 0, 9000, designedHeight}));
}

// A host's main window that does something of its own whenever it is asked.
class BusyHostWindow : public HostWindow {
 public:
  BusyHostWindow(const HostWindow& window, std::function<void()> act)
      : HostWindow(window), act_(std::move(act)) {}

  Variant GetMember(std::string_view name) override {
    act_();
    return HostWindow::GetMember(name);
  }

 private:
  std::function<void()> act_;
};

// What is put before the last discarding goes with that window; nothing goes astray.
TEST_F(PreviewPlacement, GoesToTheWindowThatIsThereWhenTheHostHasAnswered) {
  for (const int windowState : {0, 2}) {
    const auto host =
        std::make_shared<BusyHostWindow>(*Host(windowState), [this] { print.VsPPEinde(); });
    EXPECT_EQ(ShownOver(host).width, windowState == 0 ? 9000 : 8900);
  }
}

TEST_F(PreviewPlacement, SurvivesAHostThatShowsAnotherPreviewMeanwhile) {
  int shown = 0;
  int calls = 0;
  const auto host = std::make_shared<BusyHostWindow>(*Host(0), [&] {
    if (++calls != 3) return;
    print.VsPPEinde();
    print.VsPPInit();
    platform.Windows().AddScript([&](Form&, FormUser&) { ++shown; });
    std::int16_t page = 1;
    print.VsPreviewFile(page);
    print.VsPPEinde();
  });
  EXPECT_EQ(ShownOver(host).width, 9000);
  EXPECT_EQ(shown, 1);
}

}  // namespace
}  // namespace pagivo::testing
