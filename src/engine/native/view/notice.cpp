#include "engine/native/view/notice.h"

#include <algorithm>

#include "engine/native/document/recorder.h"
#include "engine/native/raster/bitmap_player.h"

namespace pagivo::native {
namespace {

constexpr double kPixelsPerTwip = 96.0 / 1440;  // at scale 1
constexpr float kHeight = 330;                  // twips, of a line in the font below and its edges
constexpr Point kTextStart{120, 45};
constexpr Color kGround = 0x0000C0;
constexpr Color kLetters = 0xFFFFFF;

// The notice as a page of that width, so that its text is drawn as all text is.
void Record(std::string_view text, float width, Document& document) {
  Recorder recorder(document);
  recorder.BeginPage({width, kHeight});
  recorder.SetPen({.style = PenStyle::Invisible});
  recorder.SetBrush({.style = BrushStyle::Solid, .color = kGround});
  recorder.DrawRectangle({0, 0, width, kHeight});
  recorder.SetFont({.name = "Arial", .size = 9, .bold = true});
  recorder.SetTextColor(kLetters);
  recorder.DrawText(kTextStart, text);
}

}  // namespace

void PaintNotice(std::string_view text, double scale, const SurfaceBitmap& surface) {
  const double pixelsPerTwip = kPixelsPerTwip * scale;
  Document document;
  Record(text, static_cast<float>(surface.width / pixelsPerTwip), document);
  const std::int32_t height = PagePixelSize(document.GeometryOf(1), pixelsPerTwip).height;
  Bitmap bitmap{surface.width, std::min(height, surface.height), {}};
  bitmap.pixels.resize(static_cast<std::size_t>(bitmap.width) *
                       static_cast<std::size_t>(bitmap.height));
  DrawPage(document, 1, {pixelsPerTwip, 0, 0}, bitmap);
  std::ranges::copy(bitmap.pixels, surface.pixels.begin());
}

}  // namespace pagivo::native
