#include <algorithm>
#include <array>
#include <string_view>

#include "preview/preview_test.h"
#include "window/toolbar.h"

namespace pagivo::testing {
namespace {

class PreviewToolbar : public PreviewTest {
 protected:
  // What the engine is told by a click in the shown window.
  std::vector<std::string> Click(std::string_view key) {
    return DoingsInWindow([key](FormUser& user) { user.ClickToolbar("tbAfdrukken", key); });
  }
  std::vector<std::string> ClickMenu(std::string_view key) {
    return DoingsInWindow([key](FormUser& user) { user.ClickToolbarMenu("tbAfdrukken", key); });
  }
  std::vector<std::string> DoingsInWindow(const std::function<void(FormUser& user)>& act) {
    std::vector<std::string> doings;
    platform.Windows().AddScript(
        [&](Form&, FormUser& user) { doings = DoingsOf([&] { act(user); }); });
    form->ShowModal();
    return doings;
  }
};

TEST_F(PreviewToolbar, SluitenHidesTheWindowWithTheFocusOnTheEngine) {
  Show(5, 2);
  User([this](FormUser& user) {
    form->txtPaginanummer().Focus();
    user.ClickToolbar("tbAfdrukken", "Sluiten");
    EXPECT_FALSE(form->Visible());
    EXPECT_TRUE(EngineHasFocus());
  });
  form->ShowModal();
  EXPECT_TRUE(form->IsLoaded());
}

TEST_F(PreviewToolbar, TurnsThePages) {
  struct Row {
    std::string_view key;
    std::string doing;
    std::string_view box;
  };
  for (const Row& row : {Row{"Eerste", "put PreviewPage Integer 1", "1/5"},
                         Row{"Vorige", "put PreviewPage Integer 2", "2/5"},
                         Row{"Volgende", "put PreviewPage Integer 4", "4/5"},
                         Row{"Laatste", "put PreviewPage Integer 5", "5/5"}}) {
    Show(5, 3);
    form->txtPaginanummer().Focus();
    EXPECT_THAT(Click(row.key), ElementsAre(row.doing));
    EXPECT_EQ(PageBox(), row.box);
    EXPECT_TRUE(EngineHasFocus());
  }
}

TEST_F(PreviewToolbar, ZoomTogglesBetweenWholePageAndFullSize) {
  Show(5, 1);
  EXPECT_THAT(Click("Zoom"), ElementsAre("put ZoomMode Long 0", "put Zoom Double 100"));
  EXPECT_THAT(Click("Zoom"), ElementsAre("put ZoomMode Long 3"));
}

TEST_F(PreviewToolbar, ZoomReturnsToTheWholePageFromEveryOtherMode) {
  for (const std::int32_t mode : {kZoomPercent, kZoomOverview, kZoomPageWidth}) {
    EXPECT_THAT(DoingsInWindow([&](FormUser& user) {
                  Show(5, 1, mode);
                  user.ClickToolbar("tbAfdrukken", "Zoom");
                }),
                ElementsAre("put ZoomMode Long 3"));
  }
}

TEST_F(PreviewToolbar, ZoomReturnsFromPairsToTheWholePage) {
  Show(5, 1, kZoomTwoPages);
  EXPECT_THAT(DoingsOf([this] { form->tbAfdrukken().ClickButton("Zoom"); }),
              ElementsAre("put ZoomMode Long 3"));
  EXPECT_EQ(PageBox(), "1/5");
}

TEST_F(PreviewToolbar, AfdrukkenPrints) {
  Show(5, 2);
  State().request.PrintCopies = 1;
  EXPECT_THAT(
      DoingsInWindow([this](FormUser& user) {
        User([](FormUser& dialog) { dialog.Click("cmdOK"); });
        user.ClickToolbar("tbAfdrukken", "Afdrukken");
      }),
      ElementsAre("put Copies Integer 1", "call PrintDoc Boolean False, Integer 1, Integer 5",
                  "put PreviewPage Integer 2"));
}

TEST_F(PreviewToolbar, APlaceholderChangesNothing) {
  Show(5, 2);
  // Disabled as designed, it raises no click at all.
  EXPECT_THAT(DoingsInWindow([this](FormUser& user) {
                form->txtPaginanummer().PutText("?");
                user.ClickToolbar("tbAfdrukken", "Paginanummer");
                EXPECT_EQ(PageBox(), "?");
              }),
              IsEmpty());
  form->tbAfdrukken().Button("Paginanummer").enabled = true;
  EXPECT_THAT(DoingsOf([this] { form->tbAfdrukken().ClickButton("Paginanummer"); }), IsEmpty());
  EXPECT_EQ(PageBox(), "2/5");
}

TEST_F(PreviewToolbar, KeysAreComparedWithTheirCase) {
  Show(5, 2);
  form->tbAfdrukken().Button("Eerste").key = "eerste";
  EXPECT_THAT(DoingsOf([this] { form->tbAfdrukken().ClickButton("eerste"); }), IsEmpty());
}

TEST_F(PreviewToolbar, EveryClickRefreshesThePageBox) {
  for (const auto* key : {"Sluiten", "Eerste", "Vorige", "Volgende", "Laatste", "Zoom"}) {
    Show(5, 3);
    DoingsInWindow([&](FormUser& user) {
      form->txtPaginanummer().PutText("");
      user.ClickToolbar("tbAfdrukken", key);
      EXPECT_NE(PageBox(), "") << key;
    });
  }
}

TEST_F(PreviewToolbar, ACancelledPrintCommandRefreshesThePageBoxToo) {
  Show(5, 3);
  DoingsInWindow([this](FormUser& user) {
    User([this](FormUser& dialog) {
      form->txtPaginanummer().PutText("");
      dialog.Click("cmdAnnuleren");
    });
    user.ClickToolbar("tbAfdrukken", "Afdrukken");
    EXPECT_EQ(PageBox(), "3/5");
  });
}

TEST_F(PreviewToolbar, AFailingCommandIsPassedOnAndLeavesNoWindowOpen) {
  Engine().FailOn("put PreviewPage");
  EXPECT_THROW(Click("Eerste"), Error);
  EXPECT_FALSE(form->Visible());
  Engine().FailOn("put ZoomMode Long 4");
  EXPECT_THROW(ClickMenu("Breedte"), Error);
  EXPECT_FALSE(form->Visible());
}

TEST_F(PreviewToolbar, TheMenuSetsTheZoom) {
  struct Row {
    std::string_view key;
    std::vector<std::string> doings;
  };
  const Row rows[] = {
      {"Heel", {"put ZoomMode Long 3"}},
      {"Breedte", {"put ZoomMode Long 4"}},
      {"Twee", {"put ZoomMode Long 2"}},
      {"P150", {"put ZoomMode Long 0", "put Zoom Double 150"}},
      {"P100", {"put ZoomMode Long 0", "put Zoom Double 100"}},
      {"P75", {"put ZoomMode Long 0", "put Zoom Double 75"}},
      {"P50", {"put ZoomMode Long 0", "put Zoom Double 50"}},
      {"P25", {"put ZoomMode Long 0", "put Zoom Double 25"}},
      {"Streep", {}},
  };
  for (const Row& row : rows) {
    Show(5, 3);
    std::vector<std::string> doings = ClickMenu(row.key);
    // The page box puts the two-page view again whenever it is refreshed.
    doings.erase(std::unique(doings.begin(), doings.end()), doings.end());
    EXPECT_EQ(doings, row.doings) << row.key;
  }
}

constexpr std::array<MenuItem, 2> kOtherMenu{{
    {.text = "&Overzicht", .key = "Overzicht"},
    {.text = "Anders", .key = "Anders"},
}};

TEST_F(PreviewToolbar, TheHiddenOverviewIsServedAndAnUnknownKeyOnlyRefreshes) {
  Show(5, 3);
  EXPECT_THAT(ClickMenu("Overzicht"), IsEmpty());
  form->tbAfdrukken().Button("Zoom").menu = kOtherMenu;
  EXPECT_THAT(DoingsOf([this] { form->tbAfdrukken().ClickMenu("Overzicht"); }),
              ElementsAre("put ZoomMode Long 1"));
  form->txtPaginanummer().PutText("");
  EXPECT_THAT(DoingsOf([this] { form->tbAfdrukken().ClickMenu("Anders"); }), IsEmpty());
  EXPECT_EQ(PageBox(), "3/5");
}

TEST_F(PreviewToolbar, TheMenuRefreshesThePageBoxAndLeavesTheFocus) {
  Show(5, 3);
  form->txtPaginanummer().Focus();
  ClickMenu("Twee");
  EXPECT_EQ(PageBox(), "3 + 4/5");
  EXPECT_FALSE(EngineHasFocus());
}

TEST_F(PreviewToolbar, APercentageChosenInTheWindowIsLostAtTheNextResize) {
  Show(5, 3);
  User([this](FormUser& user) {
    user.ClickToolbarMenu("tbAfdrukken", "P150");
    EXPECT_EQ(Engine().GetZoomMode(), kZoomPercent);
    user.Resize({.width = 7000, .height = 6000});
    EXPECT_EQ(Engine().GetZoomMode(), kZoomWholePage);
  });
  form->ShowModal();
}

TEST_F(PreviewToolbar, AWindowDiscardedDuringACommandIsNotMadeAgain) {
  Show(5, 3);
  platform.Windows().AddScript([this](Form&, FormUser&) { form->Unload(); });
  form->tbAfdrukken().ClickButton("Afdrukken");
  EXPECT_FALSE(form->IsLoaded());
}

}  // namespace
}  // namespace pagivo::testing
