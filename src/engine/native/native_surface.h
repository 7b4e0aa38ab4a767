// The preview of a NativeEngine on a surface.
#pragma once

#include <memory>
#include <optional>

#include "engine/native/native_engine.h"
#include "engine/native/view/page_bitmaps.h"
#include "engine/native/view/page_layout.h"
#include "engine/native/view/preview_keys.h"
#include "engine/native/view/wheel.h"
#include "window/surface.h"

namespace pagivo::native {

// Draws the engine's visible pages and moves them as the user wishes. The engine keeps page, zoom
// and scroll position, so what the host puts and what the user does meet there. An engine has one
// surface at a time: the one that was made last is told of its changes.
//
// Keys, wheel, menu and clicks that change the page or the zoom mode raise the window's events as
// if the host had done it; a change of the zoom mode raises AfterPageChange too.
class NativeSurface final : public SurfaceContent, private PreviewObserver {
 public:
  explicit NativeSurface(std::shared_ptr<NativeEngine> engine);
  ~NativeSurface() override;
  NativeSurface(const NativeSurface&) = delete;
  NativeSurface& operator=(const NativeSurface&) = delete;

  // --- Showing (native_surface.cpp) ---------------------------------------------------------
  void WhenChanged(Handler handler) override { changed_ = std::move(handler); }
  void PutArea(const SurfaceArea& area) override;
  void Draw(const SurfaceBitmap& bitmap, const SurfaceColors& colors) override;
  ScrollRange HorizontalRange() const override;
  ScrollRange VerticalRange() const override;
  void ScrollTo(std::int32_t left, std::int32_t top) override;
  std::span<const MenuItem> Menu() const override;
  void ClickMenu(std::string_view key) override;

  // --- Keys (surface_keys.cpp) --------------------------------------------------------------
  bool PressKey(std::int16_t keyCode, std::int16_t shift) override;

  // --- Mouse (surface_mouse.cpp) ------------------------------------------------------------
  void TurnWheel(SurfacePoint at, double horizontal, double vertical, std::int16_t shift) override;
  void PressPointer(SurfacePoint at) override;
  void MovePointer(SurfacePoint at) override;
  void ReleasePointer(SurfacePoint at) override;
  SurfaceCursor CursorAt(SurfacePoint at) const override;

  // The bitmaps that are kept.
  const BitmapCache& Bitmaps() const noexcept { return bitmaps_.Cache(); }

 private:
  enum class Direction : std::int8_t { Back = -1, Forward = 1 };

  // Where the pointer went down and how far the page was scrolled then.
  struct Drag {
    SurfacePoint from;
    ScrollPosition scrolled;
  };

  void ViewChanged() override;
  void DocumentReplaced() override;

  const PageLayout& Layout() const;
  std::int32_t Step() const;  // what an arrow scrolls, device pixels
  bool CanDrag() const;
  void ShowInMode(std::int32_t mode);
  void OpenPage(std::int32_t page);

  void Do(PreviewCommand command);
  // Whether there was anything left to scroll.
  bool ScrollBy(double right, double down);
  // Scrolls, or turns to the page before or behind.
  void ScrollDown(double pixels);
  void ScrollSideways(double pixels);
  // The view before or behind, from its top or bottom.
  void TurnView(Direction direction);
  void TurnBy(std::int32_t pages, Direction direction);
  void ShowPage(std::int32_t page);
  void ShowFirstPage();
  void ShowLastPage();
  std::int32_t LastPage();

  void ZoomAt(SurfacePoint at, Direction direction);
  void ZoomInMiddle(Direction direction);
  void TurnWheelDown(double notches);

  std::shared_ptr<NativeEngine> engine_;
  Handler changed_;
  mutable std::optional<PageLayout> layout_;  // until something changes
  PageBitmaps bitmaps_;
  std::optional<Drag> drag_;
  std::int32_t pressedPage_ = 0;  // of the overview; 0 for none
  WheelNotches turning_;
  WheelNotches zooming_;
};

// Null when the engine is another one.
std::shared_ptr<SurfaceContent> MakeSurface(const std::shared_ptr<PrintEngine>& engine);

}  // namespace pagivo::native
