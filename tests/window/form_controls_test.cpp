// A form with controls: how it holds them, and what the user does to it.
#include <gmock/gmock.h>

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "pagivo/error.h"
#include "support/trial_windows.h"
#include "window/combo_box.h"
#include "window/form.h"
#include "window/key_codes.h"
#include "window/option_button.h"
#include "window/scroll_bar.h"
#include "window/text_box.h"
#include "window/toolbar.h"

namespace pagivo {
namespace {

using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr std::array<MenuItem, 1> kMenu{{{.text = "&Groot", .key = "Groot"}}};
constexpr std::array<ToolbarButton, 1> kButtons{
    {{.key = "Zoom", .style = ToolbarButton::Style::DropDown, .menu = kMenu}}};

constexpr std::array<ControlDesign, 9> kControls{{
    {.name = "lblNaam",
     .kind = ControlKind::Label,
     .caption = "&Naam:",
     .placement = {120, 600, 900, 300},
     .tabIndex = 0},
    {.name = "txtNaam",
     .kind = ControlKind::TextBox,
     .placement = {1200, 600, 1500, 300},
     .tabIndex = 1},
    {.name = "cboKeuze",
     .kind = ControlKind::ComboBox,
     .placement = {1200, 1200, 1500, 330},
     .tabIndex = 2,
     .editable = true},
    {.name = "optAan",
     .kind = ControlKind::OptionButton,
     .caption = "&Aan",
     .placement = {120, 1800, 1500, 300},
     .tabIndex = 3},
    {.name = "vsbStand",
     .kind = ControlKind::ScrollBar,
     .placement = {3000, 600, 180, 300},
     .tabIndex = 4,
     .maximum = 9},
    {.name = "cmdOK",
     .kind = ControlKind::Button,
     .caption = "OK",
     .placement = {120, 2400, 1200, 330},
     .tabIndex = 5,
     .role = ButtonRole::Default},
    {.name = "cmdAnnuleren",
     .kind = ControlKind::Button,
     .caption = "Annuleren",
     .placement = {1500, 2400, 1200, 330},
     .tabIndex = 6,
     .role = ButtonRole::Cancel},
    {.name = "cmdMeer",
     .kind = ControlKind::Button,
     .caption = "&Meer",
     .placement = {2880, 2400, 1200, 330},
     .tabIndex = 7},
    {.name = "tbBalk",
     .kind = ControlKind::Toolbar,
     .placement = {0, 0, 4500, 420},
     .buttons = kButtons},
}};

constexpr FormDesign kDesign{.caption = "Proef",
                             .client = {.width = 4500, .height = 3000},
                             .sizable = true,
                             .keyPreview = true,
                             .controls = kControls};

class TrialForm : public Form {
 public:
  explicit TrialForm(std::shared_ptr<WindowSystem> windows) : Form(std::move(windows), kDesign) {}

  std::vector<std::string> notes;
  std::int16_t consumed = 0;
  std::function<void()> atOk = [] {};
  std::function<void()> atKeyDown = [] {};

 private:
  void CreateControls() override {
    for (const auto& control : Controls().All()) {
      const std::string name(control->Name());
      control->WhenClicked([this, name] {
        notes.push_back("click " + name);
        if (name == "cmdOK") atOk();
      });
      control->WhenFocused([this, name] { notes.push_back("focus " + name); });
      control->WhenChanged([this, name] { notes.push_back("change " + name); });
    }
    auto& bar = Get<Toolbar>("tbBalk");
    bar.WhenButtonClicked(
        [this](std::string_view key) { notes.push_back("b " + std::string(key)); });
    bar.WhenMenuClicked([this](std::string_view key) { notes.push_back("m " + std::string(key)); });
  }
  void OnResize() override { notes.emplace_back("resize"); }
  void OnPaint() override { notes.emplace_back("paint"); }
  // Shift, Ctrl and Alt are keys of their own on a real keyboard only.
  void OnKeyDown(std::int16_t& keyCode, std::int16_t shift) override {
    if (keyCode >= 16 && keyCode <= 18) return;
    notes.push_back("key " + std::to_string(keyCode) + " " + std::to_string(shift));
    if (keyCode == consumed) keyCode = 0;
    atKeyDown();
  }
  void OnShowingFailed() override { notes.emplace_back("failed"); }
};

class FormWithControls : public ::testing::Test {
 protected:
  // What happens while the user acts on the shown form.
  std::vector<std::string> NotesOf(const std::function<void(FormUser&)>& acts) {
    std::vector<std::string> notes;
    windows->AddScript([&](Form&, FormUser& user) {
      form->notes.clear();
      acts(user);
      notes = form->notes;
    });
    form->ShowModal();
    return notes;
  }

  // The same without the keys, which a user who types presses on a real keyboard only, and without
  // the paints, which are a screen's own affair.
  std::vector<std::string> EventsOf(const std::function<void(FormUser&)>& acts) {
    std::vector<std::string> events = NotesOf(acts);
    std::erase_if(events, [](const std::string& note) {
      return note == "paint" || note.starts_with("key ");
    });
    return events;
  }

  std::shared_ptr<testing::TrialWindows> windows = testing::MakeTrialWindows();
  std::shared_ptr<TrialForm> form = std::make_shared<TrialForm>(windows);
};

TEST_F(FormWithControls, GivesThemByNameAndKindLoadingItself) {
  EXPECT_EQ(form->Get("cmdOK").Caption(), "OK");
  EXPECT_TRUE(form->IsLoaded());
  EXPECT_THROW(form->Get<TextBox>("cmdOK"), Error);
  EXPECT_THROW(form->Get("cmdWeg"), Error);
}

TEST_F(FormWithControls, EachLoadMakesThemAnew) {
  form->Get<TextBox>("txtNaam").PutText("Piet");
  form->Unload();
  EXPECT_EQ(form->Get<TextBox>("txtNaam").Text(), "");
}

TEST_F(FormWithControls, AShowingResizesOnceGivesTheFocusToTheFirstAndPaints) {
  windows->AddScript([](Form& shown, FormUser&) { shown.Hide(); });
  windows->AddScript([](Form& shown, FormUser&) { shown.Hide(); });
  form->ShowModal();
  ASSERT_GE(form->notes.size(), 3U);
  EXPECT_EQ(form->notes[0], "resize");
  EXPECT_EQ(form->notes[1], "focus txtNaam");
  EXPECT_EQ(form->notes.back(), "paint");
  form->notes.clear();
  form->ShowModal();
  // A screen may ask for the window's contents more than once.
  EXPECT_THAT(form->notes, AllOf(Not(IsEmpty()), Each("paint")));
}

TEST_F(FormWithControls, EveryNewSizeRaisesResize) {
  form->Load();
  const Extent frame{form->Width() - 4500, form->Height() - 3000};
  form->PutWidth(form->Width());
  EXPECT_THAT(form->notes, IsEmpty());
  form->PutWidth(6000);
  form->PutHeight(4500);
  form->PutSize({.width = 5400, .height = 3300});
  EXPECT_THAT(form->notes, ElementsAre("resize", "resize", "resize"));
  EXPECT_EQ(form->ClientWidth(), 5400 - frame.width);
  EXPECT_EQ(form->ClientHeight(), 3300 - frame.height);
}

TEST_F(FormWithControls, AFailingHandlerEndsTheShowingAndIsReported) {
  form->atOk = [] { throw Error(ErrorNumber::FileAccess, "Mislukt"); };
  windows->AddScript([](Form&, FormUser& user) { user.Click("cmdOK"); });
  EXPECT_THROW(form->ShowModal(), Error);
  EXPECT_EQ(form->notes.back(), "failed");
  EXPECT_FALSE(form->Visible());
}

TEST_F(FormWithControls, AHandlerMayUnloadTheFormItBelongsTo) {
  form->atOk = [this] { form->Unload(); };
  windows->AddScript([](Form& shown, FormUser& user) {
    user.Click("cmdOK");
    EXPECT_FALSE(shown.IsLoaded());
  });
  form->ShowModal();
  EXPECT_FALSE(form->IsLoaded());
}

// --- Keys -------------------------------------------------------------------------------------

TEST_F(FormWithControls, EnterPressesTheDefaultButtonAndEscTheCancelButton) {
  EXPECT_THAT(NotesOf([](FormUser& user) {
                user.Press(kKeyEnter);
                user.Press(kKeyEscape);
              }),
              ElementsAre("key 13 0", "click cmdOK", "key 27 0", "click cmdAnnuleren"));
}

TEST_F(FormWithControls, EnterPressesTheButtonWithTheFocus) {
  EXPECT_THAT(NotesOf([this](FormUser& user) {
                form->Get("cmdMeer").Focus();
                user.Press(kKeyEnter);
              }),
              ElementsAre("focus cmdMeer", "key 13 0", "click cmdMeer"));
}

TEST_F(FormWithControls, ADisabledButtonIsNotPressedByItsKey) {
  form->Get("cmdOK").PutEnabled(false);
  EXPECT_THAT(NotesOf([](FormUser& user) { user.Press(kKeyEnter); }), ElementsAre("key 13 0"));
}

TEST_F(FormWithControls, TheFormMayConsumeAKeyBeforeItsControlsSeeIt) {
  form->consumed = kKeyEnter;
  EXPECT_THAT(NotesOf([](FormUser& user) { user.Press(kKeyEnter); }), ElementsAre("key 13 0"));
}

TEST_F(FormWithControls, AKeyThatHidesOrUnloadsTheFormDoesNothingMore) {
  const std::function<void()> endings[] = {[this] { form->Hide(); }, [this] { form->Unload(); }};
  for (const auto& end : endings) {
    for (const std::int16_t key : {kKeyEnter, kKeyTab, kKeyDown}) {
      form->atKeyDown = end;
      EXPECT_THAT(NotesOf([key](FormUser& user) { user.Press(key); }),
                  ElementsAre("key " + std::to_string(key) + " 0"));
    }
  }
}

TEST_F(FormWithControls, TabMovesTheFocusBothWays) {
  EXPECT_THAT(NotesOf([](FormUser& user) {
                user.Press(kKeyTab);
                user.Press(kKeyTab, kShiftKey);
              }),
              ElementsAre("key 9 0", "focus cboKeuze", "key 9 1", "focus txtNaam"));
}

TEST_F(FormWithControls, TheArrowsGoToTheControlWithTheFocus) {
  NotesOf([this](FormUser& user) {
    form->Get("vsbStand").Focus();
    user.Press(kKeyDown);
    user.Press(kKeyDown);
    user.Press(kKeyUp);
    EXPECT_EQ(form->Get<ScrollBar>("vsbStand").Value(), 1);
    auto& list = form->Get<ComboBox>("cboKeuze");
    list.AddItem("Een");
    list.AddItem("Twee");
    list.Focus();
    for (int i = 0; i < 3; ++i) user.Press(kKeyDown);
    EXPECT_EQ(list.Text(), "Twee");
    for (int i = 0; i < 3; ++i) user.Press(kKeyUp);
    EXPECT_EQ(list.Text(), "Een");
  });
}

TEST_F(FormWithControls, AnAccessKeyPressesItsControlOrGivesItTheFocus) {
  EXPECT_THAT(NotesOf([](FormUser& user) {
                user.PressAccessKey('m');
                user.PressAccessKey('a');
                user.PressAccessKey('z');
              }),
              ElementsAre("focus cmdMeer", "click cmdMeer", "focus optAan", "click optAan"));
}

TEST_F(FormWithControls, ALabelsAccessKeyGivesTheFocusToWhatFollowsIt) {
  EXPECT_THAT(NotesOf([this](FormUser& user) {
                form->Get("cmdMeer").Focus();
                user.PressAccessKey('n');
              }),
              ElementsAre("focus cmdMeer", "focus txtNaam"));
}

// --- The mouse --------------------------------------------------------------------------------

TEST_F(FormWithControls, ClickingGivesTheFocusAndRaisesTheClick) {
  EXPECT_THAT(NotesOf([](FormUser& user) { user.Click("optAan"); }),
              ElementsAre("focus optAan", "click optAan"));
}

TEST_F(FormWithControls, WhatIsDoneToADisabledControlHasNoEffect) {
  for (const auto& control : form->Controls().All()) control->PutEnabled(false);
  EXPECT_THAT(EventsOf([](FormUser& user) {
                user.Click("cmdOK");
                user.Replace("txtNaam", "Piet");
                user.Type("txtNaam", "Piet");
                user.Erase("txtNaam");
                user.Pick("cboKeuze", 0);
                user.Scroll("vsbStand", 1);
                user.ClickUpArrow("vsbStand");
                user.ClickDownArrow("vsbStand");
                user.ClickToolbar("tbBalk", "Zoom");
                user.ClickToolbarMenu("tbBalk", "Groot");
                user.PressAccessKey('m');
              }),
              IsEmpty());
  EXPECT_FALSE(form->Visible());
}

TEST_F(FormWithControls, AUserTypesAtOnceOrKeyByKey) {
  EXPECT_THAT(EventsOf([this](FormUser& user) {
                user.Replace("txtNaam", "Piet");
                user.Replace("txtNaam", "Jé");
                user.Type("txtNaam", "ë!");
                EXPECT_EQ(form->Get<TextBox>("txtNaam").Text(), "Jéë!");
                user.Erase("txtNaam");
                EXPECT_EQ(form->Get<TextBox>("txtNaam").Text(), "");
                user.Replace("cboKeuze", "7");
                EXPECT_EQ(form->Get<ComboBox>("cboKeuze").Text(), "7");
              }),
              ElementsAre("change txtNaam", "change txtNaam", "change txtNaam", "change txtNaam",
                          "change txtNaam", "focus cboKeuze", "change cboKeuze"));
}

TEST_F(FormWithControls, AUserPicksAndScrolls) {
  form->Get<ComboBox>("cboKeuze").AddItem("Een");
  EXPECT_THAT(EventsOf([](FormUser& user) {
                user.Pick("cboKeuze", 0);
                user.Scroll("vsbStand", 1);
                user.ClickUpArrow("vsbStand");
                user.ClickDownArrow("vsbStand");
              }),
              ElementsAre("focus cboKeuze", "click cboKeuze", "focus vsbStand", "change vsbStand",
                          "change vsbStand", "change vsbStand"));
}

TEST_F(FormWithControls, AUserClicksToolbarAndMenu) {
  EXPECT_THAT(EventsOf([](FormUser& user) {
                user.ClickToolbar("tbBalk", "Zoom");
                user.ClickToolbarMenu("tbBalk", "Groot");
              }),
              ElementsAre("b Zoom", "m Groot"));
}

TEST_F(FormWithControls, AUserResizesAndCloses) {
  EXPECT_THAT(NotesOf([](FormUser& user) { user.Resize({.width = 6000, .height = 4500}); }),
              ElementsAre("resize", "paint"));
  EXPECT_EQ(form->Width(), 6000);
  EXPECT_EQ(form->Height(), 4500);
  NotesOf([this](FormUser& user) {
    user.Close();
    EXPECT_FALSE(form->IsLoaded());
  });
}

}  // namespace
}  // namespace pagivo
