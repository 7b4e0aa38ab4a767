#include "engine/native/setup/page_picture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <utility>
#include <vector>

namespace pagivo::native {
namespace {

constexpr PageShape kPortraitA4{
    .width = 11906, .height = 16838, .left = 1440, .top = 1440, .right = 1440, .bottom = 1440};
constexpr std::uint32_t kWhite = 0xFFFFFFFF;

struct Box {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;  // the last pixel inside, as is bottom
  std::int32_t bottom = 0;

  std::int32_t Width() const { return right - left + 1; }
  std::int32_t Height() const { return bottom - top + 1; }
};

class Drawing {
 public:
  Drawing(const PageShape& shape, std::int32_t width, std::int32_t height, double scale = 1)
      : width_(width), height_(height), pixels_(static_cast<std::size_t>(width * height), 0) {
    PagePicture picture;
    picture.PutArea({.width = width, .height = height, .scale = scale});
    picture.PutShape(shape);
    picture.Draw({.width = width, .height = height, .pixels = pixels_}, colors_);
  }

  std::uint32_t At(std::int32_t x, std::int32_t y) const {
    return pixels_[static_cast<std::size_t>(y * width_ + x)];
  }
  std::ptrdiff_t Count(std::uint32_t color) const { return std::ranges::count(pixels_, color); }
  std::size_t DistinctColors() const {
    return std::set<std::uint32_t>(pixels_.begin(), pixels_.end()).size();
  }
  const SurfaceColors& Colors() const { return colors_; }

  // Around all pixels that the predicate takes.
  template <typename Predicate>
  Box BoxOf(Predicate takes) const {
    Box box{width_, height_, -1, -1};
    for (std::int32_t y = 0; y < height_; ++y) {
      for (std::int32_t x = 0; x < width_; ++x) {
        if (!takes(At(x, y))) continue;
        box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x),
               std::max(box.bottom, y)};
      }
    }
    return box;
  }
  Box Paper() const {
    return BoxOf([this](std::uint32_t c) { return c != colors_.ground && c != colors_.edge; });
  }
  // What lies within the margins: everything on the paper that is not white.
  Box TextArea() const {
    return BoxOf([this](std::uint32_t c) {
      return c != colors_.ground && c != colors_.edge && c != kWhite;
    });
  }

 private:
  std::int32_t width_;
  std::int32_t height_;
  SurfaceColors colors_;
  std::vector<std::uint32_t> pixels_;
};

TEST(PagePicture, FitsTheWholePageWithRoomAroundIt) {
  const Box paper = Drawing(kPortraitA4, 208, 132).Paper();
  EXPECT_EQ(paper.Height(), 132 - 16);
  EXPECT_EQ(paper.Width(), 82);
  EXPECT_EQ(paper.top, 8);
  EXPECT_EQ(paper.left, (208 - 82) / 2);
}

TEST(PagePicture, ALandscapePageIsAsWideAsThereIsRoom) {
  PageShape shape = kPortraitA4;
  std::swap(shape.width, shape.height);
  const Box paper = Drawing(shape, 132, 208).Paper();
  EXPECT_EQ(paper.Width(), 132 - 16);
  EXPECT_EQ(paper.Height(), 82);
}

TEST(PagePicture, ShowsEachMarginToScale) {
  PageShape shape{
      .width = 10000, .height = 10000, .left = 1000, .top = 2000, .right = 3000, .bottom = 4000};
  const Drawing drawing(shape, 116, 116);  // a hundred pixels for the paper
  const Box paper = drawing.Paper();
  const Box text = drawing.TextArea();
  EXPECT_EQ(text.left - paper.left, 10);
  EXPECT_EQ(text.top - paper.top, 20);
  EXPECT_EQ(paper.right - text.right, 30);
  EXPECT_EQ(paper.bottom - text.bottom, 40);
}

TEST(PagePicture, DrawsEverythingLargerOnADenserScreen) {
  const Box paper = Drawing(kPortraitA4, 416, 264, 2).Paper();
  EXPECT_EQ(paper.top, 16);
  EXPECT_EQ(paper.Height(), 232);
  const Drawing drawing(kPortraitA4, 416, 264, 2);
  for (const std::int32_t distance : {1, 2}) {
    EXPECT_EQ(drawing.At(paper.left - distance, 100), drawing.Colors().edge);
  }
  EXPECT_EQ(drawing.At(paper.left - 3, 100), drawing.Colors().ground);
}

TEST(PagePicture, LiesOnWholePixelsAndSoHasNoShades) {
  for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
    // Ground, edge, paper, margins, text.
    EXPECT_EQ(Drawing(kPortraitA4, 301, 203, scale).DistinctColors(), 5U) << scale;
  }
}

TEST(PagePicture, MarginsThatLeaveNoRoomLeaveTheBarePaper) {
  for (const double margin : {8000.0, 20000.0, 1e9, 1e300}) {
    PageShape shape = kPortraitA4;
    shape.left = margin;
    shape.right = margin;
    const Drawing drawing(shape, 208, 132);
    EXPECT_EQ(drawing.TextArea().right, -1) << margin;
    EXPECT_EQ(drawing.Paper().Height(), 116) << margin;
  }
}

TEST(PagePicture, WithoutAPageOrWithoutRoomThereIsOnlyTheGround) {
  const Drawing none({}, 50, 50);
  EXPECT_EQ(none.Count(none.Colors().ground), 50 * 50);
  const Drawing small(kPortraitA4, 12, 12);
  EXPECT_EQ(small.Count(small.Colors().ground), 12 * 12);
  Drawing(kPortraitA4, 0, 0);
}

TEST(PagePicture, AVeryLongPaperStaysWithinTheSurface) {
  const Drawing drawing({.width = 1440, .height = 288000}, 100, 100);
  EXPECT_EQ(drawing.Paper().Height(), 84);
  EXPECT_EQ(drawing.At(0, 0), drawing.Colors().ground);
}

TEST(PagePicture, TellsOfAChangeOnlyWhenThereIsOne) {
  PagePicture picture;
  int changes = 0;
  picture.WhenChanged([&changes] { ++changes; });
  picture.PutShape(kPortraitA4);
  picture.PutShape(kPortraitA4);
  EXPECT_EQ(changes, 1);
  PageShape wider = kPortraitA4;
  wider.left = 0;
  picture.PutShape(wider);
  EXPECT_EQ(changes, 2);
}

TEST(PagePicture, NeitherScrollsNorAnswersTheUser) {
  PagePicture picture;
  picture.PutArea({.width = 100, .height = 100});
  picture.PutShape(kPortraitA4);
  EXPECT_FALSE(picture.HorizontalRange().wanted);
  EXPECT_FALSE(picture.VerticalRange().wanted);
  EXPECT_FALSE(picture.PressKey(40, 0));
  EXPECT_TRUE(picture.Menu().empty());
  EXPECT_EQ(picture.CursorAt({50, 50}), SurfaceCursor::Arrow);
}

}  // namespace
}  // namespace pagivo::native
