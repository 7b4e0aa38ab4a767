// What user and host learn of printing that went wrong: here there is never a printer.
#include "pagivo/print_outcome.h"

#include <string>
#include <vector>

#include "pagivo/error.h"
#include "situations/situation_test.h"
#include "support/without_printers.h"

namespace pagivo::testing {
namespace {

class PrintOutcome : public Situation {
 protected:
  PrintOutcome() { Compose(3); }

  // The user of the window that tells of a failure.
  void ReadAndClose() {
    User([this](Form& form, FormUser& user) {
      caption_ = form.Caption();
      told_ = form.Get("message").Caption();
      user.Click("cancel");
      EXPECT_FALSE(form.Visible());
    });
  }

  void ExpectTold() {
    EXPECT_EQ(windows->ScriptsLeft(), 0U);
    EXPECT_EQ(caption_, "Afdrukken...");
    EXPECT_EQ(told_, std::string(kFailureWithoutPrinters) + ".\n" + kAdviceWithoutPrinters);
  }

  PrintReport report;

 private:
  std::string caption_;
  std::string told_;
};

TEST_F(PrintOutcome, IsNothingBeforeTheFirstCommand) {
  EXPECT_EQ(report.PrintOutcome(), kNothingPrinted);
  EXPECT_EQ(report.Description(), "");
}

TEST_F(PrintOutcome, AFailureOfTheHostsPrintingIsToldOnTheScreenAndToTheHost) {
  ReadAndClose();
  print.VsPrintFile(4);
  ExpectTold();
  EXPECT_EQ(report.PrintOutcome(), kPrintingFailed);
  EXPECT_EQ(report.Description(), kFailureWithoutPrinters);
  EXPECT_EQ(report.Printer(), "");
  EXPECT_EQ(report.Copies(), 4);
  EXPECT_EQ(report.PrintedCopies(), 0);
}

TEST_F(PrintOutcome, AFailureOfThePreviewsPrintingIsToldAlike) {
  User([this](Form&, FormUser& user) {
    User([](Form&, FormUser& dialog) { dialog.Click("cmdOK"); });
    ReadAndClose();
    user.ClickToolbar("tbAfdrukken", "Afdrukken");
  });
  Preview();
  ExpectTold();
  EXPECT_EQ(report.PrintOutcome(), kPrintingFailed);
  EXPECT_EQ(report.Copies(), 1);
}

TEST_F(PrintOutcome, NoCopyIsNoCommand) {
  print.VsPrintFile(-1);
  EXPECT_EQ(report.PrintOutcome(), kNothingPrinted);
}

TEST_F(PrintOutcome, TheHostMayDiscardTheDocumentWhileItIsTold) {
  User([this](Form& form, FormUser& user) {
    print.VsPPEinde();
    EXPECT_TRUE(form.Visible());
    user.Click("cancel");
  });
  print.VsPrintFile(1);
  EXPECT_EQ(report.PrintOutcome(), kPrintingFailed);
}

TEST_F(PrintOutcome, IsThereForLateBoundHostsInAnyCase) {
  print.VsPrintFile(2);
  Object& object = report;
  EXPECT_EQ(object.GetMember("PrintOutcome"), Variant(kPrintingFailed));
  EXPECT_EQ(object.CallMember("printoutcome", {}), Variant(kPrintingFailed));
  EXPECT_EQ(object.GetMember("Description"), Variant(kFailureWithoutPrinters));
  EXPECT_EQ(object.GetMember("Printer"), Variant(""));
  EXPECT_EQ(object.GetMember("Copies"), Variant(std::int16_t{2}));
  EXPECT_EQ(object.GetMember("PrintedCopies"), Variant(std::int16_t{0}));
  EXPECT_THROW(object.GetMember("Anders"), Error);
}

}  // namespace
}  // namespace pagivo::testing
