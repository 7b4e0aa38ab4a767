#include "engine/native/printing/document_printing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/native/document/recorder.h"
#include "engine/native/spool/memory_print_server.h"
#include "pagivo/error.h"

namespace pagivo::native {
namespace {

using testing::ElementsAre;

constexpr PageGeometry kA4{11906, 16838};
constexpr PageGeometry kA4Landscape{16838, 11906};
constexpr PageGeometry kA3{16838, 23811};

class DocumentPrintingTest : public testing::Test {
 protected:
  DocumentPrintingTest() { document.SetTitle("Rapport"); }

  void AddPage(const PageGeometry& geometry) {
    recorder.BeginPage(geometry);
    recorder.DrawText({1440, 1440}, "Blad " + std::to_string(document.PageCount()));
  }

  void Print(int copies = 1, const PrintWatcher& watcher = {}) {
    PrintPages(
        server, document,
        {.printer = "Balie", .copies = copies, .firstPage = 1, .lastPage = document.PageCount()},
        watcher);
  }

  std::vector<std::string> Pages(std::int32_t firstPage, std::int32_t lastPage) {
    std::vector<std::string> pages;
    for (std::int32_t page = firstPage; page <= lastPage; ++page) {
      pages.push_back(TracePage(document, page));
    }
    return pages;
  }

  MemoryPrintServer server;
  Document document;
  Recorder recorder{document};
};

TEST_F(DocumentPrintingTest, APaperIsOneJobHoweverItsPagesAreTurned) {
  for (const PageGeometry& page : {kA4, kA4Landscape, kA4}) AddPage(page);
  Print(3);
  ASSERT_EQ(server.jobs.size(), 1U);
  const MemoryJob& job = *server.jobs[0];
  EXPECT_EQ(job.ticket.printer, "Balie");
  EXPECT_EQ(job.ticket.title, "Rapport");
  EXPECT_EQ(job.ticket.copies, 3);
  EXPECT_EQ(job.ticket.size, (MediaSize{21000, 29700}));
  EXPECT_FALSE(job.ticket.margins);
  EXPECT_EQ(job.pages, Pages(1, 3));
  EXPECT_TRUE(job.isFinished);
  EXPECT_FALSE(job.isCancelled);
}

TEST_F(DocumentPrintingTest, ThePrintersOwnPaperIsAskedForWithItsMargins) {
  server.media["Balie"].media = {{.size = {21010, 29710}, .margins = {400, 300, 500, 600}}};
  AddPage(kA4);
  Print();
  EXPECT_EQ(server.jobs[0]->ticket.size, (MediaSize{21010, 29710}));
  EXPECT_EQ(server.jobs[0]->ticket.margins, (MediaMargins{400, 300, 500, 600}));
}

TEST_F(DocumentPrintingTest, EachRunOfPagesOfOnePaperIsAJob) {
  for (const PageGeometry& page : {kA4, kA4Landscape, kA3, kA4}) AddPage(page);
  Print();
  ASSERT_EQ(server.jobs.size(), 3U);
  EXPECT_EQ(server.jobs[0]->pages, Pages(1, 2));
  EXPECT_EQ(server.jobs[1]->pages, Pages(3, 3));
  EXPECT_EQ(server.jobs[2]->pages, Pages(4, 4));
  EXPECT_EQ(server.jobs[1]->ticket.size, (MediaSize{29700, 42000}));
}

TEST_F(DocumentPrintingTest, CopiesOfSeveralPapersComeOutAsWholeSets) {
  for (const PageGeometry& page : {kA4, kA3}) AddPage(page);
  Print(2);
  std::vector<int> widths;
  for (const auto& job : server.jobs) {
    widths.push_back(job->ticket.size.width);
    EXPECT_EQ(job->ticket.copies, 1);
  }
  EXPECT_THAT(widths, ElementsAre(21000, 29700, 21000, 29700));
}

TEST_F(DocumentPrintingTest, EachPageIsToldBeforeItIsPrinted) {
  for (const PageGeometry& page : {kA4, kA3}) AddPage(page);
  std::vector<std::pair<int, int>> told;
  Print(2, [&](const PrintProgress& progress) {
    told.emplace_back(progress.page, progress.pageCount);
    return true;
  });
  EXPECT_THAT(told,
              ElementsAre(std::pair(1, 4), std::pair(2, 4), std::pair(3, 4), std::pair(4, 4)));
}

TEST_F(DocumentPrintingTest, TheServerHasEveryPageBeforeTheNextOneIsTold) {
  for (int page = 0; page < 10; ++page) AddPage(kA4);
  Print(1, [&](const PrintProgress& progress) {
    EXPECT_EQ(server.jobs[0]->pages, Pages(1, progress.page - 1));
    return true;
  });
  EXPECT_EQ(server.jobs[0]->pages, Pages(1, 10));
}

TEST_F(DocumentPrintingTest, AFailureTakesBackEveryJobThatWasSent) {
  for (const PageGeometry& page : {kA4, kA3, kA4}) AddPage(page);
  server.failingJob = 2;
  EXPECT_THROW(Print(), Error);
  ASSERT_EQ(server.jobs.size(), 2U);
  for (const auto& job : server.jobs) EXPECT_TRUE(job->isCancelled);
  EXPECT_FALSE(server.jobs[1]->isFinished);
}

TEST_F(DocumentPrintingTest, AUserWhoCancelsIsAnErrorOfItsOwn) {
  for (const PageGeometry& page : {kA4, kA4, kA4}) AddPage(page);
  try {
    Print(1, [](const PrintProgress& progress) { return progress.page < 2; });
    ADD_FAILURE() << "printed";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::PrinterFailure);
    EXPECT_STREQ(error.what(), "Het afdrukken is geannuleerd");
  }
  EXPECT_TRUE(server.jobs[0]->isCancelled);
  EXPECT_FALSE(server.jobs[0]->isFinished);
}

}  // namespace
}  // namespace pagivo::native
