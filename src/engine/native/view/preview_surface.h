// A preview on a surface of a window.
#pragma once

#include <memory>

#include "engine/native/view/page_bitmaps.h"
#include "engine/native/view/preview.h"
#include "engine/native/view/preview_input.h"
#include "window/surface.h"

namespace pagivo::native {

// Draws the visible pages, tells how far they can be scrolled, and hands on what the user does. A
// preview has one surface at a time: the one that was made last is told of its changes.
//
// Keys, wheel, menu and clicks that change the page or the zoom mode raise the window's events as
// if the host had done it; a change of the zoom mode raises AfterPageChange too.
class PreviewSurface final : public SurfaceContent, private PreviewObserver {
 public:
  // Keeps the preview, and whatever it is a part of.
  explicit PreviewSurface(std::shared_ptr<Preview> preview);
  ~PreviewSurface() override;
  PreviewSurface(const PreviewSurface&) = delete;
  PreviewSurface& operator=(const PreviewSurface&) = delete;

  void WhenChanged(Handler handler) override { changed_ = std::move(handler); }
  void PutArea(const SurfaceArea& area) override { preview_->PutArea(area); }
  void Draw(const SurfaceBitmap& bitmap, const SurfaceColors& colors) override;
  ScrollRange HorizontalRange() const override;
  ScrollRange VerticalRange() const override;
  void ScrollTo(std::int32_t left, std::int32_t top) override { preview_->ScrollTo({left, top}); }

  bool PressKey(std::int16_t keyCode, std::int16_t shift) override {
    return PressPreviewKey(*preview_, keyCode, shift);
  }
  void TurnWheel(SurfacePoint at, double horizontal, double vertical, std::int16_t shift) override {
    mouse_.TurnWheel(at, horizontal, vertical, shift);
  }
  void PressPointer(SurfacePoint at) override { mouse_.Press(at); }
  void MovePointer(SurfacePoint at) override { mouse_.Move(at); }
  void ReleasePointer(SurfacePoint at) override { mouse_.Release(at); }
  SurfaceCursor CursorAt(SurfacePoint at) const override { return mouse_.CursorAt(at); }

  // The preview's own menu of zoom modes.
  std::span<const MenuItem> Menu() const override;
  void ClickMenu(std::string_view key) override;

  // The bitmaps that are kept.
  const BitmapCache& Bitmaps() const noexcept { return bitmaps_.Cache(); }

 private:
  void ViewChanged() override;
  void DocumentReplaced() override;

  std::shared_ptr<Preview> preview_;
  PreviewMouse mouse_;
  PageBitmaps bitmaps_;
  Handler changed_;
};

}  // namespace pagivo::native
