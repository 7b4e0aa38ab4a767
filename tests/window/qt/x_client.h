// A program of its own, as far as the X server can tell: a connection that makes and paints
// windows.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <string>

namespace pagivo::testing {

class XClient {
 public:
  struct Box {
    std::int16_t x = 0;
    std::int16_t y = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
  };

  // An empty name is the display of the environment.
  explicit XClient(const std::string& display = {});
  ~XClient();
  XClient(const XClient&) = delete;
  XClient& operator=(const XClient&) = delete;

  xcb_connection_t& Connection() const noexcept { return *connection_; }

  // Shown at once, in its parent or on the screen, all black. No window manager touches it.
  xcb_window_t ShowWindow(const Box& box, xcb_window_t parent = XCB_NONE);
  // With an alpha channel in its pixels.
  xcb_window_t ShowTranslucentWindow(const Box& box);
  // For input only: it has no contents.
  xcb_window_t ShowInputWindow(const Box& box);
  void Hide(xcb_window_t window);
  void Destroy(xcb_window_t window);

  // 0xAARRGGBB, on screens of 16 bits the nearest colour; alpha only in a translucent window.
  void Fill(xcb_window_t window, const Box& box, std::uint32_t color);

 private:
  xcb_window_t Show(const Box& box, xcb_window_t parent, std::uint8_t depth, xcb_visualid_t visual);
  xcb_visualid_t TranslucentVisual() const;
  // All that was asked for has been done.
  void Finish();

  xcb_connection_t* connection_;
  xcb_screen_t* screen_;
};

}  // namespace pagivo::testing
