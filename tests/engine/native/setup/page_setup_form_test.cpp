#include "engine/native/setup/page_setup_form.h"

#include <functional>
#include <map>

#include "engine/native/setup/setup_dialog_test.h"
#include "values/measures.h"
#include "window/key_codes.h"

namespace pagivo::native {
namespace {

constexpr const char* kBoxes[] = {"marginLeft", "marginRight", "marginTop", "marginBottom"};

class PageSetupDialog : public SetupDialogTest {
 protected:
  bool Show(TrialWindows::Script user) {
    return SetupDialogTest::Show(kPageSetupDialog, std::move(user));
  }
  static std::string Text(Form& form, std::string_view box) {
    return form.Get<TextBox>(box).Text();
  }
  static std::string_view Focused(Form& form) { return form.Controls().Focused()->Name(); }

  // The picture as the surface would show it, 200 × 200 pixels.
  static std::vector<std::uint32_t> Picture(Form& form) {
    std::vector<std::uint32_t> pixels(std::size_t{200} * 200);
    form.Get<Surface>("picture").Content()->Draw({.width = 200, .height = 200, .pixels = pixels},
                                                 {});
    return pixels;
  }
};

// --- What it shows ----------------------------------------------------------------------------

TEST_F(PageSetupDialog, IsCalledPaginaInstellen) {
  Show([](Form& form, FormUser&) { EXPECT_EQ(form.Caption(), "Pagina instellen"); });
}

TEST_F(PageSetupDialog, SaysThatItHoldsForWhatFollowsWhereThereIsADocument) {
  for (const bool hasDocument : {false, true}) {
    if (hasDocument) engine->StartDoc();
    const std::string remark =
        hasDocument ? "De instellingen gelden voor wat hierna wordt opgemaakt." : "";
    Show([&](Form& form, FormUser& user) {
      EXPECT_EQ(Message(form), remark);
      user.Replace("marginTop", "x");
      user.Click("ok");
      EXPECT_NE(Message(form), remark);
      user.Replace("marginTop", "10");
      EXPECT_EQ(Message(form), remark);
    });
  }
}

TEST_F(PageSetupDialog, ShowsPaperAndOrientation) {
  engine->PutPaperSize(11);
  engine->PutOrientation(1);
  Show([](Form& form, FormUser&) {
    EXPECT_EQ(form.Get<ComboBox>("paper").Text(), "A5 (148 × 210 mm)");
    EXPECT_TRUE(form.Get<OptionButton>("landscape").Value());
  });
}

TEST_F(PageSetupDialog, ShowsTheMarginsInMillimetres) {
  engine->PutMarginLeft(std::int16_t{0});
  engine->PutMarginRight(std::int32_t{567});
  engine->PutMarginTop(720.0);
  engine->PutMarginBottom(1440.0);
  Show([](Form& form, FormUser&) {
    EXPECT_EQ(Text(form, "marginLeft"), "0");
    EXPECT_EQ(Text(form, "marginRight"), "10");
    EXPECT_EQ(Text(form, "marginTop"), "12,7");
    EXPECT_EQ(Text(form, "marginBottom"), "25,4");
  });
}

TEST_F(PageSetupDialog, ItsAccessKeysReachEveryChoice) {
  Show([](Form& form, FormUser& user) {
    const std::pair<char, const char*> rows[] = {{'i', "marginLeft"},
                                                 {'r', "marginRight"},
                                                 {'b', "marginTop"},
                                                 {'o', "marginBottom"},
                                                 {'f', "paper"}};
    for (const auto& [key, control] : rows) {
      user.PressAccessKey(key);
      EXPECT_EQ(Focused(form), control);
    }
    user.PressAccessKey('l');
    EXPECT_TRUE(form.Get<OptionButton>("landscape").Value());
  });
}

TEST_F(PageSetupDialog, TabGoesFromBoxToBoxAndSelectsTheirTexts) {
  Show([](Form& form, FormUser& user) {
    EXPECT_EQ(Focused(form), "paper");
    for (const char* control : {"portrait", "marginLeft", "marginRight", "marginTop",
                                "marginBottom", "ok", "cancel", "paper"}) {
      user.Press(kKeyTab);
      EXPECT_EQ(Focused(form), control);
    }
    user.PressAccessKey('i');
    EXPECT_EQ(form.Get<TextBox>("marginLeft").SelectionLength(), 4U);
  });
}

// --- OK ---------------------------------------------------------------------------------------

TEST_F(PageSetupDialog, OkWithoutAChangeChangesNothingAndConfirms) {
  engine->PutMarginLeft(1441.3);  // shown rounded
  const PageSetup before = engine->Setup();
  EXPECT_TRUE(Show([](Form&, FormUser& user) { user.Click("ok"); }));
  EXPECT_EQ(engine->Setup(), before);
}

TEST_F(PageSetupDialog, OkPutsTheMarginsThatTheUserChanged) {
  EXPECT_TRUE(Show([](Form&, FormUser& user) {
    user.Replace("marginTop", "12,5");
    user.Replace("marginRight", "0");
    user.Click("ok");
  }));
  const auto& [left, top, right, bottom] = engine->Setup().margins;
  EXPECT_DOUBLE_EQ(top, 12.5 * kTwipsPerMillimetre);
  EXPECT_EQ(right, 0);
  EXPECT_EQ(left, 1440);
  EXPECT_EQ(bottom, 1440);
}

TEST_F(PageSetupDialog, EveryBoxIsItsOwnMargin) {
  const std::pair<const char*, double Margins::*> rows[] = {{"marginLeft", &Margins::left},
                                                            {"marginRight", &Margins::right},
                                                            {"marginTop", &Margins::top},
                                                            {"marginBottom", &Margins::bottom}};
  for (const auto& [box, margin] : rows) {
    engine->Apply({});
    EXPECT_TRUE(Show([&box = box](Form&, FormUser& user) {
      user.Replace(box, "0");
      user.Click("ok");
    }));
    PageSetup expected;
    expected.margins.*margin = 0;
    EXPECT_EQ(engine->Setup(), expected) << box;
  }
}

TEST_F(PageSetupDialog, AMarginTypedAnewAsItWasIsNotPut) {
  EXPECT_TRUE(Show([](Form&, FormUser& user) {
    user.Replace("marginLeft", "7");
    user.Replace("marginLeft", "25.40");
    user.Click("ok");
  }));
  EXPECT_EQ(engine->Setup(), PageSetup());
}

TEST_F(PageSetupDialog, OkPutsPaperOrientationAndMargins) {
  EXPECT_TRUE(Show([](Form& form, FormUser& user) {
    user.Replace("marginLeft", "0");
    user.Click("landscape");
    Pick(form, user, "paper", "A3 ");
    user.Press(kKeyEnter);
  }));
  PageSetup expected;
  expected.paper.PutCode(8);
  expected.paper.PutLandscape(true);
  expected.margins.left = 0;
  EXPECT_EQ(engine->Setup(), expected);
}

TEST_F(PageSetupDialog, NeverTouchesThePrinter) {
  EXPECT_TRUE(Show([](Form& form, FormUser& user) {
    Pick(form, user, "paper", "A3 ");
    user.Click("ok");
  }));
  server->defaultPrinter = "Plotter";
  EXPECT_EQ(engine->GetDevice(), "Plotter");
}

// --- Annuleren --------------------------------------------------------------------------------

TEST_F(PageSetupDialog, LeavesEverythingAsItWasUnlessItIsConfirmed) {
  const std::function<void(FormUser&)> endings[] = {
      [](FormUser& user) { user.Click("cancel"); },
      [](FormUser& user) { user.Press(kKeyEscape); },
      [](FormUser& user) { user.Close(); },
  };
  for (const auto& end : endings) {
    EXPECT_FALSE(Show([&end](Form& form, FormUser& user) {
      for (const char* box : kBoxes) user.Replace(box, "5");
      user.Click("landscape");
      Pick(form, user, "paper", "A3 ");
      end(user);
    }));
    EXPECT_EQ(engine->Setup(), PageSetup());
  }
}

// --- Wrong entries ----------------------------------------------------------------------------

TEST_F(PageSetupDialog, AMarginThatIsNoNumberIsRefusedAndGetsTheFocus) {
  const std::map<std::string, std::string> names = {{"marginLeft", "linkermarge"},
                                                    {"marginRight", "rechtermarge"},
                                                    {"marginTop", "bovenmarge"},
                                                    {"marginBottom", "ondermarge"}};
  for (const auto& [box, name] : names) {
    for (const char* text : {"breed", "1,2,3", "12 mm", "nan", "1e3"}) {
      EXPECT_FALSE(Show([&](Form& form, FormUser& user) {
        user.Replace(box, text);
        user.Click("ok");
        ASSERT_TRUE(form.Visible());
        EXPECT_EQ(Focused(form), box);
        EXPECT_EQ(Message(form), "De " + name + " is geen getal; typ bijvoorbeeld 12,5");
      }));
    }
  }
  EXPECT_EQ(engine->Setup(), PageSetup());
}

TEST_F(PageSetupDialog, AnEmptyMarginIsNoNumber) {
  EXPECT_FALSE(Show([](Form& form, FormUser& user) {
    user.Erase("marginTop");
    user.Click("ok");
    EXPECT_EQ(Message(form), "De bovenmarge is geen getal; typ bijvoorbeeld 12,5");
  }));
}

TEST_F(PageSetupDialog, ANegativeMarginIsRefusedAndGetsTheFocus) {
  EXPECT_FALSE(Show([](Form& form, FormUser& user) {
    user.Replace("marginBottom", "-0,1");
    user.Click("ok");
    ASSERT_TRUE(form.Visible());
    EXPECT_EQ(Focused(form), "marginBottom");
    EXPECT_EQ(form.Get<TextBox>("marginBottom").SelectionLength(), 4U);
    EXPECT_EQ(Message(form), "De ondermarge mag niet negatief zijn");
  }));
}

TEST_F(PageSetupDialog, MarginsThatLeaveNoRoomAreRefusedAtTheWiderOne) {
  struct Row {
    const char* first;
    const char* firstText;
    const char* second;
    const char* secondText;
    const char* wrong;
    const char* message;
  };
  const Row rows[] = {
      {"marginLeft", "111", "marginRight", "100", "marginLeft",
       "De linker- en rechtermarge laten geen ruimte over op het papier"},
      {"marginLeft", "50", "marginRight", "999999", "marginRight",
       "De linker- en rechtermarge laten geen ruimte over op het papier"},
      {"marginTop", "298", "marginBottom", "0", "marginTop",
       "De boven- en ondermarge laten geen ruimte over op het papier"},
      {"marginTop", "100", "marginBottom", "197,01", "marginBottom",
       "De boven- en ondermarge laten geen ruimte over op het papier"},
  };
  for (const Row& row : rows) {
    EXPECT_FALSE(Show([&row](Form& form, FormUser& user) {
      user.Replace(row.first, row.firstText);
      user.Replace(row.second, row.secondText);
      user.Click("ok");
      ASSERT_TRUE(form.Visible());
      EXPECT_EQ(Focused(form), row.wrong);
      EXPECT_EQ(Message(form), row.message);
    }));
  }
  EXPECT_EQ(engine->Setup(), PageSetup());
}

TEST_F(PageSetupDialog, TheRoomIsThatOfTheChosenPaperAsItIsTurned) {
  EXPECT_TRUE(Show([](Form& form, FormUser& user) {
    user.Replace("marginLeft", "150");
    user.Replace("marginRight", "100");
    user.Click("ok");
    EXPECT_NE(Message(form), "");
    user.Click("landscape");
    EXPECT_EQ(Message(form), "");
    Pick(form, user, "paper", "A5");
    user.Click("ok");
    EXPECT_NE(Message(form), "");
    Pick(form, user, "paper", "A4 (");
    user.Click("ok");
  }));
  EXPECT_EQ(engine->GetOrientation(), 1);
  EXPECT_EQ(engine->GetPaperSize(), 9);
}

TEST_F(PageSetupDialog, AWrongEntryThatIsPutRightIsTaken) {
  EXPECT_TRUE(Show([](Form& form, FormUser& user) {
    user.Replace("marginLeft", "x");
    user.Press(kKeyEnter);
    EXPECT_NE(Message(form), "");
    user.Type("marginLeft", "0");
    EXPECT_EQ(Message(form), "");
    user.Press(kKeyEnter);
  }));
  EXPECT_EQ(engine->Setup().margins.left, 0);
}

// --- The picture ------------------------------------------------------------------------------

TEST_F(PageSetupDialog, ThePictureFollowsEveryChoice) {
  Show([](Form& form, FormUser& user) {
    auto last = Picture(form);
    const auto expectChange = [&] {
      auto now = Picture(form);
      EXPECT_NE(now, last);
      last = std::move(now);
    };
    user.Click("landscape");
    expectChange();
    Pick(form, user, "paper", "Envelop DL");
    expectChange();
    for (const char* box : kBoxes) {
      SCOPED_TRACE(box);
      user.Replace(box, "5");
      expectChange();
    }
  });
}

TEST_F(PageSetupDialog, ThePictureShowsThePageAsItOpens) {
  engine->PutOrientation(1);
  engine->PutMarginLeft(0.0);
  Show([](Form& form, FormUser&) {
    std::vector<std::uint32_t> expected(std::size_t{200} * 200);
    PagePicture picture;
    picture.PutShape(
        {.width = 16838, .height = 11906, .left = 0, .top = 1440, .right = 1440, .bottom = 1440});
    picture.Draw({.width = 200, .height = 200, .pixels = expected}, {});
    EXPECT_EQ(Picture(form), expected);
  });
}

TEST_F(PageSetupDialog, ThePictureKeepsTheLastMarginWhileAnotherIsTyped) {
  Show([](Form& form, FormUser& user) {
    user.Replace("marginLeft", "50");
    const auto before = Picture(form);
    user.Replace("marginLeft", "-");
    EXPECT_EQ(Picture(form), before);
    user.Erase("marginLeft");
    EXPECT_EQ(Picture(form), before);
  });
}

}  // namespace
}  // namespace pagivo::native
