#include "engine/native/setup/printer_setup_form.h"

#include <cstddef>
#include <functional>

#include "engine/native/setup/setup_dialog_test.h"
#include "window/key_codes.h"

namespace pagivo::native {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class PrinterSetupDialog : public SetupDialogTest {
 protected:
  bool Show(TrialWindows::Script user) {
    return SetupDialogTest::Show(kPrinterSetupDialog, std::move(user));
  }
};

// --- What it shows ----------------------------------------------------------------------------

TEST_F(PrinterSetupDialog, IsCalledPrinterInstellen) {
  Show([](Form& form, FormUser&) { EXPECT_EQ(form.Caption(), "Printer instellen"); });
}

TEST_F(PrinterSetupDialog, ListsThePrintersWithTheCurrentOneSelected) {
  Show([](Form& form, FormUser&) {
    EXPECT_THAT(Items(form, "printers"), ElementsAre("Inkt", "Laser", "Plotter"));
    EXPECT_EQ(form.Get<ComboBox>("printers").Text(), "Laser");
    EXPECT_EQ(form.Get("location").Caption(), "ipp://laser");
    EXPECT_EQ(Message(form), "");
  });
}

TEST_F(PrinterSetupDialog, ACurrentPrinterThatIsNotListedLeavesNoneSelected) {
  engine->PutDevice("Inkt");
  RemovePrinter("Inkt");
  EXPECT_TRUE(Show([](Form& form, FormUser& user) {
    EXPECT_EQ(form.Get<ComboBox>("printers").ListIndex(), -1);
    user.Click("ok");
  }));
  EXPECT_EQ(engine->GetDevice(), "Inkt");
  EXPECT_EQ(engine->Setup(), PageSetup());
}

TEST_F(PrinterSetupDialog, ListsThePapersThatThePrinterTakesWithTheCurrentOneSelected) {
  PutPapers("Laser", {8, 9, 1});
  Show([](Form& form, FormUser&) {
    EXPECT_THAT(Items(form, "paper"),
                ElementsAre("A4 (210 × 297 mm)", "A3 (297 × 420 mm)", "Letter (216 × 279 mm)"));
    EXPECT_EQ(form.Get<ComboBox>("paper").Text(), "A4 (210 × 297 mm)");
    EXPECT_EQ(Message(form), "");
  });
}

// Of the 41 papers; what is fed the other way round or differs by a millimetre is no other sheet.
constexpr std::size_t kSheets = 34;

TEST_F(PrinterSetupDialog, ListsEverySheetOnceWhenEveryPaperIsSupported) {
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

TEST_F(PrinterSetupDialog, ASheetWithSeveralNamesHasThatOfThePaperInForce) {
  engine->PutPaperSize(10);
  Show([](Form& form, FormUser&) {
    EXPECT_EQ(form.Get<ComboBox>("paper").Text(), "A4 klein (210 × 297 mm)");
    const auto items = Items(form, "paper");
    EXPECT_EQ(items.size(), kSheets);
    EXPECT_THAT(items, Not(Contains(StartsWith("A4 ("))));
  });
}

TEST_F(PrinterSetupDialog, ACurrentPaperThatThePrinterLacksIsListedAndSaidToBeSo) {
  PutPapers("Laser", {8, 1});
  Show([](Form& form, FormUser&) {
    EXPECT_EQ(form.Get<ComboBox>("paper").Text(), "A4 (210 × 297 mm)");
    EXPECT_EQ(Message(form), "Deze printer heeft dit papierformaat niet");
  });
}

TEST_F(PrinterSetupDialog, APaperOfTheHostsOwnStandsLastWithItsMeasuresAsItIsFed) {
  engine->PutPaperWidth(5669);
  engine->PutPaperHeight(2835);
  engine->PutOrientation(1);
  Show([](Form& form, FormUser&) {
    EXPECT_EQ(Items(form, "paper").back(), "Aangepast (100 × 50 mm)");
    EXPECT_EQ(form.Get<ComboBox>("paper").Text(), "Aangepast (100 × 50 mm)");
  });
}

TEST_F(PrinterSetupDialog, ShowsTheOrientation) {
  for (const std::int32_t orientation : {0, 1}) {
    engine->PutOrientation(orientation);
    Show([orientation](Form& form, FormUser&) {
      EXPECT_EQ(form.Get<OptionButton>("portrait").Value(), orientation == 0);
      EXPECT_EQ(form.Get<OptionButton>("landscape").Value(), orientation == 1);
    });
  }
}

TEST_F(PrinterSetupDialog, ItsAccessKeysReachEveryChoice) {
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

TEST_F(PrinterSetupDialog, OkWithoutAChangeChangesNothingAndConfirms) {
  engine->PutPageWidth(5000);
  const PageSetup before = engine->Setup();
  EXPECT_TRUE(Show([](Form&, FormUser& user) { user.Click("ok"); }));
  EXPECT_EQ(engine->Setup(), before);
}

TEST_F(PrinterSetupDialog, OkWithoutAnotherPrinterChoosesNone) {
  EXPECT_TRUE(Show([](Form&, FormUser& user) {
    user.Pick("printers", 0);
    user.Pick("printers", 1);
    user.Click("ok");
  }));
  server->defaultPrinter = "Plotter";
  EXPECT_EQ(engine->GetDevice(), "Plotter");
}

TEST_F(PrinterSetupDialog, OkPutsWhatTheUserChanged) {
  EXPECT_TRUE(Show([this](Form& form, FormUser& user) {
    user.Pick("printers", 0);
    Pick(form, user, "paper", "A3 ");
    user.Click("landscape");
    EXPECT_EQ(engine->Setup(), PageSetup());
    user.Click("ok");
  }));
  EXPECT_EQ(engine->GetDevice(), "Inkt");
  EXPECT_EQ(engine->GetPaperSize(), 8);
  EXPECT_EQ(engine->GetOrientation(), 1);
  EXPECT_EQ(engine->Setup().margins, Margins());
}

TEST_F(PrinterSetupDialog, OkPutsNothingThatWasChangedAndChangedBack) {
  EXPECT_TRUE(Show([](Form& form, FormUser& user) {
    Pick(form, user, "paper", "A5");
    Pick(form, user, "paper", "A4 (");
    user.Click("landscape");
    user.Click("portrait");
    user.Click("ok");
  }));
  EXPECT_EQ(engine->Setup(), PageSetup());
}

TEST_F(PrinterSetupDialog, EnterConfirms) {
  EXPECT_TRUE(Show([](Form&, FormUser& user) {
    user.Click("landscape");
    user.Press(kKeyEnter);
  }));
  EXPECT_EQ(engine->GetOrientation(), 1);
}

// --- Annuleren --------------------------------------------------------------------------------

TEST_F(PrinterSetupDialog, LeavesEverythingAsItWasUnlessItIsConfirmed) {
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
    EXPECT_EQ(engine->GetDevice(), "Laser");
    EXPECT_EQ(engine->Setup(), PageSetup());
  }
}

// --- Another printer --------------------------------------------------------------------------

TEST_F(PrinterSetupDialog, APickedPrinterIsAskedAndTheEngineKeepsItsOwn) {
  Show([this](Form&, FormUser& user) {
    user.Pick("printers", 0);
    EXPECT_EQ(engine->GetDevice(), "Laser");
  });
}

TEST_F(PrinterSetupDialog, APickedPrinterShowsItsPlaceAndItsPapers) {
  PutPapers("Laser", {9});
  PutPapers("Inkt", {9, 11});
  Show([](Form& form, FormUser& user) {
    EXPECT_EQ(Items(form, "paper").size(), 1U);
    user.Pick("printers", 0);
    EXPECT_EQ(form.Get("location").Caption(), "usb://inkt");
    EXPECT_THAT(Items(form, "paper"), ElementsAre("A4 (210 × 297 mm)", "A5 (148 × 210 mm)"));
    EXPECT_EQ(form.Get<ComboBox>("paper").Text(), "A4 (210 × 297 mm)");
  });
}

TEST_F(PrinterSetupDialog, APickedPrinterWithoutTheChosenPaperKeepsItAndSaysSo) {
  PutPapers("Plotter", {9, 11});
  Show([](Form& form, FormUser& user) {
    Pick(form, user, "paper", "A3 ");
    user.Pick("printers", 2);
    EXPECT_EQ(form.Get<ComboBox>("paper").Text(), "A3 (297 × 420 mm)");
    EXPECT_EQ(Message(form), "Deze printer heeft dit papierformaat niet");
    Pick(form, user, "paper", "A4 (");
    EXPECT_EQ(Message(form), "");
  });
}

TEST_F(PrinterSetupDialog, APrinterThatTakesNoJobsSaysSoBeforeItsPapersDo) {
  server->printers.front().acceptsJobs = false;
  PutPapers("Inkt", {11});
  Show([](Form& form, FormUser& user) {
    user.Pick("printers", 0);
    EXPECT_EQ(Message(form),
              "Deze printer neemt geen afdruktaken aan\nDeze printer heeft dit papierformaat niet");
  });
}

TEST_F(PrinterSetupDialog, AnEngineWhosePrinterIsGoneGetsAnotherOnlyByOk) {
  engine->PutDevice("Inkt");
  RemovePrinter("Inkt");
  EXPECT_FALSE(Show([](Form& form, FormUser& user) {
    user.Pick("printers", 0);
    EXPECT_EQ(form.Get("location").Caption(), "ipp://laser");
  }));
  EXPECT_EQ(engine->GetDevice(), "Inkt");
  EXPECT_TRUE(Show([](Form&, FormUser& user) {
    user.Pick("printers", 0);
    user.Click("ok");
  }));
  EXPECT_EQ(engine->GetDevice(), "Laser");
}

// --- No printers ------------------------------------------------------------------------------

TEST_F(PrinterSetupDialog, WithoutPrintersSaysSoAndTheRestCanBeChosen) {
  server->printers.clear();
  EXPECT_TRUE(Show([](Form& form, FormUser& user) {
    EXPECT_THAT(Items(form, "printers"), IsEmpty());
    EXPECT_FALSE(form.Get("printers").Enabled());
    EXPECT_EQ(form.Get("location").Caption(), "Er zijn geen printers geïnstalleerd");
    EXPECT_EQ(form.Controls().Focused()->Name(), "paper");
    Pick(form, user, "paper", "A5");
    user.Click("landscape");
    user.Click("ok");
  }));
  EXPECT_EQ(engine->GetPaperSize(), 11);
  EXPECT_EQ(engine->GetOrientation(), 1);
}

TEST_F(PrinterSetupDialog, AServerThatIsAwayHasNoPrinters) {
  server->isAway = true;
  EXPECT_TRUE(Show([](Form& form, FormUser& user) {
    EXPECT_THAT(Items(form, "printers"), IsEmpty());
    EXPECT_EQ(Items(form, "paper").size(), kSheets);
    user.Click("landscape");
    user.Click("ok");
  }));
  EXPECT_EQ(engine->GetOrientation(), 1);
}

TEST_F(PrinterSetupDialog, AServerThatGoesAwayIsTheMessage) {
  EXPECT_TRUE(Show([this](Form& form, FormUser& user) {
    server->isAway = true;
    user.Pick("printers", 0);
    EXPECT_NE(Message(form), "");
    server->isAway = false;
    user.Click("landscape");
    EXPECT_EQ(Message(form), "");
    user.Click("ok");
  }));
  EXPECT_EQ(engine->GetDevice(), "Inkt");
}

// --- Failures ---------------------------------------------------------------------------------

TEST_F(PrinterSetupDialog, APickedPrinterThatHasVanishedIsTheMessage) {
  EXPECT_FALSE(Show([this](Form& form, FormUser& user) {
    RemovePrinter("Inkt");
    user.Pick("printers", 0);
    EXPECT_THAT(Message(form), HasSubstr("Inkt"));
    user.Click("ok");
    ASSERT_TRUE(form.Visible());
    EXPECT_THAT(Message(form), HasSubstr("Inkt"));
  }));
  EXPECT_EQ(engine->GetDevice(), "Laser");
}

TEST_F(PrinterSetupDialog, APrinterThatVanishesBeforeOkChangesNothingAndCanBeReplaced) {
  EXPECT_TRUE(Show([this](Form& form, FormUser& user) {
    user.Pick("printers", 0);
    Pick(form, user, "paper", "A3 ");
    user.Click("landscape");
    RemovePrinter("Inkt");
    user.Click("ok");
    ASSERT_TRUE(form.Visible());
    EXPECT_THAT(Message(form), HasSubstr("Inkt"));
    EXPECT_EQ(engine->GetDevice(), "Laser");
    EXPECT_EQ(engine->Setup(), PageSetup());
    user.Pick("printers", 2);
    EXPECT_EQ(Message(form), "");
    user.Click("ok");
  }));
  EXPECT_EQ(engine->GetDevice(), "Plotter");
  EXPECT_EQ(engine->GetPaperSize(), 8);
  EXPECT_EQ(engine->GetOrientation(), 1);
}

}  // namespace
}  // namespace pagivo::native
