#include <functional>

#include "api/api_test.h"

namespace pagivo::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

// --- Preview ------------------------------------------------------------------------------------

class Preview : public ApiTest {
 protected:
  Preview() { Engine().Answer("PageCount", Integer(6)); }

  // The page that the engine is told to show, as its log has it, before the window is shown.
  std::string PageShown(std::int16_t& page) {
    Lines beforeShowing;
    platform.Windows().AddScript([&](Form&, FormUser&) {
      beforeShowing = platform.Log().LinesBeginning("put PreviewPage");
    });
    platform.Log().Clear();
    print.VsPreviewFile(page);
    EXPECT_EQ(platform.Windows().ScriptsLeft(), 0U) << "the window was not shown";
    return beforeShowing.size() == 1 ? beforeShowing.front() : "none or several";
  }
};

TEST_F(Preview, ShowsAPageOfTheDocumentAndNeverTheEmptyLastOne) {
  const std::pair<int, std::string_view> rows[] = {
      {1, "put PreviewPage Integer 1"},     {4, "put PreviewPage Integer 4"},
      {5, "put PreviewPage Integer 5"},     {6, "put PreviewPage Integer 5"},
      {32767, "put PreviewPage Integer 5"}, {0, "put PreviewPage Integer 1"},
      {-1, "put PreviewPage Integer 1"},    {-32768, "put PreviewPage Integer 1"},
  };
  for (const auto& [page, line] : rows) {
    for (const std::int32_t zoomMode : {0, 1, 3, 4}) {
      Engine().Answer("ZoomMode", zoomMode);
      std::int16_t hosts = Integer(page);
      EXPECT_EQ(PageShown(hosts), line) << page;
      EXPECT_EQ(hosts, page);
    }
  }
}

TEST_F(Preview, InTwoPageViewAnEvenPageBecomesTheOddOneBeforeItForTheHostToo) {
  struct Row {
    int page;
    int hosts;
    std::string_view line;
  };
  for (const Row& row :
       {Row{4, 3, "put PreviewPage Integer 3"}, Row{3, 3, "put PreviewPage Integer 3"},
        Row{2, 1, "put PreviewPage Integer 1"}, Row{0, -1, "put PreviewPage Integer 1"},
        Row{-2, -3, "put PreviewPage Integer 1"}, Row{-3, -3, "put PreviewPage Integer 1"},
        Row{6, 5, "put PreviewPage Integer 5"}, Row{8, 7, "put PreviewPage Integer 5"}}) {
    Engine().Answer("ZoomMode", Long(2));
    std::int16_t page = Integer(row.page);
    EXPECT_EQ(PageShown(page), row.line) << row.page;
    EXPECT_EQ(page, row.hosts);
  }
}

TEST_F(Preview, TakesPlainNumbersAndVariablesOfOtherTypes) {
  EXPECT_THAT(WritesOf([&] { print.VsPreviewFile(3); }), Contains("put PreviewPage Integer 3"));
  Engine().Answer("ZoomMode", Long(2));
  int page = 4;
  EXPECT_THAT(WritesOf([&] { print.VsPreviewFile(page); }), Contains("put PreviewPage Integer 3"));
  EXPECT_EQ(page, 3);
}

TEST_F(Preview, IsNotShownAtAPageBeyondSixteenBits) {
  int page = 70000;
  EXPECT_THAT(LogOf([&] { print.VsPreviewFile(page); }), IsEmpty());
  EXPECT_EQ(page, 70000);
}

TEST_F(Preview, ThePageBeforeTheLowestIntegerIsLeftAsItIs) {
  Engine().Answer("ZoomMode", Long(2));
  std::int16_t page = -32768;
  EXPECT_EQ(PageShown(page), "put PreviewPage Integer 1");
  EXPECT_EQ(page, -32768);
}

TEST_F(Preview, AOnePageDocumentAsksForPageZeroAndIsShown) {
  Engine().Answer("PageCount", Integer(1));
  std::int16_t page = 1;
  EXPECT_EQ(PageShown(page), "put PreviewPage Integer 0");
}

TEST_F(Preview, ReadsTheZoomModeAndThenThePageCount) {
  Lines beforeShowing;
  platform.Windows().AddScript([&](Form&, FormUser&) { beforeShowing = platform.Log().Lines(); });
  std::int16_t page = 2;
  print.VsPreviewFile(page);
  beforeShowing.resize(3);
  EXPECT_THAT(beforeShowing,
              ElementsAre("get ZoomMode", "get PageCount", "put PreviewPage Integer 2"));
}

TEST_F(Preview, APageBelowOneNeedsNoPageCount) {
  Lines beforeShowing;
  platform.Windows().AddScript([&](Form&, FormUser&) { beforeShowing = platform.Log().Lines(); });
  std::int16_t page = 0;
  print.VsPreviewFile(page);
  beforeShowing.resize(2);
  EXPECT_THAT(beforeShowing, ElementsAre("get ZoomMode", "put PreviewPage Integer 1"));
}

TEST_F(Preview, AnUnknownPageCountCountsAsNone) {
  Engine().FailOn("get PageCount", 1);
  std::int16_t page = 3;
  EXPECT_EQ(PageShown(page), "put PreviewPage Integer 0");
}

TEST_F(Preview, APageCountThatOverflowsCountsAsNone) {
  Engine().AnswerInTurn("PageCount", {Integer(-32768), Integer(6)});
  std::int16_t page = 3;
  EXPECT_EQ(PageShown(page), "put PreviewPage Integer 0");
}

TEST_F(Preview, AnEngineThatRefusesThePageIsShownAllTheSame) {
  Engine().FailOn("put PreviewPage");
  Engine().FailOn("get ZoomMode", 1);
  bool shown = false;
  platform.Windows().AddScript([&](Form&, FormUser&) { shown = true; });
  std::int16_t page = 3;
  print.VsPreviewFile(page);
  EXPECT_TRUE(shown);
}

TEST_F(Preview, AWindowThatCannotBePaintedEndsItsShowing) {
  Engine().FailOn("get PageCount");
  std::int16_t page = 0;
  print.VsPreviewFile(page);
  EXPECT_FALSE(PreviewForm().Visible());
  EXPECT_TRUE(PreviewForm().IsLoaded());
}

TEST_F(Preview, ReturnsWhenTheWindowIsHiddenAndKeepsTheDocument) {
  bool visible = false;
  platform.Windows().AddScript([&](Form& form, FormUser&) {
    visible = form.Visible();
    form.Hide();
  });
  std::int16_t page = 1;
  print.VsPreviewFile(page);
  EXPECT_TRUE(visible);
  EXPECT_FALSE(PreviewForm().Visible());
  EXPECT_EQ(PageShown(page), "put PreviewPage Integer 1");
  EXPECT_EQ(platform.EnginesMade(), 1);
}

TEST_F(Preview, ClosingTheWindowKeepsTheDocument) {
  std::int16_t page = 1;
  print.VsPreviewFile(page);
  EXPECT_FALSE(PreviewForm().Visible());
  EXPECT_EQ(print.VsPPGetPageCount(), 6);
  EXPECT_EQ(platform.EnginesMade(), 1);
}

TEST_F(Preview, TheEngineIsUsableWhileTheWindowIsShown) {
  platform.Windows().AddScript([&](Form&, FormUser&) { print.VsPrintFile(Integer(1)); });
  std::int16_t page = 1;
  EXPECT_THAT(LogOf([&] { print.VsPreviewFile(page); }),
              Contains("call PrintDoc Boolean False, Integer 1, Integer 5"));
}

// --- Print --------------------------------------------------------------------------------------

class Printing : public ApiTest {
 protected:
  Printing() { Engine().Answer("PageCount", Integer(6)); }

  static std::string Job(int from, int to) {
    return Describe("call PrintDoc", {false, Integer(from), Integer(to)});
  }
};

TEST_F(Printing, EveryRangeIsOrderedAndBroughtWithinTheDocument) {
  struct Row {
    Variant from;
    Variant to;
    int firstPage;
    int lastPage;
  };
  const Row rows[] = {
      {Integer(0), Integer(0), 1, 5},
      {Integer(5), Integer(0), 1, 5},
      {Integer(3), Integer(99), 3, 5},
      {Integer(9), Integer(2), 2, 5},
      {Integer(4), Integer(2), 2, 4},
      {Integer(5), Integer(5), 5, 5},
      {Integer(6), Integer(6), 1, 5},
      {Integer(7), Integer(9), 1, 5},
      {Integer(0), Integer(3), 1, 3},
      {Integer(-2), Integer(3), 1, 3},
      {Integer(2), Integer(-5), 1, 2},
      {Integer(-32768), Integer(32767), 1, 5},
      {Integer(-5), Integer(-2), 1, 5},
      {2.5, 3.5, 2, 4},
      {"2", "4", 2, 4},
      {Variant(), Long(4), 1, 4},
      // What cannot be converted stays 0.
      {Long(70000), Integer(3), 1, 3},
      {Integer(2), "x", 1, 2},
      {Null, Integer(4), 1, 4},
      {Missing, Missing, 1, 5},
  };
  for (const Row& row : rows) {
    EXPECT_THAT(WritesOf([&] { print.VsPrintFile(Integer(1), row.from, row.to); }),
                ElementsAre("put Copies Integer 1", Job(row.firstPage, row.lastPage)))
        << Describe(row.from) << ' ' << Describe(row.to);
  }
}

TEST_F(Printing, ARangeLeftOutIsTheWholeDocument) {
  EXPECT_THAT(WritesOf([&] { print.VsPrintFile(Integer(2)); }),
              ElementsAre("put Copies Integer 1", Job(1, 5), Job(1, 5)));
}

TEST_F(Printing, AFirstPageAloneIsExchangedWithTheMissingLastOne) {
  EXPECT_THAT(WritesOf([&] { print.VsPrintFile(Integer(1), Integer(5)); }),
              ElementsAre("put Copies Integer 1", Job(1, 5)));
}

TEST_F(Printing, EveryCopyIsAJobOfItsOwn) {
  const std::pair<int, std::size_t> rows[] = {{0, 1}, {1, 1}, {3, 3}, {-1, 0}, {-32768, 0}};
  for (const auto& [copies, jobs] : rows) {
    Lines expected(jobs, Job(2, 4));
    expected.insert(expected.begin(), "put Copies Integer 1");
    EXPECT_THAT(WritesOf([&] { print.VsPrintFile(Integer(copies), Integer(2), Integer(4)); }),
                ElementsAreArray(expected));
  }
}

TEST_F(Printing, TheNumberOfCopiesIsTakenAtTheStart) {
  std::int16_t copies = 3;
  platform.Log().Meanwhile("call PrintDoc", [&] { copies = 1; });
  EXPECT_THAT(WritesOf([&] { print.VsPrintFile(copies); }),
              ElementsAre("put Copies Integer 1", Job(1, 5), Job(1, 5), Job(1, 5)));
}

TEST_F(Printing, TheLargestNumberOfCopiesEnds) {
  EXPECT_EQ(WritesOf([&] { print.VsPrintFile(Integer(32767)); }).size(), 32768U);
}

TEST_F(Printing, NothingIsPrintedForANumberOfCopiesBeyondSixteenBits) {
  EXPECT_THAT(LogOf([&] { print.VsPrintFile(65537); }), IsEmpty());
}

TEST_F(Printing, ThePageCountIsReadForEachTestAndForTheLastPage) {
  EXPECT_THAT(LogOf([&] { print.VsPrintFile(Integer(1), Integer(2), Integer(4)); }),
              ElementsAre("get PageCount", "get PageCount", "put Copies Integer 1", Job(2, 4)));
  EXPECT_THAT(LogOf([&] { print.VsPrintFile(Integer(1), Integer(2), Integer(99)); }),
              ElementsAre("get PageCount", "get PageCount", "get PageCount", "put Copies Integer 1",
                          Job(2, 5)));
  Engine().AnswerInTurn("PageCount", {Integer(6), Integer(9), Integer(12)});
  EXPECT_THAT(WritesOf([&] { print.VsPrintFile(Integer(1), Integer(5), Integer(20)); }),
              ElementsAre("put Copies Integer 1", Job(5, 11)));
}

TEST_F(Printing, AnUnknownPageCountTakesTheFirstPageAndKeepsTheLast) {
  Engine().FailOn("get PageCount");
  EXPECT_THAT(WritesOf([&] { print.VsPrintFile(Integer(1), Integer(3), Integer(4)); }),
              ElementsAre("put Copies Integer 1", Job(1, 4)));
}

TEST_F(Printing, APageCountThatOverflowsTakesTheFirstPageAndKeepsTheLast) {
  Engine().Answer("PageCount", Integer(-32768));
  EXPECT_THAT(WritesOf([&] { print.VsPrintFile(Integer(1), Integer(3), Integer(4)); }),
              ElementsAre("put Copies Integer 1", Job(1, 4)));
}

TEST_F(Printing, AFailingReadTouchesOnlyItsOwnTest) {
  Engine().FailOn("get PageCount", 1);
  EXPECT_THAT(WritesOf([&] { print.VsPrintFile(Integer(1), Integer(3), Integer(4)); }),
              ElementsAre("put Copies Integer 1", Job(1, 4)));
  Engine().FailNothing();
  Engine().FailOn("get PageCount", 2);
  EXPECT_THAT(WritesOf([&] { print.VsPrintFile(Integer(1), Integer(3), Integer(4)); }),
              ElementsAre("put Copies Integer 1", Job(3, 5)));
}

TEST_F(Printing, APrinterThatRefusesAJobIsNotReportedAndTheOthersFollow) {
  Engine().FailOn("put Copies");
  Engine().FailOn("call PrintDoc", 1);
  EXPECT_THAT(WritesOf([&] { print.VsPrintFile(Integer(2)); }),
              ElementsAre("put Copies Integer 1 (failed)", Job(1, 5) + " (failed)", Job(1, 5)));
}

// --- PDF ----------------------------------------------------------------------------------------

class Pdf : public ApiTest {
 protected:
  Pdf() { Engine().Answer("PageCount", Integer(6)); }

  static std::string Export(const std::string& fileName, int lastPage) {
    return Describe("call ExportPdf", {ObjectRef(std::make_shared<NamedObject>("unnamed")),
                                       fileName, Integer(1), Integer(lastPage)});
  }

  // The error that reaches the host.
  template <typename Call>
  static std::string DescriptionOfErrorIn(Call&& call) {
    try {
      std::forward<Call>(call)();
    } catch (const Error& error) {
      return error.what();
    }
    return "no error";
  }
};

TEST_F(Pdf, HasAllPagesButTheEmptyLastOne) {
  EXPECT_THAT(LogOf([&] { print.VSPDF("rapport.pdf"); }),
              ElementsAre("get PageCount", Export("rapport.pdf", 5)));
}

TEST_F(Pdf, ExportsTheEngineOfThePreviewWindow) {
  print.VSPDF("rapport.pdf");
  EXPECT_EQ(platform.PdfExporter().Engine().get(), &Engine());
}

TEST_F(Pdf, TheFileNameIsPassedOnUnchanged) {
  for (const std::string name : {"", " rapport ", "/map/rapport zonder eind", "één.PDF"}) {
    EXPECT_THAT(LogOf([&] { print.VSPDF(name); }), Contains(Export(name, 5)));
  }
}

TEST_F(Pdf, TheExporterDecidesAboutADocumentWithoutPages) {
  for (const int count : {0, 1, -32767}) {
    Engine().Answer("PageCount", Integer(count));
    EXPECT_THAT(LogOf([&] { print.VSPDF("rapport.pdf"); }),
                Contains(Export("rapport.pdf", count - 1)));
  }
}

TEST_F(Pdf, AnErrorOfTheExporterReachesTheHost) {
  platform.Log().FailOn("call ExportPdf");
  EXPECT_EQ(DescriptionOfErrorIn([&] { print.VSPDF("rapport.pdf"); }),
            "Mislukt: " + Export("rapport.pdf", 5));
}

TEST_F(Pdf, AnUnknownPageCountReachesTheHostAndExportsNothing) {
  Engine().FailOn("get PageCount");
  platform.Log().Clear();
  EXPECT_EQ(DescriptionOfErrorIn([&] { print.VSPDF("rapport.pdf"); }), "Mislukt: get PageCount");
  EXPECT_THAT(platform.Log().Lines(), ElementsAre("get PageCount (failed)"));
}

TEST_F(Pdf, APageCountThatOverflowsReachesTheHostAndExportsNothing) {
  Engine().Answer("PageCount", Integer(-32768));
  platform.Log().Clear();
  EXPECT_EQ(DescriptionOfErrorIn([&] { print.VSPDF("rapport.pdf"); }), "Overloop");
  EXPECT_THAT(platform.Log().Lines(), ElementsAre("get PageCount"));
}

}  // namespace
}  // namespace pagivo::testing
