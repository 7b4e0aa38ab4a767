// Writes pages into a document.
#pragma once

#include <cstddef>
#include <cstdint>

#include "engine/native/document/command.h"
#include "engine/native/document/document.h"

namespace pagivo::native {

// A text where it stands in the record, and its font in the document's table.
struct RecordedText {
  std::string_view text;
  const FontDescription* font = nullptr;
};

struct Segment;

// Records what it is told to draw onto the page begun last or the page being overlaid. A document
// has one recorder at a time. Styles survive from page to page; they are recorded when a command
// first uses them on a page, so setting one that nothing uses costs nothing. Every function leaves
// the record whole when memory runs out.
class Recorder final : public Player {
 public:
  explicit Recorder(Document& document);

  void BeginPage(const PageGeometry& geometry);

  // Where positions count from, until another is set.
  void SetOrigin(Point origin) noexcept { origin_ = origin; }

  // The page has nothing drawn on it but pictures. Of a page that is being overlaid only what the
  // overlay drew counts.
  bool HasOnlyPictures() const noexcept;
  // Changes the last page's paper and origin; only while it has only pictures and no page is
  // overlaid. Its pictures move with the origin, and one that covered the page covers it again, at
  // the same distances from the edges.
  void ChangePaper(const PageGeometry& geometry, Point origin);

  // Drawing goes onto `page` (from 1, existing) until EndOverlay.
  void BeginOverlay(std::int32_t page);
  void EndOverlay();

  void SetFont(const FontDescription& font) override;
  void SetTextColor(Color color) override;
  void SetPen(const Pen& pen) override;
  void SetBrush(const Brush& brush) override;
  void DrawText(Point position, std::string_view text) override;
  void DrawLine(Point from, Point to) override;
  void DrawRectangle(const Rectangle& rectangle) override;
  void DrawCircle(Point center, float radius) override;
  void DrawArc(const Arc& arc) override;
  void DrawPolyline(std::span<const Point> points) override;
  void DrawPolygon(std::span<const Point> points) override;
  void DrawPicture(const Rectangle& rectangle, const PictureImageRef& picture) override;

  // What DrawText was last given; good as long as the document. Empty before the first.
  const RecordedText& LastText() const noexcept { return lastText_; }

 private:
  // Neither is the index of a style.
  static constexpr std::uint32_t kNotLookedUp = UINT32_MAX;
  static constexpr std::uint32_t kNotRecorded = UINT32_MAX - 1;

  // A style as it is wanted, and as this page's commands have last set it: by their indices in the
  // document's table.
  template <typename Value>
  struct Style {
    Value wanted{};
    std::uint32_t wantedIndex = kNotLookedUp;
    std::uint32_t recordedIndex = kNotRecorded;
  };

  template <typename Value>
  static void Want(Style<Value>& style, const Value& value);
  template <typename Value, typename Table>
  void Use(Style<Value>& style, Table& table, Operation operation);
  void RecordStyle(Operation operation, std::uint32_t index);
  void UseTextStyle();
  void UsePen();
  void UsePenAndBrush();
  void ForgetRecordedStyles() noexcept;

  // A command is begun with room for its operands and added to the page when it is complete.
  CommandWriter Begin(Operation operation, std::size_t operandSize);
  void Add(const CommandWriter& command);
  void OpenSegment(const std::byte* begin);
  void DrawPoints(Operation operation, std::span<const Point> points);
  void AddPicture(const Rectangle& rectangle, std::size_t index);
  void AddPicturesOf(Segment segment, const PageGeometry& geometry, Point moved);

  Document::Storage& storage_;
  std::size_t pageIndex_ = 0;  // where drawing goes
  Point origin_;
  // The page's last one, unless it is closed; commands that follow it directly extend it.
  Segment* openSegment_ = nullptr;
  Style<FontDescription> font_;
  Style<Color> textColor_;
  Style<Pen> pen_;
  Style<Brush> brush_;
  RecordedText lastText_;
};

}  // namespace pagivo::native
