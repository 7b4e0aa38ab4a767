// The area of a window where an engine draws its preview, and what draws there.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

#include "pagivo/export.h"
#include "window/control.h"

namespace pagivo {

// Everything on a surface counts in its device pixels, from its upper left corner.
struct SurfaceArea {
  std::int32_t width = 0;
  std::int32_t height = 0;
  double scale = 1;  // device pixels that a 96th of an inch has on this screen

  friend bool operator==(const SurfaceArea&, const SurfaceArea&) = default;
};

struct SurfacePoint {
  double x = 0;
  double y = 0;
};

// 0xFFRRGGBB.
struct SurfaceColors {
  std::uint32_t ground = 0xFFE8E8E8;     // around the pages
  std::uint32_t edge = 0xFF9A9A9A;       // the thin line around a page
  std::uint32_t highlight = 0xFF2A6FC9;  // around the page that is chosen among many
};

// A quiet ground, a little darker than windows are, on which white pages stand out in light and in
// dark themes, and an edge that parts the two: from the desktop's colours for windows, for texts in
// them and for what is selected.
PAGIVO_EXPORT SurfaceColors SurfaceColorsFor(std::uint32_t window, std::uint32_t text,
                                             std::uint32_t highlight) noexcept;

// Pixels 0xFFRRGGBB in the machine's byte order, rows top down without padding. Borrowed.
struct SurfaceBitmap {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::span<std::uint32_t> pixels;
};

// What a scroll bar beside the surface shows.
struct ScrollRange {
  bool wanted = false;  // whether there is a bar at all
  std::int32_t value = 0;
  std::int32_t maximum = 0;  // from 0; 0 when everything is visible
  std::int32_t visible = 0;  // how much of the whole is visible: the length of the bar's slider
  std::int32_t step = 0;     // what its arrows move
};

// What the pointer looks like over a place of the surface.
enum class SurfaceCursor { Arrow, Pointing, OpenHand, ClosedHand };

// Draws itself on a surface and answers the user there. It decides what is visible; the surface's
// peer shows the bitmap and the scroll bars and reports what the user does. Errors of handlers that
// it runs are passed on. A handler may discard the window, so whoever calls holds the content
// meanwhile.
class SurfaceContent {
 public:
  using Handler = std::function<void()>;

  virtual ~SurfaceContent();

  // Sets who is told when bitmap or scroll ranges are no longer what they were; null for nobody.
  virtual void WhenChanged(Handler handler) = 0;

  // The size it is shown in from now on. Does not count as a change by itself.
  virtual void PutArea(const SurfaceArea& area) = 0;
  // Draws all that is visible, over every pixel. The bitmap has the area's size.
  virtual void Draw(const SurfaceBitmap& bitmap, const SurfaceColors& colors) = 0;

  virtual ScrollRange HorizontalRange() const = 0;
  virtual ScrollRange VerticalRange() const = 0;
  // The user moves a scroll bar. The content scrolls as far as it goes.
  virtual void ScrollTo(std::int32_t left, std::int32_t top) = 0;

  // Returns whether it had a use for the key.
  virtual bool PressKey(std::int16_t keyCode, std::int16_t shift) = 0;
  // Notches of the wheel, fractions of them on fine wheels: positive when it is turned away from
  // the user, or to the left.
  virtual void TurnWheel(SurfacePoint at, double horizontal, double vertical,
                         std::int16_t shift) = 0;
  // The main button goes down, the pointer moves (with the button down or not), the button goes up.
  virtual void PressPointer(SurfacePoint at) = 0;
  virtual void MovePointer(SurfacePoint at) = 0;
  virtual void ReleasePointer(SurfacePoint at) = 0;
  virtual SurfaceCursor CursorAt(SurfacePoint at) const = 0;

  // The menu of the right button; its items live as long as the content.
  virtual std::span<const MenuItem> Menu() const = 0;
  // Nothing for a key that the menu does not have.
  virtual void ClickMenu(std::string_view key) = 0;
};

// Content that only shows something: it neither scrolls nor answers the user.
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
  // Tells whoever listens that it now shows something else.
  void Change() const {
    if (changed_) changed_();
  }

 private:
  double scale_ = 1;
  Handler changed_;
};

// Which scroll bars stand beside a surface.
struct SurfaceBars {
  bool horizontal = false;
  bool vertical = false;

  friend bool operator==(const SurfaceBars&, const SurfaceBars&) = default;
};

class PAGIVO_EXPORT Surface : public Control {
 public:
  using Control::Control;
  ~Surface() override;

  // Null when nothing draws here: the surface is blank then.
  const std::shared_ptr<SurfaceContent>& Content() const noexcept { return content_; }
  void PutContent(std::shared_ptr<SurfaceContent> content);

  // Gives the content the area that is left beside the scroll bars that it wants, and returns
  // those. A bar takes room, and with less room others may be wanted, or none. `areaBeside` puts
  // bars in place and returns the area that they leave; `present` are those that stand there now.
  // Nothing without a content.
  using AreaBeside = std::function<SurfaceArea(const SurfaceBars& bars)>;
  SurfaceBars FitBars(const SurfaceBars& present, const AreaBeside& areaBeside);

  // Hands the key to the content.
  bool PressKey(std::int16_t keyCode, std::int16_t shift) override;

 private:
  std::shared_ptr<SurfaceContent> content_;
};

}  // namespace pagivo
