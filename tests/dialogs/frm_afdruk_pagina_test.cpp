#include "dialogs/frm_afdruk_pagina.h"

#include "dialogs/dialog_test.h"
#include "window/key_codes.h"

namespace pagivo::testing {
namespace {

class PrintRange : public DialogTest {
 protected:
  PrintRange() {
    request.PrintLastPage = 10;
    request.PrintFromPage = 1;
    request.PrintToPage = 10;
    request.PrintCopies = 1;
  }
  ~PrintRange() override { ReleasePrintRangeDialog(); }

  Form& Dialog() { return PrintRangeDialog(request, source); }
  void Show() {
    Dialog().ShowModal();
    ReleasePrintRangeDialog();
  }
  template <typename Kind = Control>
  Kind& Get(std::string_view name) {
    return Dialog().Get<Kind>(name);
  }
  std::string Text(std::string_view box) { return Get<TextBox>(box).Text(); }
};

// --- The window -------------------------------------------------------------------------------

TEST_F(PrintRange, HasItsCaptionAndFixedSize) {
  EXPECT_EQ(Dialog().Caption(), "Afdrukken");
  EXPECT_FALSE(Dialog().Design().sizable);
  EXPECT_EQ(Dialog().Design().client.width, 6510);
  EXPECT_EQ(Dialog().Design().client.height, 2295);
}

TEST_F(PrintRange, HasItsControls) {
  using enum ControlKind;
  request.PrintLastPage = 1;
  const ExpectedControl rows[] = {
      {"Frame2", Frame, "Afdrukbereik", {120, 120, 3372, 1572}, "", 0},
      {"Picture1", PictureBox, "", {120, 240, 3135, 1215}, "Frame2", 1},
      {"optAlles", OptionButton, "&Alles", {0, 120, 1812, 252}, "Picture1", 2},
      {"optHuidig", OptionButton, "&Huidige pagina", {0, 480, 2115, 252}, "Picture1", 3},
      {"optSelectie", OptionButton, "&Pagina's", {0, 840, 972, 252}, "Picture1", 4},
      {"lblVan", Label, "&van:", {1080, 870, 375, 255}, "Picture1", 5},
      {"txtVan", TextBox, "1", {1440, 840, 612, 288}, "Picture1", 6},
      {"lblTm", Label, "&t/m:", {2160, 870, 375, 255}, "Picture1", 7},
      {"txtTm", TextBox, "10", {2520, 840, 612, 288}, "Picture1", 8},
      {"Frame3", Frame, "Aantal", {3600, 120, 2772, 1572}, "", 9},
      {"Label5", Label, "Aantal e&xemplaren:", {120, 620, 1572, 252}, "Frame3", 10},
      {"txtAantal", TextBox, "1", {1680, 600, 612, 288}, "Frame3", 11},
      {"vsbAantal", ScrollBar, "", {2280, 600, 180, 288}, "Frame3", 12},
      {"cmdOK", Button, "OK", {2625, 1860, 1200, 330}, "", 13},
      {"cmdAnnuleren", Button, "Annuleren", {3900, 1860, 1200, 330}, "", 14},
      {"cmdPrinter", Button, "Pagi&na...", {5205, 1860, 1200, 330}, "", 15},
  };
  ExpectControls(Dialog(), rows);
  EXPECT_EQ(Get("txtVan").Design().maximumLength, 3);
  EXPECT_EQ(Get("txtTm").Design().maximumLength, 3);
  EXPECT_EQ(Get("txtAantal").Design().maximumLength, 0);
  EXPECT_EQ(Get<pagivo::ScrollBar>("vsbAantal").Minimum(), 1);
  EXPECT_EQ(Get<pagivo::ScrollBar>("vsbAantal").Maximum(), 1000);
  EXPECT_EQ(Get("cmdOK").Design().role, ButtonRole::Default);
  EXPECT_EQ(Get("cmdAnnuleren").Design().role, ButtonRole::Cancel);
}

TEST_F(PrintRange, EveryControlIsInTahoma8) {
  for (const auto& control : Dialog().Controls().All()) {
    EXPECT_EQ(control->FontName(), "Tahoma");
    EXPECT_EQ(control->FontSize(), 8);
  }
}

// --- Loading ----------------------------------------------------------------------------------

TEST_F(PrintRange, OpensWithTheRangeOptionOfTheRequest) {
  struct Row {
    std::int16_t range;
    std::string_view set;
  };
  for (const Row& row : {Row{0, "optAlles"}, Row{1, "optHuidig"}, Row{2, "optSelectie"},
                         Row{3, "optAlles"}, Row{-1, "optAlles"}}) {
    request.PrintRange = row.range;
    for (const auto* name : {"optAlles", "optHuidig", "optSelectie"}) {
      EXPECT_EQ(Get<OptionButton>(name).Value(), row.set == name) << name;
    }
    for (const auto* name : {"lblVan", "txtVan", "lblTm", "txtTm"}) {
      EXPECT_EQ(Get(name).Enabled(), row.set == "optSelectie") << name;
    }
    ReleasePrintRangeDialog();
  }
}

TEST_F(PrintRange, ShowsTheRangeCutToThreeDigits) {
  request.PrintFromPage = 7;
  request.PrintToPage = 1234;
  EXPECT_EQ(Text("txtVan"), "7");
  EXPECT_EQ(Text("txtTm"), "123");
}

TEST_F(PrintRange, TheFirstOptionRunsPageTotalAndWordTogether) {
  struct Row {
    std::int16_t last;
    std::string_view caption;
  };
  for (const Row& row :
       {Row{12, "Alle 12pagina's"}, Row{2, "Alle 2pagina's"}, Row{1, "&Alles"}, Row{0, "&Alles"}}) {
    request.PrintLastPage = row.last;
    EXPECT_EQ(Get("optAlles").Caption(), row.caption);
    ReleasePrintRangeDialog();
  }
}

TEST_F(PrintRange, OpensWithTheCopiesOfTheRequestUpsideDownInTheBar) {
  for (const int copies : {1, 5, 1000}) {
    request.PrintCopies = static_cast<std::int16_t>(copies);
    EXPECT_EQ(Text("txtAantal"), std::to_string(copies));
    EXPECT_EQ(Get<ScrollBar>("vsbAantal").Value(), 1001 - copies);
    ReleasePrintRangeDialog();
  }
}

TEST_F(PrintRange, NoCopiesBecomeOneInTheRequestToo) {
  request.PrintCopies = 0;
  EXPECT_EQ(Text("txtAantal"), "1");
  EXPECT_EQ(request.PrintCopies, 1);
}

TEST_F(PrintRange, CopiesThatTheBarCannotHoldAreShownAsTheNearestThatItCan) {
  struct Row {
    int copies, shown;
  };
  for (const Row& row : {Row{-1, 1}, Row{1001, 1000}, Row{32767, 1000}, Row{-32768, 1}}) {
    request.PrintCopies = static_cast<std::int16_t>(row.copies);
    EXPECT_EQ(Text("txtAantal"), std::to_string(row.shown));
    EXPECT_EQ(Get<ScrollBar>("vsbAantal").Value(), 1001 - row.shown);
    ReleasePrintRangeDialog();
  }
}

// --- The user's choices -----------------------------------------------------------------------

TEST_F(PrintRange, TheOptionsSwitchTheRangeBoxesAndLeaveTextsAndFocus) {
  User([this](FormUser& user) {
    for (const auto* option : {"optSelectie", "optHuidig", "optSelectie", "optAlles"}) {
      user.Click(option);
      for (const auto* name : {"lblVan", "txtVan", "lblTm", "txtTm"}) {
        EXPECT_EQ(Get(name).Enabled(), std::string_view(option) == "optSelectie") << name;
      }
      EXPECT_EQ(Dialog().Controls().Focused(), &Get(option));
    }
    EXPECT_EQ(Text("txtVan"), "1");
    EXPECT_EQ(Text("txtTm"), "10");
  });
  Show();
}

TEST_F(PrintRange, TypedCopiesAreHeldBetween1And1000) {
  User([this](FormUser& user) {
    user.Replace("txtAantal", "7");
    EXPECT_EQ(Get<ScrollBar>("vsbAantal").Value(), 994);
    user.Erase("txtAantal");
    EXPECT_EQ(Text("txtAantal"), "1");
    EXPECT_EQ(Get<ScrollBar>("vsbAantal").Value(), 1000);
    Get("cmdOK").Focus();
    user.Type("txtAantal", "5000");
    EXPECT_EQ(Text("txtAantal"), "1000");
    EXPECT_EQ(Get<ScrollBar>("vsbAantal").Value(), 1);
  });
  Show();
}

TEST_F(PrintRange, TwoAndAHalfCopiesEndAsThree) {
  request.PrintCopies = 2;
  User([this](FormUser& user) {
    user.Type("txtAantal", "2.5");
    EXPECT_EQ(Get<ScrollBar>("vsbAantal").Value(), 998);
    EXPECT_EQ(Text("txtAantal"), "3");
  });
  Show();
}

TEST_F(PrintRange, TheBarsUpperArrowRaisesTheCopies) {
  request.PrintCopies = 5;
  User([this](FormUser& user) {
    user.ClickUpArrow("vsbAantal");
    EXPECT_EQ(Text("txtAantal"), "6");
    user.Scroll("vsbAantal", 1000);
    EXPECT_EQ(Text("txtAantal"), "1");
  });
  Show();
}

TEST_F(PrintRange, ABoxThatGetsTheFocusIsSelectedWhole) {
  request.PrintRange = 2;
  User([this](FormUser&) {
    for (const auto* name : {"txtVan", "txtTm", "txtAantal"}) {
      auto& box = Get<TextBox>(name);
      box.Focus();
      EXPECT_EQ(box.SelectionStart(), 0U);
      EXPECT_EQ(box.SelectionLength(), box.Text().size());
    }
  });
  Show();
}

TEST_F(PrintRange, AClickSelectsTheWholeTextSoThatTypingReplacesIt) {
  request.PrintRange = 2;
  for (const auto* name : {"txtVan", "txtTm", "txtAantal"}) {
    User([this, name](FormUser& user) {
      for (const auto* digit : {"5", "7"}) {
        user.Click(name);
        EXPECT_EQ(Get<TextBox>(name).SelectionLength(), Text(name).size()) << name;
        user.Type(name, digit);
        EXPECT_EQ(Text(name), digit) << name;
      }
    });
    Show();
  }
}

TEST_F(PrintRange, TheCopyThatReplacesNoneIsSelectedSoThatTypingReplacesIt) {
  User([this](FormUser& user) {
    user.Click("txtAantal");
    user.Press(kKeyBackspace);
    EXPECT_EQ(Text("txtAantal"), "1");
    EXPECT_EQ(Get<TextBox>("txtAantal").SelectionLength(), 1U);
    user.Type("txtAantal", "2");
    EXPECT_EQ(Text("txtAantal"), "2");
  });
  Show();
}

TEST_F(PrintRange, PaginaOpensTheEnginesPageSetupAndStaysOpen) {
  for (const bool confirmed : {false, true}) {
    engine->Answer("PrintDialog", confirmed);
    engine->ClearLog();
    User([this](FormUser& user) {
      user.Click("cmdPrinter");
      EXPECT_TRUE(Dialog().Visible());
      user.Click("cmdAnnuleren");
    });
    Show();
    EXPECT_THAT(engine->Log(), ElementsAre("get PrintDialog Long 1"));
  }
}

TEST_F(PrintRange, AFailingPageSetupLeavesTheDialogOpen) {
  engine->FailOn("get PrintDialog");
  User([this](FormUser& user) {
    user.Click("cmdPrinter");
    EXPECT_TRUE(Dialog().Visible());
    user.Click("cmdAnnuleren");
  });
  Show();
  EXPECT_TRUE(request.PrintCancelled);
}

// --- OK ---------------------------------------------------------------------------------------

TEST_F(PrintRange, OkValidatesTheTypedRange) {
  struct Row {
    std::string_view van, tm;
    int from, to;
  };
  for (const Row& row : {
           Row{"2", "5", 2, 5},
           Row{"1", "10", 1, 10},
           Row{"7", "4", 4, 7},
           Row{"0", "5", 1, 5},
           Row{"11", "5", 1, 5},
           Row{"3", "", 0, 10},
           Row{"0", "20", 10, 20},
           Row{"3", "-2", -2, 10},
           Row{"", "", 0, 10},
           Row{"2.5", "3.5", 2, 4},
       }) {
    request.PrintRange = 2;
    request.PrintCancelled = true;
    User([&](FormUser& user) {
      user.Replace("txtVan", row.van);
      user.Replace("txtTm", row.tm);
      user.Click("cmdOK");
    });
    Show();
    EXPECT_EQ(request.PrintFromPage, row.from) << row.van << ".." << row.tm;
    EXPECT_EQ(request.PrintToPage, row.to) << row.van << ".." << row.tm;
    EXPECT_EQ(request.PrintRange, 2);
    EXPECT_FALSE(request.PrintCancelled);
  }
}

TEST_F(PrintRange, OkReadsTheRangeWhateverTheOption) {
  struct Row {
    std::string_view option;
    int range;
  };
  for (const Row& row : {Row{"optAlles", 0}, Row{"optHuidig", 1}, Row{"optSelectie", 2}}) {
    User([&](FormUser& user) {
      user.Click("optSelectie");
      user.Replace("txtVan", "4");
      user.Replace("txtTm", "6");
      user.Click(row.option);
      user.Press(13);
    });
    Show();
    EXPECT_EQ(request.PrintRange, row.range);
    EXPECT_EQ(request.PrintFromPage, 4);
    EXPECT_EQ(request.PrintToPage, 6);
  }
}

TEST_F(PrintRange, OkValidatesTheRangeWhateverTheOption) {
  for (const auto* option : {"optAlles", "optHuidig"}) {
    User([option](FormUser& user) {
      user.Click("optSelectie");
      user.Replace("txtVan", "7");
      user.Replace("txtTm", "4");
      user.Click(option);
      user.Click("cmdOK");
    });
    Show();
    EXPECT_EQ(request.PrintFromPage, 4) << option;
    EXPECT_EQ(request.PrintToPage, 7) << option;
  }
}

TEST_F(PrintRange, APageBeyond16BitsCountsAsATextThatIsNoNumber) {
  for (const auto* nonsense : {"x", "9E9", "1E5"}) {
    for (const auto* box : {"txtVan", "txtTm"}) {
      request.PrintRange = 2;
      request.PrintCancelled = true;
      request.PrintFromPage = 3;
      request.PrintToPage = 8;
      User([&](FormUser& user) {
        user.Replace(box, nonsense);
        user.Click("cmdOK");
      });
      Show();
      const bool isFrom = std::string_view(box) == "txtVan";
      EXPECT_EQ(request.PrintFromPage, isFrom ? 1 : 0) << nonsense;
      EXPECT_EQ(request.PrintToPage, isFrom ? 8 : 10) << nonsense;
      EXPECT_FALSE(request.PrintCancelled);
    }
  }
}

TEST_F(PrintRange, CopiesBeyondAllNumbersAreOne) {
  User([this](FormUser& user) {
    user.Replace("txtAantal", "1E400");
    EXPECT_EQ(Text("txtAantal"), "1");
    user.Click("cmdOK");
  });
  Show();
  EXPECT_EQ(request.PrintCopies, 1);
}

TEST_F(PrintRange, OkTakesTheCopies) {
  struct Row {
    std::string_view typed;
    int copies;
  };
  for (const Row& row : {Row{"1000", 1000}, Row{"3", 3}, Row{"0", 1}, Row{"x", 1}}) {
    User([&](FormUser& user) {
      user.Replace("txtAantal", row.typed);
      user.Click("cmdOK");
    });
    Show();
    EXPECT_EQ(request.PrintCopies, row.copies) << row.typed;
  }
}

// --- Ending -----------------------------------------------------------------------------------

TEST_F(PrintRange, AnnulerenAndEscCancelAndChangeNothingElse) {
  const std::function<void(FormUser&)> ways[] = {
      [](FormUser& user) { user.Click("cmdAnnuleren"); },
      [](FormUser& user) { user.Press(27); },
  };
  for (const auto& cancel : ways) {
    request.PrintCancelled = false;
    User([&](FormUser& user) {
      user.Click("optSelectie");
      user.Replace("txtVan", "4");
      user.Replace("txtAantal", "9");
      cancel(user);
    });
    Show();
    EXPECT_TRUE(request.PrintCancelled);
    EXPECT_EQ(request.PrintRange, 0);
    EXPECT_EQ(request.PrintFromPage, 1);
    EXPECT_EQ(request.PrintCopies, 1);
  }
}

TEST_F(PrintRange, TheCloseBoxRunsNothing) {
  for (const bool before : {false, true}) {
    request.PrintCancelled = before;
    User([](FormUser& user) {
      user.Replace("txtAantal", "9");
      user.Close();
    });
    Show();
    EXPECT_EQ(request.PrintCancelled, before);
    EXPECT_EQ(request.PrintCopies, 1);
  }
}

TEST_F(PrintRange, ReopensWithTheLastChoices) {
  User([](FormUser& user) {
    user.Click("optHuidig");
    user.Replace("txtAantal", "4");
    user.Click("cmdOK");
  });
  Show();
  EXPECT_TRUE(Get<OptionButton>("optHuidig").Value());
  EXPECT_EQ(Text("txtAantal"), "4");
}

TEST_F(PrintRange, LivesUntilItIsReleased) {
  Dialog().Load();
  const std::weak_ptr<Form> first = Dialog().weak_from_this();
  Dialog().Unload();
  EXPECT_FALSE(first.expired());
  EXPECT_EQ(&PrintRangeDialog(request, source), first.lock().get());
  ReleasePrintRangeDialog();
  EXPECT_TRUE(first.expired());
}

}  // namespace
}  // namespace pagivo::testing
