#include "engine/native/setup/paper_titles.h"

#include <gtest/gtest.h>

#include <set>
#include <string_view>

#include "engine/native/document/paper_sizes.h"

namespace pagivo::native {
namespace {

TEST(PaperTitles, EveryKnownSizeHasOneNameOfItsOwn) {
  std::set<std::int32_t> codes;
  std::set<std::string_view> names;
  for (const PaperName& paper : PaperNames()) {
    EXPECT_NE(FindPaperSize(paper.code), nullptr) << paper.code;
    EXPECT_TRUE(codes.insert(paper.code).second) << paper.code;
    EXPECT_TRUE(names.insert(paper.name).second) << paper.name;
  }
  EXPECT_EQ(codes.size(), KnownPaperSizes().size());
}

TEST(PaperTitles, BeginWithTheMostCommonSize) {
  EXPECT_EQ(PaperNames().front().code, kPaperA4);
}

TEST(PaperTitles, TellTheSizeInWholeMillimetres) {
  EXPECT_EQ(PaperTitle(9, {11906, 16838}), "A4 (210 × 297 mm)");
  EXPECT_EQ(PaperTitle(1, {12240, 15840}), "Letter (216 × 279 mm)");
  EXPECT_EQ(PaperTitle(39, {21420, 15840}), "Kettingpapier Amerikaans (378 × 279 mm)");
}

TEST(PaperTitles, ASizeOfTheHostsOwnIsCalledSo) {
  EXPECT_EQ(PaperTitle(kPaperUserDefined, {5669, 2835}), "Aangepast (100 × 50 mm)");
}

}  // namespace
}  // namespace pagivo::native
