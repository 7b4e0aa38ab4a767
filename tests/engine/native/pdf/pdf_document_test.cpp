// Files as a whole.
#include <gmock/gmock.h>

#include <random>

#include "engine/native/document/page_shapes.h"
#include "engine/native/document/recorder.h"
#include "engine/native/fonts/font_library.h"
#include "engine/native/pdf/cff_characters.h"
#include "engine/native/pdf/font_program.h"
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
  WritePdfFile(document_, 3, 5, folder.File("a.pdf"));
  const std::string text = OutputOf("pdftotext '" + folder.File("a.pdf") + "' -");
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
  PdfWriter writer(document_, [&](std::span<const std::uint8_t> part) {
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
  OutputOf("mutool draw -q -r 8 -o '" + pdf.Folder().File("p%d.png") + "' '" + pdf.Path() + "'");
}

const Face& FaceOf(const char* name, ShapedLine& line, const char* text) {
  FontLibrary::Instance().Find(name, false, false).Shape(text, line);
  return *line.runs.at(0).face;
}

TEST(FontProgram, HoldsTheWantedGlyphsOnly) {
  for (const char* name : {"Arial", "Nimbus Roman"}) {
    ShapedLine line;
    const Face& face = FaceOf(name, line, "abc");
    std::vector<std::uint32_t> glyphs;
    for (const ShapedGlyph& glyph : line.glyphs) glyphs.push_back(glyph.glyph);
    const FontProgram part = MakeFontProgram(face, glyphs);
    const FontProgram whole = MakeWholeFontProgram(face, glyphs);
    EXPECT_TRUE(part.subset);
    EXPECT_FALSE(whole.subset);
    EXPECT_LT(part.bytes.size(), 5000U) << name;
    EXPECT_GT(whole.bytes.size(), 20000U) << name;
    EXPECT_EQ(part.characters, (std::vector<std::uint32_t>{1, 2, 3})) << name;
    EXPECT_EQ(whole.characters, glyphs) << name;
  }
}

TEST(FontProgram, AGlyphThatTheFaceDoesNotHaveIsTheMissingOne) {
  ShapedLine line;
  const Face& face = FaceOf("Arial", line, "a");
  const std::uint32_t glyphs[] = {line.glyphs.at(0).glyph, 65000};
  EXPECT_EQ(MakeFontProgram(face, glyphs).characters.at(1), 0U);
}

// A number in a CFF dictionary, in its three-byte form.
std::string CffNumber(std::size_t number) {
  return {'\x1C', static_cast<char>(number >> 8), static_cast<char>(number)};
}

// An index of one element.
std::string CffIndex(const std::string& element) {
  using namespace std::string_literals;
  return "\x00\x01\x01\x01"s + static_cast<char>(element.size() + 1) + element;
}

// A CID-keyed CFF table, as small as can be: three glyphs, the last two of them characters 17 and
// 18.
std::string CidKeyedCff() {
  using namespace std::string_literals;
  const std::string begin = "\x01\x00\x04\x01"s + CffIndex("x");
  const std::string noStringsNorSubroutines(4, '\0');
  const std::string charset = "\x02\x00\x11\x00\x01"s;  // from 17 on one more
  const std::string glyphs = "\x00\x03\x01\x01\x02\x03\x04\x0E\x0E\x0E"s;
  const auto dictionary = [](std::size_t charsetAt, std::size_t glyphsAt) {
    return CffNumber(391) + CffNumber(392) + "\x8B\x0C\x1E" + CffNumber(charsetAt) + "\x0F" +
           CffNumber(glyphsAt) + "\x11";
  };
  const std::size_t charsetAt =
      begin.size() + CffIndex(dictionary(0, 0)).size() + noStringsNorSubroutines.size();
  return begin + CffIndex(dictionary(charsetAt, charsetAt + charset.size())) +
         noStringsNorSubroutines + charset + glyphs;
}

TEST(CffCharacters, FollowTheCharsetOfACidKeyedProgram) {
  EXPECT_EQ(CffCharacters(CidKeyedCff()), (std::vector<std::uint32_t>{0, 17, 18}));
}

TEST(CffCharacters, AreNoneForOtherPrograms) {
  ShapedLine line;
  const Face& face = FaceOf("Nimbus Roman", line, "a");
  const std::uint32_t glyph[] = {1};
  EXPECT_TRUE(CffCharacters(MakeFontProgram(face, glyph).bytes).empty());
}

TEST(CffCharacters, DamagedBytesAreNoneAtAll) {
  const std::string cff = CidKeyedCff();
  for (std::size_t size = 0; size <= cff.size(); ++size) {
    EXPECT_LE(CffCharacters(cff.substr(0, size)).size(), 3U);
  }
  std::mt19937 random(3);
  for (int i = 0; i < 20000; ++i) {
    std::string damaged = cff;
    for (int k = 0; k < 3; ++k) damaged[random() % damaged.size()] = static_cast<char>(random());
    EXPECT_LE(CffCharacters(damaged).size(), 65536U);
  }
}

}  // namespace
}  // namespace pagivo::native::testing
