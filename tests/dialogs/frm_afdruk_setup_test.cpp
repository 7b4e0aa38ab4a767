#include "dialogs/frm_afdruk_setup.h"

#include <gtest/gtest.h>

#include <memory>

#include "state/module_state.h"
#include "support/recording_platform.h"

namespace pagivo::testing {
namespace {

class PrinterSetup : public ::testing::Test {
 protected:
  ~PrinterSetup() override {
    PrinterSetupDialog().Load();
    PrinterSetupDialog().Unload();
    State() = ModuleState{};
  }

  RecordingPlatform platform;
};

TEST_F(PrinterSetup, IsDesignedFixedWithItsCaption) {
  EXPECT_EQ(PrinterSetupDialog().Caption(), "Printerinstelling");
  EXPECT_FALSE(PrinterSetupDialog().Design().sizable);
  EXPECT_EQ(PrinterSetupDialog().Design().client.width, 6645);
  EXPECT_EQ(PrinterSetupDialog().Design().client.height, 3975);
}

TEST_F(PrinterSetup, AnnulerenCancelsTheRequestAndUnloads) {
  platform.Windows().AddScript([](Form&) { PrinterSetupDialog().cmdAnnuleren_Click(); });
  PrinterSetupDialog().ShowModal();
  EXPECT_TRUE(State().PrintCancelled);
  EXPECT_FALSE(PrinterSetupDialog().IsLoaded());
}

TEST_F(PrinterSetup, TheCloseBoxActsAsAnnuleren) {
  platform.Windows().AddScript([](Form& dialog) {
    dialog.Unload(UnloadMode::ControlMenu);
    EXPECT_FALSE(dialog.IsLoaded());
  });
  PrinterSetupDialog().ShowModal();
  EXPECT_TRUE(State().PrintCancelled);
}

TEST_F(PrinterSetup, UnloadingForAnyOtherReasonLeavesTheRequestAlone) {
  for (const UnloadMode mode : {UnloadMode::Code, UnloadMode::SystemShutdown}) {
    PrinterSetupDialog().Load();
    PrinterSetupDialog().Unload(mode);
    EXPECT_FALSE(PrinterSetupDialog().IsLoaded());
    EXPECT_FALSE(State().PrintCancelled);
  }
}

TEST_F(PrinterSetup, CancellingChangesNothingElseOfTheRequest) {
  State().PrintDevice = "Laser";
  State().PrintCopies = 2;
  State().PrintFromPage = 3;
  State().PrintToPage = 4;
  PrinterSetupDialog().ShowModal();
  EXPECT_TRUE(State().PrintCancelled);
  EXPECT_EQ(State().PrintDevice, "Laser");
  EXPECT_EQ(State().PrintCopies, 2);
  EXPECT_EQ(State().PrintFromPage, 3);
  EXPECT_EQ(State().PrintToPage, 4);
}

TEST_F(PrinterSetup, EachShowingIsAFreshDialog) {
  PrinterSetupDialog().Load();
  const std::weak_ptr<Form> first = PrinterSetupDialog().weak_from_this();
  PrinterSetupDialog().PutCaption("Veranderd");
  PrinterSetupDialog().ShowModal();
  EXPECT_TRUE(first.expired());
  EXPECT_EQ(PrinterSetupDialog().Caption(), "Printerinstelling");
}

TEST_F(PrinterSetup, ADialogThatIsOpenIsTheSameOne) {
  platform.Windows().AddScript([](Form& dialog) { EXPECT_EQ(&PrinterSetupDialog(), &dialog); });
  PrinterSetupDialog().ShowModal();
}

}  // namespace
}  // namespace pagivo::testing
