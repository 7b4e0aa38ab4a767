// Files as a whole.
#include <gmock/gmock.h>

#include <random>

#include "engine/native/document/page_shapes.h"
#include "engine/native/document/recorder.h"
#include "engine/native/pdf/pdf_readers.h"
#include "engine/native/pdf/pdf_writer.h"

namespace pagivo::native::testing {
namespace {

using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class PdfDocument : public ::testing::Test {
 protected:
  void AddPages(int count, const PageGeometry& paper = kA4) {
    for (int i = 0; i < count; ++i) {
      recorder_.BeginPage(paper);
      recorder_.DrawText({720, 720}, "Blad " + std::to_string(document_.PageCount()));
    }
  }

  Document document_;
  Recorder recorder_{document_};
};

TEST_F(PdfDocument, SaysItsVersionTitleAndProducer) {
  document_.SetTitle("Verspreiding \u2013 co\u00F6rdinaten (1)");
  AddPages(1);
  const PdfOnDisk pdf(document_);
  EXPECT_THAT(pdf.Information(),
              ContainsRegex("Title: +Verspreiding \u2013 co\u00F6rdinaten \\(1\\)\n"));
  EXPECT_THAT(pdf.Information(), ContainsRegex("Producer: +Pagivo\n"));
  EXPECT_THAT(pdf.Information(), ContainsRegex("PDF version: +1.7\n"));
  EXPECT_THAT(pdf.Information(), Not(HasSubstr("Date")));
}

TEST_F(PdfDocument, AnUnnamedDocumentHasNoTitle) {
  AddPages(1);
  EXPECT_THAT(PdfOnDisk(document_).Information(), Not(HasSubstr("Title")));
}

TEST_F(PdfDocument, TheSameDocumentGivesTheSameBytes) {
  const auto compose = [](Document& document) {
    Recorder recorder(document);
    for (int page = 0; page < 40; ++page) {
      recorder.BeginPage(kA4);
      for (const char* face : {"Arial", "Times New Roman", "DejaVu Sans", "P052"}) {
        recorder.SetFont({.name = face});
        recorder.DrawText({720, 720}, "Blad " + std::to_string(page));
      }
    }
  };
  Document first;
  Document second;
  compose(first);
  compose(second);
  EXPECT_EQ(PdfBytes(first), PdfBytes(second));
  EXPECT_EQ(PdfBytes(first), PdfBytes(first));
}

TEST_F(PdfDocument, PagesKeepTheirSizes) {
  AddPages(1);
  AddPages(1, {16838, 11906});
  AddPages(1, {8391, 11906});
  AddPages(1);
  const std::string sizes = PdfOnDisk(document_).Information("-f 1 -l 9");
  EXPECT_THAT(sizes, ContainsRegex("Page +1 size: +595.3 x 841.9 pts"));
  EXPECT_THAT(sizes, ContainsRegex("Page +2 size: +841.9 x 595.3 pts"));
  EXPECT_THAT(sizes, ContainsRegex("Page +3 size: +419.55 x 595.3 pts"));
  EXPECT_THAT(sizes, ContainsRegex("Page +4 size: +595.3 x 841.9 pts"));
}

TEST_F(PdfDocument, ALargePageHasALargerUnit) {
  AddPages(1, {14400 * 20, 14400 * 20});
  AddPages(1, {20000 * 20, 1000 * 20});
  const std::string plain = PdfOnDisk(document_).Plain();
  EXPECT_EQ(CountOf("/UserUnit", plain), 1);
  EXPECT_THAT(plain, HasSubstr("/UserUnit 2"));
  EXPECT_THAT(plain, ContainsRegex("MediaBox \\[\n +0\n +0\n +10000\n +500\n"));
}

TEST_F(PdfDocument, OnlyTheChosenPagesAreWritten) {
  AddPages(9);
  const ScratchFolder folder;
  WritePdfFile(document_, {.firstPage = 3, .lastPage = 5}, folder.FileNamed("a.pdf"));
  const std::string text = OutputOf("pdftotext '" + folder.FileNamed("a.pdf") + "' -");
  EXPECT_EQ(CountOf("Blad", text), 3);
  EXPECT_THAT(text, StartsWith("Blad 3"));
  EXPECT_THAT(text, HasSubstr("Blad 5"));
}

TEST_F(PdfDocument, AnEmptyPageIsAPage) {
  recorder_.BeginPage(kA4);
  const PdfOnDisk pdf(document_);
  EXPECT_THAT(pdf.Information(), ContainsRegex("Pages: +1\n"));
  EXPECT_EQ(OutputOf("mutool draw -q -F txt '" + pdf.Path() + "' 2>/dev/null | tr -d '[:space:]'"),
            "");
}

TEST_F(PdfDocument, AnOverlayIsDrawnOnItsPage) {
  AddPages(3);
  recorder_.BeginOverlay(2);
  recorder_.DrawText({720, 2000}, "Stempel");
  recorder_.EndOverlay();
  const PdfOnDisk pdf(document_);
  EXPECT_THAT(OutputOf("pdftotext -f 2 -l 2 '" + pdf.Path() + "' -"), HasSubstr("Stempel"));
  EXPECT_THAT(OutputOf("pdftotext -f 3 -l 3 '" + pdf.Path() + "' -"), Not(HasSubstr("Stempel")));
}

// As many pages as fill nodes of the tree exactly, and one more or less.
TEST_F(PdfDocument, EveryPageIsFoundInTheTree) {
  for (const int pages : {1, 31, 32, 33, 1023, 1024, 1025}) {
    Document document;
    Recorder recorder(document);
    for (int page = 1; page <= pages; ++page) {
      recorder.BeginPage(kA4);
      recorder.DrawText({720, 720}, "blad" + std::to_string(page));
    }
    const PdfOnDisk pdf(document);
    EXPECT_THAT(pdf.Information(), ContainsRegex("Pages: +" + std::to_string(pages) + "\n"));
    EXPECT_EQ(OutputOf("pdftotext -f " + std::to_string(pages) + " '" + pdf.Path() +
                       "' - | tr -d '[:space:]'"),
              "blad" + std::to_string(pages));
  }
}

TEST(PdfPageTree, RemembersItsPages) {
  const ByteSink sink = [](std::span<const std::uint8_t>) {};
  PdfFile file(sink);
  PageTree tree(file);
  std::vector<std::uint32_t> added;
  for (int page = 0; page < 70; ++page) {
    const PdfReference object = file.Reserve();
    added.push_back(object.number);
    tree.Add(object);
  }
  std::vector<std::uint32_t> found;
  for (const PdfReference page : tree.Pages()) found.push_back(page.number);
  EXPECT_EQ(found, added);
}

TEST_F(PdfDocument, TheLargestDocumentIsWrittenAsItGoes) {
  for (int page = 0; page < 32767; ++page) recorder_.BeginPage(kA4);
  recorder_.DrawText({720, 720}, "laatste");
  const PdfOnDisk pdf(document_);
  EXPECT_THAT(pdf.Information(), ContainsRegex("Pages: +32767\n"));
  EXPECT_EQ(
      OutputOf("mutool draw -q -F txt '" + pdf.Path() + "' 32767 2>/dev/null | tr -d '[:space:]'"),
      "laatste");
}

TEST_F(PdfDocument, BytesReachTheSinkWhilePagesAreWritten) {
  std::mt19937 random(1);
  for (int page = 0; page < 400; ++page) {
    recorder_.BeginPage(kA4);
    for (int i = 0; i < 40; ++i) {
      recorder_.DrawText({720, static_cast<float>(i * 300)}, std::to_string(random()));
    }
  }
  std::size_t largest = 0;
  std::size_t total = 0;
  PdfWriter writer(document_, "Rapport", [&](std::span<const std::uint8_t> part) {
    largest = std::max(largest, part.size());
    total += part.size();
  });
  for (std::int32_t page = 1; page <= 200; ++page) writer.WritePage(page);
  const std::size_t totalAtHalf = total;
  for (std::int32_t page = 201; page <= 400; ++page) writer.WritePage(page);
  writer.Finish();
  EXPECT_GT(total, 140'000U);
  EXPECT_LT(largest, 70'000U);
  EXPECT_GT(totalAtHalf, total / 4);
  EXPECT_LT(totalAtHalf, total * 2 / 3);
}

// Whatever is drawn, the file stays sound.
TEST_F(PdfDocument, AnythingAtAllGivesASoundFile) {
  std::mt19937 random(7);
  const auto number = [&random] {
    const float scales[] = {1, 1000, 20000, 1e9F, -300};
    return static_cast<float>(random() % 1000) / 100 * scales[random() % 5];
  };
  for (int page = 0; page < 10; ++page) {
    recorder_.BeginPage(kA4);
    for (int i = 0; i < 60; ++i) {
      const Point points[] = {{number(), number()}, {number(), number()}, {number(), number()}};
      recorder_.SetPen(
          {static_cast<PenStyle>(random() % 7), number(), static_cast<Color>(random() & 0xFFFFFF)});
      recorder_.SetBrush(
          {static_cast<BrushStyle>(random() % 8), static_cast<Color>(random() & 0xFFFFFF)});
      recorder_.SetFont({"Arial", number(), i % 2 == 0, i % 3 == 0, i % 5 == 0});
      recorder_.DrawText(points[0], "Tekst");
      recorder_.DrawLine(points[0], points[1]);
      recorder_.DrawRectangle({number(), number(), number(), number()});
      recorder_.DrawCircle(points[0], number());
      recorder_.DrawPolygon(points);
      recorder_.DrawPolyline(points);
    }
  }
  const PdfOnDisk pdf(document_);
  OutputOf("mutool draw -q -r 8 -o '" + pdf.Folder().FileNamed("p%d.png") + "' '" + pdf.Path() +
           "'");
}

}  // namespace
}  // namespace pagivo::native::testing
