#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "pagivo/pg_print.h"
#include "platform/platform.h"
#include "preview/preview_form.h"
#include "state/module_state.h"
#include "support/recording_platform.h"

namespace pagivo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

using Lines = std::vector<std::string>;

// Starts like a process that has loaded the library: nothing created, all state at its zero value.
class Lifecycle : public ::testing::Test {
 protected:
  ~Lifecycle() override {
    PgPrint().VsPPEinde();
    State() = ModuleState{};
  }

  const Lines& Log() { return platform.Log().Lines(); }
  RecordingEngine& Engine() { return platform.Engine(); }

  RecordingPlatform platform;
};

// A host window that fails whoever reads it.
class UnreadableHost : public Object {};

// --- State at load and at creation ------------------------------------------------------------

TEST_F(Lifecycle, AtLoadAllStateIsZero) {
  EXPECT_EQ(State().ScaleX, 0);
  EXPECT_EQ(State().ScaleY, 0);
  EXPECT_EQ(State().WatermarkOn, 0);
  EXPECT_EQ(State().HostForm, nullptr);
  EXPECT_EQ(State().contents.ContentsCount, 0);
  EXPECT_EQ(State().request.PrintDevice, "");
  EXPECT_EQ(State().request.PrintCopies, 0);
  EXPECT_EQ(State().request.PrintFromPage, 0);
  EXPECT_EQ(State().request.PrintToPage, 0);
  EXPECT_FALSE(State().request.PrintCancelled);
  EXPECT_EQ(State().request.PrintLastPage, 0);
  EXPECT_EQ(State().request.PrintRange, 0);
  EXPECT_EQ(State().GoToPageResult, 0);
}

TEST_F(Lifecycle, AtLoadTheContentsTableHasFiftyOneEmptyEntries) {
  EXPECT_EQ(State().contents.ContentsTitle.LowerBound(), 0);
  EXPECT_EQ(State().contents.ContentsTitle.UpperBound(), 50);
  EXPECT_EQ(State().contents.ContentsPage.LowerBound(), 0);
  EXPECT_EQ(State().contents.ContentsPage.UpperBound(), 50);
  for (int i = 0; i <= 50; ++i) {
    EXPECT_EQ(State().contents.ContentsTitle(i), "");
    EXPECT_EQ(State().contents.ContentsPage(i), 0);
  }
}

TEST_F(Lifecycle, CreatingAnObjectSetsFourValuesAndTouchesNothingElse) {
  State().contents.ContentsCount = 3;
  State().WatermarkOn = 2;
  const PgPrint print;
  EXPECT_EQ(State().contents.ContentsCount, 0);
  EXPECT_EQ(State().WatermarkOn, 0);
  EXPECT_EQ(State().ScaleX, 1);
  EXPECT_EQ(State().ScaleY, 1);
  EXPECT_EQ(platform.EnginesMade(), 0);
  EXPECT_THAT(Log(), IsEmpty());
}

TEST_F(Lifecycle, CreatingASecondObjectResetsTheFirstOnesState) {
  PgPrint first;
  first.VsPPZetInhoud("Inleiding");
  first.VsPPWatermerkInit(1);
  first.VsPPSetScaleMode(6);
  const PgPrint second;
  EXPECT_EQ(State().contents.ContentsCount, 0);
  EXPECT_EQ(State().WatermarkOn, 0);
  EXPECT_EQ(State().ScaleX, 1);
  EXPECT_EQ(State().ScaleY, 1);
}

TEST_F(Lifecycle, DestroyingAnObjectClosesNothing) {
  PgPrint().VsPPInit();
  PgPrint other;
  other.VsPPNewPage();
  EXPECT_TRUE(PreviewForm().IsLoaded());
  EXPECT_EQ(platform.EnginesMade(), 1);
}

TEST_F(Lifecycle, ThePredeclaredObjectIsOneAndSharesTheState) {
  PgPrint& predeclared = PredeclaredPgPrint();
  EXPECT_EQ(&predeclared, &PredeclaredPgPrint());
  predeclared.VsPPSetScaleMode(5);
  EXPECT_EQ(State().ScaleX, 1440);
}

// --- VsPPInit ---------------------------------------------------------------------------------

const Lines kInitLog = {"call StartDoc",
                        "put MarginLeft Integer 0",
                        "put MarginRight Integer 0",
                        "put MarginBottom Integer 0",
                        "put MarginTop Integer 0",
                        "put TextColor Long 0"};

TEST_F(Lifecycle, InitOpensADocumentWithoutMarginsInBlack) {
  PgPrint print;
  print.VsPPInit();
  EXPECT_EQ(Log(), kInitLog);
}

TEST_F(Lifecycle, InitBeforeStartCreatesAndLoadsTheHiddenWindow) {
  PgPrint print;
  print.VsPPInit();
  EXPECT_EQ(platform.EnginesMade(), 1);
  EXPECT_TRUE(PreviewForm().IsLoaded());
  EXPECT_FALSE(PreviewForm().Visible());
}

TEST_F(Lifecycle, InitResetsCountWatermarkAndScale) {
  PgPrint print;
  State().contents.ContentsCount = 7;
  State().WatermarkOn = 3;
  State().ScaleX = 2;
  State().ScaleY = 3;
  print.VsPPInit();
  EXPECT_EQ(State().contents.ContentsCount, 0);
  EXPECT_EQ(State().WatermarkOn, 0);
  EXPECT_EQ(State().ScaleX, 1);
  EXPECT_EQ(State().ScaleY, 1);
}

TEST_F(Lifecycle, InitKeepsTheContentsTextsUntilTheyAreOverwritten) {
  PgPrint print;
  Engine().Answer("CurrentPage", std::int16_t{4});
  print.VsPPZetInhoud("Oud");
  print.VsPPInit();
  EXPECT_EQ(State().contents.ContentsTitle(1), "Oud");
  EXPECT_EQ(State().contents.ContentsPage(1), 4);
  print.VsPPZetInhoud("Nieuw");
  EXPECT_EQ(State().contents.ContentsTitle(1), "Nieuw");
}

TEST_F(Lifecycle, InitAndCreationLeaveThePrintRequestAndTheHostAlone) {
  const auto host = std::make_shared<UnreadableHost>();
  State().HostForm = host;
  State().request.PrintDevice = "Laser";
  State().request.PrintCopies = 2;
  State().request.PrintFromPage = 3;
  State().request.PrintToPage = 4;
  State().request.PrintCancelled = true;
  State().request.PrintLastPage = 5;
  State().request.PrintRange = 1;
  PgPrint print;
  print.VsPPInit();
  EXPECT_EQ(State().HostForm, host);
  EXPECT_EQ(State().request.PrintDevice, "Laser");
  EXPECT_EQ(State().request.PrintCopies, 2);
  EXPECT_EQ(State().request.PrintFromPage, 3);
  EXPECT_EQ(State().request.PrintToPage, 4);
  EXPECT_TRUE(State().request.PrintCancelled);
  EXPECT_EQ(State().request.PrintLastPage, 5);
  EXPECT_EQ(State().request.PrintRange, 1);
}

TEST_F(Lifecycle, EachFailingStepOfInitIsLostAlone) {
  PgPrint print;
  for (std::size_t i = 0; i < kInitLog.size(); ++i) {
    platform.Log().Clear();
    Engine().FailNothing();
    Engine().FailOn(kInitLog[i]);
    print.VsPPInit();
    Lines expected = kInitLog;
    expected[i] += " (failed)";
    EXPECT_EQ(Log(), expected);
  }
}

// --- VsPPStart --------------------------------------------------------------------------------

TEST_F(Lifecycle, StartRemembersTheHostAndLoadsTheHiddenWindow) {
  PgPrint print;
  const auto host = std::make_shared<UnreadableHost>();
  print.VsPPStart(host);
  EXPECT_EQ(State().HostForm, host);
  EXPECT_TRUE(PreviewForm().IsLoaded());
  EXPECT_FALSE(PreviewForm().Visible());
  EXPECT_EQ(platform.EnginesMade(), 1);
  EXPECT_THAT(Log(), IsEmpty());
}

TEST_F(Lifecycle, StartKeepsAWindowThatIsLoaded) {
  PgPrint print;
  print.VsPPInit();
  print.VsPPStart(nullptr);
  EXPECT_EQ(platform.EnginesMade(), 1);
}

TEST_F(Lifecycle, TheNextStartReplacesTheHost) {
  PgPrint print;
  std::weak_ptr<Object> first;
  {
    const auto host = std::make_shared<UnreadableHost>();
    first = host;
    print.VsPPStart(host);
  }
  EXPECT_FALSE(first.expired());
  print.VsPPStart(nullptr);
  EXPECT_TRUE(first.expired());
  EXPECT_EQ(State().HostForm, nullptr);
}

// Making an object resets the shared state; a copy would be one that does not.
static_assert(!std::is_copy_constructible_v<PgPrint> && !std::is_copy_assignable_v<PgPrint>);
static_assert(!std::is_move_constructible_v<PgPrint> && !std::is_move_assignable_v<PgPrint>);

// --- VsPPNewPage, VsPPFinish, VsPPClose -------------------------------------------------------

// Notes which of its methods the others call.
class NotingPrint : public PgPrint {
 public:
  void VsPPClose() override { notes.emplace_back("VsPPClose"); }
  void VsWatermerkAfdrukken() override { notes.emplace_back("VsWatermerkAfdrukken"); }

  Lines notes;
};

TEST_F(Lifecycle, NewPageBeginsAPage) {
  PgPrint print;
  print.VsPPNewPage();
  EXPECT_THAT(Log(), ElementsAre("call NewPage"));
}

TEST_F(Lifecycle, NewPageStampsTheWatermarkAfterwards) {
  PgPrint print;
  print.VsPPWatermerkInit(2);
  platform.Log().Clear();
  print.VsPPNewPage();
  ASSERT_FALSE(Log().empty());
  EXPECT_EQ(Log().front(), "call NewPage");
  EXPECT_EQ(Log().back(), "put Picture Object decoded 1");
}

TEST_F(Lifecycle, NewPageCallsTheObjectsOwnWatermarkMethod) {
  NotingPrint print;
  print.VsPPNewPage();
  EXPECT_THAT(print.notes, ElementsAre("VsWatermerkAfdrukken"));
}

TEST_F(Lifecycle, AFailingNewPageIsStillStamped) {
  NotingPrint print;
  Engine().FailOn("call NewPage");
  print.VsPPNewPage();
  EXPECT_THAT(print.notes, ElementsAre("VsWatermerkAfdrukken"));
}

TEST_F(Lifecycle, NewPageAfterCloseIsPassedOn) {
  PgPrint print;
  print.VsPPClose();
  print.VsPPNewPage();
  EXPECT_THAT(Log(), ElementsAre("call EndDoc", "call NewPage"));
}

TEST_F(Lifecycle, CloseEndsTheDocument) {
  PgPrint print;
  print.VsPPClose();
  EXPECT_THAT(Log(), ElementsAre("call EndDoc"));
}

TEST_F(Lifecycle, AFailingCloseReportsSuccess) {
  PgPrint print;
  Engine().FailOn("call EndDoc");
  print.VsPPClose();
  EXPECT_THAT(Log(), ElementsAre("call EndDoc (failed)"));
}

TEST_F(Lifecycle, FinishNamesTheDocumentUntrimmedAndCaptionsTheWindowTrimmed) {
  PgPrint print;
  print.VsPPFinish("  Rapport 1 ");
  EXPECT_THAT(Log(), ElementsAre("put DocName String \"  Rapport 1 \"", "call EndDoc"));
  EXPECT_EQ(PreviewForm().Caption(), "Afdrukvoorbeeld Rapport 1");
}

TEST_F(Lifecycle, FinishWithAnEmptyTitleKeepsTheCaptionsBlank) {
  PgPrint print;
  print.VsPPFinish("");
  EXPECT_THAT(Log(), ElementsAre("put DocName String \"\"", "call EndDoc"));
  EXPECT_EQ(PreviewForm().Caption(), "Afdrukvoorbeeld ");
}

TEST_F(Lifecycle, FinishTakesTheTitleAsItWasWhenItWasCalled) {
  std::string title = "Rapport";
  platform.Log().Meanwhile("put DocName", [&] { title = "Anders"; });
  PgPrint print;
  print.VsPPFinish(title);
  EXPECT_EQ(PreviewForm().Caption(), "Afdrukvoorbeeld Rapport");
}

TEST_F(Lifecycle, FinishEndsTheDocumentThroughTheObjectsOwnClose) {
  NotingPrint print;
  print.VsPPFinish("Rapport");
  EXPECT_THAT(print.notes, ElementsAre("VsPPClose"));
  EXPECT_THAT(Log(), ElementsAre("put DocName String \"Rapport\""));
}

TEST_F(Lifecycle, FinishShowsNothing) {
  PgPrint print;
  bool shown = false;
  platform.Windows().AddScript([&](Form&, FormUser&) { shown = true; });
  print.VsPPFinish("Rapport");
  EXPECT_FALSE(shown);
  EXPECT_FALSE(PreviewForm().Visible());
}

TEST_F(Lifecycle, FinishGoesOnWhenTheDocumentsNameIsRefused) {
  PgPrint print;
  Engine().FailOn("put DocName");
  print.VsPPFinish("Rapport");
  EXPECT_EQ(Log().back(), "call EndDoc");
  EXPECT_EQ(PreviewForm().Caption(), "Afdrukvoorbeeld Rapport");
}

// --- VsPPEinde --------------------------------------------------------------------------------

TEST_F(Lifecycle, EindeWithoutAnyEarlierCallSucceeds) {
  PgPrint print;
  print.VsPPEinde();
  EXPECT_THAT(Log(), IsEmpty());
  EXPECT_FALSE(PreviewForm().IsLoaded());
}

TEST_F(Lifecycle, EindeDiscardsTheWindowAndTheNextUseGetsANewEngine) {
  PgPrint print;
  print.VsPPInit();
  PreviewForm().PutCaption("Afdrukvoorbeeld Oud");
  const std::weak_ptr<Form> discarded = PreviewForm().weak_from_this();
  print.VsPPEinde();
  EXPECT_TRUE(discarded.expired());

  print.VsPPNewPage();
  EXPECT_EQ(platform.EnginesMade(), 2);
  EXPECT_EQ(PreviewForm().Caption(), "Afdrukvoorbeeld");
}

TEST_F(Lifecycle, EindeKeepsTheHostAndTheState) {
  PgPrint print;
  const auto host = std::make_shared<UnreadableHost>();
  print.VsPPStart(host);
  print.VsPPZetInhoud("Inleiding");
  print.VsPPWatermerkInit(2);
  print.VsPPSetScaleMode(5);
  print.VsPPEinde();
  EXPECT_EQ(State().HostForm, host);
  EXPECT_EQ(State().contents.ContentsCount, 1);
  EXPECT_EQ(State().WatermarkOn, 2);
  EXPECT_EQ(State().ScaleX, 1440);
}

TEST_F(Lifecycle, TheWatermarkOutlivesEindeAndIsDrawnByTheNextEngine) {
  PgPrint print;
  print.VsPPWatermerkInit(1);
  print.VsPPEinde();
  platform.Log().Clear();
  print.VsPPNewPage();
  EXPECT_EQ(platform.Log().LinesBeginning("put Picture").size(), 1U);
}

TEST_F(Lifecycle, EindeDuringTheModalPreviewEndsTheShowing) {
  PgPrint print;
  std::int16_t page = 1;
  platform.Windows().AddScript([&](Form&, FormUser&) { print.VsPPEinde(); });
  print.VsPreviewFile(page);
  EXPECT_FALSE(PreviewForm().IsLoaded());
}

TEST_F(Lifecycle, AForgottenWindowIsNotReachedAgainWhoeverHoldsIt) {
  PgPrint print;
  print.VsPPInit();
  const std::shared_ptr<Form> held = PreviewForm().shared_from_this();
  ReleasePreviewForm();
  print.VsPPNewPage();
  EXPECT_EQ(platform.EnginesMade(), 2);
}

TEST_F(Lifecycle, AWindowThatWasUnloadedIsLoadedWithANewEngine) {
  PgPrint print;
  print.VsPPInit();
  PreviewForm().Unload();
  print.VsPPNewPage();
  EXPECT_EQ(platform.EnginesMade(), 2);
}

TEST_F(Lifecycle, ClosingThePreviewByHandKeepsTheDocument) {
  PgPrint print;
  print.VsPPInit();
  std::int16_t page = 1;
  print.VsPreviewFile(page);
  EXPECT_TRUE(PreviewForm().IsLoaded());
  EXPECT_FALSE(PreviewForm().Visible());
  EXPECT_EQ(platform.EnginesMade(), 1);
}

// --- Getters ----------------------------------------------------------------------------------

TEST_F(Lifecycle, GettersAnswerWhatTheEngineReports) {
  PgPrint print;
  Engine().Answer("CurrentPage", std::int16_t{4});
  Engine().Answer("PageCount", std::int16_t{5});
  Engine().Answer("Device", "Laser");
  EXPECT_EQ(print.VsPPGetCurrentPage(), 4);
  EXPECT_EQ(print.VsPPGetPageCount(), 5);
  EXPECT_EQ(print.VsPPGetDevice(), "Laser");
  EXPECT_THAT(Log(), ElementsAre("get CurrentPage", "get PageCount", "get Device"));
}

TEST_F(Lifecycle, AFailingGetterAnswersItsZeroValue) {
  PgPrint print;
  Engine().Answer("CurrentPage", std::int16_t{4});
  Engine().Answer("PageCount", std::int16_t{5});
  Engine().Answer("Device", "Laser");
  for (const char* read : {"get CurrentPage", "get PageCount", "get Device"}) {
    Engine().FailOn(read);
  }
  EXPECT_EQ(print.VsPPGetCurrentPage(), 0);
  EXPECT_EQ(print.VsPPGetPageCount(), 0);
  EXPECT_EQ(print.VsPPGetDevice(), "");
}

// --- Contents ---------------------------------------------------------------------------------

TEST_F(Lifecycle, AContentsEntryTakesTheTextAndTheCurrentPage) {
  PgPrint print;
  Engine().AnswerInTurn("CurrentPage", {std::int16_t{2}, std::int16_t{7}});
  print.VsPPZetInhoud(" Inleiding ");
  print.VsPPZetInhoud("");
  EXPECT_EQ(State().contents.ContentsCount, 2);
  EXPECT_EQ(State().contents.ContentsTitle(1), " Inleiding ");
  EXPECT_EQ(State().contents.ContentsPage(1), 2);
  EXPECT_EQ(State().contents.ContentsTitle(2), "");
  EXPECT_EQ(State().contents.ContentsPage(2), 7);
  EXPECT_EQ(State().contents.ContentsTitle(0), "");
}

TEST_F(Lifecycle, TheFiftyFirstContentsEntryIsDropped) {
  PgPrint print;
  for (int i = 1; i <= 50; ++i) {
    Engine().Answer("CurrentPage", static_cast<std::int16_t>(i));
    print.VsPPZetInhoud("Deel " + std::to_string(i));
  }
  platform.Log().Clear();
  print.VsPPZetInhoud("Te veel");
  EXPECT_EQ(State().contents.ContentsCount, 50);
  EXPECT_THAT(Log(), IsEmpty());
  for (int i = 1; i <= 50; ++i) {
    EXPECT_EQ(State().contents.ContentsTitle(i), "Deel " + std::to_string(i));
    EXPECT_EQ(State().contents.ContentsPage(i), i);
  }
}

TEST_F(Lifecycle, AContentsEntryWhosePageCannotBeReadKeepsTheOldPage) {
  PgPrint print;
  State().contents.ContentsPage(1) = 9;
  Engine().FailOn("get CurrentPage");
  print.VsPPZetInhoud("Inleiding");
  EXPECT_EQ(State().contents.ContentsCount, 1);
  EXPECT_EQ(State().contents.ContentsTitle(1), "Inleiding");
  EXPECT_EQ(State().contents.ContentsPage(1), 9);
}

// --- Colour and empty methods -----------------------------------------------------------------

TEST_F(Lifecycle, ZetKleurSetsTheTextColour) {
  PgPrint print;
  print.VsPPZetKleur(0x0000FF);
  EXPECT_THAT(Log(), ElementsAre("put TextColor Long 255"));
}

TEST_F(Lifecycle, ARefusedColourIsLost) {
  PgPrint print;
  Engine().FailOn("put TextColor");
  print.VsPPZetKleur(-1);
  EXPECT_THAT(Log(), ElementsAre("put TextColor Long -1 (failed)"));
}

TEST_F(Lifecycle, TheEmptyMethodsTouchNothing) {
  PgPrint print;
  for (const std::int16_t mode : std::initializer_list<std::int16_t>{-1, 0, 1, 32767}) {
    print.VsPPSetPreviewMode(mode);
  }
  print.VsPPZetHelp("", 0);
  print.VsPPZetHelp("plumeo.hlp", -1);
  EXPECT_EQ(platform.EnginesMade(), 0);
  EXPECT_THAT(Log(), IsEmpty());
  EXPECT_EQ(State().WatermarkOn, 0);
  EXPECT_EQ(State().ScaleX, 1);
  EXPECT_EQ(State().HostForm, nullptr);
}

// --- A window that cannot be created ----------------------------------------------------------

class WithoutEngine : public Lifecycle {
 protected:
  WithoutEngine() {
    Platform broken = CurrentPlatform();
    broken.makeEngine = [](const Platform&) -> std::shared_ptr<PrintEngine> {
      throw Error(ErrorNumber::FileAccess, "Geen afdrukcomponent");
    };
    UsePlatform(std::move(broken));
  }

  PgPrint print;
};

TEST_F(WithoutEngine, MethodsThatIgnoreErrorsReportSuccess) {
  const auto host = std::make_shared<UnreadableHost>();
  print.VsPPInit();
  print.VsPPStart(host);
  print.VsPPNewPage();
  print.VsPPZetInhoud("Inleiding");
  print.VsPPZetKleur(1);
  print.VsPPFinish("Rapport");
  EXPECT_EQ(print.VsPPGetPageCount(), 0);
  EXPECT_EQ(print.VsPPGetDevice(), "");
  EXPECT_EQ(State().HostForm, host);
  EXPECT_EQ(State().contents.ContentsCount, 1);
  EXPECT_EQ(State().contents.ContentsTitle(1), "Inleiding");
  print.VsPPEinde();
}

TEST_F(WithoutEngine, TheMethodsThatReportErrorsPassTheDescriptionOn) {
  const std::function<void()> calls[] = {[&] { print.VsPPAfdrukkenAanUit(true); },
                                         [&] { print.VsPPRenderControl(1); },
                                         [&] { print.VSPDF("rapport.pdf"); }};
  for (const auto& call : calls) {
    try {
      call();
      ADD_FAILURE() << "nothing was raised";
    } catch (const Error& error) {
      EXPECT_STREQ(error.what(), "Geen afdrukcomponent");
    }
  }
}

}  // namespace
}  // namespace pagivo::testing
