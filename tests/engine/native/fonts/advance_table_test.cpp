// The tables against HarfBuzz: a line takes the same glyphs at the same places either way.
#include "engine/native/fonts/advance_table.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "engine/native/fonts/both_ways.h"
#include "engine/native/fonts/face_support.h"

namespace pagivo::native {

namespace {

using Random = std::minstd_rand;

std::string RandomText(Random& random, std::u32string_view alphabet) {
  std::string text;
  for (std::size_t count = random() % 14; count > 0; --count) {
    AppendUtf8(text, alphabet[random() % alphabet.size()]);
  }
  return text;
}

constexpr std::u32string_view kNumbers = U"0123456789.,-+ ()%/:";
constexpr std::u32string_view kLetters =
    U"abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ fffiilltt";
constexpr std::u32string_view kSigns =
    U"aeiouAVTWLrfty "
    U"áàâäéèêëíìîïóòôöúùûüñçßÁÀÄÉÈËÍÏÓÖÚÜÇĳĲłŁđžŽșț²³°µ±×÷½«»·’‘“”„–—…•€\u00A0\u00AD'\"`´¨^~";
constexpr std::u32string_view kBeyond = U"abfi1\u0301\u0308\u200D\u2044αβЖא中\uFFFD";

constexpr const char* kWords[] = {
    "ffi",      "fi",      "fl",       "ff",      "ffl",       "AVATAR", "To",         "Te",
    "Ty.",      "LT'L",    "1.234,56", "€ 12,50", "efficiënt", "Wij",    "fjord",      "f\u00ED",
    "11.111,1", "A V A",   "r.,",      "ﬁ",       "officieel", "stt",    "schaffling", "“quote”",
    "a\u00ADb", "\u00A0x", "Ĳssel",    "ÀÁVÂ",    "Tö",        "--->",   "1/2 3/4",    "www",
    "====",     "!=",      "\t\x01",   "\xC3",    "\xFF\xFE",  "",       " ",          "(c)"};

TEST(AdvanceTable, GivesWhatHarfBuzzGivesForWordsOnEveryInstalledFace) {
  for (const FaceFile& file : InstalledFaces()) {
    SCOPED_TRACE(file.path);
    BothWays face(file);
    for (const char* word : kWords) face.Compare(word);
  }
}

TEST(AdvanceTable, GivesWhatHarfBuzzGivesForRandomTextOnEveryInstalledFace) {
  Random random(1);
  int texts = 0;
  int taken = 0;
  for (const FaceFile& file : InstalledFaces()) {
    SCOPED_TRACE(file.path);
    BothWays face(file);
    for (const std::u32string_view alphabet : {kNumbers, kLetters, kSigns, kBeyond}) {
      for (int i = 0; i < 300; ++i, ++texts) {
        taken += face.Compare(RandomText(random, alphabet)) ? 1 : 0;
      }
    }
  }
  EXPECT_GT(taken, texts / 2);  // else the test would compare HarfBuzz with itself
}

TEST(AdvanceTable, GivesWhatHarfBuzzGivesForAllPairsOfLatin1) {
  for (const char* family : {"Arial", "DejaVu Sans", "Nimbus Roman"}) {
    BothWays face(FileFor(family));
    for (char32_t first = 0x20; first < 0x100; ++first) {
      for (char32_t second = 0x20; second < 0x100; ++second) {
        std::string text;
        AppendUtf8(text, first);
        AppendUtf8(text, second);
        face.Compare(text);
      }
    }
  }
}

TEST(AdvanceTable, TakesNumbersAndWordsOfOrdinaryFaces) {
  for (const char* family :
       {"Arial", "Times New Roman", "Courier New", "DejaVu Sans", "Nimbus Sans"}) {
    SCOPED_TRACE(family);
    BothWays face(FileFor(family));
    EXPECT_TRUE(face.TakesFromTable("1.234,56"));
    EXPECT_TRUE(face.TakesFromTable("Concentratie (µg/m³) – € 12,50"));
    EXPECT_TRUE(face.TakesFromTable("AVATAR"));
  }
}

TEST(AdvanceTable, LeavesOtherScriptsMarksAndBrokenTextToHarfBuzz) {
  BothWays face(FileFor("Arial"));
  for (const char* text : {"α", "a\u0301", "\u05D0", "\xFF", "a\xC3", "a\u00ADb", "\u0001"}) {
    EXPECT_FALSE(face.TakesFromTable(text)) << text;
  }
}

TEST(AdvanceTable, LeavesLigaturesToHarfBuzz) {
  BothWays face(FileFor("DejaVu Sans"));
  EXPECT_FALSE(face.TakesFromTable("officieel"));
  EXPECT_TRUE(face.TakesFromTable("opgave"));
}

TEST(AdvanceTable, AsksHarfBuzzOncePerCharacterAndPair) {
  BothWays face(FileFor("Arial"));
  EXPECT_TRUE(face.TakesFromTable("121212"));
  EXPECT_EQ(face.HarfBuzzCalls(), 4u);  // 1, 2, 12 and 21
  EXPECT_TRUE(face.TakesFromTable("2121"));
  EXPECT_EQ(face.HarfBuzzCalls(), 4u);
}

}  // namespace
}  // namespace pagivo::native
