#include "engine/native/setup/engine_dialogs.h"

#include "engine/native/setup/setup_dialog_test.h"
#include "pagivo/error.h"

namespace pagivo::native {
namespace {

using EngineDialogs = SetupDialogTest;

TEST_F(EngineDialogs, TheNumberChoosesTheDialog) {
  Show(kPrinterSetupDialog,
       [](Form& form, FormUser&) { EXPECT_EQ(form.Caption(), "Printer instellen"); });
  Show(kPageSetupDialog,
       [](Form& form, FormUser&) { EXPECT_EQ(form.Caption(), "Pagina instellen"); });
  EXPECT_EQ(windows->ScriptsLeft(), 0U);
}

TEST_F(EngineDialogs, AnyOtherNumberIsAnError) {
  for (const std::int32_t number : {-1, 2, 100000}) {
    EXPECT_THROW(ShowEngineDialog(number, engine, windows), Error);
    EXPECT_THROW(ShowEngineDialog(number, engine, nullptr), Error);
  }
}

TEST_F(EngineDialogs, WithoutAUserTheyCloseUnconfirmed) {
  for (const std::int32_t number : {kPrinterSetupDialog, kPageSetupDialog}) {
    EXPECT_FALSE(ShowEngineDialog(number, engine, windows));
    EXPECT_FALSE(ShowEngineDialog(number, engine, nullptr));
  }
  EXPECT_THAT(Puts(), IsEmpty());
}

TEST_F(EngineDialogs, EachShowingStartsFromTheEngine) {
  for (const std::int32_t number : {kPrinterSetupDialog, kPageSetupDialog}) {
    Show(number, [](Form&, FormUser& user) { user.Click("landscape"); });
    Show(number,
         [](Form& form, FormUser&) { EXPECT_TRUE(form.Get<OptionButton>("portrait").Value()); });
  }
}

// A handler of the host's that asks for a dialog while one is open.
TEST_F(EngineDialogs, CanBeShownOverEachOther) {
  EXPECT_TRUE(Show(kPrinterSetupDialog, [this](Form&, FormUser& user) {
    EXPECT_TRUE(Show(kPageSetupDialog, [](Form&, FormUser& inner) { inner.Click("ok"); }));
    user.Click("ok");
  }));
}

}  // namespace
}  // namespace pagivo::native
