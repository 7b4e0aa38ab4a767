// Lines as they are written, in two ways: the quick one of simple text and the general one.
#include "engine/native/pdf/text_writer.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <utility>

#include "engine/native/document/recorder.h"
#include "engine/native/pdf/pdf_readers.h"

namespace pagivo::native::testing {
namespace {

std::string Repeated(std::string_view text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

// More glyphs than there are one-byte codes.
std::string ManyLetters() {
  std::string letters;
  for (char32_t letter = 0x100; letter < 0x240; ++letter) {
    letters.push_back(static_cast<char>(0xC0 | letter >> 6));
    letters.push_back(static_cast<char>(0x80 | (letter & 0x3F)));
  }
  return letters;
}

struct SimpleText {
  const char* face;
  float size;
  std::string text;
};

void PrintTo(const SimpleText& text, std::ostream* stream) {
  *stream << text.face << ' ' << text.size;
}

const SimpleText kSimpleTexts[] = {
    {"Arial", 9, "a"},
    {"Arial", 10, "AVATAR Te Wo 1.234,56 fluweel: rillerig illiquide WAVE Yp"},
    {"Arial", 7.3333F, "caf\u00E9 \u20AC 5 \u2013 co\u00F6peratie en (haakjes) en \\"},
    {"Arial", 33.3F, "AVATAR To Wa LT. Vr. Yo"},
    {"Courier New", 10, Repeated("0123456789", 2000)},
    {"Arial", 8, Repeated("0123456789 AVO-waarde ", 2000)},
    {"Nimbus Roman", 16.25F, "WAVE \u2013 Yp"},
    {"DejaVu Sans", 10, ManyLetters() + ManyLetters()},
};

class TextWays : public ::testing::TestWithParam<SimpleText> {
 protected:
  // What `draw` writes, and where the pen ends.
  template <typename Draw>
  static std::pair<std::string, double> Written(Draw draw) {
    ContentStream stream;
    FontEmbedder fonts;
    TextWriter writer(stream, fonts);
    stream.Begin();
    const double end = draw(writer, TextPlacement{12.345, 700.01, GetParam().size, 0});
    return {std::string(stream.Finish()), end};
  }
};

TEST_P(TextWays, WriteTheSameBytes) {
  const std::string& text = GetParam().text;
  Font& font = FontLibrary::Instance().Find(GetParam().face, true, true);
  ShapedLine line;
  font.Shape(text, line);
  const auto general = Written([&](TextWriter& writer, const TextPlacement& placement) {
    return writer.Draw(line, text, placement);
  });
  const auto simple = Written([&](TextWriter& writer, const TextPlacement& placement) {
    return writer.Draw(font.ShapeSimple(text).value(), placement);
  });
  EXPECT_GE(simple.first.size(), text.size() / 2);
  EXPECT_EQ(simple, general);
}

INSTANTIATE_TEST_SUITE_P(SimpleTexts, TextWays, ::testing::ValuesIn(kSimpleTexts));

// Follows the operators as a reader does and compares every glyph with the record.
TEST(TextWriter, EveryGlyphStandsWithinTwoHundredthsOfAPointOfItsRecord) {
  const std::string text = "AVATAR Te Wo 1.234,56 fluweel: rillerig illiquide WAVE Yp mmmmmmmmm";
  for (const float size : {7.3333F, 10.0F, 14.0F, 33.3F, 72.0F}) {
    Document document;
    Recorder recorder(document);
    recorder.BeginPage({60000, 20000});
    recorder.SetFont({.name = "Arial", .size = size});
    recorder.DrawText({123.4F, 2000}, text);
    const PdfOnDisk pdf(document);
    const std::string trace = OutputOf("mutool trace '" + pdf.Path() + "'");

    ShapedLine line;
    FontLibrary::Instance().Find("Arial", false, false).Shape(text, line);
    double x = 123.4 / kTwipsPerPoint;
    std::size_t at = trace.find("<g ");
    for (const ShapedGlyph& glyph : line.glyphs) {
      ASSERT_NE(at, std::string::npos);
      at = trace.find(" x=\"", at) + 4;
      EXPECT_NEAR(std::strtod(&trace[at], nullptr), x, 0.02) << size;
      at = trace.find("<g ", at);
      x += static_cast<double>(glyph.advance) * size / line.runs.at(0).face->UnitsPerEm();
    }
    EXPECT_EQ(at, std::string::npos);
  }
}

}  // namespace
}  // namespace pagivo::native::testing
