#include "platform/platform.h"
#include "preview/preview_test.h"
#include "support/no_windows.h"
#include "window/option_button.h"

namespace pagivo::testing {
namespace {

class PreviewPrinting : public PreviewTest {
 protected:
  PreviewPrinting() { Show(10, 4); }

  std::vector<std::string> Print(std::function<void(FormUser& user)> acts) {
    User(std::move(acts));
    return DoingsOf([this] { form->DrukAf(); });
  }
  std::vector<std::string> Confirm() {
    return Print([](FormUser& user) { user.Click("cmdOK"); });
  }

  const std::string kOneCopyEach = "put Copies Integer 1";
  const std::string kBackToPage = "put PreviewPage Integer 4";
};

TEST_F(PreviewPrinting, PreparesTheRangeOfTheDocumentAndKeepsTheRest) {
  State().request.PrintRange = 2;
  State().request.PrintCopies = 3;
  State().request.PrintFromPage = 7;
  State().request.PrintToPage = 8;
  Print([](FormUser& user) {
    EXPECT_EQ(State().request.PrintFromPage, 1);
    EXPECT_EQ(State().request.PrintToPage, 10);
    EXPECT_EQ(State().request.PrintLastPage, 10);
    EXPECT_EQ(State().request.PrintRange, 2);
    EXPECT_EQ(State().request.PrintCopies, 3);
    user.Click("cmdAnnuleren");
  });
}

TEST_F(PreviewPrinting, CancelledItPrintsNothingAndLeavesPageAndFocus) {
  form->txtPaginanummer().Focus();
  EXPECT_THAT(Print([](FormUser& user) { user.Click("cmdAnnuleren"); }), IsEmpty());
  EXPECT_FALSE(EngineHasFocus());
}

TEST_F(PreviewPrinting, PrintsAllPagesButTheEmptyLastOne) {
  EXPECT_THAT(
      Confirm(),
      ElementsAre(kOneCopyEach, "call PrintDoc Boolean False, Integer 1, Integer 10", kBackToPage));
}

TEST_F(PreviewPrinting, PrintsTheShownPageThreeTimesAsThreeJobs) {
  const std::string job = "call PrintDoc Boolean False, Integer 4, Integer 4";
  EXPECT_THAT(Print([](FormUser& user) {
                user.Click("optHuidig");
                user.Replace("txtAantal", "3");
                user.Click("cmdOK");
              }),
              ElementsAre(kOneCopyEach, job, job, job, kBackToPage));
}

TEST_F(PreviewPrinting, TheShownPageIsThatAfterTheDialogAndTheOneBeforeItReturns) {
  EXPECT_THAT(
      Print([this](FormUser& user) {
        user.Click("optHuidig");
        Engine().Answer("PreviewPage", std::int16_t{6});
        user.Click("cmdOK");
      }),
      ElementsAre(kOneCopyEach, "call PrintDoc Boolean False, Integer 6, Integer 6", kBackToPage));
}

TEST_F(PreviewPrinting, PrintsTheRangeAsTheDialogValidatedIt) {
  struct Row {
    std::string_view van, tm;
    std::string job;
  };
  for (const Row& row : {Row{"7", "4", "call PrintDoc Boolean False, Integer 4, Integer 7"},
                         Row{"3", "", "call PrintDoc Boolean False, Integer 0, Integer 10"},
                         Row{"0", "20", "call PrintDoc Boolean False, Integer 10, Integer 20"}}) {
    EXPECT_THAT(Print([&](FormUser& user) {
                  user.Click("optSelectie");
                  user.Replace("txtVan", row.van);
                  user.Replace("txtTm", row.tm);
                  user.Click("cmdOK");
                }),
                ElementsAre(kOneCopyEach, row.job, kBackToPage));
  }
}

TEST_F(PreviewPrinting, AnUnknownRangeIsTheWholeDocument) {
  EXPECT_THAT(
      Print([](FormUser& user) {
        State().request.PrintRange = 7;
        State().request.PrintCopies = 1;
        user.Close();
      }),
      ElementsAre(kOneCopyEach, "call PrintDoc Boolean False, Integer 1, Integer 10", kBackToPage));
}

TEST_F(PreviewPrinting, TheCloseBoxPrintsWhenTheLastUseWasNotCancelled) {
  State().request.PrintCopies = 2;
  const std::string job = "call PrintDoc Boolean False, Integer 1, Integer 10";
  const auto close = [](FormUser& user) { user.Close(); };
  EXPECT_THAT(Print(close), ElementsAre(kOneCopyEach, job, job, kBackToPage));
  State().request.PrintCancelled = true;
  EXPECT_THAT(Print(close), IsEmpty());
}

TEST_F(PreviewPrinting, ReturnsToTheShownPageWithTheEngineVisibleAndFocused) {
  form->txtPaginanummer().Focus();
  form->PreviewSurface().PutVisible(false);
  Engine().AnswerInTurn("PreviewPage", {std::int16_t{4}, std::int16_t{9}});
  EXPECT_EQ(Confirm().back(), kBackToPage);
  EXPECT_TRUE(form->PreviewSurface().Visible());
  EXPECT_TRUE(EngineHasFocus());
}

TEST_F(PreviewPrinting, EachUseShowsAFreshDialogWithTheLastChoice) {
  std::weak_ptr<Form> first;
  platform.Windows().AddScript([&](Form& dialog, FormUser& user) {
    first = dialog.weak_from_this();
    user.Click("optHuidig");
    user.Click("cmdOK");
  });
  form->DrukAf();
  EXPECT_TRUE(first.expired());
  platform.Windows().AddScript(
      [](Form& dialog, FormUser&) { EXPECT_TRUE(dialog.Get<OptionButton>("optHuidig").Value()); });
  form->DrukAf();
}

TEST_F(PreviewPrinting, FailingStepsAreSkipped) {
  for (const auto* line : {"get PreviewPage", "get PageCount", "put Copies", "call PrintDoc"}) {
    Engine().FailNothing();
    Engine().FailOn(line);
    const std::vector<std::string> doings = Confirm();
    EXPECT_TRUE(doings.back().starts_with("put PreviewPage")) << line;
    EXPECT_TRUE(EngineHasFocus()) << line;
  }
}

TEST_F(PreviewPrinting, MoreCopiesThanTheDialogHasAreNotPrintedUnasked) {
  State().request.PrintCopies = 5000;
  EXPECT_THAT(Print([](FormUser& user) { user.Click("cmdAnnuleren"); }), IsEmpty());
}

TEST_F(PreviewPrinting, ADialogThatCannotOpenLeavesTheRequestAsItStands) {
  Platform withoutWindows = CurrentPlatform();
  withoutWindows.windows = std::make_shared<NoWindows>();
  UsePlatform(withoutWindows);
  State().request.PrintCopies = 1;
  const std::string job = "call PrintDoc Boolean False, Integer 1, Integer 10";
  EXPECT_THAT(DoingsOf([this] { form->DrukAf(); }), ElementsAre(kOneCopyEach, job, kBackToPage));
}

TEST_F(PreviewPrinting, AFailingPageSetupPrintsNothingAndLeavesTheDialogToTheUser) {
  Engine().FailOn("get PrintDialog");
  EXPECT_THAT(Print([&](FormUser& user) {
                user.Click("cmdPrinter");
                user.Click("cmdPrinter");
                user.Click("cmdAnnuleren");
              }),
              IsEmpty());
}

TEST_F(PreviewPrinting, PaginaOpensThePageSetupOfThePreviewsEngine) {
  Print([](FormUser& user) {
    user.Click("cmdPrinter");
    user.Click("cmdAnnuleren");
  });
  EXPECT_THAT(platform.Log().LinesBeginning("get PrintDialog"),
              ElementsAre("get PrintDialog Long 1"));
}

TEST_F(PreviewPrinting, ADocumentDiscardedMeanwhileIsNotPrinted) {
  EXPECT_THAT(Print([this](FormUser& user) {
                form->Unload();
                user.Click("cmdOK");
              }),
              IsEmpty());
  EXPECT_FALSE(form->IsLoaded());
}

}  // namespace
}  // namespace pagivo::testing
