// What is drawn in a dialog and only shows something.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

#include "window/surface.h"

namespace pagivo::native {

// It neither scrolls nor answers the user.
class StillContent : public SurfaceContent {
 public:
  void WhenChanged(Handler handler) override { changed_ = std::move(handler); }
  void PutArea(const SurfaceArea& area) override { scale_ = area.scale; }

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

 protected:
  // Device pixels that a 96th of an inch has.
  double Scale() const noexcept { return scale_; }
  // What it shows is no longer what it was.
  void Change() const {
    if (changed_) changed_();
  }

 private:
  double scale_ = 1;
  Handler changed_;
};

}  // namespace pagivo::native
