#include "engine/native/setup/printer_setup_form.h"

#include <algorithm>
#include <cstddef>

#include "engine/native/setup/paper_titles.h"
#include "engine/native/setup/setup_dialog_test.h"
#include "pagivo/error.h"
#include "window/key_codes.h"

namespace pagivo::native {
namespace {

using ::testing::Contains;
using ::testing::Not;
using ::testing::StartsWith;

class PrinterSetup : public SetupDialogTest {
 protected:
  bool Show(TrialWindows::Script user) {
    return SetupDialogTest::Show(kPrinterSetupDialog, std::move(user));
  }
};

// --- What it shows ----------------------------------------------------------------------------

TEST_F(PrinterSetup, IsCalledPrinterInstellen) {
  Show([](Form& form, FormUser&) { EXPECT_EQ(form.Caption(), "Printer instellen"); });
}

TEST_F(PrinterSetup, ListsThePrintersWithTheCurrentOneSelected) {
  Show([](Form& form, FormUser&) {
    EXPECT_THAT(Items(form, "printers"), ElementsAre("Inkt", "Laser", "Plotter"));
    EXPECT_EQ(form.Get<ComboBox>("printers").Text(), "Laser");
    EXPECT_EQ(form.Get("location").Caption(), "ipp://laser");
    EXPECT_EQ(Message(form), "");
  });
}

TEST_F(PrinterSetup, ACurrentPrinterThatIsNotListedLeavesNoneSelected) {
  engine.Answer("Device", "Weg");
  EXPECT_TRUE(Show([](Form& form, FormUser& user) {
    EXPECT_EQ(form.Get<ComboBox>("printers").ListIndex(), -1);
    user.Click("ok");
  }));
  EXPECT_THAT(Puts(), IsEmpty());
}

TEST_F(PrinterSetup, ListsThePapersThatThePrinterTakesWithTheCurrentOneSelected) {
  engine.Answer("PaperSizes", false);
  for (const std::int32_t code : {8, 9, 1}) engine.AnswerFor("PaperSizes", code, true);
  Show([](Form& form, FormUser&) {
    EXPECT_THAT(Items(form, "paper"),
                ElementsAre("A4 (210 × 297 mm)", "A3 (297 × 420 mm)", "Letter (216 × 279 mm)"));
    EXPECT_EQ(form.Get<ComboBox>("paper").Text(), "A4 (210 × 297 mm)");
    EXPECT_EQ(Message(form), "");
  });
}

// Of the 41 papers; what is fed the other way round or differs by a millimetre is no other sheet.
constexpr std::size_t kSheets = 34;

TEST_F(PrinterSetup, ListsEverySheetOnceWhenEveryPaperIsSupported) {
  Show([](Form& form, FormUser&) {
    const auto items = Items(form, "paper");
    EXPECT_EQ(items.size(), kSheets);
    EXPECT_THAT(items, Contains(StartsWith("A4 (")));
    EXPECT_THAT(items, Contains(StartsWith("Tabloid (")));
    for (const auto* other : {"A4 klein", "Letter klein", "Notitie", "Ledger", "11 × 17 inch",
                              "Envelop B4", "Kettingpapier Duits legal"}) {
      EXPECT_THAT(items, Not(Contains(StartsWith(other))));
    }
  });
}

TEST_F(PrinterSetup, ASheetWithSeveralNamesHasThatOfThePaperInForce) {
  PutPaper(10, 11906, 16838);
  Show([](Form& form, FormUser&) {
    EXPECT_EQ(form.Get<ComboBox>("paper").Text(), "A4 klein (210 × 297 mm)");
    const auto items = Items(form, "paper");
    EXPECT_EQ(items.size(), kSheets);
    EXPECT_THAT(items, Not(Contains(StartsWith("A4 ("))));
  });
}

TEST_F(PrinterSetup, APaperSizeThatCannotBeAskedAboutIsNotListed) {
  engine.FailOn("get PaperSizes Long 8");
  Show([](Form& form, FormUser&) {
    EXPECT_THAT(Items(form, "paper"), Not(Contains(StartsWith("A3 "))));
    EXPECT_EQ(Items(form, "paper").size(), kSheets - 1);
    EXPECT_EQ(Message(form), "");
  });
}

TEST_F(PrinterSetup, ACurrentPaperThatThePrinterLacksIsListedAndSaidToBeSo) {
  engine.AnswerFor("PaperSizes", std::int32_t{9}, false);
  Show([](Form& form, FormUser&) {
    EXPECT_EQ(form.Get<ComboBox>("paper").Text(), "A4 (210 × 297 mm)");
    EXPECT_EQ(Message(form), "Deze printer heeft dit papierformaat niet");
  });
}

TEST_F(PrinterSetup, APaperOfTheHostsOwnStandsLastWithItsMeasuresAsItIsFed) {
  PutPaper(256, 2835, 5669);
  engine.Answer("Orientation", std::int32_t{1});
  Show([](Form& form, FormUser&) {
    EXPECT_EQ(Items(form, "paper").back(), "Aangepast (100 × 50 mm)");
    EXPECT_EQ(form.Get<ComboBox>("paper").Text(), "Aangepast (100 × 50 mm)");
  });
}

TEST_F(PrinterSetup, ShowsTheOrientation) {
  for (const std::int32_t orientation : {0, 1}) {
    engine.Answer("Orientation", orientation);
    Show([orientation](Form& form, FormUser&) {
      EXPECT_EQ(form.Get<OptionButton>("portrait").Value(), orientation == 0);
      EXPECT_EQ(form.Get<OptionButton>("landscape").Value(), orientation == 1);
    });
  }
}

TEST_F(PrinterSetup, ItsAccessKeysReachEveryChoice) {
  Show([](Form& form, FormUser& user) {
    for (const auto& [key, control] : {std::pair{'f', "paper"}, std::pair{'n', "printers"}}) {
      user.PressAccessKey(key);
      EXPECT_EQ(form.Controls().Focused()->Name(), control);
    }
    user.PressAccessKey('l');
    EXPECT_TRUE(form.Get<OptionButton>("landscape").Value());
    user.PressAccessKey('s');
    EXPECT_TRUE(form.Get<OptionButton>("portrait").Value());
  });
}

// --- OK ---------------------------------------------------------------------------------------

TEST_F(PrinterSetup, OkWithoutAChangePutsNothingAndConfirms) {
  EXPECT_TRUE(Show([](Form&, FormUser& user) { user.Click("ok"); }));
  EXPECT_THAT(Puts(), IsEmpty());
}

TEST_F(PrinterSetup, OkPutsWhatTheUserChanged) {
  EXPECT_TRUE(Show([this](Form& form, FormUser& user) {
    user.Pick("printers", 0);
    Pick(form, user, "paper", "A3 ");
    user.Click("landscape");
    log->Clear();
    user.Click("ok");
  }));
  EXPECT_THAT(Puts(), ElementsAre("put Device String \"Inkt\"", "put PaperSize Long 8",
                                  "put Orientation Long 1"));
}

TEST_F(PrinterSetup, OkPutsNothingThatWasChangedAndChangedBack) {
  EXPECT_TRUE(Show([](Form& form, FormUser& user) {
    Pick(form, user, "paper", "A5");
    Pick(form, user, "paper", "A4 (");
    user.Click("landscape");
    user.Click("portrait");
    user.Click("ok");
  }));
  EXPECT_THAT(Puts(), IsEmpty());
}

TEST_F(PrinterSetup, EnterConfirms) {
  EXPECT_TRUE(Show([](Form&, FormUser& user) {
    user.Click("landscape");
    user.Press(kKeyEnter);
  }));
  EXPECT_THAT(Puts(), ElementsAre("put Orientation Long 1"));
}

// --- Annuleren --------------------------------------------------------------------------------

TEST_F(PrinterSetup, LeavesEverythingAsItWasUnlessItIsConfirmed) {
  const std::function<void(FormUser&)> endings[] = {
      [](FormUser& user) { user.Click("cancel"); },
      [](FormUser& user) { user.Press(kKeyEscape); },
      [](FormUser& user) { user.Close(); },
  };
  for (const auto& end : endings) {
    EXPECT_FALSE(Show([&end](Form& form, FormUser& user) {
      user.Pick("printers", 2);
      Pick(form, user, "paper", "A3 ");
      user.Click("landscape");
      end(user);
    }));
    EXPECT_EQ(engine.GetDevice(), "Laser");
    EXPECT_EQ(engine.GetPaperSize(), 9);
    EXPECT_EQ(engine.GetOrientation(), 0);
  }
}

// --- Another printer --------------------------------------------------------------------------

TEST_F(PrinterSetup, APickedPrinterIsAskedAndTheEngineKeepsItsOwn) {
  Show([this](Form&, FormUser& user) {
    log->Clear();
    user.Pick("printers", 0);
    EXPECT_THAT(Puts(), ElementsAre("put Device String \"Inkt\"", "put Device String \"Laser\""));
    EXPECT_EQ(engine.GetDevice(), "Laser");
  });
}

TEST_F(PrinterSetup, APickedPrinterShowsItsPlaceAndItsPapers) {
  engine.Answer("PaperSizes", false);
  engine.AnswerFor("PaperSizes", std::int32_t{9}, true);
  engine.AnswerInTurn("Port", {"ipp://laser", "usb://inkt"});
  Show([this](Form& form, FormUser& user) {
    EXPECT_EQ(Items(form, "paper").size(), 1U);
    engine.AnswerFor("PaperSizes", std::int32_t{11}, true);
    user.Pick("printers", 0);
    EXPECT_EQ(form.Get("location").Caption(), "usb://inkt");
    EXPECT_THAT(Items(form, "paper"), ElementsAre("A4 (210 × 297 mm)", "A5 (148 × 210 mm)"));
    EXPECT_EQ(form.Get<ComboBox>("paper").Text(), "A4 (210 × 297 mm)");
  });
}

TEST_F(PrinterSetup, APickedPrinterWithoutTheChosenPaperKeepsItAndSaysSo) {
  Show([this](Form& form, FormUser& user) {
    Pick(form, user, "paper", "A3 ");
    engine.AnswerFor("PaperSizes", std::int32_t{8}, false);
    user.Pick("printers", 2);
    EXPECT_EQ(form.Get<ComboBox>("paper").Text(), "A3 (297 × 420 mm)");
    EXPECT_EQ(Message(form), "Deze printer heeft dit papierformaat niet");
    Pick(form, user, "paper", "A4 (");
    EXPECT_EQ(Message(form), "");
  });
}

// It could not be brought back to the printer that it has.
TEST_F(PrinterSetup, AnEngineWithoutAPrinterOrWithOneThatIsGoneGetsOneOnlyByOk) {
  for (const char* printer : {"", "Weg"}) {
    log->Clear();
    engine.Answer("Device", printer);
    EXPECT_FALSE(Show([](Form&, FormUser& user) { user.Pick("printers", 1); }));
    EXPECT_THAT(Puts(), IsEmpty());
    EXPECT_TRUE(Show([](Form&, FormUser& user) {
      user.Pick("printers", 1);
      user.Click("ok");
    }));
    EXPECT_THAT(Puts(), ElementsAre("put Device String \"Laser\""));
  }
}

// --- No printers ------------------------------------------------------------------------------

TEST_F(PrinterSetup, WithoutPrintersSaysSoAndTheRestCanBeChosen) {
  PutPrinters({});
  engine.Answer("Device", "");
  EXPECT_TRUE(Show([](Form& form, FormUser& user) {
    EXPECT_THAT(Items(form, "printers"), IsEmpty());
    EXPECT_FALSE(form.Get("printers").Enabled());
    EXPECT_EQ(form.Get("location").Caption(), "Er zijn geen printers geïnstalleerd");
    EXPECT_EQ(form.Controls().Focused()->Name(), "paper");
    Pick(form, user, "paper", "A5");
    user.Click("landscape");
    user.Click("ok");
  }));
  EXPECT_THAT(Puts(), ElementsAre("put PaperSize Long 11", "put Orientation Long 1"));
}

TEST_F(PrinterSetup, PrintersThatCannotBeListedAreTheMessage) {
  engine.FailOn("get NDevices");
  EXPECT_TRUE(Show([](Form& form, FormUser& user) {
    EXPECT_EQ(Message(form), "Mislukt: get NDevices");
    user.Click("landscape");
    user.Click("ok");
  }));
  EXPECT_THAT(Puts(), ElementsAre("put Orientation Long 1"));
}

// --- Failures ---------------------------------------------------------------------------------

TEST_F(PrinterSetup, APickedPrinterThatHasVanishedIsTheMessage) {
  engine.FailOn("put Device String \"Inkt\"");
  EXPECT_FALSE(Show([](Form& form, FormUser& user) {
    user.Pick("printers", 0);
    EXPECT_EQ(Message(form), "Mislukt: put Device String \"Inkt\"");
    user.Click("ok");
    ASSERT_TRUE(form.Visible());
    EXPECT_EQ(Message(form), "Mislukt: put Device String \"Inkt\"");
  }));
  EXPECT_EQ(engine.GetDevice(), "Laser");
}

TEST_F(PrinterSetup, APrinterThatVanishesBeforeOkLeavesTheDialogOpen) {
  EXPECT_FALSE(Show([this](Form& form, FormUser& user) {
    user.Pick("printers", 0);
    engine.FailOn("put Device String \"Inkt\"");
    user.Click("ok");
    ASSERT_TRUE(form.Visible());
    EXPECT_EQ(Message(form), "Mislukt: put Device String \"Inkt\"");
  }));
}

TEST_F(PrinterSetup, ARefusedPaperTakesTheOtherChangesBackAndCanBeReplaced) {
  engine.FailOn("put PaperSize Long 8");
  EXPECT_TRUE(Show([this](Form& form, FormUser& user) {
    user.Pick("printers", 0);
    Pick(form, user, "paper", "A3 ");
    user.Click("landscape");
    user.Click("ok");
    ASSERT_TRUE(form.Visible());
    EXPECT_EQ(Message(form), "Mislukt: put PaperSize Long 8");
    EXPECT_EQ(engine.GetDevice(), "Laser");
    EXPECT_EQ(engine.GetOrientation(), 0);
    Pick(form, user, "paper", "A5");
    EXPECT_EQ(Message(form), "");
    log->Clear();
    user.Click("ok");
  }));
  EXPECT_THAT(Puts(), ElementsAre("put Device String \"Inkt\"", "put PaperSize Long 11",
                                  "put Orientation Long 1"));
}

TEST_F(PrinterSetup, APaperOfTheHostsOwnIsTakenBackByItsMeasures) {
  PutPaper(256, 5669, 2835);
  engine.FailOn("put Orientation Long 1");
  EXPECT_FALSE(Show([](Form& form, FormUser& user) {
    Pick(form, user, "paper", "A4 (");
    user.Click("landscape");
    user.Click("ok");
    ASSERT_TRUE(form.Visible());
  }));
  EXPECT_THAT(Puts(), ElementsAre("put PaperSize Long 9", "put Orientation Long 1 (failed)",
                                  "put PageWidth Double 5669", "put PageHeight Double 2835"));
}

TEST_F(PrinterSetup, AnEngineWhoseSettingsCannotBeReadFailsAndLeavesNothingOpen) {
  engine.FailOn("get PaperSize");
  EXPECT_THROW(ShowEngineDialog(kPrinterSetupDialog, engine, windows), Error);
}

}  // namespace
}  // namespace pagivo::native
