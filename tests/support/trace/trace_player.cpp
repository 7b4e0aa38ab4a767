#include "support/trace/trace_player.h"

#include <array>
#include <charconv>
#include <cstddef>

namespace pagivo::native {
namespace {

constexpr std::array<std::string_view, 7> kPenNames = {
    "solid", "dash", "dot", "dash-dot", "dash-dot-dot", "invisible", "inside-solid"};
constexpr std::array<std::string_view, 8> kBrushNames = {
    "solid",           "transparent",       "horizontal", "vertical",
    "upward-diagonal", "downward-diagonal", "cross",      "diagonal-cross"};

std::string TextOf(float number) {
  std::array<char, 32> buffer;
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number);
  return {buffer.data(), result.ptr};
}

std::string HexOf(Color color) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (const std::uint8_t part : {RedOf(color), GreenOf(color), BlueOf(color)}) {
    text += kDigits[part >> 4];
    text += kDigits[part & 15];
  }
  return text;
}

}  // namespace

void TracePlayer::SetFont(const FontDescription& font) {
  font_ = font.name + ' ' + TextOf(font.size);
  if (font.bold) font_ += " bold";
  if (font.italic) font_ += " italic";
  if (font.underline) font_ += " underline";
}

void TracePlayer::SetTextColor(Color color) {
  textColor_ = "color " + HexOf(color);
}

void TracePlayer::SetPen(const Pen& pen) {
  pen_ = "pen ";
  pen_ += kPenNames[static_cast<std::size_t>(pen.style)];
  pen_ += ' ' + TextOf(pen.width) + ' ' + HexOf(pen.color);
}

void TracePlayer::SetBrush(const Brush& brush) {
  brush_ = "brush ";
  brush_ += kBrushNames[static_cast<std::size_t>(brush.style)];
  brush_ += ' ' + HexOf(brush.color);
}

void TracePlayer::DrawText(Point position, std::string_view text) {
  Add("text");
  AddPoint(position);
  AddQuoted(text);
  Add(font_);
  Add(textColor_);
  EndLine();
}

void TracePlayer::DrawLine(Point from, Point to) {
  Add("line");
  AddPoint(from);
  AddPoint(to);
  Add(pen_);
  EndLine();
}

void TracePlayer::DrawRectangle(const Rectangle& rectangle) {
  Add("rectangle");
  AddRectangle(rectangle);
  Add(pen_);
  Add(brush_);
  EndLine();
}

void TracePlayer::DrawCircle(Point center, float radius) {
  Add("circle");
  AddPoint(center);
  AddNumber(radius);
  Add(pen_);
  Add(brush_);
  EndLine();
}

void TracePlayer::DrawArc(const Arc& arc) {
  Add("arc");
  AddPoint(arc.center);
  AddNumber(arc.radius);
  Add("from");
  AddNumber(arc.start);
  if (arc.radiusLineAtStart) Add("radius-line");
  Add("to");
  AddNumber(arc.end);
  if (arc.radiusLineAtEnd) Add("radius-line");
  Add(pen_);
  Add(brush_);
  EndLine();
}

void TracePlayer::DrawPolyline(std::span<const Point> points) {
  Add("polyline");
  AddPoints(points);
  Add(pen_);
  EndLine();
}

void TracePlayer::DrawPolygon(std::span<const Point> points) {
  Add("polygon");
  AddPoints(points);
  Add(pen_);
  Add(brush_);
  EndLine();
}

void TracePlayer::DrawPicture(const Rectangle& rectangle, const PictureImageRef& picture) {
  Add("picture");
  AddRectangle(rectangle);
  Add("of " + std::to_string(picture->Width()) + " x " + std::to_string(picture->Height()));
  EndLine();
}

// Words are separated by one blank.
void TracePlayer::Add(std::string_view word) {
  text_ += word;
  text_ += ' ';
}

void TracePlayer::AddNumber(float number) {
  Add(TextOf(number));
}

void TracePlayer::AddPoint(Point point) {
  AddNumber(point.x);
  AddNumber(point.y);
}

void TracePlayer::AddRectangle(const Rectangle& rectangle) {
  AddPoint({rectangle.x1, rectangle.y1});
  AddPoint({rectangle.x2, rectangle.y2});
}

void TracePlayer::AddPoints(std::span<const Point> points) {
  for (const Point& point : points) AddPoint(point);
}

void TracePlayer::AddQuoted(std::string_view text) {
  std::string quoted = "\"";
  for (const char character : text) {
    if (character == '"' || character == '\\') quoted += '\\';
    quoted += character;
  }
  Add(quoted + '"');
}

void TracePlayer::EndLine() {
  text_.back() = '\n';
}

std::string TracePage(const Document& document, std::int32_t page) {
  TracePlayer player;
  document.Play(page, player);
  return player.Text();
}

}  // namespace pagivo::native
