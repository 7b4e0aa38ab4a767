#include "window/toolbar.h"

#include <gmock/gmock.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "pagivo/error.h"
#include "support/trial_windows.h"
#include "window/control.h"
#include "window/form.h"
#include "window/key_codes.h"
#include "window/text_box.h"

namespace pagivo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::array<MenuItem, 3> kMenu{{
    {.text = "&Groot", .key = "Groot"},
    {.text = "-", .key = "Streep"},
    {.text = "&Verborgen", .key = "Verborgen", .visible = false},
}};

constexpr std::array<ToolbarButton, 6> kButtons{{
    {.key = "Open", .toolTip = "Openen"},
    {.key = "Streep1", .style = ToolbarButton::Style::Separator},
    {.key = "Dicht", .enabled = false},
    {.key = "Vak", .style = ToolbarButton::Style::Placeholder, .width = 600},
    {.key = "Zoom", .style = ToolbarButton::Style::DropDown, .menu = kMenu},
    {.key = "Laatste"},
}};

constexpr std::array<ControlDesign, 1> kControls{{
    {.name = "tbProef", .kind = ControlKind::Toolbar, .buttons = kButtons},
}};

class CountingPeer : public ControlPeer {
 public:
  explicit CountingPeer(int& refreshes) : refreshes_(refreshes) {}
  void Update() override { ++refreshes_; }
  void Focus() override {}

 private:
  int& refreshes_;
};

class ToolbarButtons : public ::testing::Test {
 protected:
  ToolbarButtons() {
    toolbar.WhenButtonClicked([this](std::string_view key) { clicks.emplace_back(key); });
    toolbar.WhenMenuClicked([this](std::string_view key) { menuClicks.emplace_back(key); });
  }

  ControlSet controls{kControls};
  Toolbar& toolbar = dynamic_cast<Toolbar&>(controls.Find("tbProef"));
  std::vector<std::string> clicks;
  std::vector<std::string> menuClicks;
};

TEST_F(ToolbarButtons, AreThoseOfTheDesign) {
  ASSERT_EQ(toolbar.Buttons().size(), kButtons.size());
  EXPECT_EQ(toolbar.Buttons()[0].toolTip, "Openen");
  EXPECT_EQ(toolbar.Buttons()[1].style, ToolbarButton::Style::Separator);
  EXPECT_TRUE(toolbar.Buttons()[2].visible);
  EXPECT_FALSE(toolbar.Buttons()[2].enabled);
}

TEST_F(ToolbarButtons, AreFoundByTheirExactKey) {
  toolbar.Button("Dicht").visible = false;
  EXPECT_FALSE(toolbar.Buttons()[2].visible);
  EXPECT_THROW(toolbar.Button("dicht"), Error);
}

TEST_F(ToolbarButtons, AKeyThatNoButtonHasIsNamed) {
  try {
    toolbar.Button("Zoek");
    FAIL() << "nothing was raised";
  } catch (const Error& error) {
    EXPECT_STREQ(error.what(), "De werkbalk heeft geen knop \"Zoek\"");
  }
}

TEST_F(ToolbarButtons, ShowTheirChangesAtARefresh) {
  int refreshes = 0;
  toolbar.Refresh();
  toolbar.Attach(std::make_unique<CountingPeer>(refreshes));
  toolbar.Button("Open").visible = false;
  EXPECT_EQ(refreshes, 0);
  toolbar.Refresh();
  EXPECT_EQ(refreshes, 1);
}

TEST_F(ToolbarButtons, StandInARow) {
  EXPECT_EQ(toolbar.LeftOf("Open"), 0);
  EXPECT_EQ(toolbar.LeftOf("Streep1"), 330);
  EXPECT_EQ(toolbar.LeftOf("Dicht"), 420);
  EXPECT_EQ(toolbar.LeftOf("Vak"), 750);
  EXPECT_EQ(toolbar.LeftOf("Zoom"), 1350);
  EXPECT_EQ(toolbar.LeftOf("Laatste"), 1875);
  EXPECT_THROW(toolbar.LeftOf("Zoek"), Error);
}

TEST_F(ToolbarButtons, AreAsWideAsTheirStyleAsks) {
  float left = 0;
  for (const ToolbarButton& button : toolbar.Buttons()) {
    EXPECT_EQ(toolbar.LeftOf(button), left) << button.key;
    left += Toolbar::WidthOf(button);
  }
}

TEST_F(ToolbarButtons, CloseTheGapOfAHiddenOne) {
  toolbar.Button("Open").visible = false;
  EXPECT_EQ(toolbar.LeftOf("Dicht"), 90);
}

TEST_F(ToolbarButtons, RaiseTheClickWithTheirKey) {
  toolbar.ClickButton("Open");
  toolbar.ClickButton("Zoom");
  EXPECT_THAT(clicks, ElementsAre("Open", "Zoom"));
}

TEST_F(ToolbarButtons, RaiseNothingWhenHiddenDisabledOrSeparating) {
  toolbar.Button("Laatste").visible = false;
  for (const auto* key : {"Dicht", "Laatste", "Streep1"}) toolbar.ClickButton(key);
  EXPECT_THAT(clicks, IsEmpty());
  EXPECT_THROW(toolbar.ClickButton("Zoek"), Error);
}

TEST_F(ToolbarButtons, RaiseTheMenuClickWithTheEntrysKey) {
  toolbar.ClickMenu("Groot");
  EXPECT_THAT(menuClicks, ElementsAre("Groot"));
  EXPECT_THAT(clicks, IsEmpty());
}

TEST_F(ToolbarButtons, HaveNoClickOnAHiddenEntryOrALine) {
  toolbar.ClickMenu("Streep");
  toolbar.ClickMenu("Verborgen");
  EXPECT_THAT(menuClicks, IsEmpty());
  EXPECT_THROW(toolbar.ClickMenu("Zoek"), Error);
}

TEST_F(ToolbarButtons, WithoutAHandlerClicksAreLost) {
  toolbar.WhenButtonClicked({});
  toolbar.ClickButton("Open");
  EXPECT_THAT(clicks, IsEmpty());
}

// --- The keyboard -----------------------------------------------------------------------------

constexpr std::array<ControlDesign, 5> kFormControls{{
    {.name = "tbProef",
     .kind = ControlKind::Toolbar,
     .placement = {0, 0, 6000, 420},
     .buttons = kButtons},
    {.name = "txtEen",
     .kind = ControlKind::TextBox,
     .placement = {0, 600, 1500, 330},
     .tabIndex = 0},
    {.name = "txtTwee",
     .kind = ControlKind::TextBox,
     .placement = {0, 1200, 1500, 330},
     .tabIndex = 1},
    {.name = "cmdOK",
     .kind = ControlKind::Button,
     .caption = "OK",
     .placement = {0, 1800, 1200, 330},
     .tabIndex = 2,
     .role = ButtonRole::Default},
    {.name = "cmdAnnuleren",
     .kind = ControlKind::Button,
     .caption = "Annuleren",
     .placement = {1500, 1800, 1200, 330},
     .tabIndex = 3,
     .role = ButtonRole::Cancel},
}};
constexpr FormDesign kFormDesign{
    .caption = "Proef", .client = {.width = 6000, .height = 3000}, .controls = kFormControls};

class ToolbarKeyboard : public ::testing::Test {
 protected:
  // What the user does in the shown form.
  void Show(const std::function<void(FormUser& user)>& acts) {
    for (const auto* name : {"cmdOK", "cmdAnnuleren"}) {
      form->Get(name).WhenClicked([this, name] { notes.emplace_back(name); });
    }
    Bar().WhenButtonClicked([this](std::string_view key) { notes.emplace_back(key); });
    bool shown = false;
    windows->AddScript([&](Form&, FormUser& user) {
      shown = true;
      acts(user);
    });
    form->ShowModal();
    EXPECT_TRUE(shown);
  }
  Toolbar& Bar() { return form->Get<Toolbar>("tbProef"); }
  // The key of the button with the keyboard.
  std::string At() {
    const ToolbarButton* button = Bar().ButtonWithKeyboard();
    return button == nullptr ? "none" : std::string(button->key);
  }
  std::string_view Focused() { return form->Controls().Focused()->Name(); }

  std::shared_ptr<testing::TrialWindows> windows = testing::MakeTrialWindows();
  std::shared_ptr<Form> form = std::make_shared<Form>(windows, kFormDesign);
  std::vector<std::string> notes;
};

TEST_F(ToolbarKeyboard, ComesWithF10OrF6AndGoesWithThoseOrTab) {
  Show([this](FormUser& user) {
    for (const std::int16_t enter : {kKeyF10, kKeyF6}) {
      for (const std::int16_t leave : {kKeyF10, kKeyF6, kKeyTab}) {
        user.Press(enter);
        EXPECT_EQ(At(), "Open");
        user.Press(leave);
        EXPECT_EQ(At(), "none");
        EXPECT_EQ(Focused(), "txtEen") << "the form's focus stays where it is";
      }
    }
    user.Press(kKeyF10, kShiftKey);
    EXPECT_EQ(At(), "none");
  });
}

TEST_F(ToolbarKeyboard, WalksRoundTheEndsPastWhatCannotBePressed) {
  Show([this](FormUser& user) {
    user.Press(kKeyF10);
    for (const auto& [key, at] : {std::pair{kKeyRight, "Zoom"},
                                  {kKeyRight, "Laatste"},
                                  {kKeyRight, "Open"},
                                  {kKeyLeft, "Laatste"},
                                  {kKeyLeft, "Zoom"},
                                  {kKeyHome, "Open"},
                                  {kKeyUp, "Open"},
                                  {kKeyEnd, "Laatste"}}) {
      user.Press(key);
      EXPECT_EQ(At(), at);
    }
    user.Press(kKeyTab);
  });
  EXPECT_THAT(notes, IsEmpty());
}

TEST_F(ToolbarKeyboard, PressesWithEnterAndSpaceAndGoesBack) {
  Show([this](FormUser& user) {
    for (const std::int16_t press : {kKeyEnter, kKeySpace}) {
      user.Press(kKeyF10);
      user.Press(kKeyRight);
      user.Press(press);
      EXPECT_EQ(At(), "none");
    }
    user.Press(kKeyEnter);
  });
  EXPECT_THAT(notes, ElementsAre("Zoom", "Zoom", "cmdOK")) << "the last Enter is the form's again";
}

TEST_F(ToolbarKeyboard, LeavesEscToTheForm) {
  Show([this](FormUser& user) {
    user.Press(kKeyF10);
    user.Press(kKeyEscape);
    EXPECT_EQ(At(), "none");
  });
  EXPECT_THAT(notes, ElementsAre("cmdAnnuleren"));
}

TEST_F(ToolbarKeyboard, KeepsOtherKeysFromTheForm) {
  Show([this](FormUser& user) {
    user.Press(kKeyF10);
    user.Press('A');
    EXPECT_EQ(At(), "Open");
    EXPECT_EQ(form->Get<TextBox>("txtEen").Text(), "");
    user.Press(kKeyF6);
  });
}

TEST_F(ToolbarKeyboard, GoesToAControlThatGetsTheFocus) {
  Show([this](FormUser& user) {
    user.Press(kKeyF10);
    user.Click("txtTwee");
    EXPECT_EQ(At(), "none");
    user.Press(kKeyF10);
    form->Get("txtTwee").Focus();
    EXPECT_EQ(At(), "none") << "though it has had the form's focus all the time";
    EXPECT_EQ(Focused(), "txtTwee");
  });
}

TEST_F(ToolbarKeyboard, IsNotTakenWhereNothingCanBePressed) {
  for (const auto* key : {"Open", "Zoom", "Laatste"}) Bar().Button(key).enabled = false;
  Bar().Refresh();
  Show([this](FormUser& user) {
    user.Press(kKeyF10);
    EXPECT_EQ(At(), "none");
  });
}

TEST_F(ToolbarKeyboard, ACommandMayUnloadTheForm) {
  Show([this](FormUser& user) {
    Bar().WhenButtonClicked([this](std::string_view) { form->Unload(); });
    user.Press(kKeyF10);
    user.Press(kKeyEnter);
  });
  EXPECT_FALSE(form->IsLoaded());
}

TEST_F(ToolbarKeyboard, OfAFormThatWasHiddenBeginsAnewAtItsNextShowing) {
  Show([this](FormUser& user) {
    user.Press(kKeyF10);
    form->Hide();
  });
  Show([this](FormUser& user) {
    EXPECT_EQ(At(), "none");
    user.Press(kKeyF10);
    user.Press(kKeyF10);
  });
}

TEST_F(ToolbarButtons, OpenTheirMenuWithArrowDown) {
  class MenuPeer final : public ControlPeer {
   public:
    explicit MenuPeer(std::vector<std::string>& opened) : opened_(opened) {}
    void Update() override {}
    void Focus() override {}
    void OpenMenu(const ToolbarButton& button) override { opened_.emplace_back(button.key); }

   private:
    std::vector<std::string>& opened_;
  };
  std::vector<std::string> opened;
  EXPECT_FALSE(toolbar.PressKey(kKeyDown, 0)) << "no button has the keyboard";
  toolbar.Attach(std::make_unique<MenuPeer>(opened));
  toolbar.TakeKeyboard();
  EXPECT_TRUE(toolbar.PressKey(kKeyDown, 0)) << "it has no menu, but the key is the toolbar's";
  toolbar.PressKey(kKeyRight, 0);
  EXPECT_TRUE(toolbar.PressKey(kKeyDown, 0));
  EXPECT_THAT(opened, ElementsAre("Zoom"));
  toolbar.ClickMenu("Groot");
  EXPECT_EQ(toolbar.ButtonWithKeyboard(), nullptr) << "a command gives the keyboard back";
}

}  // namespace
}  // namespace pagivo
