#include "engine/native/fonts/text_layout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace pagivo::native {
namespace {

// Every byte 100 twips wide.
double Measure(std::string_view piece) {
  return 100.0 * static_cast<double>(piece.size());
}

// One "line:x:text" for every piece.
std::vector<std::string> LayOut(std::string_view text) {
  std::vector<std::string> pieces;
  for (const TextPiece& piece : LayOutText(text, Measure).pieces) {
    pieces.push_back(std::to_string(piece.line) + ":" + std::to_string(std::lround(piece.x)) + ":" +
                     piece.text);
  }
  return pieces;
}

struct Case {
  std::string text;
  std::vector<std::string> pieces;
};

TEST(TextLayout, SplitsAtLineBreaksAndTabs) {
  const std::vector<Case> cases = {
      {"", {"0:0:"}},
      {"abc", {"0:0:abc"}},
      {"a\rb", {"0:0:a", "1:0:b"}},
      {"a\nb", {"0:0:a", "1:0:b"}},
      {"a\r\nb", {"0:0:a", "1:0:b"}},
      {"a\n\rb", {"0:0:a", "1:0:", "2:0:b"}},
      {"a\r\r\nb", {"0:0:a", "1:0:", "2:0:b"}},
      {"a\n\nb", {"0:0:a", "1:0:", "2:0:b"}},
      {"a\n", {"0:0:a", "1:0:"}},
      {"\na", {"0:0:", "1:0:a"}},
      {"a\tb", {"0:0:a", "0:720:b"}},
      {"\tb", {"0:0:", "0:720:b"}},
      {"a\t\tb", {"0:0:a", "0:720:", "0:1440:b"}},
      {"12345678\tb", {"0:0:12345678", "0:1440:b"}},
      {"a\tb\nc\td", {"0:0:a", "0:720:b", "1:0:c", "1:720:d"}},
      {"a\t", {"0:0:a", "0:720:"}},
  };
  for (const Case& c : cases) EXPECT_EQ(LayOut(c.text), c.pieces) << c.text;
}

TEST(TextLayout, ATabAtATabStopGoesToTheNextOne) {
  const auto measure = [](std::string_view) { return 720.0; };
  EXPECT_EQ(LayOutText("x\ty", measure).pieces[1].x, 1440);
}

TEST(TextLayout, OtherControlCharactersVanish) {
  for (unsigned code = 0; code < 0xA0; ++code) {
    const bool isControl = code < 0x20 || code >= 0x7F;
    if (!isControl || code == '\t' || code == '\r' || code == '\n') continue;
    std::string control;
    if (code < 0x80) {
      control = static_cast<char>(code);
    } else {
      control = {'\xC2', static_cast<char>(code)};
    }
    EXPECT_FALSE(IsPlainLine("a" + control + "b")) << code;
    EXPECT_EQ(LayOut("a" + control + "b"), std::vector<std::string>{"0:0:ab"}) << code;
  }
}

TEST(TextLayout, AControlCharacterIsFoundWhereverItStandsInATextOfAnyLength) {
  for (const char* other : {"a", "\xC3\xBF"}) {
    std::string text;
    for (std::size_t length = 0; length < 20; ++length, text += other) {
      EXPECT_TRUE(IsPlainLine(text)) << text;
      for (std::size_t place = 0; place < text.size(); ++place) {
        for (const char control : {'\0', '\x1F', '\x7F'}) {
          std::string changed = text;
          changed[place] = control;
          EXPECT_FALSE(IsPlainLine(changed)) << length << ", " << place;
        }
      }
    }
  }
}

TEST(TextLayout, CharactersJustPastTheControlsStay) {
  for (const char* text : {" ", "~", "\xC2\xA0", "\xC2\xAD", "é", "€", "\xC2", "a\xC2"}) {
    EXPECT_TRUE(IsPlainLine(text)) << text;
    EXPECT_EQ(LayOut(text), std::vector<std::string>{std::string("0:0:") + text});
  }
}

TEST(TextLayout, LinesAreOneMoreThanBreaks) {
  EXPECT_EQ(CountLines(""), 1U);
  EXPECT_EQ(CountLines("a\tb"), 1U);
  EXPECT_EQ(CountLines("a\r\nb\nc\rd"), 4U);
  EXPECT_EQ(CountLines("\n\n"), 3U);
  EXPECT_EQ(CountLines("a\n"), 2U);
}

TEST(TextLayout, SurvivesRandomBytes) {
  std::mt19937 random(7);
  for (int i = 0; i < 5000; ++i) {
    std::string text(random() % 50, ' ');
    for (char& byte : text) byte = static_cast<char>(random() % 4 == 0 ? random() % 32 : random());
    const TextLayout layout = LayOutText(text, Measure);
    EXPECT_EQ(layout.pieces.back().line + 1, CountLines(text));
    for (const TextPiece& piece : layout.pieces) {
      EXPECT_GE(piece.x, 0);
      EXPECT_EQ(piece.text.find_first_of("\r\n\t"), std::string::npos);
    }
  }
}

}  // namespace
}  // namespace pagivo::native
