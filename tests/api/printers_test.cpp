#include <functional>

#include "api/api_test.h"
#include "platform/platform.h"
#include "support/form_user.h"
#include "support/no_windows.h"

namespace pagivo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Printers = ApiTest;

TEST_F(Printers, TheNumberOfPrintersAndCopiesAreTheEngines) {
  Engine().Answer("NDevices", Integer(3));
  Engine().Answer("Copies", Integer(7));
  EXPECT_EQ(print.VsPPGetNDevices(), 3);
  EXPECT_EQ(print.VsPPGetCopies(), 7);
}

TEST_F(Printers, FailingReadsAnswerZero) {
  Engine().Answer("NDevices", Integer(3));
  Engine().Answer("Copies", Integer(7));
  Engine().FailOn("get NDevices");
  Engine().FailOn("get Copies");
  EXPECT_EQ(print.VsPPGetNDevices(), 0);
  EXPECT_EQ(print.VsPPGetCopies(), 0);
}

TEST_F(Printers, APrinterIsChosenByItsNameAsItIs) {
  EXPECT_THAT(LogOf([&] { print.VsPPSetDevice(" Laser op zolder "); }),
              ElementsAre("put Device String \" Laser op zolder \""));
}

TEST_F(Printers, APrinterThatTheEngineRefusesKeepsThePreviousOne) {
  print.VsPPSetDevice("Laser");
  Engine().FailOn("put Device String \"Onbekend\"");
  print.VsPPSetDevice("Onbekend");
  EXPECT_EQ(print.VsPPGetDevice(), "Laser");
}

// --- The engine's own dialogs -------------------------------------------------------------------

struct EngineDialog {
  bool (PgPrint::*show)();
  std::string_view line;
};

constexpr EngineDialog kEngineDialogs[] = {
    {&PgPrint::VsPPPrinterSetup, "get PrintDialog Long 0"},
    {&PgPrint::VsPPPageSetup, "get PrintDialog Long 1"},
};

TEST_F(Printers, EachSetupShowsItsEngineDialogAndTellsWhetherItWasConfirmed) {
  for (const EngineDialog& dialog : kEngineDialogs) {
    for (const bool confirmed : {true, false}) {
      Engine().Answer("PrintDialog", confirmed);
      bool answer = !confirmed;
      EXPECT_THAT(LogOf([&] { answer = (print.*dialog.show)(); }),
                  ElementsAre(std::string(dialog.line)));
      EXPECT_EQ(answer, confirmed) << dialog.line;
    }
  }
}

TEST_F(Printers, AnEngineDialogThatFailsIsNotConfirmed) {
  Engine().Answer("PrintDialog", true);
  Engine().FailOn("get PrintDialog");
  for (const EngineDialog& dialog : kEngineDialogs) {
    EXPECT_FALSE((print.*dialog.show)()) << dialog.line;
  }
}

// --- Rendering a window -------------------------------------------------------------------------

TEST_F(Printers, AWindowIsPassedOnToBeRendered) {
  EXPECT_THAT(LogOf([&] { print.VsPPRenderControl(Long(4711)); }),
              ElementsAre("put RenderControl Long 4711"));
}

TEST_F(Printers, AWindowThatCannotBeRenderedFailsWithTheEnginesDescription) {
  Engine().FailOn("put RenderControl");
  try {
    print.VsPPRenderControl(Long(0));
    FAIL() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::InvalidPropertyValue);
    EXPECT_STREQ(error.what(), "Mislukt: put RenderControl Long 0");
  }
}

// --- The component's own print dialog -----------------------------------------------------------

class PrinterDialog : public ApiTest {
 protected:
  // What the host passes and gets back.
  struct Request {
    std::string device;
    std::int16_t copies = 0;
    std::int16_t from = 0;
    std::int16_t to = 0;

    friend bool operator==(const Request&, const Request&) = default;
  };

  // The print request as the dialog finds it when it is shown, or as it leaves it.
  static Request RequestInState() {
    return {State().request.PrintDevice, State().request.PrintCopies, State().request.PrintFromPage,
            State().request.PrintToPage};
  }

  static void Confirm(Form& form, const Request& chosen) {
    State().request.PrintDevice = chosen.device;
    State().request.PrintCopies = chosen.copies;
    State().request.PrintFromPage = chosen.from;
    State().request.PrintToPage = chosen.to;
    State().request.PrintCancelled = false;
    form.Unload();
  }

  static void Cancel(Form&, FormUser& user) { user.Click("cmdAnnuleren"); }

  void User(TrialWindows::Script does) { platform.Windows().AddScript(std::move(does)); }

  // Shows the dialog for `request`, which receives the choices.
  Variant Show(Request& request) {
    return print.VsPPPrinterDialog(request.device, request.copies, request.from, request.to);
  }
};

TEST_F(PrinterDialog, ShowsTheHostsChoicesWithinTheirRange) {
  struct Row {
    int copies, from, to;
    int shownCopies, shownFrom, shownTo;
  };
  for (const Row& row :
       {Row{0, 0, 0, 1, 0, 0}, Row{1, 1, 1, 1, 1, 1}, Row{2, 2, 2, 2, 2, 2}, Row{5, 3, 0, 5, 3, 0},
        Row{-4, -3, 7, 1, 0, 7}, Row{9, 7, -1, 9, 7, 0}, Row{-32768, -32768, -32768, 1, 0, 0},
        Row{999, 32767, 32767, 999, 32767, 32767}}) {
    Request shown;
    User([&](Form& form, FormUser& user) {
      shown = RequestInState();
      Cancel(form, user);
    });
    Request request{"", Integer(row.copies), Integer(row.from), Integer(row.to)};
    Show(request);
    EXPECT_EQ(shown.copies, row.shownCopies);
    EXPECT_EQ(shown.from, row.shownFrom);
    EXPECT_EQ(shown.to, row.shownTo);
    EXPECT_EQ(request, shown);
  }
}

// The dialog counts to 999.
TEST_F(PrinterDialog, WithMoreCopiesThanItCanShowItShowsTheMostThatItCan) {
  for (const int copies : {1000, 5000, 32767}) {
    std::string shown;
    User([&](Form& form, FormUser& user) {
      shown = form.Get<TextBox>("txtAantal").Text();
      Cancel(form, user);
    });
    Request request{"Inkt", Integer(copies), 2, 3};
    EXPECT_EQ(Show(request), Variant(false));
    EXPECT_EQ(shown, "999");
    EXPECT_EQ(request, (Request{"", Integer(copies), 2, 3}));
  }
}

TEST_F(PrinterDialog, TheChoicesMadeInTheDialogReachTheHost) {
  platform.Engine().Answer("NDevices", Integer(2));
  platform.Engine().AnswerFor("Devices", Integer(0), "Inkt");
  platform.Engine().AnswerFor("Devices", Integer(1), "Laser");
  User([](Form&, FormUser& user) {
    user.Pick("cboPrinters", 1);
    user.Click("optSelectie");
    user.Replace("txtVan", "2");
    user.Replace("txtTm", "9");
    user.Replace("txtAantal", "4");
    user.Click("cmdOK");
  });
  Request request{"Inkt", 1, 0, 0};
  EXPECT_EQ(Show(request), Variant(true));
  EXPECT_EQ(request, (Request{"Laser", 4, 2, 9}));
  EXPECT_EQ(print.VsPPGetDevice(), "Laser");
}

TEST_F(PrinterDialog, ConfirmingGivesTheHostTheChoices) {
  const Request chosen{"Laser", 4, 2, 9};
  User([&](Form& form, FormUser&) { Confirm(form, chosen); });
  Request request{"Inkt", 1, 0, 0};
  EXPECT_EQ(Show(request), Variant(true));
  EXPECT_EQ(request, chosen);
}

TEST_F(PrinterDialog, TakesPlainNumbersAndVariablesOfOtherTypes) {
  User([&](Form& form, FormUser&) { Confirm(form, {"Laser", 4, 2, 9}); });
  std::string device;
  int copies = 1;
  long from = 0;
  EXPECT_EQ(print.VsPPPrinterDialog(device, copies, from, 0), Variant(true));
  EXPECT_EQ(copies, 4);
  EXPECT_EQ(from, 2);
}

TEST_F(PrinterDialog, IsNotShownForANumberBeyondSixteenBits) {
  std::string device = "Inkt";
  State().request.PrintFromPage = 7;
  EXPECT_EQ(print.VsPPPrinterDialog(device, 2, 3, 70000), Variant());
  EXPECT_EQ(device, "Inkt");
  EXPECT_EQ(State().request.PrintFromPage, 7);
}

TEST_F(PrinterDialog, CancellingGivesTheHostTheRequestAllTheSame) {
  State().request.PrintDevice = "Vorige";
  User(Cancel);
  Request request{"Inkt", 0, -3, 7};
  EXPECT_EQ(Show(request), Variant(false));
  EXPECT_EQ(request, (Request{"Vorige", 1, 0, 7}));
}

TEST_F(PrinterDialog, ClosingTheWindowIsCancelling) {
  Request request{"Inkt", 5, 1, 2};
  EXPECT_EQ(Show(request), Variant(false));
  EXPECT_TRUE(State().request.PrintCancelled);
  EXPECT_EQ(request, (Request{"", 5, 1, 2}));
}

TEST_F(PrinterDialog, TheHostsPrinterNameIsNotRead) {
  std::string seen = "nothing";
  User([&](Form& form, FormUser& user) {
    seen = State().request.PrintDevice;
    Cancel(form, user);
  });
  Request request{"Inkt", 1, 0, 0};
  Show(request);
  EXPECT_EQ(seen, "");
}

TEST_F(PrinterDialog, WritesNothingToTheEngine) {
  User([](Form& form, FormUser&) { Confirm(form, {"Laser", 4, 2, 9}); });
  Request request{"Inkt", 1, 0, 0};
  EXPECT_THAT(WritesOf([&] { Show(request); }), IsEmpty());
}

TEST_F(PrinterDialog, APrinterPickedBeforeCancellingStays) {
  User([&](Form& form, FormUser& user) {
    print.VsPPSetDevice("Laser");
    Cancel(form, user);
  });
  Request request{"Inkt", 1, 0, 0};
  Show(request);
  EXPECT_EQ(print.VsPPGetDevice(), "Laser");
}

TEST_F(PrinterDialog, EveryShowingIsANewDialog) {
  Request request{"Inkt", 1, 0, 0};
  std::weak_ptr<Form> first;
  User([&](Form& form, FormUser&) { first = form.weak_from_this(); });
  Show(request);
  EXPECT_TRUE(first.expired());
  bool shownAgain = false;
  User([&](Form&, FormUser&) { shownAgain = true; });
  Show(request);
  EXPECT_TRUE(shownAgain);
}

TEST_F(PrinterDialog, ADialogThatCannotBeShownLeavesTheRequestAsItStands) {
  Platform withoutDisplay = CurrentPlatform();
  withoutDisplay.windows = std::make_shared<NoWindows>();
  UsePlatform(withoutDisplay);
  State().request.PrintDevice = "Vorige";
  for (const bool cancelled : {false, true}) {
    State().request.PrintCancelled = cancelled;
    Request request{"Inkt", 0, -3, 7};
    EXPECT_EQ(Show(request), Variant(!cancelled));
    EXPECT_EQ(request, (Request{"Vorige", 1, 0, 7}));
  }
}

}  // namespace
}  // namespace pagivo::testing
