// A small picture of a page: its paper, its margins and grey lines for its text.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

#include "window/surface.h"

namespace pagivo::native {

// Twips; the paper as the page is turned.
struct PageShape {
  double width = 0;
  double height = 0;
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;

  friend bool operator==(const PageShape&, const PageShape&) = default;
};

// The whole page, as large as the surface has room for, on whole device pixels. It only shows: it
// neither scrolls nor answers the user.
class PagePicture final : public SurfaceContent {
 public:
  void PutShape(const PageShape& shape);

  void WhenChanged(Handler handler) override { changed_ = std::move(handler); }
  void PutArea(const SurfaceArea& area) override { scale_ = area.scale; }
  void Draw(const SurfaceBitmap& bitmap, const SurfaceColors& colors) override;

  ScrollRange HorizontalRange() const override { return {}; }
  ScrollRange VerticalRange() const override { return {}; }
  void ScrollTo(std::int32_t /*left*/, std::int32_t /*top*/) override {}
  bool PressKey(std::int16_t /*keyCode*/, std::int16_t /*shift*/) override { return false; }
  void TurnWheel(SurfacePoint /*at*/, double /*horizontal*/, double /*vertical*/,
                 std::int16_t /*shift*/) override {}
  void PressPointer(SurfacePoint /*at*/) override {}
  void MovePointer(SurfacePoint /*at*/) override {}
  void ReleasePointer(SurfacePoint /*at*/) override {}
  SurfaceCursor CursorAt(SurfacePoint /*at*/) const override { return SurfaceCursor::Arrow; }
  std::span<const MenuItem> Menu() const override { return {}; }
  void ClickMenu(std::string_view /*key*/) override {}

 private:
  PageShape shape_;
  double scale_ = 1;
  Handler changed_;
};

}  // namespace pagivo::native
