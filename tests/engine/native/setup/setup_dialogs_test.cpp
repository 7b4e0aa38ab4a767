#include "engine/native/setup/setup_dialogs.h"

#include "engine/native/setup/setup_dialog_test.h"
#include "pagivo/error.h"

namespace pagivo::native {
namespace {

using SetupDialogs = SetupDialogTest;

TEST_F(SetupDialogs, TheNumberChoosesTheDialog) {
  Show(kPrinterSetupDialog,
       [](Form& form, FormUser&) { EXPECT_EQ(form.Caption(), "Printer instellen"); });
  Show(kPageSetupDialog,
       [](Form& form, FormUser&) { EXPECT_EQ(form.Caption(), "Pagina instellen"); });
  EXPECT_EQ(windows->ScriptsLeft(), 0U);
}

TEST_F(SetupDialogs, AnyOtherNumberIsAnError) {
  for (const std::int32_t number : {-1, 2, 100000}) {
    EXPECT_THROW(ShowSetupDialog(number, *engine, windows), Error);
    EXPECT_THROW(ShowSetupDialog(number, *engine, nullptr), Error);
  }
}

TEST_F(SetupDialogs, WithoutAUserTheyCloseUnconfirmed) {
  for (const std::int32_t number : {kPrinterSetupDialog, kPageSetupDialog}) {
    EXPECT_FALSE(ShowSetupDialog(number, *engine, windows));
    EXPECT_FALSE(ShowSetupDialog(number, *engine, nullptr));
  }
  EXPECT_EQ(engine->Setup(), PageSetup());
}

TEST_F(SetupDialogs, EachShowingStartsFromTheEngine) {
  for (const std::int32_t number : {kPrinterSetupDialog, kPageSetupDialog}) {
    Show(number, [](Form&, FormUser& user) { user.Click("landscape"); });
    Show(number,
         [](Form& form, FormUser&) { EXPECT_TRUE(form.Get<OptionButton>("portrait").Value()); });
  }
}

// A handler of the host's that asks for a dialog while one is open. OK leaves alone what the user
// of that dialog has not changed.
TEST_F(SetupDialogs, CanBeShownOverEachOther) {
  EXPECT_TRUE(Show(kPrinterSetupDialog, [this](Form& form, FormUser& user) {
    EXPECT_TRUE(Show(kPageSetupDialog, [](Form&, FormUser& inner) {
      inner.Replace("marginLeft", "0");
      inner.Click("landscape");
      inner.Click("ok");
    }));
    Pick(form, user, "paper", "A3 ");
    user.Click("ok");
  }));
  EXPECT_EQ(engine->Setup().margins.left, 0);
  EXPECT_EQ(engine->GetOrientation(), 1);
  EXPECT_EQ(engine->GetPaperSize(), 8);
}

}  // namespace
}  // namespace pagivo::native
