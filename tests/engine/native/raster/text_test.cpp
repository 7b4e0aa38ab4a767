#include <cmath>

#include "engine/native/fonts/font_library.h"
#include "engine/native/raster/drawn_page.h"

namespace pagivo::native {
namespace {

class DrawnText : public DrawnPage {
 protected:
  void UseFont(const FontDescription& font) { Page().SetFont(font); }

  // The middle of all ink, in pixels.
  static std::pair<double, double> InkMiddle(const Bitmap& bitmap) {
    double ink = 0;
    double sumX = 0;
    double sumY = 0;
    for (std::int32_t y = 0; y < bitmap.height; ++y) {
      for (std::int32_t x = 0; x < bitmap.width; ++x) {
        const int here = InkAt(bitmap, x, y);
        ink += here;
        sumX += here * (x + 0.5);
        sumY += here * (y + 0.5);
      }
    }
    return {sumX / ink, sumY / ink};
  }
};

Bitmap LetterAt(float x, float y) {
  Document document;
  Recorder recorder(document);
  recorder.BeginPage({1500, 1500});
  recorder.DrawText({x, y}, "B");
  return DrawWholePage(document, 1, 96);
}

TEST_F(DrawnText, MovesInQuartersOfAPixel) {
  constexpr float kQuarter = kTwips / 4;
  const auto start = InkMiddle(LetterAt(300, 300));
  for (int step = 1; step <= 8; ++step) {
    const auto [right, sameY] = InkMiddle(LetterAt(300 + float(step) * kQuarter, 300));
    EXPECT_NEAR(right - start.first, step * 0.25, 0.04);
    EXPECT_NEAR(sameY, start.second, 0.04);
    const auto [sameX, down] = InkMiddle(LetterAt(300, 300 + float(step) * kQuarter));
    EXPECT_NEAR(down - start.second, step * 0.25, 0.04);
    EXPECT_NEAR(sameX, start.first, 0.04);
  }
}

TEST_F(DrawnText, LooksTheSameWithinAQuarter) {
  EXPECT_EQ(LetterAt(300, 300).pixels, LetterAt(301, 300).pixels);
}

TEST_F(DrawnText, StandsOnItsBaseline) {
  UseFont({"Arial", 40, false, false, false});
  Page().DrawText(PointAt(20, 30), "H");
  const double ascent = FontLibrary::Instance().Find("Arial", false, false).Metrics().ascent;
  EXPECT_NEAR(InkBoxOf(Draw()).bottom, 30 + ascent * 40 * 96 / 72, 1);
}

TEST_F(DrawnText, StartsAtItsPosition) {
  UseFont({"Arial", 40, false, false, false});
  Page().DrawText(PointAt(20, 30), "H");
  const InkBox box = InkBoxOf(Draw());
  EXPECT_GE(box.left, 20);
  EXPECT_LT(box.left, 27);  // its left bearing
  EXPECT_GE(box.top, 30);
}

TEST_F(DrawnText, SpreadsTheSameAtEveryResolution) {
  Page().DrawText(PointAt(5, 30), "Rekenblad 123,45 AVATAR");
  const auto coarse = InkBoxOf(Draw(96));
  const auto fine = InkBoxOf(Draw(384));
  EXPECT_NEAR(coarse.left, fine.left / 4.0, 1);
  EXPECT_NEAR(coarse.right, fine.right / 4.0, 1);
}

TEST_F(DrawnText, TakesTheTextColour) {
  UseFont({"Arial", 60, true, false, false});
  Page().SetTextColor(kRed);
  Page().DrawText(PointAt(20, 30), "I");
  const Bitmap bitmap = Draw();
  const InkBox box = InkBoxOf(bitmap);
  EXPECT_EQ(PixelAt(bitmap, (box.left + box.right) / 2, (box.top + box.bottom) / 2), kRedPixel);
}

TEST_F(DrawnText, LeavesTheGroundAroundIt) {
  UseNoPen();
  UseBrush(BrushStyle::Solid, 0x00FFFF);  // yellow
  Page().DrawRectangle(Pixels(0, 0, 200, 200));
  Page().DrawText(PointAt(20, 30), "tekst");
  EXPECT_EQ(PixelAt(Draw(), 10, 10), 0xFFFFFF00U);
  EXPECT_EQ(PixelAt(Draw(), 199, 40), 0xFFFFFF00U);
}

TEST_F(DrawnText, UnderlineSpansTheWholeText) {
  UseFont({"Arial", 12, false, false, true});
  Page().DrawText(PointAt(20, 30), "   ");
  const Bitmap bitmap = Draw();
  const InkBox box = InkBoxOf(bitmap);
  const double width = FontLibrary::Instance().Find("Arial", false, false).Width("   ") * 16;
  EXPECT_NEAR(box.left, 20, 1);
  EXPECT_NEAR(box.right, 20 + width, 1);
  EXPECT_LE(box.bottom - box.top, 2);
  EXPECT_EQ(InkAt(bitmap, (box.left + box.right) / 2, box.top), 255);
}

TEST_F(DrawnText, BoldIsDarker) {
  const auto ink = [](bool bold, const char* name) {
    Document document;
    Recorder recorder(document);
    recorder.BeginPage({3000, 1500});
    recorder.SetFont({name, 20, bold, false, false});
    recorder.DrawText({100, 100}, "nnnn");
    const Bitmap bitmap = DrawWholePage(document, 1, 96);
    double sum = 0;
    for (int y = 0; y < bitmap.height; ++y) {
      for (int x = 0; x < bitmap.width; ++x) sum += InkAt(bitmap, x, y);
    }
    return sum;
  };
  EXPECT_GT(ink(true, "Arial"), 1.2 * ink(false, "Arial"));
}

TEST_F(DrawnText, OfLargeGlyphsContinuesThatOfSmallOnes) {
  const auto inkShare = [](float size) {
    Document document;
    Recorder recorder(document);
    recorder.BeginPage({6000, 6000});
    recorder.SetFont({"Arial", size, false, false, false});
    recorder.DrawText({100, 100}, "Rg&");
    const Bitmap bitmap = DrawWholePage(document, 1, 96);
    double sum = 0;
    for (int y = 0; y < bitmap.height; ++y) {
      for (int x = 0; x < bitmap.width; ++x) sum += InkAt(bitmap, x, y) / 255.0;
    }
    return sum / size / size;
  };
  EXPECT_NEAR(inkShare(76) / inkShare(74), 1, 0.01);  // 101 and 99 pixels
}

TEST_F(DrawnText, IsCutAtTheEdgesOfTheBitmap) {
  UseFont({"Arial", 20, false, false, false});
  for (const float x : {-30.0F, -5.0F, 190.0F, 199.0F}) {
    for (const float y : {-30.0F, -5.0F, 190.0F, 199.0F}) Page().DrawText(PointAt(x, y), "Wij");
  }
  EXPECT_FALSE(HasNoInk(Draw()));
}

TEST_F(DrawnText, OutsideThePageIsNotDrawn) {
  for (const float far : {-500.0F, 500.0F}) {
    Page().DrawText(PointAt(20, far), "weg");
    Page().DrawText(PointAt(far, 20), "weg");
  }
  EXPECT_TRUE(HasNoInk(Draw()));
}

}  // namespace
}  // namespace pagivo::native
