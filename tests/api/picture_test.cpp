#include <string_view>

#include "api/api_test.h"

namespace pagivo::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

using Pictures = ApiTest;

TEST_F(Pictures, APictureFileIsDrawnIntoTheRectangle) {
  Loader().AddPicture("logo.png", std::make_shared<NamedObject>("logo"));
  UseScale(2, 3);
  EXPECT_THAT(
      LogOf([&] { print.VsPPPicture("logo.png", 1, 2, 3, 4.5); }),
      ElementsAre("put X1 Double 2", "put Y1 Double 6", "put X2 Double 6", "put Y2 Double 13.5",
                  "load String \"logo.png\"", "put Picture Object logo"));
}

TEST_F(Pictures, TheFactorIsWidenedForAPicturesRectangle) {
  print.VsPPSetScaleMode(Integer(6));
  EXPECT_THAT(LogOf([&] { print.VsPPPicture("logo.png", 0.1, 0, 0, 0); }),
              Contains(Describe("put X1", {double{56.69291305541992F} * 0.1})));
}

TEST_F(Pictures, APictureFileThatCannotBeLoadedLeavesOnlyTheRectangle) {
  EXPECT_THAT(LogOf([&] { print.VsPPPicture("er is niets.png", 1, 2, 3, 4); }),
              ElementsAre("put X1 Double 1", "put Y1 Double 2", "put X2 Double 3",
                          "put Y2 Double 4", "load String \"er is niets.png\""));
}

TEST_F(Pictures, AnEmptyPathLoadsAnEmptyPicture) {
  Loader().AddPicture("", std::make_shared<NamedObject>("empty picture"));
  EXPECT_EQ(LogOf([&] { print.VsPPPicture("", 1, 2, 3, 4); }).back(),
            "put Picture Object empty picture");
}

TEST_F(Pictures, APictureObjectIsDrawnIntoTheRectangle) {
  UseScale(2, 3);
  const Variant picture = std::make_shared<NamedObject>("logo");
  EXPECT_THAT(LogOf([&] { print.VsPPRealPicture(picture, 1, 2, 3, 4.5); }),
              ElementsAre("put X1 Double 2", "put Y1 Double 6", "put X2 Double 6",
                          "put Y2 Double 13.5", "put Picture Object logo"));
}

TEST_F(Pictures, WhatIsNoPictureObjectLeavesOnlyTheRectangle) {
  struct NoPicture : Object {};
  for (const Variant& value : {Variant(), Variant(Null), Variant(Missing), Variant(Integer(1)),
                               Variant(1.5), Variant("logo.png"), Variant(true),
                               Variant(ObjectRef()), Variant(std::make_shared<NoPicture>())}) {
    EXPECT_THAT(
        LogOf([&] { print.VsPPRealPicture(value, 1, 2, 3, 4); }),
        ElementsAre("put X1 Double 1", "put Y1 Double 2", "put X2 Double 3", "put Y2 Double 4"))
        << Describe(value);
  }
}

TEST_F(Pictures, EveryFailingStatementOfAPictureIsLostAlone) {
  Loader().AddPicture("logo.png", std::make_shared<NamedObject>("logo"));
  for (const std::string_view property : {"X1", "Y1", "X2", "Y2"}) {
    Engine().FailOn("put " + std::string(property));
    const Lines log = LogOf([&] { print.VsPPPicture("logo.png", 1, 2, 3, 4); });
    EXPECT_EQ(log.size(), 6U) << property;
    EXPECT_EQ(log.back(), "put Picture Object logo");
    Engine().FailNothing();
  }
}

TEST_F(Pictures, AnEngineThatRefusesThePictureIsNotReported) {
  const Variant picture = std::make_shared<NamedObject>("logo");
  Engine().FailOn("put Picture");
  EXPECT_EQ(LogOf([&] { print.VsPPRealPicture(picture, 1, 2, 3, 4); }).back(),
            "put Picture Object logo (failed)");
}

}  // namespace
}  // namespace pagivo::testing
