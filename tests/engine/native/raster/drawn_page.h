// A page that a test records and looks at in pixels.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>

#include "engine/native/document/document.h"
#include "engine/native/document/recorder.h"
#include "engine/native/raster/bitmap_player.h"

namespace pagivo::native {

inline constexpr std::uint32_t kWhitePixel = 0xFFFFFFFF;
inline constexpr std::uint32_t kBlackPixel = 0xFF000000;
inline constexpr std::uint32_t kRedPixel = 0xFFFF0000;
inline constexpr Color kRed = 0x0000FF;
inline constexpr Color kBlue = 0xFF0000;

inline std::uint32_t PixelAt(const Bitmap& bitmap, std::int32_t x, std::int32_t y) {
  return bitmap.pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(bitmap.width) +
                          static_cast<std::size_t>(x));
}

// 0 for white to 255 for black; of the green channel.
inline int InkAt(const Bitmap& bitmap, std::int32_t x, std::int32_t y) {
  return 255 - static_cast<int>(PixelAt(bitmap, x, y) >> 8 & 0xFF);
}

// The pixels that are not white; right and bottom are the first ones outside.
struct InkBox {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t right = 0;
  std::int32_t bottom = 0;
  friend bool operator==(const InkBox&, const InkBox&) = default;
};

inline InkBox InkBoxOf(const Bitmap& bitmap) {
  InkBox box{bitmap.width, bitmap.height, 0, 0};
  for (std::int32_t y = 0; y < bitmap.height; ++y) {
    for (std::int32_t x = 0; x < bitmap.width; ++x) {
      if (PixelAt(bitmap, x, y) == kWhitePixel) continue;
      box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
             std::max(box.bottom, y + 1)};
    }
  }
  return box;
}

inline bool HasNoInk(const Bitmap& bitmap) {
  return std::all_of(bitmap.pixels.begin(), bitmap.pixels.end(),
                     [](std::uint32_t pixel) { return pixel == kWhitePixel; });
}

// A page of 200 x 200 pixels at 96 dots an inch: 15 twips a pixel. No brush, a solid black
// hairline.
class DrawnPage : public testing::Test {
 protected:
  static constexpr float kTwips = 15;  // a pixel

  DrawnPage() : recorder_(document_) { recorder_.BeginPage({200 * kTwips, 200 * kTwips}); }

  Recorder& Page() { return recorder_; }
  Bitmap Draw(double dotsPerInch = 96) const { return DrawWholePage(document_, 1, dotsPerInch); }
  const Document& TheDocument() const { return document_; }

  void UseNoPen() { recorder_.SetPen({PenStyle::Invisible, 0, 0}); }
  void UseBrush(BrushStyle style, Color color) { recorder_.SetBrush({style, color}); }
  static Rectangle Pixels(float x1, float y1, float x2, float y2) {
    return {x1 * kTwips, y1 * kTwips, x2 * kTwips, y2 * kTwips};
  }
  static Point PointAt(float x, float y) { return {x * kTwips, y * kTwips}; }

 private:
  Document document_;
  Recorder recorder_;
};

}  // namespace pagivo::native
