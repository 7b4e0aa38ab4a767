// Text as independent readers find it.
#include <gmock/gmock.h>

#include "engine/native/document/page_shapes.h"
#include "engine/native/document/recorder.h"
#include "engine/native/fonts/font_library.h"
#include "engine/native/pdf/pdf_readers.h"
#include "support/expressions.h"

namespace pagivo::native::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

std::string WithoutBlanks(std::string text) {
  std::erase(text, ' ');
  return text;
}

class PdfText : public ::testing::Test {
 protected:
  PdfText() { recorder_.BeginPage(kA4); }

  void Draw(std::string_view text, const FontDescription& font = {}, float x = 720) {
    recorder_.SetFont(font);
    recorder_.DrawText({x, y_}, text);
    y_ += 600;
  }

  void ExpectLines(const std::vector<std::string>& lines) {
    const PdfOnDisk pdf(document_);
    EXPECT_EQ(pdf.PopplerLines(), lines);
    EXPECT_EQ(pdf.MuPdfLines(), lines);
  }

  Document document_;
  Recorder recorder_{document_};
  float y_ = 720;
};

constexpr const char* kTrueTypeFace = "Arial";
constexpr const char* kCffFace = "Nimbus Roman";

struct Sample {
  const char* name;
  const char* text;
  const char* face;
};

void PrintTo(const Sample& sample, std::ostream* stream) {
  *stream << sample.name;
}

class PdfTextSample : public PdfText, public ::testing::WithParamInterface<Sample> {};

TEST_P(PdfTextSample, ComesOutAsItWasPrinted) {
  Draw(GetParam().text, {.name = GetParam().face});
  ExpectLines({GetParam().text});
}

INSTANTIATE_TEST_SUITE_P(
    Readers, PdfTextSample,
    ::testing::Values(
        Sample{"Latin", "De pluim stijgt 12,5 m boven de schoorsteen.", kTrueTypeFace},
        Sample{"LatinInCff", "De pluim stijgt 12,5 m boven de schoorsteen.", kCffFace},
        Sample{"Kerned", "AVATAR To Wa LT. Vr. Yo", kTrueTypeFace},
        Sample{"KernedInCff", "AVATAR To Wa LT. Vr. Yo", kCffFace},
        Sample{"Ligatures", "office affluent figuur", "DejaVu Serif"},
        Sample{"LigaturesInCff", "office affluent figuur", "P052"},
        Sample{"Escapes", "(haakjes) en \\ en ((", kTrueTypeFace},
        Sample{"Accents", "caf\u00E9 \u00FCber co\u00F6peratie \u20AC 5 \u2013 \u00B5g/m\u00B3",
               kTrueTypeFace},
        Sample{"Greek", "\u03C3\u03B8 \u0394\u03B1\u03B2\u03B3 \u0391\u03B8\u03AE\u03BD\u03B1",
               kTrueTypeFace},
        Sample{"Cyrillic", "\u0421\u044A\u0435\u0448\u044C \u0435\u0449\u0451", kTrueTypeFace},
        Sample{"Hebrew", "\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD", "DejaVu Sans"},
        Sample{"Arabic", "\u0645\u0631\u062D\u0628\u0627 \u0628\u0643", "DejaVu Sans"},
        Sample{"CombiningAccents", "ax\u0302y en e\u0323\u0301f en q\u0323\u0308.", "DejaVu Sans"},
        Sample{"SharedGlyphs", "\u2206\u0394 \u2126\u03A9 a b", "DejaVu Sans"},
        Sample{"BeyondTheFirstPlane", "\U0001D49C\U0001D49E", "DejaVu Math TeX Gyre"}),
    [](const auto& sample) { return sample.param.name; });

TEST_F(PdfText, MixedDirectionsComeOutInTheirLogicalOrder) {
  const std::string text = "Het woord \u05E9\u05DC\u05D5\u05DD staat hier";
  Draw(text, {.name = "DejaVu Sans"});
  const PdfOnDisk pdf(document_);
  EXPECT_THAT(pdf.MuPdfLines(), ElementsAre(text));
  // Poppler moves the blanks at the borders.
  EXPECT_EQ(WithoutBlanks(pdf.PopplerLines().at(0)), WithoutBlanks(text));
}

// Poppler takes points and ligatures apart by where they stand, MuPDF by what the file says of
// them.
TEST_F(PdfText, PointsAndLigaturesFromRightToLeftKeepTheirSpelling) {
  const std::string text = "\u05E9\u05B8\u05DC\u05D5\u05B9\u05DD \u0633\u0644\u0627\u0645";
  Draw(text, {.name = "DejaVu Sans"});
  EXPECT_THAT(PdfOnDisk(document_).MuPdfLines(), ElementsAre(text));
}

TEST_F(PdfText, SoftHyphensAndSpacesThatShareAGlyphStayApart) {
  Draw("zacht\u00ADe streep", {.name = "DejaVu Sans"});
  const PdfOnDisk pdf(document_);
  EXPECT_THAT(pdf.MuPdfLines(), ElementsAre("zacht\u00ADe streep"));
  EXPECT_THAT(pdf.PopplerLines(), ElementsAre("zacht\u00ADe streep"));
}

TEST_F(PdfText, InvalidUtf8ComesOutAsReplacementCharacters) {
  Draw("goed \xFF fout", {.name = "DejaVu Sans"});
  ExpectLines({"goed \uFFFD fout"});
}

TEST_F(PdfText, WordsAreNeitherGluedNorSplit) {
  const std::string text = "Wij wAVen To Ty. W e d V o o r WAAR lil ill fjord 1.111,11 m/s";
  for (const char* face : {"Arial", "Times New Roman", "Courier New", "P052", "DejaVu Sans"}) {
    for (const float size : {6.0F, 9.0F, 10.5F, 33.0F}) {
      Document document;
      Recorder recorder(document);
      recorder.BeginPage({40000, 16838});
      recorder.SetFont({.name = face, .size = size});
      recorder.DrawText({720, 720}, text);
      const PdfOnDisk pdf(document);
      EXPECT_THAT(pdf.PopplerLines(), ElementsAre(text)) << face << " " << size;
      EXPECT_THAT(pdf.MuPdfLines(), ElementsAre(text)) << face << " " << size;
    }
  }
}

TEST_F(PdfText, StringsOnOneBaselineThatTouchReadAsOneText) {
  const double em = 10 * kTwipsPerPoint;
  Font& font = FontLibrary::Instance().Find("Arial", false, false);
  const float next = 720 + static_cast<float>(font.Width("Concen") * em);
  recorder_.SetFont({});
  recorder_.DrawText({720, 720}, "Concen");
  recorder_.DrawText({next, 720}, "tratie");
  ExpectLines({"Concentratie"});
}

TEST_F(PdfText, CellsOfATableRowStayApart) {
  recorder_.SetFont({});
  recorder_.DrawText({720, 720}, "Hoogte");
  recorder_.DrawText({3000, 720}, "12,5");
  recorder_.DrawText({5000, 720}, "m");
  const PdfOnDisk pdf(document_);
  EXPECT_THAT(OutputOf("pdftotext -layout '" + pdf.Path() + "' -"),
              ContainsExpression("Hoogte +12,5 +m"));
  EXPECT_THAT(OutputOf("pdftotext -raw '" + pdf.Path() + "' -"), HasSubstr("Hoogte 12,5 m"));
}

TEST_F(PdfText, MissingCharactersAreFoundAsWhatTheyStandFor) {
  Draw("a\U000F0001b\U000F0002");
  const PdfOnDisk pdf(document_);
  EXPECT_THAT(pdf.MuPdfLines(), ElementsAre("a\U000F0001b\U000F0002"));
}

TEST_F(PdfText, FontsAreEmbeddedAsSubsetsOnceAFace) {
  Draw("TrueType", {.name = kTrueTypeFace});
  Draw("CFF", {.name = kCffFace});
  Draw("nog eens", {.name = kTrueTypeFace, .size = 20});
  const std::string fonts = PdfOnDisk(document_).Fonts();
  EXPECT_THAT(fonts,
              ContainsExpression("[A-Z]{6}\\+LiberationSans +CID TrueType +Custom +yes yes yes"));
  EXPECT_THAT(fonts, ContainsExpression(
                         "[A-Z]{6}\\+NimbusRoman-Regular +CID Type 0C +Custom +yes yes yes"));
  EXPECT_EQ(CountOf("LiberationSans", fonts), 1);
}

TEST_F(PdfText, AFontThatDrawsNothingIsNotEmbedded) {
  Draw("", {.name = "DejaVu Serif"});
  Draw("x", {.name = kTrueTypeFace});
  EXPECT_THAT(PdfOnDisk(document_).Fonts(), Not(HasSubstr("DejaVuSerif")));
}

TEST_F(PdfText, MoreGlyphsThanOneByteCodesStillComeOut) {
  std::string expected;
  for (char32_t base = 0x100; base < 0x240; base += 32) {
    std::string line;
    for (char32_t letter = base; letter < base + 32; ++letter) {
      line.push_back(static_cast<char>(0xC0 | letter >> 6));
      line.push_back(static_cast<char>(0x80 | (letter & 0x3F)));
    }
    expected += line + "\n";
    Draw(line, {.name = "DejaVu Sans"});
  }
  const PdfOnDisk pdf(document_);
  std::string found;
  for (const std::string& line : pdf.MuPdfLines()) found += line + "\n";
  EXPECT_EQ(found, expected);
  found.clear();
  for (const std::string& line : pdf.PopplerLines()) found += line + "\n";
  EXPECT_EQ(found, expected);
  EXPECT_EQ(CountOf("DejaVuSans", pdf.Fonts()), 2) << "one font of one-byte codes, one of two";
  EXPECT_EQ(CountOf("/FontFile2", pdf.Plain()), 1) << "they share the program";
}

TEST_F(PdfText, ATextOfAMillionCharactersStaysWhole) {
  std::string text;
  while (text.size() < 1'000'000) text += "0123456789 abcdef ";
  recorder_.SetFont({.size = 1});
  recorder_.DrawText({720, 720}, text);
  const PdfOnDisk pdf(document_);
  const std::string content = pdf.Content(1);
  EXPECT_GE(content.size(), text.size());
  std::size_t longest = 0;
  for (std::size_t begin = 0, end = 0; (end = content.find("]TJ", begin)) != std::string::npos;
       begin = end + 3) {
    longest = std::max(longest, end - begin);
  }
  EXPECT_LT(longest, 32767U) << "the longest string that every reader takes";
}

TEST_F(PdfText, TenThousandStringsOnAPageComeOut) {
  recorder_.SetFont({.size = 1});
  for (int i = 0; i < 10000; ++i) {
    recorder_.DrawText({static_cast<float>(i % 100) * 110, static_cast<float>(i / 100) * 160},
                       "w" + std::to_string(i));
  }
  const std::string text = OutputOf("pdftotext -raw '" + PdfOnDisk(document_).Path() + "' -");
  for (const char* word : {"w0 ", "w4711 ", "w9999\n"}) EXPECT_THAT(text, HasSubstr(word));
}

}  // namespace
}  // namespace pagivo::native::testing
