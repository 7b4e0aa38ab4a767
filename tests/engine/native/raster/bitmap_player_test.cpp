#include "engine/native/raster/bitmap_player.h"

#include <array>
#include <cmath>

#include "engine/native/raster/drawn_page.h"
#include "pagivo/error.h"

namespace pagivo::native {
namespace {

PictureImageRef Gradient() {
  PictureImage::Pixels pixels{300, 200, true, {}};
  for (int y = 0; y < 200; ++y) {
    for (int x = 0; x < 300; ++x) {
      pixels.data.insert(pixels.data.end(),
                         {std::uint8_t(x % 256), std::uint8_t(y), 40, std::uint8_t((x + y) % 256)});
    }
  }
  return std::make_shared<PictureImage>(std::move(pixels));
}

// Every operation in every pen and brush.
void RecordEverything(Recorder& page) {
  page.BeginPage({5003, 4007});
  for (int style = 0; style < 8; ++style) {
    const auto at = static_cast<float>(style) * 611;
    page.SetPen({PenStyle(style % 7), static_cast<float>(style % 3) * 23, 0x804020});
    page.SetBrush({BrushStyle(style), 0x2040C0});
    page.DrawRectangle({at + 33, 50, at + 501, 407});
    page.DrawCircle({at + 250, 750}, 211);
    page.DrawArc({{at + 250, 1250}, 203, 1, 4, style % 2 == 0, true});
    page.DrawLine({at, 1500}, {at + 555, 1777});
    page.DrawLine({at, 1501}, {at + 555, 1501});
    page.DrawPolyline(std::array{Point{at, 1800}, Point{at + 501, 1850}, Point{at + 77, 2050}});
    page.DrawPolygon(std::array{Point{at, 2100}, Point{at + 501, 2150}, Point{at + 77, 2350}});
    page.SetFont({"Arial", static_cast<float>(7 + style), style % 2 == 0, style % 3 == 0, true});
    page.SetTextColor(0x008000);
    page.DrawText({at + 7, 2400 + at / 8}, "Tekst 12,5");
  }
  page.SetFont({"Arial", 120, false, false, false});
  page.DrawText({2500, 1700}, "Groot");
  page.DrawPicture({101, 3001, 1777, 3899}, Gradient());
  page.DrawPicture({4777, 3899, 3001, 3001}, Gradient());
}

// Of 255. cairo cuts figures at the edges of what it draws, which moves their edges by a fraction
// of a pixel too small to be seen.
constexpr int kEdgeRounding = 16;

TEST(DrawPage, InPiecesLooksLikeThePageDrawnWhole) {
  Document document;
  Recorder recorder(document);
  RecordEverything(recorder);
  for (const double dotsPerInch : {40.0, 96.0, 137.0}) {
    const Bitmap whole = DrawWholePage(document, 1, dotsPerInch);
    constexpr std::int32_t kPiece = 71;
    for (std::int32_t top = 0; top < whole.height; top += kPiece) {
      for (std::int32_t left = 0; left < whole.width; left += kPiece) {
        Bitmap piece{
            std::min(kPiece, whole.width - left), std::min(kPiece, whole.height - top), {}};
        piece.pixels.resize(std::size_t(piece.width) * std::size_t(piece.height));
        DrawPage(document, 1, {dotsPerInch / 1440, left, top}, piece);
        int differing = 0;
        for (std::int32_t y = 0; y < piece.height; ++y) {
          for (std::int32_t x = 0; x < piece.width; ++x) {
            const std::uint32_t here = PixelAt(piece, x, y);
            const std::uint32_t there = PixelAt(whole, left + x, top + y);
            for (int shift = 0; shift < 32; shift += 8) {
              const int difference = int(here >> shift & 0xFF) - int(there >> shift & 0xFF);
              differing += std::abs(difference) > kEdgeRounding;
            }
          }
        }
        EXPECT_EQ(differing, 0) << dotsPerInch << " at " << left << ", " << top;
      }
    }
  }
}

TEST(DrawPage, LeavesPixelsBeyondThePaper) {
  Document document;
  Recorder recorder(document);
  recorder.BeginPage({1500, 1500});  // 100 pixels
  recorder.SetBrush({BrushStyle::Solid, kRed});
  recorder.SetPen({PenStyle::Invisible, 0, 0});
  recorder.DrawRectangle({-1000, 750, 9000, 9000});
  recorder.SetFont({"Arial", 50, true, false, true});
  recorder.DrawText({1000, 100}, "over de rand");
  Bitmap bitmap{200, 200, std::vector<std::uint32_t>(200 * 200, 0x12345678)};
  DrawPage(document, 1, {96.0 / 1440, -20, -20}, bitmap);
  EXPECT_EQ(PixelAt(bitmap, 19, 60), 0x12345678U);
  EXPECT_EQ(PixelAt(bitmap, 60, 19), 0x12345678U);
  EXPECT_EQ(PixelAt(bitmap, 20, 20), kWhitePixel);
  EXPECT_EQ(PixelAt(bitmap, 119, 119), kRedPixel);
  for (int at = 0; at < 200; ++at) {
    EXPECT_EQ(PixelAt(bitmap, 120, at), 0x12345678U);
    EXPECT_EQ(PixelAt(bitmap, at, 120), 0x12345678U);
  }
}

TEST(DrawPage, LeavesABitmapAsideThePaperAlone) {
  Document document;
  Recorder recorder(document);
  recorder.BeginPage({1500, 1500});
  recorder.DrawLine({0, 0}, {1500, 1500});
  for (const std::int32_t aside : {-5000, 5000}) {
    Bitmap bitmap{10, 10, std::vector<std::uint32_t>(100, 7)};
    DrawPage(document, 1, {96.0 / 1440, aside, 0}, bitmap);
    EXPECT_EQ(bitmap.pixels, std::vector<std::uint32_t>(100, 7));
  }
}

TEST(DrawWholePage, ShowsTheSameInNewMemoryAndInMemoryThatServesAgain) {
  Document document;
  Recorder recorder(document);
  recorder.BeginPage({1500, 1500});
  recorder.DrawLine({0, 0}, {1500, 1500});
  const Bitmap fresh = DrawWholePage(document, 1, 96);
  EXPECT_EQ(PixelAt(fresh, 99, 0), kWhitePixel);
  for (const std::size_t had : {10U, 10000U, 90000U}) {
    Bitmap kept{0, 0, std::vector<std::uint32_t>(had, 0x12345678)};
    DrawWholePage(document, 1, 96, kept);
    EXPECT_TRUE(kept.pixels == fresh.pixels) << had;
  }
}

TEST(DrawPage, DrawsOverlaysOnTop) {
  Document document;
  Recorder recorder(document);
  recorder.SetPen({PenStyle::Invisible, 0, 0});
  recorder.BeginPage({1500, 1500});
  recorder.SetBrush({BrushStyle::Solid, kRed});
  recorder.DrawRectangle({0, 0, 1500, 1500});
  recorder.BeginPage({1500, 1500});
  recorder.BeginOverlay(1);
  recorder.SetBrush({BrushStyle::Solid, 0});
  recorder.DrawRectangle({0, 0, 750, 1500});
  recorder.EndOverlay();
  const Bitmap bitmap = DrawWholePage(document, 1, 96);
  EXPECT_EQ(PixelAt(bitmap, 25, 50), kBlackPixel);
  EXPECT_EQ(PixelAt(bitmap, 75, 50), kRedPixel);
}

TEST(DrawWholePage, CountsPixelsThatThePaperCoversInPart) {
  Document document;
  Recorder recorder(document);
  recorder.BeginPage({11906, 16838});  // A4
  const Bitmap at96 = DrawWholePage(document, 1, 96);
  EXPECT_EQ(at96.width, 794);    // 793.7
  EXPECT_EQ(at96.height, 1123);  // 1122.5
  const Bitmap at144 = DrawWholePage(document, 1, 144);
  EXPECT_EQ(at144.width, 1191);   // 1190.6
  EXPECT_EQ(at144.height, 1684);  // 1683.8
}

TEST(DrawWholePage, RefusesAPageLargerThanABitmapCanBe) {
  Document document;
  Recorder recorder(document);
  recorder.BeginPage({200 * 1440, 200 * 1440});
  try {
    DrawWholePage(document, 1, 600);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::InvalidArgument);
  }
}

TEST(DrawPage, IntoAnEmptyBitmapDoesNothing) {
  Document document;
  Recorder recorder(document);
  recorder.BeginPage({1500, 1500});
  Bitmap bitmap;
  DrawPage(document, 1, {}, bitmap);
  EXPECT_TRUE(bitmap.pixels.empty());
}

}  // namespace
}  // namespace pagivo::native
