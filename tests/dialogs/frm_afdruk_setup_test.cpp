#include "dialogs/frm_afdruk_setup.h"

#include "dialogs/dialog_test.h"
#include "values/errors.h"

namespace pagivo::testing {
namespace {

class PrinterSetup : public DialogTest {
 protected:
  PrinterSetup() {
    PutPrinters({"Inkt", "Laser", "Plotter"});
    engine->Answer("Device", "Laser");
    engine->Answer("Port", "USB001");
    request.PrintCopies = 1;
  }
  // Loading and unloading releases the instance, and so does a load that fails.
  ~PrinterSetup() override {
    IgnoringErrors([this] {
      Dialog().Load();
      Dialog().Unload();
    });
  }

  void PutPrinters(const std::vector<std::string>& names) {
    engine->Answer("NDevices", static_cast<std::int16_t>(names.size()));
    std::int16_t index = 0;
    for (const std::string& name : names) engine->AnswerFor("Devices", index++, name);
  }

  Form& Dialog() { return PrinterSetupDialog(request, source); }
  void Show() { Dialog().ShowModal(); }
  template <typename Kind = Control>
  Kind& Get(std::string_view name) {
    return Dialog().Get<Kind>(name);
  }
  std::string Text(std::string_view box) { return Get<TextBox>(box).Text(); }
};

// --- The window -------------------------------------------------------------------------------

TEST_F(PrinterSetup, HasItsCaptionAndFixedSize) {
  EXPECT_EQ(Dialog().Caption(), "Printerinstelling");
  EXPECT_FALSE(Dialog().Design().sizable);
  EXPECT_EQ(Dialog().Design().client.width, 6645);
  EXPECT_EQ(Dialog().Design().client.height, 3975);
}

TEST_F(PrinterSetup, HasItsControls) {
  using enum ControlKind;
  engine->Answer("Device", "Weg");
  const ExpectedControl rows[] = {
      {"Frame1", Frame, "Printer", {120, 120, 6372, 1932}, ""},
      {"Label1", Label, "Naam:", {120, 360, 900}, "Frame1"},
      {"cboPrinters", ComboBox, "", {1080, 320, 5052}, "Frame1"},
      {"Label2", Label, "Status:", {120, 720, 900}, "Frame1"},
      {"lblStatus", Label, "", {1080, 720, 4332}, "Frame1"},
      {"Label6", Label, "Type:", {120, 1020, 900}, "Frame1"},
      {"lblType", Label, "", {1080, 1020, 4332}, "Frame1"},
      {"Label3", Label, "Waar:", {120, 1320, 900}, "Frame1"},
      {"lblWaar", Label, "LPT1:", {1080, 1320, 4332}, "Frame1"},
      {"Label4", Label, "Opmerking:", {120, 1620, 900}, "Frame1"},
      {"Frame2", Frame, "Afdrukbereik", {120, 2160, 3372, 1212}, ""},
      {"Picture1", PictureBox, "", {120, 240, 3135, 855}, "Frame2"},
      {"optAlles", OptionButton, "&Alles", {0, 120, 1812}, "Picture1"},
      {"optSelectie", OptionButton, "&Pagina's", {0, 480, 972}, "Picture1"},
      {"lblVan", Label, "&van:", {1080, 495, 375}, "Picture1"},
      {"txtVan", TextBox, "1", {1440, 480, 612, 288}, "Picture1"},
      {"lblTm", Label, "&t/m:", {2160, 495, 375}, "Picture1"},
      {"txtTm", TextBox, "", {2520, 480, 612, 288}, "Picture1"},
      {"Frame3", Frame, "Aantal", {3720, 2160, 2772, 1212}, ""},
      {"Label5", Label, "Aantal e&xemplaren:", {120, 520, 1572}, "Frame3"},
      {"txtAantal", TextBox, "1", {1680, 480, 612, 288}, "Frame3"},
      {"vsbAantal", ScrollBar, "", {2280, 480, 180, 288}, "Frame3"},
      {"cmdOK", Button, "OK", {4065, 3540, 1200, 330}, ""},
      {"cmdAnnuleren", Button, "Annuleren", {5340, 3540, 1200, 330}, ""},
  };
  ExpectControls(Dialog(), rows);
  EXPECT_EQ(Get("cmdOK").Design().placement, (Placement{3840, 3600, 1200, 330}));
  EXPECT_EQ(Get("cmdAnnuleren").Design().placement, (Placement{5160, 3600, 1200, 330}));
  for (const auto* box : {"txtVan", "txtTm", "txtAantal"}) {
    EXPECT_EQ(Get(box).Design().maximumLength, 0) << box;
  }
  EXPECT_FALSE(Get("cboPrinters").Design().editable);
  EXPECT_EQ(Get<pagivo::ScrollBar>("vsbAantal").Minimum(), 1);
  EXPECT_EQ(Get<pagivo::ScrollBar>("vsbAantal").Maximum(), 999);
  EXPECT_EQ(Get("cmdOK").Design().role, ButtonRole::Default);
  EXPECT_EQ(Get("cmdAnnuleren").Design().role, ButtonRole::Cancel);
}

TEST_F(PrinterSetup, ItsTabOrderFollowsTheEye) {
  std::int16_t expected = 0;
  for (const auto& control : Dialog().Controls().All()) {
    EXPECT_EQ(control->Design().tabIndex, expected++) << control->Name();
  }
}

TEST_F(PrinterSetup, EveryControlIsInTahoma8) {
  for (const auto& control : Dialog().Controls().All()) {
    EXPECT_EQ(control->FontName(), "Tahoma");
    EXPECT_EQ(control->FontSize(), 8);
  }
}

TEST_F(PrinterSetup, OpensWithTheFocusOnThePrinters) {
  User([this](FormUser&) { EXPECT_EQ(Dialog().Controls().Focused(), &Get("cboPrinters")); });
  Show();
}

// --- Printers ---------------------------------------------------------------------------------

TEST_F(PrinterSetup, ListsThePrintersInTheEnginesOrder) {
  auto& list = Get<ComboBox>("cboPrinters");
  ASSERT_EQ(list.Count(), 3);
  EXPECT_EQ(list.Item(0), "Inkt");
  EXPECT_EQ(list.Item(1), "Laser");
  EXPECT_EQ(list.Item(2), "Plotter");
}

TEST_F(PrinterSetup, AsksTheEngineForItsPrintersAndThenForItsOwnOne) {
  engine->ClearLog();
  Dialog().Load();
  EXPECT_THAT(engine->Log(),
              ElementsAre("get NDevices", "get Devices Integer 0", "get Devices Integer 1",
                          "get Devices Integer 2", "get Device", "get Device",
                          "put Device String \"Laser\"", "get Port"));
}

TEST_F(PrinterSetup, SelectsTheEnginesCurrentPrinter) {
  EXPECT_EQ(Get<ComboBox>("cboPrinters").ListIndex(), 1);
  EXPECT_EQ(Get("lblType").Caption(), "Laser");
  EXPECT_EQ(Get("lblWaar").Caption(), "USB001");
}

TEST_F(PrinterSetup, SelectsTheFirstOfTwoPrintersOfOneName) {
  PutPrinters({"Inkt", "Laser", "Laser"});
  EXPECT_EQ(Get<ComboBox>("cboPrinters").ListIndex(), 1);
}

TEST_F(PrinterSetup, APrinterNotInTheListSelectsNothingAndOkGivesNoName) {
  engine->Answer("Device", "laser");
  request.PrintDevice = "Vorige";
  User([this](FormUser& user) {
    EXPECT_EQ(Get<ComboBox>("cboPrinters").ListIndex(), -1);
    EXPECT_EQ(Get("lblType").Caption(), "");
    EXPECT_EQ(Get("lblWaar").Caption(), "LPT1:");
    user.Click("cmdOK");
  });
  Show();
  EXPECT_EQ(request.PrintDevice, "");
}

TEST_F(PrinterSetup, LooksOnePastTheLastItemAndSelectsNothingThere) {
  for (const auto& printers : {std::vector<std::string>{}, {"Inkt", "Laser"}}) {
    PutPrinters(printers);
    engine->Answer("Device", "");
    engine->ClearLog();
    EXPECT_EQ(Get<ComboBox>("cboPrinters").ListIndex(), -1);
    EXPECT_EQ(std::ranges::count(engine->Log(), "get Device"),
              static_cast<std::ptrdiff_t>(printers.size()) + 1);
    EXPECT_TRUE(Dialog().IsLoaded());
    Dialog().Unload();
  }
}

TEST_F(PrinterSetup, PickingAPrinterSwitchesTheEngineAtOnce) {
  User([this](FormUser& user) {
    engine->ClearLog();
    user.Pick("cboPrinters", 2);
    EXPECT_THAT(engine->Log(), ElementsAre("put Device String \"Plotter\"", "get Port"));
    EXPECT_EQ(Get("lblType").Caption(), "Plotter");
    user.Click("cmdAnnuleren");
  });
  Show();
  EXPECT_EQ(engine->GetDevice(), "Plotter");
}

TEST_F(PrinterSetup, OnlyPickingTheDefaultPrinterShowsThatItIsReady) {
  platform.PutDefaultPrinter("Plotter");
  User([this](FormUser& user) {
    EXPECT_EQ(Get("lblStatus").Caption(), "");
    user.Pick("cboPrinters", 0);
    EXPECT_EQ(Get("lblStatus").Caption(), "");
    user.Pick("cboPrinters", 2);
    EXPECT_EQ(Get("lblStatus").Caption(), "Gereed");
    user.Pick("cboPrinters", 0);
    EXPECT_EQ(Get("lblStatus").Caption(), "Gereed");
  });
  Show();
}

// What a control's caption was whenever it was shown.
class CaptionPeer : public ControlPeer {
 public:
  CaptionPeer(const Control& control, std::vector<std::string>& captions)
      : control_(control), captions_(captions) {}
  void Update() override { captions_.push_back(control_.Caption()); }
  void Focus() override {}

 private:
  const Control& control_;
  std::vector<std::string>& captions_;
};

TEST_F(PrinterSetup, TheDefaultPrinterIsSaidToBeItAndAtOnceThatItIsReady) {
  platform.PutDefaultPrinter("Plotter");
  Control& status = Get("lblStatus");
  std::vector<std::string> captions;
  status.Attach(std::make_unique<CaptionPeer>(status, captions));
  Get<ComboBox>("cboPrinters").PutListIndex(2);
  EXPECT_THAT(captions, ElementsAre("Standaardprinter; gereed", "Gereed"));
}

TEST_F(PrinterSetup, ShowsThePortOfThePickedPrinter) {
  engine->AnswerInTurn("Port", {"USB001", "LPT2:"});
  User([this](FormUser& user) {
    EXPECT_EQ(Get("lblWaar").Caption(), "USB001");
    user.Pick("cboPrinters", 0);
    EXPECT_EQ(Get("lblWaar").Caption(), "LPT2:");
  });
  Show();
}

TEST_F(PrinterSetup, APrinterThatTheEngineRefusesLeavesTheDialogOpen) {
  engine->FailOn("put Device String \"Inkt\"");
  User([this](FormUser& user) {
    user.Pick("cboPrinters", 0);
    EXPECT_TRUE(Dialog().Visible());
    EXPECT_EQ(Get("lblType").Caption(), "Laser");
    user.Click("cmdAnnuleren");
  });
  Show();
  EXPECT_TRUE(request.PrintCancelled);
}

// --- Range ------------------------------------------------------------------------------------

TEST_F(PrinterSetup, OpensWithTheRangeOfTheRequest) {
  struct Row {
    std::int16_t from, to;
    bool whole;
    std::string_view van, tm;
  };
  for (const Row& row :
       {Row{0, 0, true, "1", ""}, Row{-3, 7, true, "1", ""}, Row{0, 7, true, "1", ""},
        Row{3, 0, false, "3", ""}, Row{3, -1, false, "3", ""}, Row{3, 12, false, "3", "12"},
        Row{1234, 32767, false, "1234", "32767"}}) {
    request.PrintFromPage = row.from;
    request.PrintToPage = row.to;
    EXPECT_EQ(Get<OptionButton>("optAlles").Value(), row.whole);
    EXPECT_EQ(Get<OptionButton>("optSelectie").Value(), !row.whole);
    EXPECT_EQ(Text("txtVan"), row.van);
    EXPECT_EQ(Text("txtTm"), row.tm);
    for (const auto* name : {"lblVan", "txtVan", "lblTm", "txtTm"}) {
      EXPECT_EQ(Get(name).Enabled(), !row.whole) << name;
    }
    Dialog().Unload();
  }
}

TEST_F(PrinterSetup, ARangeWithoutAnEndComesBackWithoutOne) {
  request.PrintFromPage = 3;
  request.PrintToPage = 0;
  User([this](FormUser& user) {
    EXPECT_TRUE(Get<OptionButton>("optSelectie").Value());
    EXPECT_EQ(Text("txtVan"), "3");
    EXPECT_EQ(Text("txtTm"), "");
    user.Click("cmdOK");
  });
  Show();
  EXPECT_EQ(request.PrintFromPage, 3);
  EXPECT_EQ(request.PrintToPage, 0);
}

TEST_F(PrinterSetup, TheOptionsSwitchTheRangeBoxesAndLeaveTextsAndFocus) {
  User([this](FormUser& user) {
    user.Click("optSelectie");
    user.Replace("txtVan", "4");
    user.Click("optAlles");
    for (const auto* name : {"lblVan", "txtVan", "lblTm", "txtTm"}) {
      EXPECT_FALSE(Get(name).Enabled()) << name;
    }
    EXPECT_EQ(Text("txtVan"), "4");
    user.Click("optSelectie");
    for (const auto* name : {"lblVan", "txtVan", "lblTm", "txtTm"}) {
      EXPECT_TRUE(Get(name).Enabled()) << name;
    }
    EXPECT_EQ(Dialog().Controls().Focused(), &Get("optSelectie"));
  });
  Show();
}

TEST_F(PrinterSetup, OkTakesTheRangeAsTyped) {
  struct Row {
    bool whole;
    std::string_view van, tm;
    int from, to;
  };
  for (const Row& row :
       {Row{true, "3", "5", 0, 0}, Row{false, "3", "", 3, 0}, Row{false, "", "5", 0, 5},
        Row{false, "7", "4", 7, 4}, Row{false, "2.5", "3.5", 2, 4}, Row{false, "x", "8blz", 0, 8},
        Row{false, "-2", "32767", -2, 32767}}) {
    User([&](FormUser& user) {
      user.Click("optSelectie");
      user.Replace("txtVan", row.van);
      user.Replace("txtTm", row.tm);
      if (row.whole) user.Click("optAlles");
      user.Click("cmdOK");
    });
    Show();
    EXPECT_EQ(request.PrintFromPage, row.from);
    EXPECT_EQ(request.PrintToPage, row.to);
    EXPECT_FALSE(request.PrintCancelled);
  }
}

TEST_F(PrinterSetup, APageBeyond16BitsFailsOkWhichChangesNothingAndShowsWhere) {
  request.PrintDevice = "Vorige";
  request.PrintCopies = 4;
  request.PrintFromPage = 3;
  request.PrintToPage = 5;
  for (const auto* box : {"txtVan", "txtTm"}) {
    for (const auto* page : {"40000", "1E400"}) {
      request.PrintCancelled = true;
      User([&](FormUser& user) {
        user.Replace("txtAantal", "9");
        user.Replace(box, page);
        user.Click("cmdOK");
        EXPECT_TRUE(Dialog().Visible());
        EXPECT_EQ(Dialog().Controls().Focused(), &Get(box));
        EXPECT_EQ(Get<TextBox>(box).SelectionLength(), 5U);
      });
      Show();
      EXPECT_EQ(request.PrintDevice, "Vorige");
      EXPECT_EQ(request.PrintCopies, 4);
      EXPECT_EQ(request.PrintFromPage, 3);
      EXPECT_EQ(request.PrintToPage, 5);
    }
  }
}

TEST_F(PrinterSetup, APageBeyond16BitsThatIsPutRightIsTaken) {
  User([this](FormUser& user) {
    user.Click("optSelectie");
    user.Replace("txtTm", "40000");
    user.Click("cmdOK");
    user.Type("txtTm", "4");
    user.Click("cmdOK");
    EXPECT_FALSE(Dialog().IsLoaded());
  });
  Show();
  EXPECT_EQ(request.PrintToPage, 4);
}

// --- Copies -----------------------------------------------------------------------------------

TEST_F(PrinterSetup, OpensWithTheCopiesOfTheRequestUpsideDownInTheBar) {
  for (const int copies : {1, 5, 999}) {
    request.PrintCopies = static_cast<std::int16_t>(copies);
    EXPECT_EQ(Text("txtAantal"), std::to_string(copies));
    EXPECT_EQ(Get<ScrollBar>("vsbAantal").Value(), 1000 - copies);
    Dialog().Unload();
  }
}

TEST_F(PrinterSetup, CopiesThatTheBarCannotHoldAreShownAsTheNearestThatItCan) {
  struct Row {
    int copies, shown;
  };
  for (const Row& row : {Row{0, 1}, Row{-1, 1}, Row{1000, 999}, Row{32767, 999}}) {
    request.PrintCopies = static_cast<std::int16_t>(row.copies);
    EXPECT_EQ(Text("txtAantal"), std::to_string(row.shown));
    EXPECT_EQ(Get<ScrollBar>("vsbAantal").Value(), 1000 - row.shown);
    Dialog().Unload();
  }
}

TEST_F(PrinterSetup, TheBarsUpperArrowRaisesTheCopies) {
  request.PrintCopies = 5;
  User([this](FormUser& user) {
    user.ClickUpArrow("vsbAantal");
    EXPECT_EQ(Text("txtAantal"), "6");
    user.ClickDownArrow("vsbAantal");
    user.ClickDownArrow("vsbAantal");
    EXPECT_EQ(Text("txtAantal"), "4");
    user.Scroll("vsbAantal", 1);
    EXPECT_EQ(Text("txtAantal"), "999");
    user.ClickUpArrow("vsbAantal");
    EXPECT_EQ(Text("txtAantal"), "999");
  });
  Show();
}

TEST_F(PrinterSetup, TypedCopiesAreHeldBetween1And999) {
  User([this](FormUser& user) {
    user.Replace("txtAantal", "7");
    EXPECT_EQ(Get<ScrollBar>("vsbAantal").Value(), 993);
    user.Erase("txtAantal");
    EXPECT_EQ(Text("txtAantal"), "1");
    EXPECT_EQ(Get<ScrollBar>("vsbAantal").Value(), 999);
    Get("cmdOK").Focus();
    user.Type("txtAantal", "1500");
    EXPECT_EQ(Text("txtAantal"), "999");
    EXPECT_EQ(Get<ScrollBar>("vsbAantal").Value(), 1);
    user.Replace("txtAantal", "-4");
    EXPECT_EQ(Text("txtAantal"), "1");
  });
  Show();
}

TEST_F(PrinterSetup, LettersBehindTheTypedCopiesStay) {
  User([this](FormUser& user) {
    user.Type("txtAantal", "12abc");
    EXPECT_EQ(Text("txtAantal"), "12abc");
    user.Click("cmdOK");
  });
  Show();
  EXPECT_EQ(request.PrintCopies, 12);
}

TEST_F(PrinterSetup, OkTakesUpTo99CopiesAndFallsBackTo1) {
  struct Row {
    std::string_view typed;
    int copies;
  };
  for (const Row& row : {Row{"1", 1}, Row{"99", 99}, Row{"100", 1}, Row{"999", 1}, Row{"0", 1}}) {
    User([&](FormUser& user) {
      user.Replace("txtAantal", row.typed);
      user.Click("cmdOK");
    });
    Show();
    EXPECT_EQ(request.PrintCopies, row.copies) << row.typed;
  }
}

TEST_F(PrinterSetup, ABoxThatGetsTheFocusIsSelectedWhole) {
  request.PrintFromPage = 12;
  request.PrintToPage = 345;
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

TEST_F(PrinterSetup, AClickSelectsTheWholeTextSoThatTypingReplacesIt) {
  request.PrintFromPage = 12;
  request.PrintToPage = 345;
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

// --- Ending -----------------------------------------------------------------------------------

TEST_F(PrinterSetup, EnterConfirms) {
  request.PrintCancelled = true;
  User([](FormUser& user) { user.Press(13); });
  Show();
  EXPECT_FALSE(request.PrintCancelled);
  EXPECT_EQ(request.PrintDevice, "Laser");
}

TEST_F(PrinterSetup, AnnulerenEscAndTheCloseBoxCancelAndChangeNothingElse) {
  const std::function<void(FormUser&)> ways[] = {
      [](FormUser& user) { user.Click("cmdAnnuleren"); },
      [](FormUser& user) { user.Press(27); },
      [](FormUser& user) { user.Close(); },
  };
  for (const auto& cancel : ways) {
    request.PrintCancelled = false;
    request.PrintDevice = "Vorige";
    request.PrintCopies = 2;
    request.PrintFromPage = 3;
    request.PrintToPage = 4;
    User([&](FormUser& user) {
      user.Replace("txtAantal", "9");
      user.Replace("txtVan", "9");
      cancel(user);
      EXPECT_FALSE(Dialog().IsLoaded());
    });
    Show();
    EXPECT_TRUE(request.PrintCancelled);
    EXPECT_EQ(request.PrintDevice, "Vorige");
    EXPECT_EQ(request.PrintCopies, 2);
    EXPECT_EQ(request.PrintFromPage, 3);
    EXPECT_EQ(request.PrintToPage, 4);
  }
}

TEST_F(PrinterSetup, UnloadingForAnyOtherReasonLeavesTheRequestAlone) {
  for (const UnloadMode mode : {UnloadMode::Code, UnloadMode::SystemShutdown}) {
    Form& dialog = Dialog();
    dialog.Load();
    const std::shared_ptr<Form> held = dialog.shared_from_this();
    dialog.Unload(mode);
    EXPECT_FALSE(held->IsLoaded());
    EXPECT_FALSE(request.PrintCancelled);
  }
}

TEST_F(PrinterSetup, EachShowingIsAFreshDialog) {
  Dialog().Load();
  const std::weak_ptr<Form> first = Dialog().weak_from_this();
  Dialog().PutCaption("Veranderd");
  Show();
  EXPECT_TRUE(first.expired());
  EXPECT_EQ(Dialog().Caption(), "Printerinstelling");
}

TEST_F(PrinterSetup, ADialogThatIsOpenIsTheSameOne) {
  platform.Windows().AddScript([this](Form& dialog, FormUser&) {
    EXPECT_EQ(&PrinterSetupDialog(request, source), &dialog);
  });
  Show();
}

}  // namespace
}  // namespace pagivo::testing
