#include "window/form.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "pagivo/error.h"
#include "support/no_windows.h"
#include "support/trial_windows.h"
#include "window/headless/headless_windows.h"

namespace pagivo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr FormDesign kDesign{.caption = "Ontwerp", .client = {.width = 3000, .height = 2000}};

// Notes what happens to it; `atLoad` and `atQueryUnload` stand for a form's own handlers.
class NotingForm : public Form {
 public:
  explicit NotingForm(std::shared_ptr<WindowSystem> windows) : Form(std::move(windows), kDesign) {}

  // Reaches a control, as a form's users do.
  int& Control() {
    Load();
    return *control_;
  }

  std::vector<std::string> notes;
  std::function<void()> atLoad = [] {};
  std::function<void(bool& cancel, UnloadMode mode)> atQueryUnload = [](bool&, UnloadMode) {};

 private:
  void CreateControls() override {
    notes.emplace_back("create controls");
    control_ = std::make_unique<int>(1);
  }
  void DestroyControls() override {
    notes.emplace_back("destroy controls");
    control_.reset();
  }
  void OnLoad() override {
    notes.emplace_back("load");
    atLoad();
  }
  void OnQueryUnload(bool& cancel, UnloadMode mode) override {
    notes.push_back("query unload " + std::to_string(static_cast<int>(mode)));
    atQueryUnload(cancel, mode);
  }
  void OnUnload() override { notes.emplace_back("unload"); }

  std::unique_ptr<int> control_;
};

// Whether the next showing leaves the form where its left and top say.
bool StandsWhereItWasPut(const Form& form) {
  constexpr Placement kFarAway{.left = 10000, .top = 10000, .width = 90000, .height = 90000};
  const Placement place = form.PlacementOver(kFarAway, kFarAway);
  return place.left == form.Left() && place.top == form.Top();
}

class FormLife : public ::testing::Test {
 protected:
  std::shared_ptr<testing::TrialWindows> windows = testing::MakeTrialWindows();
  std::shared_ptr<NotingForm> form = std::make_shared<NotingForm>(windows);
};

TEST_F(FormLife, CreatingAFormLoadsNothing) {
  EXPECT_FALSE(form->IsLoaded());
  EXPECT_FALSE(form->Visible());
  EXPECT_EQ(form->Caption(), "Ontwerp");
  EXPECT_THAT(form->notes, IsEmpty());
}

TEST_F(FormLife, LoadingMakesTheControlsThenRunsTheLoadHandlerOnceWithoutShowing) {
  form->Load();
  form->Load();
  EXPECT_TRUE(form->IsLoaded());
  EXPECT_FALSE(form->Visible());
  EXPECT_THAT(form->notes, ElementsAre("create controls", "load"));
}

TEST_F(FormLife, ReachingAControlLoadsTheForm) {
  EXPECT_EQ(form->Control(), 1);
  EXPECT_THAT(form->notes, ElementsAre("create controls", "load"));
}

TEST_F(FormLife, ChangingAPropertyLoadsTheForm) {
  form->PutCaption("Nieuw");
  EXPECT_TRUE(form->IsLoaded());
  EXPECT_EQ(form->Caption(), "Nieuw");
}

TEST_F(FormLife, TheLoadHandlerMayReachControlsAndProperties) {
  form->atLoad = [&] {
    form->Control() = 5;
    form->PutCaption("Bij het laden");
  };
  form->Load();
  EXPECT_EQ(form->Control(), 5);
  EXPECT_EQ(form->Caption(), "Bij het laden");
  EXPECT_THAT(form->notes, ElementsAre("create controls", "load"));
}

TEST_F(FormLife, AFailingLoadLeavesTheFormUnloadedAndCanBeTriedAgain) {
  form->atLoad = [] { throw Error(ErrorNumber::FileAccess, "Mislukt"); };
  EXPECT_THROW(form->Load(), Error);
  EXPECT_FALSE(form->IsLoaded());
  EXPECT_THAT(form->notes, ElementsAre("create controls", "load", "unload", "destroy controls"));

  form->atLoad = [] {};
  form->Load();
  EXPECT_TRUE(form->IsLoaded());
}

TEST_F(FormLife, ALoadHandlerThatUnloadsTheFormFailsWhoeverReachesIt) {
  form->atLoad = [&] { form->Unload(); };
  EXPECT_THROW(form->Load(), Error);
  EXPECT_THROW(form->ShowModal(), Error);
  EXPECT_THROW(form->PutCaption("Nieuw"), Error);
  EXPECT_THROW(form->Control(), Error);
  EXPECT_FALSE(form->IsLoaded());
  EXPECT_FALSE(form->Visible());
}

TEST_F(FormLife, UnloadingAsksThenHidesThenGivesUpTheControls) {
  form->Load();
  form->notes.clear();
  form->Unload();
  EXPECT_FALSE(form->IsLoaded());
  EXPECT_THAT(form->notes, ElementsAre("query unload 1", "unload", "destroy controls"));
}

TEST_F(FormLife, UnloadingAFormThatIsNotLoadedDoesNothing) {
  form->Unload();
  EXPECT_THAT(form->notes, IsEmpty());
}

TEST_F(FormLife, AQueryUnloadHandlerMayRefuse) {
  form->Load();
  form->atQueryUnload = [](bool& cancel, UnloadMode mode) {
    cancel = mode == UnloadMode::ControlMenu;
  };
  form->Unload(UnloadMode::ControlMenu);
  EXPECT_TRUE(form->IsLoaded());
  form->Unload(UnloadMode::SystemShutdown);
  EXPECT_FALSE(form->IsLoaded());
}

TEST_F(FormLife, AQueryUnloadHandlerMayUnloadTheFormItself) {
  form->Load();
  form->notes.clear();
  form->atQueryUnload = [&](bool& cancel, UnloadMode mode) {
    if (mode != UnloadMode::ControlMenu) return;
    cancel = true;
    form->Unload();
  };
  form->Unload(UnloadMode::ControlMenu);
  EXPECT_FALSE(form->IsLoaded());
  EXPECT_THAT(form->notes,
              ElementsAre("query unload 0", "query unload 1", "unload", "destroy controls"));
}

TEST_F(FormLife, EachLoadStartsFromTheDesign) {
  form->PutCaption("Nieuw");
  form->PutWindowState(WindowState::Maximised);
  form->PutLeft(10);
  form->PutWidth(20);
  form->Unload();
  form->Load();
  EXPECT_EQ(form->Caption(), "Ontwerp");
  EXPECT_EQ(form->GetWindowState(), WindowState::Normal);
  EXPECT_EQ(form->Left(), 0);
  EXPECT_EQ(form->ClientWidth(), 3000);
}

TEST_F(FormLife, HoldsItsPlacement) {
  form->PutLeft(10);
  form->PutTop(20.5F);
  form->PutWidth(30);
  form->PutHeight(40);
  EXPECT_EQ(form->Left(), 10);
  EXPECT_EQ(form->Top(), 20.5F);
  EXPECT_EQ(form->Width(), 30);
  EXPECT_EQ(form->Height(), 40);
}

// --- Showing ----------------------------------------------------------------------------------

TEST_F(FormLife, AModalShowingLoadsShowsAndReturnsWhenTheFormIsHidden) {
  bool visibleDuringShowing = false;
  windows->AddScript([&](Form& shown, FormUser&) {
    visibleDuringShowing = shown.Visible();
    shown.Hide();
  });
  form->ShowModal();
  EXPECT_TRUE(visibleDuringShowing);
  EXPECT_FALSE(form->Visible());
  EXPECT_TRUE(form->IsLoaded());
  EXPECT_THAT(form->notes, ElementsAre("create controls", "load"));
}

TEST_F(FormLife, AModalShowingReturnsWhenTheFormIsUnloaded) {
  windows->AddScript([](Form& shown, FormUser&) { shown.Unload(); });
  form->ShowModal();
  EXPECT_FALSE(form->Visible());
  EXPECT_FALSE(form->IsLoaded());
}

TEST_F(FormLife, AFormMayBeReleasedDuringItsOwnShowing) {
  const std::weak_ptr<NotingForm> watched = form;
  windows->AddScript([&](Form& shown, FormUser&) {
    form.reset();
    shown.Unload();
  });
  form->ShowModal();
  EXPECT_TRUE(watched.expired());
}

TEST_F(FormLife, AFormThatIsVisibleCannotBeShownAgain) {
  windows->AddScript([&](Form& shown, FormUser&) {
    EXPECT_THROW(shown.ShowModal(), Error);
    EXPECT_TRUE(shown.Visible());
  });
  form->ShowModal();
}

TEST_F(FormLife, AFailureDuringTheShowingHidesTheFormAndIsPassedOn) {
  windows->AddScript([](Form&, FormUser&) { throw Error(ErrorNumber::FileAccess, "Mislukt"); });
  EXPECT_THROW(form->ShowModal(), Error);
  EXPECT_FALSE(form->Visible());
  EXPECT_TRUE(form->IsLoaded());
}

// --- Scripts ----------------------------------------------------------------------------------

TEST_F(FormLife, WithoutAScriptTheUserClosesTheWindowAtOnce) {
  form->ShowModal();
  EXPECT_THAT(form->notes, ElementsAre("create controls", "load", "query unload 0", "unload",
                                       "destroy controls"));
}

TEST_F(FormLife, AWindowThatRefusesToCloseIsHiddenAtTheShowingsEnd) {
  form->atQueryUnload = [](bool& cancel, UnloadMode) { cancel = true; };
  form->ShowModal();
  EXPECT_FALSE(form->Visible());
  EXPECT_TRUE(form->IsLoaded());
}

TEST_F(FormLife, EachShowingTakesTheNextScript) {
  std::vector<int> played;
  for (const int number : {1, 2}) {
    windows->AddScript([&played, number](Form& shown, FormUser&) {
      played.push_back(number);
      shown.Hide();
    });
  }
  form->ShowModal();
  EXPECT_EQ(windows->ScriptsLeft(), 1U);
  form->ShowModal();
  EXPECT_THAT(played, ElementsAre(1, 2));
  EXPECT_EQ(windows->ScriptsLeft(), 0U);
}

// --- Peers ------------------------------------------------------------------------------------

// A window with a frame that counts how often its state was shown.
class FramedPeer : public FormPeer {
 public:
  explicit FramedPeer(int& updates) : updates_(updates) {}
  Extent FrameExtent() const override { return {.width = 60, .height = 400}; }
  void Update() override { ++updates_; }
  void ShowModal() override { throw Error(ErrorNumber::FileAccess, "Geen beeldscherm"); }
  void Open() override { ShowModal(); }
  void Await() override {}
  void HandleEvents() override {}
  void Hide() override {}

 private:
  int& updates_;
};

class FramedWindows : public HeadlessWindows {
 public:
  std::shared_ptr<FormPeer> MakeFormPeer(Form&) override {
    return std::make_shared<FramedPeer>(updates);
  }
  int updates = 0;
};

TEST(FormPeers, TheFrameIsAddedToTheDesignedClientArea) {
  const auto form = std::make_shared<NotingForm>(std::make_shared<FramedWindows>());
  form->Load();
  EXPECT_EQ(form->Width(), 3060);
  EXPECT_EQ(form->Height(), 2400);
}

TEST(FormPeers, EveryChangeIsShownByThePeer) {
  const auto windows = std::make_shared<FramedWindows>();
  const auto form = std::make_shared<NotingForm>(windows);
  form->Load();
  const int afterLoad = windows->updates;
  form->PutCaption("Nieuw");
  form->PutWindowState(WindowState::Minimised);
  form->PutTop(1);
  EXPECT_EQ(windows->updates, afterLoad + 3);
}

// --- What a peer reports ------------------------------------------------------------------------

class ResizedForm : public NotingForm {
 public:
  using NotingForm::NotingForm;

 private:
  void OnResize() override { notes.emplace_back("resize"); }
};

TEST(FormPeers, ReportAPlacementThatTheFormTakesAsItIs) {
  const auto windows = std::make_shared<FramedWindows>();
  const auto form = std::make_shared<ResizedForm>(windows);
  form->Load();
  form->notes.clear();
  const int afterLoad = windows->updates;
  form->TakePlacement({150, 300, 6000, 4500}, {.width = 30, .height = 450}, WindowState::Maximised);
  EXPECT_EQ(form->Left(), 150);
  EXPECT_EQ(form->Top(), 300);
  EXPECT_EQ(form->ClientWidth(), 5970);
  EXPECT_EQ(form->ClientHeight(), 4050);
  EXPECT_EQ(form->GetWindowState(), WindowState::Maximised);
  // It comes from the peer, which knows it already.
  EXPECT_EQ(windows->updates, afterLoad);
  EXPECT_THAT(form->notes, ElementsAre("resize"));
  EXPECT_FALSE(StandsWhereItWasPut(*form));
}

TEST(FormPeers, RaiseResizeOnlyForAnotherClientArea) {
  const auto form = std::make_shared<ResizedForm>(std::make_shared<FramedWindows>());
  form->Load();
  form->notes.clear();
  form->TakePlacement({150, 300, form->Width() + 15, form->Height()}, {.width = 75, .height = 400},
                      WindowState::Normal);
  EXPECT_THAT(form->notes, IsEmpty());
}

TEST(FormPeers, ReportNothingToAFormThatIsNotLoaded) {
  const auto form = std::make_shared<ResizedForm>(std::make_shared<FramedWindows>());
  form->TakePlacement({150, 300, 6000, 4500}, {}, WindowState::Normal);
  EXPECT_EQ(form->Left(), 0);
  EXPECT_FALSE(form->IsLoaded());
}

TEST(FormPeers, ChooseThePlaceOfAFormThatWasNotPlacedSinceItWasLoaded) {
  const auto form = std::make_shared<NotingForm>(std::make_shared<FramedWindows>());
  EXPECT_FALSE(StandsWhereItWasPut(*form));
  form->PutTop(0);
  EXPECT_TRUE(StandsWhereItWasPut(*form));
  form->Unload();
  form->Load();
  EXPECT_FALSE(StandsWhereItWasPut(*form));
}

// --- Windows that change ------------------------------------------------------------------------

TEST(FormPeers, OfOtherWindowsShowTheFormAsItIs) {
  const auto form = std::make_shared<NotingForm>(std::make_shared<HeadlessWindows>());
  form->PutCaption("Bewaard");
  form->PutSize({.width = 6000, .height = 4500});
  const auto windows = std::make_shared<FramedWindows>();
  form->notes.clear();
  form->UseWindows(windows);
  EXPECT_EQ(windows->updates, 1);
  EXPECT_THAT(form->notes, IsEmpty());
  EXPECT_EQ(form->Caption(), "Bewaard");
  EXPECT_EQ(form->ClientWidth(), 6000);
  EXPECT_EQ(form->ClientHeight(), 4500);
  EXPECT_EQ(form->Width(), 6060);
  EXPECT_EQ(form->Height(), 4900);
}

TEST(FormPeers, OfOtherWindowsWaitUntilTheFormIsHidden) {
  const auto windows = std::make_shared<HeadlessWindows>();
  const auto form = std::make_shared<NotingForm>(windows);
  const auto others = std::make_shared<FramedWindows>();
  windows->AddScript([&](Form& shown) {
    shown.UseWindows(others);
    EXPECT_TRUE(shown.Visible());
  });
  form->ShowModal();
  EXPECT_EQ(others->updates, 0);
}

TEST(FormPeers, OfWindowsThatCannotBeMadeLeaveThoseBefore) {
  const auto form = std::make_shared<NotingForm>(std::make_shared<HeadlessWindows>());
  form->Load();
  EXPECT_THROW(form->UseWindows(std::make_shared<testing::NoWindows>()), Error);
  EXPECT_TRUE(form->IsLoaded());
  form->ShowModal();
}

// --- Minimised and maximised windows ------------------------------------------------------------

TEST(FormPeers, ReportAMinimisedFormThatComesBackAsItWas) {
  for (const WindowState before : {WindowState::Normal, WindowState::Maximised}) {
    const auto windows = std::make_shared<HeadlessWindows>();
    const auto form = std::make_shared<NotingForm>(windows);
    windows->AddScript([before](Form& shown) {
      shown.TakePlacement({0, 0, 3000, 2000}, {}, before);
      shown.ComeBack();
      EXPECT_EQ(shown.GetWindowState(), before);
      shown.TakePlacement({0, 0, 3000, 2000}, {}, WindowState::Minimised);
      shown.ComeBack();
      EXPECT_EQ(shown.GetWindowState(), before);
    });
    form->ShowModal();
  }
}

TEST(FormPeers, ReportAMaximisedFormThatGoesBackToItsPlaceOnceItIsHidden) {
  const auto form = std::make_shared<NotingForm>(std::make_shared<HeadlessWindows>());
  form->Load();
  form->TakePlacement({150, 300, 3000, 2000}, {}, WindowState::Normal);
  form->TakePlacement({0, 0, 15000, 9000}, {}, WindowState::Maximised);
  form->PutWindowState(WindowState::Normal);
  EXPECT_EQ(form->Left(), 150);
  EXPECT_EQ(form->Top(), 300);
  EXPECT_EQ(form->Width(), 3000);
  EXPECT_EQ(form->Height(), 2000);
}

TEST(FormPeers, AShowingThatCannotBeginLeavesTheFormHidden) {
  const auto form = std::make_shared<NotingForm>(std::make_shared<FramedWindows>());
  EXPECT_THROW(form->ShowModal(), Error);
  EXPECT_FALSE(form->Visible());
}

// --- Where a window is shown ------------------------------------------------------------------

constexpr Placement kScreen{.left = 0, .top = 450, .width = 30000, .height = 20000};

TEST_F(FormLife, ADialogIsShownInTheMiddleOfWhatIsBelow) {
  form->Load();
  form->PutSize({.width = 3000, .height = 2000});
  const Placement below{.left = 6000, .top = 5000, .width = 9000, .height = 8000};
  EXPECT_EQ(form->PlacementOver(below, kScreen), (Placement{9000, 8000, 3000, 2000}));
  EXPECT_EQ(form->PlacementOver(kScreen, kScreen), (Placement{13500, 9450, 3000, 2000}));
}

TEST_F(FormLife, ADialogIsWholeOnTheScreenAsFarAsItFits) {
  form->Load();
  form->PutSize({.width = 3000, .height = 2000});
  const Placement corner{.left = 29000, .top = 20000, .width = 900, .height = 400};
  EXPECT_EQ(form->PlacementOver(corner, kScreen), (Placement{27000, 18450, 3000, 2000}));
  const Placement outside{.left = -9000, .top = -9000, .width = 900, .height = 400};
  EXPECT_EQ(form->PlacementOver(outside, kScreen), (Placement{0, 450, 3000, 2000}));
  form->PutSize({.width = 40000, .height = 30000});
  EXPECT_EQ(form->PlacementOver(corner, kScreen), (Placement{0, 450, 40000, 30000}));
}

TEST_F(FormLife, APlacedDialogAndASizableWindowAreShownWhereTheyStand) {
  form->Load();
  form->PutSize({.width = 3000, .height = 2000});
  form->PutTop(-700);
  EXPECT_EQ(form->PlacementOver(kScreen, kScreen), (Placement{0, -700, 3000, 2000}));
  constexpr FormDesign kSizable{
      .caption = "Ruim", .client = {.width = 3000, .height = 2000}, .sizable = true};
  const auto sizable = std::make_shared<Form>(windows, kSizable);
  sizable->Load();
  sizable->PutSize({.width = 5000, .height = 4000});
  EXPECT_EQ(sizable->PlacementOver(kScreen, kScreen), (Placement{0, 0, 5000, 4000}));
}

}  // namespace
}  // namespace pagivo
