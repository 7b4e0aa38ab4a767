#include "engine/native/pdf/content_stream.h"

#include <algorithm>

#include "engine/native/document/stroke_style.h"

namespace pagivo::native {
namespace {

// Three decimals tell the 256 levels apart.
std::int64_t ThousandthsOf(std::uint8_t level) {
  return (std::int64_t{level} * 1000 + 127) / 255;
}

}  // namespace

void ContentStream::Begin() {
  bytes_.clear();
  state_ = {};
}

void ContentStream::AppendPoint(PdfPoint point) {
  AppendHundredths(bytes_, point.x);
  bytes_.push_back(' ');
  AppendHundredths(bytes_, point.y);
  bytes_.push_back(' ');
}

void ContentStream::AppendColor(Color color, std::string_view grayOperator,
                                std::string_view rgbOperator) {
  const bool gray = RedOf(color) == GreenOf(color) && RedOf(color) == BlueOf(color);
  AppendDecimal(bytes_, ThousandthsOf(RedOf(color)), 3);
  bytes_.push_back(' ');
  if (!gray) {
    AppendDecimal(bytes_, ThousandthsOf(GreenOf(color)), 3);
    bytes_.push_back(' ');
    AppendDecimal(bytes_, ThousandthsOf(BlueOf(color)), 3);
    bytes_.push_back(' ');
  }
  bytes_ += gray ? grayOperator : rgbOperator;
}

void ContentStream::SetFillColor(Color color) {
  if (state_.fill == color) return;
  AppendColor(color, "g\n", "rg\n");
  state_.fill = color;
}

void ContentStream::SetStroke(const StrokeStyle& style) {
  const StrokeStyle& old = state_.stroke;
  if (old == style) return;
  if (old.color != style.color) AppendColor(style.color, "G\n", "RG\n");
  if (old.width != style.width) {
    AppendHundredths(bytes_, style.width);
    bytes_ += " w\n";
  }
  if (old.cap != style.cap) {
    AppendInteger(bytes_, style.cap);
    bytes_ += " J\n";
  }
  if (old.join != style.join) {
    AppendInteger(bytes_, style.join);
    bytes_ += " j\n";
  }
  const bool dashed = !DashMultiples(style.dash).empty();
  const bool wasDashed = !DashMultiples(old.dash).empty();
  const bool measuresDiffer = old.width != style.width || old.dashPhase != style.dashPhase;
  if (old.dash != style.dash ? dashed || wasDashed : dashed && measuresDiffer) AppendDash(style);
  state_.stroke = style;
}

void ContentStream::AppendDash(const StrokeStyle& style) {
  bytes_.push_back('[');
  for (const float multiple : DashMultiples(style.dash)) {
    AppendHundredths(bytes_, static_cast<Hundredths>(multiple * static_cast<float>(style.width)));
    bytes_.push_back(' ');
  }
  if (bytes_.back() == ' ') bytes_.pop_back();
  bytes_.push_back(']');
  AppendHundredths(bytes_, style.dashPhase);
  bytes_ += " d\n";
}

void ContentStream::MoveTo(PdfPoint point) {
  AppendPoint(point);
  bytes_ += "m\n";
}

void ContentStream::LineTo(PdfPoint point) {
  AppendPoint(point);
  bytes_ += "l\n";
}

void ContentStream::CurveTo(PdfPoint control1, PdfPoint control2, PdfPoint end) {
  AppendPoint(control1);
  AppendPoint(control2);
  AppendPoint(end);
  bytes_ += "c\n";
}

void ContentStream::AddRectangle(PdfPoint corner, Hundredths width, Hundredths height) {
  AppendPoint(corner);
  AppendPoint({width, height});
  bytes_ += "re\n";
}

void ContentStream::ClosePath() {
  bytes_ += "h\n";
}

void ContentStream::Stroke() {
  bytes_ += "S\n";
}

void ContentStream::PaintWith(std::string_view nonZero, std::string_view evenOdd, FillRule rule) {
  bytes_ += rule == FillRule::NonZero ? nonZero : evenOdd;
}

void ContentStream::Fill(FillRule rule) {
  PaintWith("f\n", "f*\n", rule);
}

void ContentStream::FillAndStroke(FillRule rule) {
  PaintWith("B\n", "B*\n", rule);
}

void ContentStream::SaveState() {
  bytes_ += "q\n";
  saved_ = state_;
}

void ContentStream::Clip(FillRule rule) {
  PaintWith("W n\n", "W* n\n", rule);
}

void ContentStream::RestoreState() {
  bytes_ += "Q\n";
  state_ = saved_;
}

void ContentStream::DrawImage(std::string_view name, PdfPoint origin, Hundredths width,
                              Hundredths height) {
  bytes_ += "q ";
  AppendHundredths(bytes_, width);
  bytes_ += " 0 0 ";
  AppendHundredths(bytes_, height);
  bytes_.push_back(' ');
  AppendPoint(origin);
  bytes_.append("cm/").append(name).append(" Do Q\n");
}

}  // namespace pagivo::native
