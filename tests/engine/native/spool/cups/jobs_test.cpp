// What arrives at the printer.
#include <ostream>
#include <thread>

#include "engine/native/spool/cups/printing_test.h"
#include "support/scratch_folder.h"

namespace pagivo {
namespace {

using testing::AllOf;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using testing::SizeIs;

constexpr std::int16_t kA3 = 8;
constexpr std::int16_t kA4 = 9;
constexpr std::int16_t kPortrait = 1;
constexpr std::int16_t kLandscape = 2;

class JobsTest : public PrintingTest {
 protected:
  std::vector<ReceivedJob> OnColor() { return Received(Server().Color()); }
  std::vector<ReceivedJob> OnDrawing() { return Received(Server().Drawing()); }

  // The document's pages as the host's PDF file has them.
  std::string WritePdf() {
    print.VSPDF(folder.FileNamed("rapport.pdf"));
    return folder.FileNamed("rapport.pdf");
  }

  // The same pages, turned to the right by so many degrees.
  std::string Turned(const std::string& pdf, const std::string& degrees) {
    const std::string turned = folder.FileNamed("gedraaid" + degrees + ".pdf");
    RunProgram({"qpdf", "--rotate=" + degrees, pdf, turned}, folder.FileNamed("qpdf.log"));
    return turned;
  }

  ScratchFolder folder;
};

// Points; print servers count whole ones.
testing::Matcher<PdfPage> PageOf(double width, double height) {
  return AllOf(Field(&PdfPage::width, DoubleNear(width, 1)),
               Field(&PdfPage::height, DoubleNear(height, 1)));
}

std::string MediaSizeOf(int width, int height) {
  return "media-size={x-dimension=" + std::to_string(width) +
         " y-dimension=" + std::to_string(height) + "}";
}

struct RangeCase {
  const char* name;
  std::int16_t copies;
  Variant from;
  Variant to;
  int jobs;
  std::vector<std::string> pages;
};

std::ostream& operator<<(std::ostream& out, const RangeCase& range) {
  return out << range.name;
}

// Of five pages, and the empty one that ends every document.
const RangeCase kRanges[] = {
    {"NoRangeTwice",
     2,
     std::int16_t{0},
     std::int16_t{0},
     2,
     {"Blad 1", "Blad 2", "Blad 3", "Blad 4", "Blad 5"}},
    {"NoCopiesIsOne", 0, std::int16_t{2}, std::int16_t{3}, 1, {"Blad 2", "Blad 3"}},
    {"OnlyAFirstPageIsTheLast",
     1,
     std::int16_t{5},
     std::int16_t{0},
     1,
     {"Blad 1", "Blad 2", "Blad 3", "Blad 4", "Blad 5"}},
    {"BeyondTheEnd", 1, std::int16_t{3}, std::int16_t{99}, 1, {"Blad 3", "Blad 4", "Blad 5"}},
    {"Reversed", 0, std::int16_t{9}, std::int16_t{2}, 1, {"Blad 2", "Blad 3", "Blad 4", "Blad 5"}},
    {"OnePage", 1, std::int16_t{4}, std::int16_t{4}, 1, {"Blad 4"}},
    {"Texts", 1, "2", "drie", 1, {"Blad 1", "Blad 2"}},
    {"NegativeCopies", -1, std::int16_t{0}, std::int16_t{0}, 0, {}},
};

class RangeTest : public JobsTest, public testing::WithParamInterface<RangeCase> {};

TEST_P(RangeTest, EachCopyIsAJobWithThePagesOfTheRange) {
  Compose(5);
  print.VsPrintFile(GetParam().copies, GetParam().from, GetParam().to);
  const auto jobs = OnColor();
  ASSERT_EQ(static_cast<int>(jobs.size()), GetParam().jobs);
  for (const ReceivedJob& job : jobs) {
    EXPECT_EQ(TextsOf(job), GetParam().pages);
    EXPECT_EQ(job.copies, 1);
  }
  EXPECT_THAT(Server().Drawing().ReceivedJobs(), SizeIs(0));
}

INSTANTIATE_TEST_SUITE_P(Of, RangeTest, testing::ValuesIn(kRanges),
                         [](const auto& range) { return std::string(range.param.name); });

TEST_F(JobsTest, ADocumentOfOneEnginePageHasNothingToPrint) {
  print.VsPPFinish("Leeg");
  print.VsPrintFile(1);
  EXPECT_THAT(OnColor(), SizeIs(0));
}

TEST_F(JobsTest, TheEngineItselfPrintsThePagesThatExist) {
  Compose(2);
  Engine().PrintDoc(false, 0, 99);
  const auto jobs = OnColor();
  ASSERT_THAT(jobs, SizeIs(1));
  EXPECT_THAT(TextsOf(jobs[0]), ElementsAre("Blad 1", "Blad 2", ""));
}

TEST_F(JobsTest, GoToTheChosenPrinter) {
  Compose(1);
  print.VsPPSetDevice(TestPrintServer::kDrawingPrinter);
  print.VsPrintFile(1);
  EXPECT_THAT(OnDrawing(), SizeIs(1));
  EXPECT_THAT(OnColor(), SizeIs(0));
}

TEST_F(JobsTest, AreNamedAfterTheDocument) {
  FinishPage("Blad");
  print.VsPPFinish("Offerte \xE2\x82\xAC 1.250 \xE2\x80\x93 caf\xC3\xA9");
  print.VsPrintFile(1);
  const auto jobs = OnColor();
  ASSERT_THAT(jobs, SizeIs(1));
  EXPECT_EQ(jobs[0].name, "Offerte \xE2\x82\xAC 1.250 \xE2\x80\x93 caf\xC3\xA9");
}

TEST_F(JobsTest, KeepOfALongNameWhatFits) {
  FinishPage("Blad");
  std::string name;
  for (int i = 0; i < 200; ++i) name += "\xC3\xA9";
  print.VsPPFinish(name);
  print.VsPrintFile(1);
  const auto jobs = OnColor();
  ASSERT_THAT(jobs, SizeIs(1));
  EXPECT_EQ(jobs[0].name, name.substr(0, 254));
}

TEST_F(JobsTest, CarryTheEnginesNumberOfCopies) {
  Compose(2);
  Engine().PutCopies(3);
  Engine().PrintDoc(false, 1, 2);
  const auto jobs = OnColor();
  ASSERT_THAT(jobs, SizeIs(1));
  EXPECT_EQ(jobs[0].copies, 3);
  EXPECT_THAT(TextsOf(jobs[0]), ElementsAre("Blad 1", "Blad 2"));
}

TEST_F(JobsTest, HaveThePagesOfThePdfFile) {
  for (int page = 1; page <= 4; ++page) {
    print.VsPPLine(500.0 * page, 700.0, 9000.0, 9000.0 + 500 * page);
    print.VsPPPrintR(std::to_string(page * 1234.5), 9000.0, 3000.0);
    FinishPage("Blad " + std::to_string(page));
  }
  print.VsPPFinish("Rapport");
  print.VsPrintFile(1);
  const auto jobs = OnColor();
  ASSERT_THAT(jobs, SizeIs(1));
  const std::string pdf = WritePdf();
  EXPECT_THAT(ReadPdfPages(jobs[0].pdfFile), SizeIs(4));
  EXPECT_EQ(TextsOf(jobs[0]), TextsOf({.pdfFile = pdf, .name = {}, .copies = 1, .media = {}}));
  for (int page = 1; page <= 4; ++page) {
    EXPECT_TRUE(LookAlike(jobs[0].pdfFile, page, pdf, page)) << page;
    EXPECT_FALSE(LookAlike(jobs[0].pdfFile, page, pdf, page % 4 + 1)) << page;
  }
}

struct PaperCase {
  const char* name;
  const char* printer;
  std::int16_t code;  // 0: width and height
  double width;       // twips
  double height;
  std::string media;
  double pageWidth;  // points
  double pageHeight;
};

std::ostream& operator<<(std::ostream& out, const PaperCase& paper) {
  return out << paper.name;
}

const PaperCase kPapers[] = {
    {"A4", TestPrintServer::kColorPrinter, 9, 0, 0, MediaSizeOf(21000, 29700), 595.3, 841.9},
    {"A5", TestPrintServer::kColorPrinter, 11, 0, 0, MediaSizeOf(14800, 21000), 419.5, 595.3},
    {"Letter", TestPrintServer::kColorPrinter, 1, 0, 0, MediaSizeOf(21590, 27940), 612, 792},
    {"A3", TestPrintServer::kDrawingPrinter, 8, 0, 0, MediaSizeOf(29700, 42000), 841.9, 1190.6},
    {"Tabloid", TestPrintServer::kDrawingPrinter, 3, 0, 0, MediaSizeOf(27940, 43180), 792, 1224},
    // The same sheet as the one before, the other side first; the server turns it.
    {"Ledger", TestPrintServer::kDrawingPrinter, 4, 0, 0, MediaSizeOf(27940, 43180), 792, 1224},
    // Almost A5: the printer's own.
    {"NearA5", TestPrintServer::kColorPrinter, 0, 8370, 11925, MediaSizeOf(14800, 21000), 419.5,
     595.3},
    // 300 by 400 points, which is how the server counts them.
    {"Custom", TestPrintServer::kColorPrinter, 0, 6000, 8000, MediaSizeOf(10583, 14111), 300, 400},
};

class PaperTest : public JobsTest, public testing::WithParamInterface<PaperCase> {
 protected:
  void UsePaper() {
    if (GetParam().code != 0) {
      print.VsPPSetPaperSize(GetParam().code);
    } else {
      print.VsPPSetPageWidth(GetParam().width);
      print.VsPPSetPageHeight(GetParam().height);
    }
  }
};

TEST_P(PaperTest, ComesOutInItsOwnSize) {
  print.VsPPSetDevice(GetParam().printer);
  UsePaper();
  Compose(1);
  print.VsPrintFile(1);
  const bool isColor = std::string(GetParam().printer) == TestPrintServer::kColorPrinter;
  const auto jobs = isColor ? OnColor() : OnDrawing();
  ASSERT_THAT(jobs, SizeIs(1));
  EXPECT_THAT(jobs[0].media, HasSubstr(GetParam().media));
  EXPECT_THAT(ReadPdfPages(jobs[0].pdfFile),
              ElementsAre(PageOf(GetParam().pageWidth, GetParam().pageHeight)));
  EXPECT_THAT(TextsOf(jobs[0]), ElementsAre("Blad 1"));
}

INSTANTIATE_TEST_SUITE_P(Of, PaperTest, testing::ValuesIn(kPapers),
                         [](const auto& paper) { return std::string(paper.param.name); });

// Of a paper that the printer has.
TEST_F(JobsTest, NameTheMarginsOfThePaper) {
  Compose(1);
  print.VsPrintFile(1);
  const auto jobs = OnColor();
  ASSERT_THAT(jobs, SizeIs(1));
  EXPECT_THAT(jobs[0].media, HasSubstr("media-left-margin=400 media-top-margin=300 "
                                       "media-right-margin=500 media-bottom-margin=600"));
}

TEST_F(JobsTest, MixOrientationsOnOnePaper) {
  FinishPage("Staand");
  print.VsPPSetOrientation(kLandscape);
  FinishPage("Liggend");
  print.VsPPSetOrientation(kPortrait);
  FinishPage("Weer staand");
  print.VsPPFinish("Rapport");
  print.VsPrintFile(1);
  const auto jobs = OnColor();
  ASSERT_THAT(jobs, SizeIs(1));
  EXPECT_THAT(TextsOf(jobs[0]), ElementsAre("Staand", "Liggend", "Weer staand"));
  EXPECT_THAT(ReadPdfPages(jobs[0].pdfFile), testing::Each(PageOf(595.3, 841.9)));
}

// Which way a server turns them is its own affair.
TEST_F(JobsTest, ShowLandscapePagesWholeAndTurned) {
  print.VsPPSetOrientation(kLandscape);
  print.VsPPLine(500.0, 700.0, 16000.0, 700.0);
  print.VsPPLine(500.0, 700.0, 12000.0, 11000.0);
  FinishPage("Liggend");
  print.VsPPFinish("Rapport");
  print.VsPrintFile(1);
  const auto jobs = OnColor();
  ASSERT_THAT(jobs, SizeIs(1));
  const std::string pdf = WritePdf();
  EXPECT_NE(LookAlike(jobs[0].pdfFile, 1, Turned(pdf, "+90"), 1),
            LookAlike(jobs[0].pdfFile, 1, Turned(pdf, "-90"), 1));
}

TEST_F(JobsTest, AreOneForEachRunOfPagesOfOnePaper) {
  print.VsPPSetDevice(TestPrintServer::kDrawingPrinter);
  FinishPage("Tekst 1");
  FinishPage("Tekst 2");
  print.VsPPSetPaperSize(kA3);
  FinishPage("Tekening 1");
  print.VsPPSetOrientation(kLandscape);
  FinishPage("Tekening 2");
  print.VsPPSetOrientation(kPortrait);
  print.VsPPSetPaperSize(kA4);
  FinishPage("Tekst 3");
  print.VsPPFinish("Rapport");
  print.VsPrintFile(1);
  const auto jobs = OnDrawing();
  ASSERT_THAT(jobs, SizeIs(3));
  EXPECT_THAT(TextsOf(jobs[0]), ElementsAre("Tekst 1", "Tekst 2"));
  EXPECT_THAT(TextsOf(jobs[1]), ElementsAre("Tekening 1", "Tekening 2"));
  EXPECT_THAT(TextsOf(jobs[2]), ElementsAre("Tekst 3"));
  EXPECT_THAT(ReadPdfPages(jobs[1].pdfFile), testing::Each(PageOf(841.9, 1190.6)));
  for (const ReceivedJob& job : jobs) EXPECT_EQ(job.name, "Rapport");
}

// A paper that no printer has: the server decides, and the page is not lost.
TEST_F(JobsTest, ArriveThoughThePrinterHasNoSuchPaper) {
  print.VsPPSetPaperSize(kA3);
  Compose(1);
  print.VsPrintFile(1);
  EXPECT_THAT(OnColor(), SizeIs(1));
}

TEST_F(JobsTest, OfManyPagesComeOutWhole) {
  constexpr int kPages = 500;
  Compose(kPages);
  print.VsPrintFile(1);
  const auto jobs = OnColor();
  ASSERT_THAT(jobs, SizeIs(1));
  const auto texts = TextsOf(jobs[0]);
  ASSERT_THAT(texts, SizeIs(kPages));
  for (int page = 1; page <= kPages; ++page) {
    EXPECT_EQ(texts[static_cast<std::size_t>(page - 1)], "Blad " + std::to_string(page));
  }
}

TEST_F(JobsTest, ReachTheServerWhileTheyAreStillBeingWritten) {
  constexpr std::int16_t kPages = 500;
  Compose(kPages);
  std::uintmax_t arrived = 0;
  const auto watcher = [&](const native::PrintProgress& progress) {
    for (int tick = 0; progress.page == kPages / 2 && arrived == 0 && tick < 500; ++tick) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
      arrived = Server().DocumentBytes();
    }
    return true;
  };
  native::PrintPages(
      *printers, Engine().GetDocument(),
      {.printer = TestPrintServer::kColorPrinter, .copies = 1, .firstPage = 1, .lastPage = kPages},
      watcher);
  EXPECT_GT(arrived, 0U);
  EXPECT_THAT(OnColor(), SizeIs(1));
}

TEST_F(JobsTest, WaitInAPausedQueue) {
  Compose(1);
  Server().Pause(TestPrintServer::kColorPrinter);
  EXPECT_EQ(PrinterFailureOf([&] { Engine().PrintDoc(false, 1, 1); }), "");
  EXPECT_THAT(Server().WaitingJobs(), SizeIs(1));
  EXPECT_THAT(Server().Color().ReceivedJobs(), SizeIs(0));
  Server().Resume(TestPrintServer::kColorPrinter);
  EXPECT_THAT(OnColor(), SizeIs(1));
}

}  // namespace
}  // namespace pagivo
