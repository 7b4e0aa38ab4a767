#include "engine/native/document/recorder.h"

#include <cassert>
#include <cmath>

#include "engine/native/document/storage.h"

namespace pagivo::native {
namespace {

// A picture covers a page when it is as large to within this many twips each way: a watermark
// leaves the page's edges free.
constexpr float kCoverTolerance = 180;

// The edge that lies further on follows the page's end, however a picture is mirrored.
void Stretch(float& edge1, float& edge2, float by) {
  (edge1 > edge2 ? edge1 : edge2) += by;
}

// Where a picture goes when the page's paper changes.
Rectangle OnOtherPaper(Rectangle rectangle, const PageGeometry& before, const PageGeometry& after) {
  const float width = std::abs(rectangle.x2 - rectangle.x1);
  const float height = std::abs(rectangle.y2 - rectangle.y1);
  if (std::abs(width - before.width) > kCoverTolerance) return rectangle;
  if (std::abs(height - before.height) > kCoverTolerance) return rectangle;
  Stretch(rectangle.x1, rectangle.x2, after.width - before.width);
  Stretch(rectangle.y1, rectangle.y2, after.height - before.height);
  return rectangle;
}

}  // namespace

Recorder::Recorder(Document& document) : storage_(*document.storage_) {}

void Recorder::BeginPage(const PageGeometry& geometry) {
  storage_.pages.push_back({.geometry = geometry});
  pageIndex_ = storage_.pages.size() - 1;
  ForgetRecordedStyles();
}

// Whatever else is drawn has set a font or a pen.
bool Recorder::HasOnlyPictures() const noexcept {
  return font_.recordedIndex == kNotRecorded && pen_.recordedIndex == kNotRecorded;
}

// The pictures are recorded anew before the page lets go of them as they were, so none is lost when
// memory runs out.
void Recorder::ChangePaper(const PageGeometry& geometry, Point origin) {
  assert(HasOnlyPictures());
  PageRecord& page = storage_.pages.back();
  if (page.geometry == geometry && origin_ == origin) return;
  const auto end = static_cast<std::uint32_t>(storage_.segments.size());
  openSegment_ = nullptr;
  for (std::uint32_t i = page.firstSegment; i < end; i = storage_.segments[i].next) {
    AddPicturesOf(storage_.segments[i], geometry, origin - origin_);
  }
  if (page.firstSegment != kNoSegment) page.firstSegment = end;
  page.geometry = geometry;
  origin_ = origin;
}

void Recorder::AddPicturesOf(Segment segment, const PageGeometry& geometry, Point moved) {
  const PageGeometry& before = storage_.pages.back().geometry;
  CommandReader reader(segment.begin, segment.end);
  while (!reader.AtEnd()) {
    [[maybe_unused]] const auto operation = reader.Get<Operation>();
    assert(operation == Operation::Picture);
    const auto rectangle = reader.Get<Rectangle>();
    AddPicture(OnOtherPaper(rectangle, before, geometry) + moved, reader.GetNumber());
  }
}

void Recorder::BeginOverlay(std::int32_t page) {
  pageIndex_ = static_cast<std::size_t>(page - 1);
  assert(pageIndex_ < storage_.pages.size());
  ForgetRecordedStyles();
}

void Recorder::EndOverlay() {
  pageIndex_ = storage_.pages.size() - 1;
  ForgetRecordedStyles();
}

// The next command opens a segment and sets the styles that it uses.
void Recorder::ForgetRecordedStyles() noexcept {
  openSegment_ = nullptr;
  font_.recordedIndex = kNotRecorded;
  textColor_.recordedIndex = kNotRecorded;
  pen_.recordedIndex = kNotRecorded;
  brush_.recordedIndex = kNotRecorded;
}

template <typename Value>
void Recorder::Want(Style<Value>& style, const Value& value) {
  if (style.wanted == value) return;
  style.wanted = value;
  style.wantedIndex = kNotLookedUp;
}

template <typename Value, typename Table>
void Recorder::Use(Style<Value>& style, Table& table, Operation operation) {
  if (style.recordedIndex == style.wantedIndex) return;  // nearly always
  if (style.wantedIndex == kNotLookedUp) style.wantedIndex = table.IndexOf(style.wanted);
  if (style.recordedIndex != style.wantedIndex) RecordStyle(operation, style.wantedIndex);
  style.recordedIndex = style.wantedIndex;
}

void Recorder::RecordStyle(Operation operation, std::uint32_t index) {
  CommandWriter command = Begin(operation, kMaximumNumberSize);
  command.PutNumber(index);
  Add(command);
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
  Use(font_, storage_.fonts, Operation::SetFont);
  Use(textColor_, storage_.colors, Operation::SetTextColor);
}

void Recorder::UsePen() {
  Use(pen_, storage_.pens, Operation::SetPen);
}

void Recorder::UsePenAndBrush() {
  UsePen();
  Use(brush_, storage_.brushes, Operation::SetBrush);
}

CommandWriter Recorder::Begin(Operation operation, std::size_t operandSize) {
  return {storage_.arena.Reserve(sizeof operation + operandSize), operation};
}

void Recorder::Add(const CommandWriter& command) {
  const std::byte* begin = storage_.arena.Reserve(0);
  if (openSegment_ == nullptr || openSegment_->end != begin) OpenSegment(begin);
  openSegment_->end = command.End();
  storage_.arena.Advance(command.End());
}

void Recorder::OpenSegment(const std::byte* begin) {
  auto& segments = storage_.segments;
  const auto index = static_cast<std::uint32_t>(segments.size());
  segments.push_back({.begin = begin, .end = begin});
  PageRecord& page = storage_.pages[pageIndex_];
  if (page.firstSegment == kNoSegment) {
    page.firstSegment = index;
  } else {
    segments[page.lastSegment].next = index;
  }
  page.lastSegment = index;
  openSegment_ = &segments.back();
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
  lastText_ = {{end - text.size(), text.size()}, &storage_.fonts[font_.wantedIndex]};
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
  AddPicture(rectangle + origin_, storage_.pictures.IndexOf(picture));
}

void Recorder::AddPicture(const Rectangle& rectangle, std::size_t index) {
  CommandWriter command = Begin(Operation::Picture, sizeof rectangle + kMaximumNumberSize);
  command.Put(rectangle);
  command.PutNumber(index);
  Add(command);
}

}  // namespace pagivo::native
