#include "engine/native/document/document.h"

#include <cassert>
#include <cstring>

#include "engine/native/document/command.h"
#include "engine/native/document/storage.h"

namespace pagivo::native {
Document::Document() : storage_(std::make_unique<Storage>()) {}
Document::~Document() = default;

std::int32_t Document::PageCount() const noexcept {
  return static_cast<std::int32_t>(storage_->pages.size());
}

const PageGeometry& Document::GeometryOf(std::int32_t page) const {
  assert(page >= 1 && page <= PageCount());
  return storage_->pages[static_cast<std::size_t>(page - 1)].geometry;
}

// The address where the record ends serves as the number: whatever is added ends at another one,
// because the arena only grows.
std::size_t Document::RevisionOf(std::int32_t page) const {
  assert(page >= 1 && page <= PageCount());
  const std::uint32_t last = storage_->pages[static_cast<std::size_t>(page - 1)].lastSegment;
  if (last == kNoSegment) return 0;
  return reinterpret_cast<std::uintptr_t>(storage_->segments[last].end);
}

std::size_t Document::RecordBytes() const noexcept {
  const Storage& storage = *storage_;
  return sizeof storage + storage.arena.Bytes() + storage.pages.capacity() * sizeof(PageRecord) +
         storage.segments.capacity() * sizeof(Segment) + storage.fonts.Bytes() +
         storage.colors.Bytes() + storage.pens.Bytes() + storage.brushes.Bytes() +
         storage.pictures.Bytes();
}

// Replays commands to a player.
class Document::Replay {
 public:
  Replay(const Storage& storage, Player& player) : storage_(storage), player_(player) {}

  void PlaySegment(const Segment& segment) {
    CommandReader reader(segment.begin, segment.end);
    while (!reader.AtEnd()) PlayCommand(reader);
  }

 private:
  void PlayCommand(CommandReader& reader);
  void PlayText(CommandReader& reader);
  void PlayLine(CommandReader& reader);
  void PlayCircle(CommandReader& reader);
  void PlayPicture(CommandReader& reader);
  std::span<const Point> ReadPoints(CommandReader& reader);

  template <typename Table>
  static const auto& Look(const Table& table, CommandReader& reader) {
    return table[static_cast<std::uint32_t>(reader.GetNumber())];
  }

  const Storage& storage_;
  Player& player_;
  std::vector<Point> points_;
};

void Document::Replay::PlayCommand(CommandReader& reader) {
  switch (reader.Get<Operation>()) {
    case Operation::SetFont:
      return player_.SetFont(Look(storage_.fonts, reader));
    case Operation::SetTextColor:
      return player_.SetTextColor(Look(storage_.colors, reader));
    case Operation::SetPen:
      return player_.SetPen(Look(storage_.pens, reader));
    case Operation::SetBrush:
      return player_.SetBrush(Look(storage_.brushes, reader));
    case Operation::Text:
      return PlayText(reader);
    case Operation::Line:
      return PlayLine(reader);
    case Operation::Rectangle:
      return player_.DrawRectangle(reader.Get<Rectangle>());
    case Operation::Circle:
      return PlayCircle(reader);
    case Operation::Arc:
      return player_.DrawArc(reader.Get<Arc>());
    case Operation::Polyline:
      return player_.DrawPolyline(ReadPoints(reader));
    case Operation::Polygon:
      return player_.DrawPolygon(ReadPoints(reader));
    case Operation::Picture:
      return PlayPicture(reader);
  }
}

void Document::Replay::PlayText(CommandReader& reader) {
  const auto position = reader.Get<Point>();
  player_.DrawText(position, reader.GetText());
}

void Document::Replay::PlayLine(CommandReader& reader) {
  const auto from = reader.Get<Point>();
  player_.DrawLine(from, reader.Get<Point>());
}

void Document::Replay::PlayCircle(CommandReader& reader) {
  const auto center = reader.Get<Point>();
  player_.DrawCircle(center, reader.Get<float>());
}

void Document::Replay::PlayPicture(CommandReader& reader) {
  const auto rectangle = reader.Get<Rectangle>();
  player_.DrawPicture(rectangle, Look(storage_.pictures, reader));
}

// Copied, for the record is not aligned.
std::span<const Point> Document::Replay::ReadPoints(CommandReader& reader) {
  points_.resize(reader.GetNumber());
  const std::size_t size = points_.size() * sizeof(Point);
  if (size > 0) std::memcpy(points_.data(), reader.Skip(size), size);
  return points_;
}

void Document::Play(std::int32_t page, Player& player) const {
  assert(page >= 1 && page <= PageCount());
  Replay replay(*storage_, player);
  const PageRecord& record = storage_->pages[static_cast<std::size_t>(page - 1)];
  for (std::uint32_t i = record.firstSegment; i != kNoSegment; i = storage_->segments[i].next) {
    replay.PlaySegment(storage_->segments[i]);
  }
}

}  // namespace pagivo::native
