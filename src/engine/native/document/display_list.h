// A page's record: small typed commands in twips, written once by the recorder and replayed by
// players (bitmap, PDF, text trace).
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "engine/native/document/geometry.h"
#include "engine/native/fonts/font_description.h"
#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

enum class PenStyle : std::uint8_t {
  Solid,
  Dash,
  Dot,
  DashDot,
  DashDotDot,
  Invisible,
  InsideSolid
};

enum class BrushStyle : std::uint8_t {
  Solid,
  Transparent,
  Horizontal,
  Vertical,
  UpwardDiagonal,
  DownwardDiagonal,
  Cross,
  DiagonalCross,
};

// Colours are 0x00BBGGRR; the window system's colours are resolved when they are recorded.
using Color = std::uint32_t;
constexpr std::uint8_t RedOf(Color color) {
  return static_cast<std::uint8_t>(color);
}
constexpr std::uint8_t GreenOf(Color color) {
  return static_cast<std::uint8_t>(color >> 8);
}
constexpr std::uint8_t BlueOf(Color color) {
  return static_cast<std::uint8_t>(color >> 16);
}

// The width of a pen of width 0: 0.25 pt.
inline constexpr float kHairlineWidth = 5;

struct Pen {
  PenStyle style = PenStyle::Solid;
  float width = 0;  // twips; 0 is a hairline
  Color color = 0;
  friend bool operator==(const Pen&, const Pen&) = default;
};

struct Brush {
  BrushStyle style = BrushStyle::Transparent;
  Color color = 0xFFFFFF;
  friend bool operator==(const Brush&, const Brush&) = default;
};

// Part of a circle. Angles are in radians, counter-clockwise from three o'clock, in [0, 2 pi); the
// arc runs counter-clockwise from start to end. A radius line runs from the centre to that end.
struct Arc {
  Point center;
  float radius = 0;
  float start = 0;
  float end = 0;
  bool radiusLineAtStart = false;
  bool radiusLineAtEnd = false;
};

// What replays a page. Styles hold until the next call that changes them; a page always sets a
// style before the first command that uses it, so pages can be replayed in any order.
class Player {
 public:
  virtual void SetFont(const FontDescription& font) = 0;
  virtual void SetTextColor(Color color) = 0;
  virtual void SetPen(const Pen& pen) = 0;
  virtual void SetBrush(const Brush& brush) = 0;

  // One line of UTF-8 text without control characters, its top left at `position`.
  virtual void DrawText(Point position, std::string_view text) = 0;
  virtual void DrawLine(Point from, Point to) = 0;
  virtual void DrawRectangle(const Rectangle& rectangle) = 0;  // filled by the brush
  virtual void DrawCircle(Point center, float radius) = 0;     // filled by the brush
  virtual void DrawArc(const Arc& arc) = 0;                    // its sector filled by the brush
  virtual void DrawPolyline(std::span<const Point> points) = 0;
  virtual void DrawPolygon(std::span<const Point> points) = 0;  // filled, even-odd
  virtual void DrawPicture(const Rectangle& rectangle, const PictureImageRef& picture) = 0;

 protected:
  ~Player() = default;
};

}  // namespace pagivo::native
