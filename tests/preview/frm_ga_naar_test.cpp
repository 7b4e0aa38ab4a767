#include "preview/frm_ga_naar.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>
#include <string_view>

#include "pagivo/error.h"
#include "state/module_state.h"
#include "support/recording_platform.h"

namespace pagivo::testing {
namespace {

class GoToPage : public ::testing::Test {
 protected:
  ~GoToPage() override {
    contents = {};
    // Releases the instance.
    Dialog().Load();
    Dialog().Unload();
  }

  frmGaNaar& Dialog() { return GoToDialog(contents, result); }

  void AddContents(std::string title, int page) {
    const std::int16_t entry = ++contents.ContentsCount;
    contents.ContentsTitle(entry) = std::move(title);
    contents.ContentsPage(entry) = static_cast<std::int16_t>(page);
  }

  void User(std::function<void(FormUser& user)> acts) {
    platform.Windows().AddScript([acts = std::move(acts)](Form&, FormUser& user) { acts(user); });
  }

  // The result when `text` is typed and confirmed.
  int ResultOf(std::string_view text) {
    User([text](FormUser& user) {
      user.Replace("cboGaNaar", text);
      user.Click("cmdOK");
    });
    Dialog().ShowModal();
    return result;
  }

  ContentsTable contents;
  std::int16_t result = 0;
  RecordingPlatform platform;
};

TEST_F(GoToPage, HasItsCaptionAndFixedSize) {
  EXPECT_EQ(Dialog().Caption(), "Ga naar");
  EXPECT_FALSE(Dialog().Design().sizable);
  EXPECT_EQ(Dialog().Design().client.width, 5610);
  EXPECT_EQ(Dialog().Design().client.height, 1365);
}

TEST_F(GoToPage, HasItsControls) {
  struct Row {
    std::string_view name;
    ControlKind kind;
    std::string_view caption;
    Placement placement;
    std::string_view container;
    ButtonRole role = ButtonRole::None;
  };
  const Row rows[] = {
      {"Frame1", ControlKind::Frame, "", {120, 120, 3972, 1092}, ""},
      {"Label1", ControlKind::Label, "&Pagina:", {120, 240, 1812, 252}, "Frame1"},
      {"cboGaNaar", ControlKind::ComboBox, "", {120, 600, 3732, 288}, "Frame1"},
      {"cmdOK", ControlKind::Button, "OK", {4305, 105, 1200, 330}, "", ButtonRole::Default},
      {"cmdAnnuleren",
       ControlKind::Button,
       "Annuleren",
       {4305, 510, 1200, 330},
       "",
       ButtonRole::Cancel},
  };
  EXPECT_EQ(Dialog().Controls().All().size(), std::size(rows));
  int tabIndex = 0;
  for (const Row& row : rows) {
    const Control& control = Dialog().Get(row.name);
    const Placement placement{control.Left(), control.Top(), control.Width(), control.Height()};
    EXPECT_EQ(control.Kind(), row.kind) << row.name;
    EXPECT_EQ(control.Caption(), row.caption) << row.name;
    EXPECT_EQ(placement, row.placement) << row.name;
    EXPECT_EQ(control.Design().container, row.container) << row.name;
    EXPECT_EQ(control.Design().role, row.role) << row.name;
    EXPECT_EQ(control.Design().tabIndex, tabIndex++) << row.name;
    EXPECT_EQ(control.FontName(), "Tahoma") << row.name;
    EXPECT_EQ(control.FontSize(), 8) << row.name;
  }
  EXPECT_TRUE(Dialog().Get("cboGaNaar").Design().editable);
}

TEST_F(GoToPage, ListsTheContentsInTheirOrder) {
  AddContents("Inleiding", 1);
  AddContents("Berekening", 3);
  contents.ContentsTitle(3) = "Oud";
  const auto& list = Dialog().Get<ComboBox>("cboGaNaar");
  ASSERT_EQ(list.Count(), 2);
  EXPECT_EQ(list.Item(0), "Inleiding");
  EXPECT_EQ(list.Item(1), "Berekening");
  EXPECT_EQ(list.Text(), "");
}

TEST_F(GoToPage, LoadingForgetsTheLastResult) {
  result = 7;
  Dialog().Load();
  EXPECT_EQ(result, 0);
}

TEST_F(GoToPage, MoreContentsThanTheTableHoldsFailTheLoad) {
  contents.ContentsCount = 51;
  EXPECT_THROW(Dialog().ShowModal(), Error);
  EXPECT_FALSE(Dialog().IsLoaded());
}

TEST_F(GoToPage, MoreContentsThanTheTableHoldsFailTheSearch) {
  User([this](FormUser& user) {
    contents.ContentsCount = 51;
    user.Replace("cboGaNaar", "nergens");
    user.Click("cmdOK");
  });
  const std::weak_ptr<Form> shown = Dialog().weak_from_this();
  EXPECT_THROW(Dialog().ShowModal(), Error);
  EXPECT_TRUE(shown.expired());
}

TEST_F(GoToPage, ReadsTheTypedNumber) {
  struct Row {
    std::string_view text;
    int result;
  };
  for (const Row& row : {Row{"", 0}, Row{"   ", 0}, Row{"12", 12}, Row{"12abc", 12}, Row{"2.5", 2},
                         Row{"3.5", 4}, Row{"999", 999}, Row{"999.4", 999}, Row{"5000", 999},
                         Row{"99999", 999}, Row{"abc", 0}, Row{"-4", -4}, Row{"  8 ", 8}}) {
    EXPECT_EQ(ResultOf(row.text), row.result) << '"' << row.text << '"';
  }
}

TEST_F(GoToPage, ANumberBelow16BitsOrBeyondAllNumbersIsNoPage) {
  for (const auto* text : {"-32769", "-40000", "-1E300", "-1E400", "1E400"}) {
    EXPECT_LE(ResultOf(text), 0) << text;
    EXPECT_FALSE(Dialog().IsLoaded());
  }
}

TEST_F(GoToPage, ATitleWinsOverANumberThatIsNoPage) {
  AddContents("-40000 m en lager", 7);
  EXPECT_EQ(ResultOf("-40000 m en lager"), 7);
}

TEST_F(GoToPage, ATitleWinsOverTheNumberItStartsWith) {
  AddContents("2 Berekening", 9);
  User([](FormUser& user) {
    user.Pick("cboGaNaar", 0);
    user.Press(13);
  });
  Dialog().ShowModal();
  EXPECT_EQ(result, 9);
}

TEST_F(GoToPage, TitlesAreComparedTrimmedAndWithTheirCase) {
  AddContents("  Bijlage ", 9);
  EXPECT_EQ(ResultOf(" Bijlage  "), 9);
  EXPECT_EQ(ResultOf("bijlage"), 0);
}

TEST_F(GoToPage, OfTwoEqualTitlesTheFirstCounts) {
  AddContents("Bijlage", 4);
  AddContents("Bijlage", 8);
  EXPECT_EQ(ResultOf("Bijlage"), 4);
}

TEST_F(GoToPage, AnEmptyOrBlankTextIsNoPageWhateverTheContentsHold) {
  AddContents("", 6);
  AddContents("  ", 7);
  for (const auto* text : {"", " ", "   "}) EXPECT_EQ(ResultOf(text), 0);
}

TEST_F(GoToPage, WhatItBeginsWithIsTypedOn) {
  User([this](FormUser& user) {
    EXPECT_EQ(Dialog().Get<ComboBox>("cboGaNaar").Text(), "1");
    user.Type("cboGaNaar", "2");
    user.Press(13);
  });
  Dialog().BeginWith("1");
  Dialog().ShowModal();
  EXPECT_EQ(result, 12);
}

TEST_F(GoToPage, AnnulerenEscAndTheCloseBoxChooseNothing) {
  const std::function<void(FormUser&)> ways[] = {
      [](FormUser& user) { user.Click("cmdAnnuleren"); },
      [](FormUser& user) { user.Press(27); },
      [](FormUser& user) { user.Close(); },
  };
  for (const auto& leave : ways) {
    result = 5;
    User([&](FormUser& user) {
      user.Replace("cboGaNaar", "3");
      leave(user);
    });
    Dialog().ShowModal();
    EXPECT_EQ(result, 0);
  }
}

TEST_F(GoToPage, OnlyAnnulerenTakesAnAnswerBack) {
  struct Row {
    std::function<void(FormUser&)> leave;
    int result;
  };
  const Row rows[] = {
      {[](FormUser& user) { user.Click("cmdAnnuleren"); }, 0},
      {[](FormUser& user) { user.Press(27); }, 0},
      // Runs no handler.
      {[](FormUser& user) { user.Close(); }, 5},
  };
  for (const Row& row : rows) {
    User([&](FormUser& user) {
      result = 5;
      row.leave(user);
    });
    Dialog().ShowModal();
    EXPECT_EQ(result, row.result);
  }
}

TEST_F(GoToPage, EachShowingIsAFreshDialog) {
  Dialog().Load();
  const std::weak_ptr<Form> first = Dialog().weak_from_this();
  ResultOf("3");
  EXPECT_TRUE(first.expired());
  EXPECT_EQ(Dialog().Get<ComboBox>("cboGaNaar").Text(), "");
}

}  // namespace
}  // namespace pagivo::testing
