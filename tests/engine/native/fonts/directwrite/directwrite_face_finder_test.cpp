#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>

#include "engine/native/fonts/face_finder.h"

namespace pagivo::native {
namespace {

using testing::EndsWith;

// The families that Debian's packages have, which are installed beside Wine.
class DirectWriteFaceFinder : public testing::Test {
 protected:
  FaceFile Closest(const std::string& family, bool bold = false, bool italic = false) {
    return finder->Find({family, bold, italic, std::nullopt}, 0).value();
  }

  std::unique_ptr<FaceFinder> finder = MakeFaceFinder();
};

TEST_F(DirectWriteFaceFinder, FindsAFaceOfTheFamilyAndTheStyle) {
  const FaceFile file = Closest("Liberation Serif", true, true);
  EXPECT_THAT(file.path, EndsWith("LiberationSerif-BoldItalic.ttf"));
  EXPECT_TRUE(file.bold);
  EXPECT_TRUE(file.italic);
  EXPECT_EQ(Closest("LIBERATION serif", true, true).path, file.path);
}

TEST_F(DirectWriteFaceFinder, TellsTheStyleThatTheFaceHasNotTheOneAskedFor) {
  const FaceFile file = Closest("Standard Symbols PS", true, true);
  EXPECT_THAT(file.path, EndsWith("StandardSymbolsPS.otf"));
  EXPECT_FALSE(file.bold);
  EXPECT_FALSE(file.italic);
}

TEST_F(DirectWriteFaceFinder, FindsAMetricReplacementOfAFamilyThatIsNotInstalled) {
  EXPECT_THAT(Closest("Arial").path, EndsWith("LiberationSans-Regular.ttf"));
  EXPECT_THAT(Closest("Times New Roman", true).path, EndsWith("LiberationSerif-Bold.ttf"));
  EXPECT_THAT(Closest("courier new", false, true).path, EndsWith("LiberationMono-Italic.ttf"));
  EXPECT_THAT(Closest("Helvetica").path, EndsWith("LiberationSans-Regular.ttf"));
}

TEST_F(DirectWriteFaceFinder, FindsWhatLooksAlikeElse) {
  EXPECT_THAT(Closest("Onbekend").path, EndsWith("DejaVuSans.ttf"));
  EXPECT_THAT(Closest("Garamond").path, EndsWith("DejaVuSerif.ttf"));
  EXPECT_THAT(Closest("Consolas").path, EndsWith("DejaVuSansMono.ttf"));
}

TEST_F(DirectWriteFaceFinder, KnowsTheNarrowFacesOfAFamilyByANameOfTheirOwn) {
  EXPECT_THAT(Closest("DejaVu Sans").path, EndsWith("DejaVuSans.ttf"));
  EXPECT_THAT(Closest("DejaVu Sans", true, true).path, EndsWith("DejaVuSans-BoldOblique.ttf"));
  EXPECT_THAT(Closest("Arial Narrow").path, EndsWith("LiberationSansNarrow-Regular.ttf"));
  EXPECT_THAT(Closest("dejavu sans condensed", true).path,
              EndsWith("DejaVuSansCondensed-Bold.ttf"));
}

TEST_F(DirectWriteFaceFinder, PutsTheFamilyBeforeTheStyle) {
  EXPECT_THAT(Closest("Z003", true).path, EndsWith("Z003-MediumItalic.otf"));
}

TEST_F(DirectWriteFaceFinder, OffersEveryFaceOfOutlinesOnce) {
  std::set<std::pair<std::string, int>> faces;
  std::size_t rank = 0;
  for (; const auto file = finder->Find({"Arial", false, false, std::nullopt}, rank); ++rank) {
    EXPECT_TRUE(faces.emplace(file->path, file->index).second) << file->path;
    EXPECT_THAT(file->path, testing::AnyOf(EndsWith(".ttf"), EndsWith(".otf"), EndsWith(".ttc")));
  }
  EXPECT_GT(rank, 10u);
}

TEST_F(DirectWriteFaceFinder, OffersOnlyFacesWithTheCharacterWhenOneIsAskedFor) {
  const auto hebrew = finder->Find({"Arial", false, false, U'\u05D0'}, 0);
  EXPECT_THAT(hebrew.value().path, EndsWith("DejaVuSans.ttf"));
  const auto arrow = finder->Find({"Arial", false, false, U'\u2192'}, 0);
  EXPECT_THAT(arrow.value().path, EndsWith("LiberationSans-Regular.ttf"));
  EXPECT_FALSE(finder->Find({"Arial", false, false, char32_t{0x10FFFD}}, 0).has_value());
}

}  // namespace
}  // namespace pagivo::native
