#include "engine/native/fonts/font_metrics.h"

#include <gtest/gtest.h>

#include "engine/native/fonts/face_support.h"

namespace pagivo::native {
namespace {

FontMetrics MetricsOf(const FaceFile& file) {
  return ReadFontMetrics(Face(file.path, file.index));
}

TEST(FontMetrics, TakesTheLinesOfTheHorizontalHeader) {
  const FontMetrics metrics = MetricsOf(FileFor("Arial"));
  EXPECT_DOUBLE_EQ(metrics.ascent, 1854 / 2048.0);
  EXPECT_DOUBLE_EQ(metrics.lineSpacing, (1854 + 434 + 67) / 2048.0);  // with the line gap
}

TEST(FontMetrics, TakesTheCentreOfTheUnderline) {
  const FontMetrics metrics = MetricsOf(FileFor("Arial"));
  EXPECT_DOUBLE_EQ(metrics.underlineThickness, 150 / 2048.0);
  EXPECT_DOUBLE_EQ(metrics.underlinePosition, (67 + 75) / 2048.0);
}

TEST(FontMetrics, AreSaneForEveryInstalledFace) {
  for (const FaceFile& file : InstalledFaces()) {
    SCOPED_TRACE(file.path);
    const FontMetrics metrics = MetricsOf(file);
    EXPECT_GT(metrics.ascent, 0.4);
    EXPECT_LT(metrics.ascent, 2.5);
    EXPECT_GT(metrics.lineSpacing, 0.8);
    EXPECT_LT(metrics.lineSpacing, 5);
    EXPECT_GT(metrics.underlineThickness, 0);
    EXPECT_LT(metrics.underlineThickness, 0.25);
    EXPECT_GT(metrics.underlinePosition, 0);
    EXPECT_LT(metrics.underlinePosition, 0.5);
  }
}

}  // namespace
}  // namespace pagivo::native
