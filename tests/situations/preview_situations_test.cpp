// What happens to the preview when host, user or document do what is not expected of them.
#include <functional>
#include <string>

#include "situations/situation_test.h"
#include "window/key_codes.h"

namespace pagivo::testing {
namespace {

class PreviewSituation : public Situation {};

// --- Documents that are hardly there ----------------------------------------------------------

void UseEverything(FormUser& user) {
  for (const auto* key : {"Volgende", "Vorige", "Laatste", "Eerste", "Zoom", "Zoom"}) {
    user.ClickToolbar("tbAfdrukken", key);
  }
  for (const auto* key : {"Twee", "Breedte", "P150", "P25", "Heel"}) {
    user.ClickToolbarMenu("tbAfdrukken", key);
  }
  user.Click("vsPrint");
  for (const std::int16_t key : {kKeyDown, kKeyUp, kKeyPageDown, kKeyPageUp, kKeyEnd, kKeyHome}) {
    user.Press(key);
  }
  user.Resize({.width = 7500, .height = 6000});
}

TEST_F(PreviewSituation, AnEmptyDocumentCanBeShownAndUsed) {
  Compose(0);
  User([](Form& shown, FormUser& user) {
    UseEverything(user);
    EXPECT_EQ(PageBox(), "1/0");
    EXPECT_TRUE(shown.Visible());
  });
  Preview();
  ExpectPreviewWorks();
}

TEST_F(PreviewSituation, ItCanBeShownWithoutAnyDocument) {
  User([](Form& shown, FormUser& user) {
    UseEverything(user);
    EXPECT_TRUE(shown.Visible());
  });
  Preview();
  ExpectPreviewWorks();
}

TEST_F(PreviewSituation, ADocumentThatIsStillBeingComposedCanBeShownAndGoesOn) {
  print.VsPPInit();
  print.VsPPPrint("Bladzijde 1", 1000, 1000);
  print.VsPPNewPage();
  User([](Form&, FormUser& user) {
    UseEverything(user);
    EXPECT_EQ(PageBox(), "1/1");
  });
  Preview();
  print.VsPPPrint("Bladzijde 2", 1000, 1000);
  print.VsPPNewPage();
  print.VsPPFinish("Proef");
  EXPECT_EQ(print.VsPPGetPageCount(), 3);
}

// --- A document that is discarded while it is shown -------------------------------------------

// Discards the document as soon as the engine raises one of its events.
class DiscardingListener final : public PrintEngineEvents {
 public:
  explicit DiscardingListener(PgPrint& print) : print_(print) {}

  void KeyDown(std::int16_t&, std::int16_t) override { print_.VsPPEinde(); }
  void BeforePageChange(std::int16_t&) override { print_.VsPPEinde(); }
  void AfterPageChange() override { print_.VsPPEinde(); }

 private:
  PgPrint& print_;
};

class DiscardedPreview : public Situation {
 protected:
  // The preview is shown, `acts` has the document discarded, and the host's call returns.
  void ExpectToEndBy(const TrialWindows::Script& acts) {
    Compose(3);
    bool ended = false;
    User([&](Form& shown, FormUser& user) {
      acts(shown, user);
      ended = !shown.Visible() && !shown.IsLoaded();
    });
    Preview();
    EXPECT_TRUE(ended);
    EXPECT_FALSE(PreviewForm().IsLoaded());
    ExpectPreviewWorks();
  }
};

TEST_F(DiscardedPreview, EndsItsShowing) {
  ExpectToEndBy([this](Form&, FormUser&) { print.VsPPEinde(); });
}

TEST_F(DiscardedPreview, EndsItsShowingWhenTheWindowIsUsedAllTheSame) {
  ExpectToEndBy([this](Form&, FormUser& user) {
    user.ClickToolbar("tbAfdrukken", "Volgende");
    user.Click("vsPrint");
    print.VsPPEinde();
  });
}

TEST_F(DiscardedPreview, EndsUnderThePrintDialogWhateverItsUserChooses) {
  for (const auto* button : {"cmdOK", "cmdAnnuleren"}) {
    ExpectToEndBy([this, button](Form&, FormUser& user) {
      User([this, button](Form&, FormUser& dialog) {
        print.VsPPEinde();
        dialog.Click(button);
      });
      user.ClickToolbar("tbAfdrukken", "Afdrukken");
    });
  }
}

TEST_F(DiscardedPreview, EndsUnderTheGoToDialog) {
  ExpectToEndBy([this](Form&, FormUser& user) {
    User([this](Form&, FormUser& dialog) {
      print.VsPPEinde();
      dialog.Replace("cboGaNaar", "2");
      dialog.Click("cmdOK");
    });
    user.Click("txtPaginanummer");
  });
}

TEST_F(DiscardedPreview, EndsFromWithinTheEnginesEvents) {
  DiscardingListener listener(print);
  const std::function<void(FormUser&)> ways[] = {
      [](FormUser& user) { user.ClickToolbar("tbAfdrukken", "Volgende"); },
      [](FormUser& user) { user.ClickToolbar("tbAfdrukken", "Laatste"); },
      [](FormUser& user) {
        user.Click("vsPrint");
        user.Press(kKeyDown);
      },
      [](FormUser& user) {
        user.Click("vsPrint");
        user.Press(kKeyPageDown);
      },
  };
  for (const auto& use : ways) {
    ExpectToEndBy([&](Form&, FormUser& user) {
      PreviewEngine()->SetEvents(&listener);
      use(user);
    });
  }
}

// --- Calls of the host while the preview is shown ---------------------------------------------

TEST_F(PreviewSituation, AnotherPrintObjectWorksOnTheSameDocument) {
  Compose(3);
  User([](Form& shown, FormUser& user) {
    PgPrint other;
    other.VsPPStart(nullptr);
    EXPECT_EQ(other.VsPPGetPageCount(), 4);
    other.VsPPSetFont("Times New Roman", 12);
    EXPECT_TRUE(shown.Visible());
    user.ClickToolbar("tbAfdrukken", "Laatste");
    EXPECT_EQ(PageBox(), "3/3");
  });
  Preview();
  EXPECT_EQ(print.VsPPGetPageCount(), 4);
}

TEST_F(PreviewSituation, AnotherPrintObjectMayComposeAnotherDocument) {
  Compose(3);
  User([](Form& shown, FormUser& user) {
    PgPrint other;
    other.VsPPInit();
    other.VsPPNewPage();
    other.VsPPNewPage();
    other.VsPPFinish("Ander");
    EXPECT_TRUE(shown.Visible());
    EXPECT_EQ(shown.Caption(), "Afdrukvoorbeeld Ander");
    user.ClickToolbar("tbAfdrukken", "Laatste");
    EXPECT_EQ(PageBox(), "2/2");
  });
  Preview();
  EXPECT_EQ(print.VsPPGetPageCount(), 3);
}

TEST_F(PreviewSituation, ShowingItAgainWhileItIsShownReturnsAtOnceWithThePageTurned) {
  Compose(3);
  User([this](Form& shown, FormUser& user) {
    std::int16_t page = 2;
    print.VsPreviewFile(page);
    EXPECT_TRUE(shown.Visible());
    EXPECT_EQ(PageBox(), "2/3");
    user.ClickToolbar("tbAfdrukken", "Volgende");
    EXPECT_EQ(PageBox(), "3/3");
  });
  Preview();
  EXPECT_FALSE(PreviewForm().Visible());
}

TEST_F(PreviewSituation, AtItsNextShowingPairsAreShownFromAnOddPageOn) {
  Compose(5);
  User([](Form&, FormUser& user) { user.ClickToolbarMenu("tbAfdrukken", "Twee"); });
  Preview();
  User([](Form&, FormUser&) { EXPECT_EQ(PageBox(), "3 + 4/5"); });
  std::int16_t page = 4;
  print.VsPreviewFile(page);
  EXPECT_EQ(page, 3);
  EXPECT_EQ(windows->ScriptsLeft(), 0U);
}

TEST_F(PreviewSituation, ShownAgainOnceItIsClosedItShowsTheSameDocument) {
  Compose(3);
  for (const auto* box : {"2/3", "2/3"}) {
    User([box](Form&, FormUser&) { EXPECT_EQ(PageBox(), box); });
    Preview(2);
    EXPECT_FALSE(PreviewForm().Visible());
  }
}

// --- Handlers that fail -----------------------------------------------------------------------

TEST_F(PreviewSituation, ANumberThatIsNoPageLeavesThePreviewOnItsPage) {
  Compose(3);
  for (const auto* text : {"-40000", "-1E400", "1E400"}) {
    User([this, text](Form& shown, FormUser& user) {
      User([text](Form&, FormUser& dialog) {
        dialog.Replace("cboGaNaar", text);
        dialog.Click("cmdOK");
      });
      user.Click("txtPaginanummer");
      EXPECT_TRUE(shown.Visible());
      EXPECT_EQ(PageBox(), "2/3");
    });
    Preview(2);
  }
}

TEST_F(PreviewSituation, AFailingDialogTakesThePreviewOverWhichItStandsAlong) {
  Compose(3);
  const std::size_t before = windows->Count();
  User([this](Form&, FormUser& user) {
    User([](Form&, FormUser& dialog) {
      State().contents.ContentsCount = 51;
      dialog.Replace("cboGaNaar", "nergens");
      dialog.Click("cmdOK");
    });
    user.Click("txtPaginanummer");
  });
  Preview();
  EXPECT_FALSE(PreviewForm().Visible());
  EXPECT_EQ(windows->Count(), before);
  // Hidden, not lost.
  EXPECT_EQ(print.VsPPGetPageCount(), 4);
  ExpectPreviewWorks();
}

TEST_F(PreviewSituation, APrinterDialogWhoseOkFailsStaysOpenAndLeavesNothingBehind) {
  Compose(1);
  std::string device;
  std::int16_t copies = 1;
  std::int16_t from = 1;
  std::int16_t to = 1;
  User([](Form& shown, FormUser& user) {
    user.Replace("txtTm", "40000");
    user.Click("cmdOK");
    EXPECT_TRUE(shown.Visible());
  });
  const std::size_t before = windows->Count();
  print.VsPPPrinterDialog(device, copies, from, to);
  EXPECT_EQ(windows->Count(), before);
  ExpectPreviewWorks();
}

// --- Windows that come late --------------------------------------------------------------------

TEST_F(PreviewSituation, WindowsThatCameAfterTheDocumentShowItNext) {
  Platform headless = NativePlatform();
  Platform withWindows = CurrentPlatform();
  UsePlatform(std::move(headless));
  Compose(3);
  UsePlatform(std::move(withWindows));
  User([this](Form& shown, FormUser& user) {
    EXPECT_EQ(shown.Caption(), "Afdrukvoorbeeld Proef");
    user.ClickToolbar("tbAfdrukken", "Laatste");
    EXPECT_EQ(PageBox(), "3/3");
    User([this](Form&, FormUser& dialog) {
      User([](Form& setup, FormUser&) { EXPECT_EQ(setup.Caption(), "Pagina instellen"); });
      dialog.Click("cmdPrinter");
      dialog.Click("cmdAnnuleren");
    });
    user.ClickToolbar("tbAfdrukken", "Afdrukken");
  });
  Preview();
  EXPECT_EQ(print.VsPPGetPageCount(), 4);
}

// --- Many showings ----------------------------------------------------------------------------

TEST_F(PreviewSituation, AHundredShowingsLeaveNoWindowBehind) {
  constexpr int kShowings = 100;
  const std::size_t atFirst = windows->Count();
  Compose(3);
  const std::size_t withPreview = windows->Count();
  for (int i = 0; i < kShowings; ++i) {
    User([this](Form&, FormUser& user) {
      User([](Form&, FormUser& dialog) { dialog.Click("cmdAnnuleren"); });
      user.Click("txtPaginanummer");
      user.Press(kKeyEscape);
    });
    Preview();
    EXPECT_EQ(windows->Count(), withPreview);
  }
  print.VsPPEinde();
  EXPECT_EQ(windows->Count(), atFirst);
}

TEST_F(PreviewSituation, AHundredDocumentsLeaveNoWindowBehind) {
  constexpr int kDocuments = 100;
  const std::size_t atFirst = windows->Count();
  for (int i = 0; i < kDocuments; ++i) {
    Compose(1);
    Preview();
    print.VsPPEinde();
    EXPECT_EQ(windows->Count(), atFirst);
  }
}

}  // namespace
}  // namespace pagivo::testing
