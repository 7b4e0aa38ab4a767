#include "engine/native/fonts/directwrite/family_stand_ins.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace pagivo::native {
namespace {

using testing::Contains;
using testing::Not;

// Whether `earlier` comes before `later` among those that stand in for a family.
bool Prefers(std::string_view family, std::string_view earlier, std::string_view later) {
  const auto standIns = StandInsFor(family);
  return std::ranges::find(standIns, earlier) < std::ranges::find(standIns, later);
}

TEST(FamilyStandIns, AreThoseOfTheSameAdvancesFirst) {
  EXPECT_TRUE(Prefers("Arial", "Liberation Sans", "DejaVu Sans"));
  EXPECT_TRUE(Prefers("Times New Roman", "Liberation Serif", "DejaVu Serif"));
  EXPECT_TRUE(Prefers("Courier New", "Liberation Mono", "DejaVu Sans Mono"));
  EXPECT_TRUE(Prefers("Calibri", "Carlito", "Arial"));
  EXPECT_TRUE(Prefers("Cambria", "Caladea", "Times New Roman"));
  EXPECT_TRUE(Prefers("Helvetica", "Arial", "Nimbus Sans"));
}

TEST(FamilyStandIns, ReplaceTheBitmapsOfOldDialogs) {
  EXPECT_TRUE(Prefers("MS Sans Serif", "Microsoft Sans Serif", "Arial"));
  EXPECT_TRUE(Prefers("MS Shell Dlg 2", "Tahoma", "Arial"));
  EXPECT_THAT(StandInsFor("Arial"), Not(Contains("MS Sans Serif")));
}

TEST(FamilyStandIns, KnowTheFamilyInAnyCase) {
  EXPECT_EQ(StandInsFor("TIMES new roman"), StandInsFor("Times New Roman"));
}

TEST(FamilyStandIns, AreOfTheSameKindForAKnownFamilyAndSansSerifForAnother) {
  EXPECT_TRUE(Prefers("Garamond", "Times New Roman", "Arial"));
  EXPECT_TRUE(Prefers("Consolas", "Courier New", "Arial"));
  EXPECT_EQ(StandInsFor("Onbekend").front(), "Arial");
  EXPECT_THAT(StandInsFor("Onbekend"), Not(Contains("Times New Roman")));
}

}  // namespace
}  // namespace pagivo::native
