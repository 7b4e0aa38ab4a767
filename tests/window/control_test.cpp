#include "window/control.h"

#include <gmock/gmock.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

#include "pagivo/error.h"
#include "window/combo_box.h"
#include "window/key_codes.h"
#include "window/option_button.h"
#include "window/scroll_bar.h"
#include "window/text_box.h"

namespace pagivo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::array<ControlDesign, 13> kControls{{
    {.name = "Kader", .kind = ControlKind::Frame, .caption = "&Kader", .tabIndex = 0},
    {.name = "Vlak",
     .kind = ControlKind::PictureBox,
     .placement = {120, 240, 3135, 1215},
     .container = "Kader",
     .tabIndex = 1},
    {.name = "optEen", .kind = ControlKind::OptionButton, .container = "Vlak", .tabIndex = 2},
    {.name = "optTwee", .kind = ControlKind::OptionButton, .container = "Vlak", .tabIndex = 3},
    {.name = "optLos", .kind = ControlKind::OptionButton, .container = "Kader", .tabIndex = 9},
    {.name = "txtVrij", .kind = ControlKind::TextBox, .caption = "Begin", .tabIndex = 5},
    {.name = "txtKort", .kind = ControlKind::TextBox, .tabIndex = 4, .maximumLength = 3},
    {.name = "cboLijst", .kind = ControlKind::ComboBox, .tabIndex = 6},
    {.name = "cboVrij", .kind = ControlKind::ComboBox, .tabIndex = 7, .editable = true},
    {.name = "vsbAantal",
     .kind = ControlKind::ScrollBar,
     .tabIndex = 8,
     .minimum = 1,
     .maximum = 10},
    {.name = "cmdOK",
     .kind = ControlKind::Button,
     .caption = "OK",
     .tabIndex = 10,
     .role = ButtonRole::Default},
    {.name = "lblZonder", .kind = ControlKind::Label},
    {.name = "txtVast", .kind = ControlKind::TextBox, .caption = "3/12", .readOnly = true},
}};

class Controls : public ::testing::Test {
 protected:
  template <typename Kind = Control>
  Kind& Get(std::string_view name) {
    return dynamic_cast<Kind&>(set.Find(name));
  }

  // Notes `event` whenever it happens to the control.
  Control::Handler Note(std::string event) {
    return [this, event] { notes.push_back(event); };
  }

  ControlSet set{kControls};
  std::vector<std::string> notes;
};

// --- Every control ----------------------------------------------------------------------------

TEST_F(Controls, StartAsDesigned) {
  const Control& area = Get("Vlak");
  EXPECT_EQ(area.Kind(), ControlKind::PictureBox);
  EXPECT_EQ(area.Left(), 120);
  EXPECT_EQ(area.Top(), 240);
  EXPECT_EQ(area.Width(), 3135);
  EXPECT_EQ(area.Height(), 1215);
  EXPECT_EQ(area.Container(), &Get("Kader"));
  EXPECT_EQ(Get("Kader").Container(), nullptr);
  EXPECT_EQ(Get("Kader").Caption(), "&Kader");
  EXPECT_TRUE(area.Enabled());
  EXPECT_TRUE(area.Visible());
  EXPECT_EQ(area.FontName(), "Tahoma");
  EXPECT_EQ(area.FontSize(), 8.25F);
  EXPECT_EQ(Get<TextBox>("txtVrij").Text(), "Begin");
}

TEST_F(Controls, HoldWhatIsPut) {
  Control& button = Get("cmdOK");
  button.PutCaption("Ja");
  button.PutLeft(1);
  button.PutTop(2.5F);
  button.PutWidth(3);
  button.PutHeight(4);
  button.PutFontName("Arial");
  button.PutFontSize(10);
  EXPECT_EQ(button.Caption(), "Ja");
  EXPECT_EQ(button.Left(), 1);
  EXPECT_EQ(button.Top(), 2.5F);
  EXPECT_EQ(button.Width(), 3);
  EXPECT_EQ(button.Height(), 4);
  EXPECT_EQ(button.FontName(), "Arial");
  EXPECT_EQ(button.FontSize(), 10);
}

TEST_F(Controls, AreFoundByTheirExactName) {
  EXPECT_THROW(set.Find("cmdok"), Error);
  EXPECT_EQ(set.All().size(), kControls.size());
}

TEST_F(Controls, TheCaptionIsReadWithoutTheMarkOfItsAccessKey) {
  struct Row {
    const char* caption;
    const char* read;
  };
  for (const Row& row : {Row{"&Pagina's", "Pagina's"}, Row{"Jansen && Zn", "Jansen & Zn"},
                         Row{"einde&", "einde&"}, Row{"", ""}}) {
    Get("cmdOK").PutCaption(row.caption);
    EXPECT_EQ(Get("cmdOK").PlainCaption(), row.read);
  }
}

TEST_F(Controls, TheAccessKeyIsTheLetterBehindTheFirstSingleAmpersand) {
  struct Row {
    std::string caption;
    char key;
  };
  Control& button = Get("cmdOK");
  for (const Row& row : {Row{"&Alles", 'a'}, Row{"Pagi&na...", 'n'},
                         Row{"Aantal e&xemplaren:", 'x'}, Row{"15&0%", '0'}, Row{"OK", 0},
                         Row{"Jan && &Piet", 'p'}, Row{"&", 0}, Row{"Ja&", 0}, Row{"", 0}}) {
    button.PutCaption(row.caption);
    EXPECT_EQ(button.AccessKey(), row.key) << row.caption;
  }
}

TEST_F(Controls, AreReachableWhenTheyAndTheirContainersAreEnabledAndVisible) {
  Control& option = Get("optEen");
  EXPECT_TRUE(option.IsReachable());
  for (const auto* name : {"optEen", "Vlak", "Kader"}) {
    Get(name).PutEnabled(false);
    EXPECT_FALSE(option.IsReachable()) << name;
    Get(name).PutEnabled(true);
    Get(name).PutVisible(false);
    EXPECT_FALSE(option.IsReachable()) << name;
    Get(name).PutVisible(true);
  }
  EXPECT_TRUE(option.IsReachable());
}

TEST_F(Controls, AHandlerMayReplaceItselfWhileItRuns) {
  Control& button = Get("cmdOK");
  button.WhenClicked([&] {
    button.WhenClicked(Note("second"));
    notes.emplace_back("first");
  });
  button.Click();
  button.Click();
  EXPECT_THAT(notes, ElementsAre("first", "second"));
}

// --- Peers ------------------------------------------------------------------------------------

class NotingPeer : public ControlPeer {
 public:
  explicit NotingPeer(std::vector<std::string>& notes) : notes_(notes) {}
  void Update() override { notes_.emplace_back("update"); }
  void Focus() override { notes_.emplace_back("focus"); }

 private:
  std::vector<std::string>& notes_;
};

TEST_F(Controls, EveryChangeIsShownByThePeer) {
  Get("txtVrij").Attach(std::make_unique<NotingPeer>(notes));
  Get("txtVrij").PutEnabled(false);
  Get("txtVrij").PutLeft(5);
  EXPECT_THAT(notes, ElementsAre("update", "update"));
}

TEST_F(Controls, ThePeerTakesTheFocusBeforeTheHandlerRuns) {
  Get("txtVrij").Attach(std::make_unique<NotingPeer>(notes));
  Get("txtVrij").WhenFocused(Note("focused"));
  Get("txtVrij").Focus();
  EXPECT_THAT(notes, ElementsAre("focus", "focused"));
}

// --- Focus ------------------------------------------------------------------------------------

TEST_F(Controls, FocusGainedIsRaisedWhenTheFocusComes) {
  Get("txtVrij").WhenFocused(Note("vrij"));
  Get("txtVrij").Focus();
  Get("txtVrij").Focus();
  Get("cmdOK").Focus();
  Get("txtVrij").Focus();
  EXPECT_THAT(notes, ElementsAre("vrij", "vrij"));
  EXPECT_EQ(set.Focused(), &Get("txtVrij"));
}

TEST_F(Controls, WhatCannotBeReachedCannotHaveTheFocus) {
  Get("cmdOK").PutEnabled(false);
  for (const auto* name : {"cmdOK", "Kader", "Vlak", "lblZonder"}) {
    EXPECT_THROW(Get(name).Focus(), Error) << name;
  }
  EXPECT_EQ(set.Focused(), nullptr);
}

TEST_F(Controls, TheTabOrderFollowsTheIndexAndGoesRound) {
  std::vector<std::string> names;
  const Control* control = nullptr;
  for (int i = 0; i < 10; ++i) {
    control = set.NextInTabOrder(control);
    names.emplace_back(control->Name());
  }
  EXPECT_THAT(names, ElementsAre("optEen", "optTwee", "txtKort", "txtVrij", "cboLijst", "cboVrij",
                                 "vsbAantal", "optLos", "cmdOK", "optEen"));
  EXPECT_EQ(set.NextInTabOrder(&Get("optEen"), true), &Get("cmdOK"));
}

TEST_F(Controls, OfAGroupWithAChoiceTheTabOrderHasTheSetOptionOnly) {
  Get<OptionButton>("optTwee").PutValue(true);
  EXPECT_EQ(set.NextInTabOrder(nullptr), &Get("optTwee"));
  EXPECT_EQ(set.NextInTabOrder(&Get("optTwee")), &Get("txtKort"));
}

TEST_F(Controls, TheTabOrderLeavesOutWhatCannotBeReached) {
  for (const auto& control : set.All()) control->PutEnabled(control->Name() == "cboVrij");
  EXPECT_EQ(set.NextInTabOrder(nullptr), &Get("cboVrij"));
  EXPECT_EQ(set.NextInTabOrder(&Get("cboVrij")), &Get("cboVrij"));
  Get("cboVrij").PutVisible(false);
  EXPECT_EQ(set.NextInTabOrder(nullptr), nullptr);
}

// --- Option buttons ---------------------------------------------------------------------------

TEST_F(Controls, SettingAnOptionClearsTheOthersOfItsContainerAndRaisesItsClick) {
  for (const auto* name : {"optEen", "optTwee", "optLos"}) Get(name).WhenClicked(Note(name));
  Get<OptionButton>("optLos").PutValue(true);
  Get<OptionButton>("optEen").PutValue(true);
  Get<OptionButton>("optTwee").PutValue(true);
  EXPECT_FALSE(Get<OptionButton>("optEen").Value());
  EXPECT_TRUE(Get<OptionButton>("optTwee").Value());
  EXPECT_TRUE(Get<OptionButton>("optLos").Value());
  EXPECT_THAT(notes, ElementsAre("optLos", "optEen", "optTwee"));
}

TEST_F(Controls, ClearingAnOptionRaisesNothingAndSetsNoOther) {
  Get<OptionButton>("optEen").PutValue(true);
  Get("optEen").WhenClicked(Note("een"));
  Get<OptionButton>("optEen").PutValue(false);
  EXPECT_FALSE(Get<OptionButton>("optEen").GroupHasChoice());
  EXPECT_THAT(notes, IsEmpty());
}

TEST_F(Controls, ClickingAnOptionSetsIt) {
  Get("optEen").WhenClicked(Note("een"));
  Get("optEen").Click();
  EXPECT_TRUE(Get<OptionButton>("optEen").Value());
  EXPECT_THAT(notes, ElementsAre("een"));
}

TEST_F(Controls, ArrowsGoToTheOptionBesideAndSetIt) {
  auto& one = Get<OptionButton>("optEen");
  auto& two = Get<OptionButton>("optTwee");
  one.Click();
  one.Focus();
  two.WhenClicked(Note("two"));
  for (const std::int16_t key : {kKeyDown, kKeyRight, kKeyUp, kKeyLeft}) {
    one.PutValue(true);
    EXPECT_TRUE(one.PressKey(key, 0)) << key;
    EXPECT_TRUE(two.Value()) << key;
    EXPECT_FALSE(one.Value()) << key;
    EXPECT_EQ(set.Focused(), &two) << key;
  }
  EXPECT_EQ(notes.size(), 4U);
  EXPECT_FALSE(one.PressKey(kKeyHome, 0));
}

TEST_F(Controls, ArrowsOfAnOptionStayWhereNoOtherCanBeReached) {
  auto& one = Get<OptionButton>("optEen");
  Get("optTwee").PutEnabled(false);
  one.Click();
  EXPECT_TRUE(one.PressKey(kKeyDown, 0));
  EXPECT_TRUE(one.Value());
  EXPECT_FALSE(Get<OptionButton>("optLos").Value());
}

TEST_F(Controls, ArrowsOfAnOptionStopWhenTheFocusHandlerGivesUpTheControls) {
  auto own = std::make_unique<ControlSet>(kControls);
  auto& two = dynamic_cast<OptionButton&>(own->Find("optTwee"));
  bool clicked = false;
  two.WhenClicked([&] { clicked = true; });
  two.WhenFocused([&] { own.reset(); });
  own->Find("optEen").PressKey(kKeyDown, 0);
  EXPECT_FALSE(clicked);
}

// --- Text boxes -------------------------------------------------------------------------------

TEST_F(Controls, ATextRaisesChangeWhenItDiffers) {
  auto& box = Get<TextBox>("txtVrij");
  box.WhenChanged(Note("change"));
  box.PutText("Begin");
  EXPECT_THAT(notes, IsEmpty());
  box.PutText("Ander");
  EXPECT_THAT(notes, ElementsAre("change"));
}

TEST_F(Controls, ATextIsCutToItsMaximumLengthInCharacters) {
  auto& box = Get<TextBox>("txtKort");
  box.PutText("1234");
  EXPECT_EQ(box.Text(), "123");
  box.PutText("éèëï");
  EXPECT_EQ(box.Text(), "éèë");
}

TEST_F(Controls, TheSameTextLeavesTheSelection) {
  auto& box = Get<TextBox>("txtVrij");
  box.PutSelection(1, 2);
  box.PutText("Begin");
  EXPECT_EQ(box.SelectionStart(), 1U);
  EXPECT_EQ(box.SelectionLength(), 2U);
  box.PutText("Ander");
  EXPECT_EQ(box.SelectionStart(), 0U);
  EXPECT_EQ(box.SelectionLength(), 0U);
}

TEST_F(Controls, ATextCanBeSelectedAsFarAsItGoes) {
  auto& box = Get<TextBox>("txtVrij");
  box.PutText("één");
  EXPECT_EQ(box.SelectionLength(), 0U);
  box.SelectAll();
  EXPECT_EQ(box.SelectionStart(), 0U);
  EXPECT_EQ(box.SelectionLength(), 3U);
  box.PutSelection(2, 9);
  EXPECT_EQ(box.SelectionStart(), 2U);
  EXPECT_EQ(box.SelectionLength(), 1U);
  box.PutSelection(9, 9);
  EXPECT_EQ(box.SelectionStart(), 3U);
  EXPECT_EQ(box.SelectionLength(), 0U);
}

TEST_F(Controls, TypingReplacesTheSelection) {
  auto& box = Get<TextBox>("txtVrij");
  box.PutText("aébc");
  box.PutSelection(1, 2);
  box.Type("ëX");
  EXPECT_EQ(box.Text(), "aëXc");
  EXPECT_EQ(box.SelectionStart(), 3U);
  box.Type("!");
  EXPECT_EQ(box.Text(), "aëX!c");
}

TEST_F(Controls, TypingBeyondTheMaximumLengthIsLost) {
  auto& box = Get<TextBox>("txtKort");
  box.Type("12");
  box.WhenChanged(Note("change"));
  box.Type("345");
  box.Type("6");
  EXPECT_EQ(box.Text(), "123");
  EXPECT_THAT(notes, ElementsAre("change"));
}

TEST_F(Controls, AnEditOfTheUsersIsCutAndLeavesTheInsertionPointWhereItIs) {
  auto& box = Get<TextBox>("txtKort");
  box.WhenChanged(Note("change"));
  box.Edit("12345", 2);
  EXPECT_EQ(box.Text(), "123");
  EXPECT_EQ(box.SelectionStart(), 2U);
  EXPECT_EQ(box.SelectionLength(), 0U);
  box.Edit("123", 9);
  EXPECT_EQ(box.SelectionStart(), 3U);
  EXPECT_THAT(notes, ElementsAre("change"));
}

TEST_F(Controls, BackspaceTakesAwayTheSelectionOrTheCharacterBefore) {
  auto& box = Get<TextBox>("txtVrij");
  box.PutText("abcé");
  box.PutSelection(4, 0);
  box.Backspace();
  EXPECT_EQ(box.Text(), "abc");
  box.SelectAll();
  box.Backspace();
  EXPECT_EQ(box.Text(), "");
  box.Backspace();
  EXPECT_EQ(box.Text(), "");
}

TEST_F(Controls, APressThatBringsTheFocusLeavesTheSelectionOfTheFocusHandler) {
  auto& box = Get<TextBox>("txtKort");
  box.PutText("123");
  box.WhenFocused([&] { box.SelectAll(); });
  box.Press(2);
  EXPECT_TRUE(box.HasFocus());
  EXPECT_EQ(box.SelectionLength(), 3U);
  box.Press(2);
  EXPECT_EQ(box.SelectionStart(), 2U);
  EXPECT_EQ(box.SelectionLength(), 0U);
}

TEST_F(Controls, AReadOnlyTextBoxTakesNothingFromTheUser) {
  auto& box = Get<TextBox>("txtVast");
  box.WhenChanged(Note("change"));
  box.SelectAll();
  box.Type("1");
  box.Backspace();
  box.Edit("2", 1);
  EXPECT_EQ(box.Text(), "3/12");
  EXPECT_THAT(notes, IsEmpty());
  box.PutText("4/12");
  EXPECT_EQ(box.Text(), "4/12");
  EXPECT_THAT(notes, ElementsAre("change"));
}

TEST_F(Controls, EnterInATextBoxIsAClick) {
  auto& box = Get<TextBox>("txtVrij");
  box.WhenClicked(Note("click"));
  EXPECT_TRUE(box.PressKey(kKeyEnter, 0));
  EXPECT_FALSE(box.PressKey(kKeyHome, 0));
  EXPECT_THAT(notes, ElementsAre("click"));
}

// --- Combo boxes ------------------------------------------------------------------------------

TEST_F(Controls, SelectingAnItemMakesItTheTextAndRaisesClick) {
  auto& box = Get<ComboBox>("cboLijst");
  box.AddItem("Een");
  box.AddItem("Twee");
  box.WhenClicked(Note("click"));
  EXPECT_EQ(box.ListIndex(), -1);
  EXPECT_EQ(box.Text(), "");
  box.PutListIndex(1);
  EXPECT_EQ(box.Text(), "Twee");
  box.PutListIndex(-1);
  EXPECT_EQ(box.Text(), "");
  EXPECT_THAT(notes, ElementsAre("click"));
}

TEST_F(Controls, AnItemOutsideTheListReadsEmptyAndCannotBeSelected) {
  auto& box = Get<ComboBox>("cboLijst");
  box.AddItem("Een");
  EXPECT_EQ(box.Item(0), "Een");
  for (const int index : {-1, 1}) EXPECT_EQ(box.Item(index), "");
  for (const int index : {-2, 1}) EXPECT_THROW(box.PutListIndex(index), Error);
}

TEST_F(Controls, ClearingAComboBoxEmptiesListAndText) {
  auto& box = Get<ComboBox>("cboLijst");
  box.AddItem("Een");
  box.PutListIndex(0);
  box.Clear();
  EXPECT_EQ(box.Count(), 0);
  EXPECT_EQ(box.ListIndex(), -1);
  EXPECT_EQ(box.Text(), "");
}

TEST_F(Controls, OnlyAnEditableComboBoxTakesATypedText) {
  auto& box = Get<ComboBox>("cboVrij");
  box.AddItem("Een");
  box.PutListIndex(0);
  box.WhenChanged(Note("change"));
  box.PutText("12");
  box.PutText("12");
  EXPECT_EQ(box.Text(), "12");
  EXPECT_EQ(box.ListIndex(), -1);
  EXPECT_THAT(notes, ElementsAre("change"));
  EXPECT_THROW(Get<ComboBox>("cboLijst").PutText("12"), Error);
}

TEST_F(Controls, ArrowsSelectTheItemBesideUnlessAltIsDown) {
  auto& list = Get<ComboBox>("cboLijst");
  for (const char* item : {"een", "twee"}) list.AddItem(item);
  EXPECT_TRUE(list.PressKey(kKeyDown, 0));
  EXPECT_EQ(list.ListIndex(), 0);
  // That opens the list where there is one to open.
  EXPECT_FALSE(list.PressKey(kKeyDown, kAltKey));
  EXPECT_EQ(list.ListIndex(), 0);
  EXPECT_FALSE(list.PressKey(kKeyHome, 0));
}

// --- Scroll bars ------------------------------------------------------------------------------

TEST_F(Controls, AScrollBarRaisesChangeWhenItsValueMoves) {
  auto& bar = Get<ScrollBar>("vsbAantal");
  bar.WhenChanged(Note("change"));
  EXPECT_EQ(bar.Value(), 1);
  bar.PutValue(1);
  EXPECT_THAT(notes, IsEmpty());
  bar.PutValue(10);
  EXPECT_EQ(bar.Value(), 10);
  EXPECT_THAT(notes, ElementsAre("change"));
}

TEST_F(Controls, AScrollBarRefusesAValueOutsideItsRange) {
  auto& bar = Get<ScrollBar>("vsbAantal");
  bar.PutValue(4);
  for (const int value : {0, 11, -5}) {
    EXPECT_THROW(bar.PutValue(static_cast<std::int16_t>(value)), Error);
  }
  EXPECT_EQ(bar.Value(), 4);
}

TEST_F(Controls, AScrollBarStepsAsFarAsItsRangeGoes) {
  auto& bar = Get<ScrollBar>("vsbAantal");
  bar.StepUp();
  EXPECT_EQ(bar.Value(), 1);
  bar.StepDown();
  EXPECT_EQ(bar.Value(), 2);
  bar.PutValue(10);
  bar.StepDown();
  EXPECT_EQ(bar.Value(), 10);
  bar.StepUp();
  EXPECT_EQ(bar.Value(), 9);
}

// --- Names for those who cannot see them ------------------------------------------------------

constexpr std::array<ControlDesign, 9> kNamed{{
    {.name = "lblPagina", .kind = ControlKind::Label, .caption = "&Pagina:", .tabIndex = 4},
    {.name = "txtPagina", .kind = ControlKind::TextBox, .caption = "12", .tabIndex = 5},
    {.name = "txtTot", .kind = ControlKind::TextBox, .caption = "14", .tabIndex = 6},
    {.name = "lblLijst", .kind = ControlKind::Label, .caption = "Soort && maat", .tabIndex = 7},
    {.name = "cboLijst", .kind = ControlKind::ComboBox, .tabIndex = 8},
    {.name = "cmdOK", .kind = ControlKind::Button, .caption = "&OK", .tabIndex = 9},
    {.name = "lblBalk", .kind = ControlKind::Label, .caption = "Aantal:", .tabIndex = 10},
    {.name = "vsbBalk",
     .kind = ControlKind::ScrollBar,
     .tabIndex = 11,
     .accessibleName = "Aantal exemplaren"},
    {.name = "txtLos", .kind = ControlKind::TextBox},
}};

TEST(ControlNames, AreTheDesignsTheCaptionOrTheLabelBefore) {
  const ControlSet controls(kNamed);
  struct Row {
    const char* control;
    const char* name;
    const char* label;  // null for none
  };
  for (const Row& row : {
           Row{"txtPagina", "Pagina", "lblPagina"},
           Row{"txtTot", "", nullptr},
           Row{"cboLijst", "Soort & maat", "lblLijst"},
           Row{"cmdOK", "OK", nullptr},
           Row{"vsbBalk", "Aantal exemplaren", nullptr},
           Row{"txtLos", "", nullptr},
           Row{"lblPagina", "Pagina:", nullptr},
       }) {
    const Control& control = controls.Find(row.control);
    const Control* label = controls.LabelOf(control);
    EXPECT_EQ(controls.AccessibleNameOf(control), row.name) << row.control;
    if (row.label == nullptr) {
      EXPECT_EQ(label, nullptr) << row.control;
    } else {
      EXPECT_EQ(label, &controls.Find(row.label)) << row.control;
    }
  }
}

}  // namespace
}  // namespace pagivo
