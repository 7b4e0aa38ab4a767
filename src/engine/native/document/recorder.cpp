#include "engine/native/document/recorder.h"

#include <cassert>

#include "engine/native/document/storage.h"

namespace pagivo::native {

Recorder::Recorder(Document& document) : document_(document) {}

void Recorder::BeginPage(const PageGeometry& geometry) {
  auto& pages = document_.storage_->pages;
  pages.push_back({.geometry = geometry});
  pageIndex_ = pages.size() - 1;
  ForgetRecordedStyles();
}

void Recorder::SetGeometry(const PageGeometry& geometry) {
  assert(PageIsBlank());
  document_.storage_->pages.back().geometry = geometry;
}

bool Recorder::PageIsBlank() const noexcept {
  return document_.storage_->pages.back().firstSegment == kNoSegment;
}

void Recorder::BeginOverlay(std::int32_t page) {
  assert(page >= 1 && page <= document_.PageCount());
  pageIndex_ = static_cast<std::size_t>(page - 1);
  ForgetRecordedStyles();
}

void Recorder::EndOverlay() {
  pageIndex_ = document_.storage_->pages.size() - 1;
  ForgetRecordedStyles();
}

// The next command opens a segment and sets the styles that it uses.
void Recorder::ForgetRecordedStyles() noexcept {
  segmentEnd_ = nullptr;
  font_.recordedIndex = kNoIndex;
  textColor_.recordedIndex = kNoIndex;
  pen_.recordedIndex = kNoIndex;
  brush_.recordedIndex = kNoIndex;
}

template <typename Value>
void Recorder::Want(Style<Value>& style, const Value& value) {
  if (style.wanted == value) return;
  style.wanted = value;
  style.wantedIndex = kNoIndex;
}

template <typename Value, typename Table>
void Recorder::Use(Style<Value>& style, Table& table, Operation operation) {
  if (style.wantedIndex == kNoIndex) style.wantedIndex = table.IndexOf(style.wanted);
  if (style.recordedIndex == style.wantedIndex) return;
  CommandWriter command = Begin(operation, kMaximumNumberSize);
  command.PutNumber(style.wantedIndex);
  Add(command);
  style.recordedIndex = style.wantedIndex;
}

void Recorder::SetFont(const FontDescription& font) {
  Want(font_, font);
}
void Recorder::SetTextColor(Color color) {
  Want(textColor_, color);
}
void Recorder::SetPen(const Pen& pen) {
  Want(pen_, pen);
}
void Recorder::SetBrush(const Brush& brush) {
  Want(brush_, brush);
}

void Recorder::UseTextStyle() {
  Use(font_, document_.storage_->fonts, Operation::SetFont);
  Use(textColor_, document_.storage_->colors, Operation::SetTextColor);
}

void Recorder::UsePen() {
  Use(pen_, document_.storage_->pens, Operation::SetPen);
}

void Recorder::UsePenAndBrush() {
  UsePen();
  Use(brush_, document_.storage_->brushes, Operation::SetBrush);
}

CommandWriter Recorder::Begin(Operation operation, std::size_t operandSize) {
  return {document_.storage_->arena.Reserve(sizeof operation + operandSize), operation};
}

void Recorder::Add(const CommandWriter& command) {
  Document::Storage& storage = *document_.storage_;
  const std::byte* begin = storage.arena.Reserve(0);
  if (begin != segmentEnd_) OpenSegment(begin);
  segmentEnd_ = command.End();
  storage.segments[storage.pages[pageIndex_].lastSegment].end = segmentEnd_;
  storage.arena.Advance(static_cast<std::size_t>(segmentEnd_ - begin));
}

void Recorder::OpenSegment(const std::byte* begin) {
  Document::Storage& storage = *document_.storage_;
  const auto index = static_cast<std::uint32_t>(storage.segments.size());
  storage.segments.push_back({.begin = begin, .end = begin});
  PageRecord& page = storage.pages[pageIndex_];
  if (page.firstSegment == kNoSegment) {
    page.firstSegment = index;
  } else {
    storage.segments[page.lastSegment].next = index;
  }
  page.lastSegment = index;
}

void Recorder::DrawText(Point position, std::string_view text) {
  UseTextStyle();
  CommandWriter command =
      Begin(Operation::Text, sizeof position + kMaximumNumberSize + text.size());
  command.Put(position + origin_);
  command.PutNumber(text.size());
  command.PutBytes(text.data(), text.size());
  Add(command);
  const char* end = reinterpret_cast<const char*>(command.End());
  lastText_ = {{end - text.size(), text.size()}, &document_.storage_->fonts[font_.wantedIndex]};
}

void Recorder::DrawLine(Point from, Point to) {
  UsePen();
  CommandWriter command = Begin(Operation::Line, sizeof from + sizeof to);
  command.Put(from + origin_);
  command.Put(to + origin_);
  Add(command);
}

void Recorder::DrawRectangle(const Rectangle& rectangle) {
  UsePenAndBrush();
  CommandWriter command = Begin(Operation::Rectangle, sizeof rectangle);
  command.Put(rectangle + origin_);
  Add(command);
}

void Recorder::DrawCircle(Point center, float radius) {
  UsePenAndBrush();
  CommandWriter command = Begin(Operation::Circle, sizeof center + sizeof radius);
  command.Put(center + origin_);
  command.Put(radius);
  Add(command);
}

void Recorder::DrawArc(const Arc& arc) {
  UsePenAndBrush();
  CommandWriter command = Begin(Operation::Arc, sizeof arc);
  Arc moved = arc;
  moved.center = arc.center + origin_;
  command.Put(moved);
  Add(command);
}

void Recorder::DrawPolyline(std::span<const Point> points) {
  UsePen();
  DrawPoints(Operation::Polyline, points);
}

void Recorder::DrawPolygon(std::span<const Point> points) {
  UsePenAndBrush();
  DrawPoints(Operation::Polygon, points);
}

void Recorder::DrawPoints(Operation operation, std::span<const Point> points) {
  CommandWriter command = Begin(operation, kMaximumNumberSize + points.size_bytes());
  command.PutNumber(points.size());
  for (const Point& point : points) command.Put(point + origin_);
  Add(command);
}

void Recorder::DrawPicture(const Rectangle& rectangle, const PictureImageRef& picture) {
  const std::uint32_t index = document_.storage_->pictures.IndexOf(picture);
  CommandWriter command = Begin(Operation::Picture, sizeof rectangle + kMaximumNumberSize);
  command.Put(rectangle + origin_);
  command.PutNumber(index);
  Add(command);
}

}  // namespace pagivo::native
