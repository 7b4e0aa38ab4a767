#include <limits>

#include "preview/preview_test.h"
#include "window/key_codes.h"

namespace pagivo::testing {
namespace {

using ::testing::Contains;
using ::testing::Not;
using ::testing::StartsWith;

constexpr std::int16_t kHighest = std::numeric_limits<std::int16_t>::max();

class PreviewNavigation : public PreviewTest {
 protected:
  std::vector<std::string> Turn(int direction) {
    return DoingsOf([&] { form->BladerNaar(static_cast<std::int16_t>(direction)); });
  }
  std::vector<std::string> GoTo(const std::string& page) {
    User([page](FormUser& user) {
      user.Replace("cboGaNaar", page);
      user.Click("cmdOK");
    });
    return DoingsOf([this] { form->GaNaarPagina(); });
  }
  // The key code that is left of it.
  int Key(std::int16_t keyCode, std::int16_t shift = 0) {
    Events().KeyDown(keyCode, shift);
    return keyCode;
  }
};

// --- The page box -----------------------------------------------------------------------------

TEST_F(PreviewNavigation, ThePageBoxShowsPageAndTotal) {
  Show(12, 3);
  EXPECT_THAT(DoingsOf([this] { form->ZetPaginaNummer(); }), IsEmpty());
  EXPECT_EQ(PageBox(), "3/12");
}

TEST_F(PreviewNavigation, ThePageBoxShowsThePairOfTheTwoPageView) {
  Show(12, 3, kZoomTwoPages);
  EXPECT_THAT(DoingsOf([this] { form->ZetPaginaNummer(); }), ElementsAre("put ZoomMode Long 2"));
  EXPECT_EQ(PageBox(), "3 + 4/12");
}

TEST_F(PreviewNavigation, ALastPageWithoutPartnerFallsBackToTheWholePage) {
  Show(5, 5, kZoomTwoPages);
  EXPECT_THAT(DoingsOf([this] { form->ZetPaginaNummer(); }), ElementsAre("put ZoomMode Long 3"));
  EXPECT_EQ(PageBox(), "5/5");
}

TEST_F(PreviewNavigation, ThePageBoxTakesNoText) {
  Show(12, 3);
  User([this](FormUser& user) {
    user.Click("txtPaginanummer");
    user.Type("txtPaginanummer", "x");
    user.Erase("txtPaginanummer");
    user.Replace("txtPaginanummer", "7");
    user.Press(kKeyBackspace);
    EXPECT_EQ(PageBox(), "3/12");
  });
  form->ShowModal();
}

TEST_F(PreviewNavigation, AnEmptyDocumentShowsWhatTheEngineSays) {
  Engine().Answer("PreviewPage", std::int16_t{1});
  form->ZetPaginaNummer();
  EXPECT_EQ(PageBox(), "1/-1");
}

TEST_F(PreviewNavigation, PageNumbersBeyond16BitsAreErrors) {
  Engine().Answer("PageCount", std::numeric_limits<std::int16_t>::min());
  EXPECT_THROW(form->ZetPaginaNummer(), Error);
  Show(5, kHighest, kZoomTwoPages);
  EXPECT_THROW(form->ZetPaginaNummer(), Error);
  Show(5, kHighest);
  EXPECT_THROW(form->BladerNaar(2), Error);
  Show(5, std::numeric_limits<std::int16_t>::min());
  EXPECT_THROW(form->BladerNaar(1), Error);
}

// --- Turning ----------------------------------------------------------------------------------

TEST_F(PreviewNavigation, TurnsByOnePage) {
  struct Row {
    int from, direction, to;
  };
  for (const Row& row : {Row{3, 0, 1}, Row{3, 1, 2}, Row{3, 2, 4}, Row{3, 3, 5}, Row{4, 2, 5}}) {
    for (const std::int32_t mode : {kZoomPercent, kZoomOverview, kZoomWholePage, kZoomPageWidth}) {
      Show(5, row.from, mode);
      EXPECT_THAT(Turn(row.direction),
                  ElementsAre("put PreviewPage Integer " + std::to_string(row.to)));
      EXPECT_EQ(PageBox(), std::to_string(row.to) + "/5");
      EXPECT_TRUE(EngineHasFocus());
    }
  }
}

TEST_F(PreviewNavigation, InPairsTurnsByTwoPages) {
  struct Row {
    int from, direction, to;
    std::string_view box;
  };
  for (const Row& row : {Row{5, 0, 1, "1 + 2/6"}, Row{5, 1, 3, "3 + 4/6"}, Row{1, 2, 3, "3 + 4/6"},
                         Row{2, 2, 4, "4 + 5/6"}, Row{1, 3, 5, "5 + 6/6"}}) {
    Show(6, row.from, kZoomTwoPages);
    EXPECT_THAT(
        Turn(row.direction),
        ElementsAre("put PreviewPage Integer " + std::to_string(row.to), "put ZoomMode Long 2"));
    EXPECT_EQ(PageBox(), row.box);
  }
}

TEST_F(PreviewNavigation, StaysOnTheLastPage) {
  Show(5, 5);
  EXPECT_THAT(Turn(2), IsEmpty());
  EXPECT_EQ(PageBox(), "5/5");
}

TEST_F(PreviewNavigation, StaysOnTheLastPair) {
  Show(4, 3, kZoomTwoPages);
  EXPECT_THAT(Turn(2), ElementsAre("put ZoomMode Long 2"));
  EXPECT_EQ(PageBox(), "3 + 4/4");
}

TEST_F(PreviewNavigation, BeforeTheFirstPageTheEngineDecides) {
  Show(5, 1);
  EXPECT_THAT(Turn(1), ElementsAre("put PreviewPage Integer 0"));
  Show(5, 1, kZoomTwoPages);
  EXPECT_THAT(Turn(1), ElementsAre("put PreviewPage Integer -1", "put ZoomMode Long 2"));
}

TEST_F(PreviewNavigation, AnyOtherDirectionOnlyRefreshes) {
  for (const int direction : {-1, 4, 99}) {
    Show(5, 3);
    form->txtPaginanummer().Focus();
    EXPECT_THAT(Turn(direction), IsEmpty());
    EXPECT_EQ(PageBox(), "3/5");
    EXPECT_TRUE(EngineHasFocus());
  }
}

TEST_F(PreviewNavigation, FivePagesInPairsEndWithTheFifthAlone) {
  Show(5, 1, kZoomTwoPages);
  Turn(2);
  EXPECT_EQ(PageBox(), "3 + 4/5");
  Turn(2);
  EXPECT_EQ(PageBox(), "5/5");
  EXPECT_EQ(Engine().GetZoomMode(), kZoomWholePage);
}

TEST_F(PreviewNavigation, TheLastOfFivePagesInPairsIsTheFifth) {
  Show(5, 1, kZoomTwoPages);
  Turn(3);
  EXPECT_EQ(Engine().GetPreviewPage(), 5);
  EXPECT_EQ(PageBox(), "5/5");
}

TEST_F(PreviewNavigation, TheLastOfFourPagesInPairsIsTheLastPair) {
  Show(4, 1, kZoomTwoPages);
  Turn(3);
  EXPECT_EQ(PageBox(), "3 + 4/4");
  Show(4, 1);
  Turn(3);
  EXPECT_EQ(PageBox(), "4/4");
}

// --- Going to a page --------------------------------------------------------------------------

TEST_F(PreviewNavigation, GoesToTheAskedPage) {
  struct Row {
    std::string asked;
    int shown;
  };
  for (const Row& row : {Row{"1", 1}, Row{"4", 4}, Row{"5", 5}, Row{"6", 5}, Row{"999", 5}}) {
    Show(5, 3);
    EXPECT_THAT(GoTo(row.asked),
                ElementsAre("put PreviewPage Integer " + std::to_string(row.shown)));
    EXPECT_EQ(PageBox(), std::to_string(row.shown) + "/5");
    EXPECT_TRUE(EngineHasFocus());
  }
}

TEST_F(PreviewNavigation, NothingAskedChangesNoPageButRefreshes) {
  for (const auto* asked : {"", "0", "-3", "abc"}) {
    Show(5, 3);
    form->txtPaginanummer().Focus();
    EXPECT_THAT(GoTo(asked), IsEmpty());
    EXPECT_EQ(PageBox(), "3/5");
    EXPECT_TRUE(EngineHasFocus());
  }
}

TEST_F(PreviewNavigation, InPairsAnEvenPageIsShownWithTheOneBefore) {
  for (const auto* asked : {"3", "4"}) {
    Show(4, 1, kZoomTwoPages);
    GoTo(asked);
    EXPECT_EQ(PageBox(), "3 + 4/4");
  }
}

// It is made odd before it is brought within the document, not afterwards.
TEST_F(PreviewNavigation, InPairsAPageBeyondTheEndIsTheLastOneAlone) {
  for (const auto* asked : {"6", "7", "999"}) {
    Show(4, 1, kZoomTwoPages);
    EXPECT_THAT(GoTo(asked), ElementsAre("put PreviewPage Integer 4", "put ZoomMode Long 3"));
    EXPECT_EQ(PageBox(), "4/4");
  }
}

TEST_F(PreviewNavigation, TabAndEnterAskForAPageToo) {
  Show(5, 1);
  User([this](FormUser& user) {
    User([](FormUser& dialog) {
      dialog.Replace("cboGaNaar", "2");
      dialog.Press(kKeyEnter);
    });
    user.Press(kKeyTab);
    user.Press(kKeyEnter);
    EXPECT_EQ(PageBox(), "2/5");
    EXPECT_TRUE(EngineHasFocus());
  });
  form->ShowModal();
}

TEST_F(PreviewNavigation, AClickOnThePageBoxAsksForAPage) {
  Show(5, 1);
  User([this](FormUser& user) {
    User([](FormUser& dialog) {
      dialog.Replace("cboGaNaar", "2");
      dialog.Click("cmdOK");
    });
    user.Click("txtPaginanummer");
    EXPECT_EQ(PageBox(), "2/5");
  });
  form->ShowModal();
}

TEST_F(PreviewNavigation, ADigitTypedInThePageOrItsBoxBeginsThePageToGoTo) {
  for (const auto* control : {"vsPrint", "txtPaginanummer"}) {
    Show(40, 1);
    User([this, control](FormUser& user) {
      if (std::string_view(control) == "txtPaginanummer") user.Press(kKeyTab);
      EXPECT_EQ(form->Controls().Focused()->Name(), control);
      User([](FormUser& dialog) {
        dialog.Type("cboGaNaar", "7");
        dialog.Press(kKeyEnter);
      });
      user.Press('2');
      EXPECT_EQ(PageBox(), "27/40");
    });
    form->ShowModal();
  }
}

TEST_F(PreviewNavigation, OnlyDigitsWithoutControlOrAltBeginAPage) {
  Show(40, 1);
  User([this](FormUser& user) {
    user.Press('A');
    user.Press('2', kControlKey);
    EXPECT_EQ(PageBox(), "1/40");
  });
  EXPECT_THAT(DoingsOf([this] { form->ShowModal(); }),
              Not(Contains(StartsWith("put PreviewPage"))));
}

TEST_F(PreviewNavigation, ANumberThatIsNoPageLeavesThePreviewAsItIs) {
  Show(5, 3);
  for (const auto* text : {"-40000", "-1E400", "", "  "}) EXPECT_THAT(GoTo(text), IsEmpty());
}

TEST_F(PreviewNavigation, AFailingDialogIsPassedOnAndNoneStaysBehind) {
  Show(5, 3);
  User([](FormUser& user) {
    State().contents.ContentsCount = ContentsTable::kMostEntries + 1;
    user.Replace("cboGaNaar", "nergens");
    user.Click("cmdOK");
  });
  EXPECT_THROW(form->GaNaarPagina(), Error);
  State().contents.ContentsCount = 0;
  EXPECT_THAT(GoTo("2"), ElementsAre("put PreviewPage Integer 2"));
}

TEST_F(PreviewNavigation, AWindowDiscardedWhileAskingIsNotMadeAgain) {
  platform.Windows().AddScript([this](Form&, FormUser&) { form->Unload(); });
  form->GaNaarPagina();
  EXPECT_FALSE(form->IsLoaded());
}

// --- The engine's events ----------------------------------------------------------------------

TEST_F(PreviewNavigation, AChangedPageRefreshesThePageBox) {
  Show(12, 7);
  Events().AfterPageChange();
  EXPECT_EQ(PageBox(), "7/12");
}

TEST_F(PreviewNavigation, TheEmptyLastPageIsTurnedBackToTheDocuments) {
  struct Row {
    std::int16_t asked;
    std::int16_t shown;
  };
  Show(5, 1);
  for (const Row& row : {Row{1, 1}, Row{5, 5}, Row{6, 5}, Row{7, 7}, Row{0, 0}}) {
    std::int16_t page = row.asked;
    Events().BeforePageChange(page);
    EXPECT_EQ(page, row.shown);
  }
}

TEST_F(PreviewNavigation, APageStaysWhenTurningItBackOverflows) {
  constexpr std::int16_t kLowest = std::numeric_limits<std::int16_t>::min();
  Engine().Answer("PageCount", kLowest);
  std::int16_t page = kLowest;
  EXPECT_THROW(Events().BeforePageChange(page), Error);
  EXPECT_EQ(page, kLowest);
}

TEST_F(PreviewNavigation, ArrowDownWithinAPageIsLeftToTheEngine) {
  Show(5, 2);
  Engine().Answer("ScrollTop", 120.0);
  int left = 0;
  EXPECT_THAT(DoingsOf([&] { left = Key(40); }),
              ElementsAre("put ScrollTop Double 32000", "put ScrollTop Double 120"));
  EXPECT_EQ(left, 40);
  EXPECT_EQ(PageBox(), "2/5");
}

TEST_F(PreviewNavigation, ArrowDownPutsTheScrollingBackInWholeTwipsRoundedHalfToEven) {
  for (const auto& [scrolled, rounded] : {std::pair{120.5, "120"}, {121.5, "122"}}) {
    Show(5, 2);
    Engine().Answer("ScrollTop", scrolled);
    EXPECT_EQ(DoingsOf([this] { Key(40); })[1], std::string("put ScrollTop Double ") + rounded);
  }
}

// Where a page ends is seldom a whole number of twips.
TEST_F(PreviewNavigation, ABottomBetweenTwoTwipsIsTheBottom) {
  Show(5, 2);
  platform.Log().Meanwhile("get ScrollTop", [this] { Engine().Answer("ScrollTop", 3219.7); });
  EXPECT_THAT(DoingsOf([this] { Key(40); }),
              ElementsAre("put ScrollTop Double 32000", "put PreviewPage Integer 3",
                          "put ScrollTop Double 0"));
}

TEST_F(PreviewNavigation, ArrowDownAtTheBottomGoesToTheTopOfTheNextPage) {
  Show(5, 2);
  Engine().Answer("ScrollTop", 32000.0);
  int left = 0;
  EXPECT_THAT(DoingsOf([&] { left = Key(40, 1); }),
              ElementsAre("put ScrollTop Double 32000", "put PreviewPage Integer 3",
                          "put ScrollTop Double 0"));
  EXPECT_EQ(left, 0);
  EXPECT_EQ(PageBox(), "3/5");
}

TEST_F(PreviewNavigation, ArrowDownAtTheEndTriesTheEmptyPage) {
  Show(5, 5);
  Engine().Answer("ScrollTop", 32000.0);
  EXPECT_EQ(DoingsOf([this] { Key(40); })[1], "put PreviewPage Integer 6");
}

TEST_F(PreviewNavigation, ArrowUpAtTheTopGoesToTheBottomOfThePageBefore) {
  Show(5, 3);
  int left = 0;
  EXPECT_THAT(DoingsOf([&] { left = Key(38); }),
              ElementsAre("put PreviewPage Integer 2", "put ScrollTop Double 32000"));
  EXPECT_EQ(left, 0);
  EXPECT_EQ(PageBox(), "2/5");
}

TEST_F(PreviewNavigation, ArrowUpElsewhereIsLeftToTheEngine) {
  Show(5, 3);
  Engine().Answer("ScrollTop", 10.0);
  EXPECT_THAT(DoingsOf([this] { EXPECT_EQ(Key(38), 38); }), IsEmpty());
  Show(5, 1);
  Engine().Answer("ScrollTop", 0.0);
  EXPECT_THAT(DoingsOf([this] { EXPECT_EQ(Key(38), 38); }), IsEmpty());
}

TEST_F(PreviewNavigation, EveryOtherKeyOnlyRefreshesThePageBox) {
  for (const int key : {13, 33, 34, 37, 39, 65}) {
    Show(5, 3);
    form->txtPaginanummer().PutText("");
    EXPECT_THAT(DoingsOf([&] { EXPECT_EQ(Key(static_cast<std::int16_t>(key)), key); }), IsEmpty());
    EXPECT_EQ(PageBox(), "3/5");
  }
}

TEST_F(PreviewNavigation, ArrowsBeyondTheHighestPageNumberAreErrors) {
  Show(5, kHighest);
  Engine().Answer("ScrollTop", 32000.0);
  EXPECT_THROW(Key(40), Error);
}

}  // namespace
}  // namespace pagivo::testing
