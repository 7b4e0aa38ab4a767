#include "window/qt/x_client.h"

#include <array>
#include <cstdlib>
#include <stdexcept>

namespace pagivo::testing {

namespace {

constexpr std::uint8_t kTranslucentDepth = 32;

std::uint32_t HighColor(std::uint32_t color) {
  return (color >> 19 & 0x1FU) << 11 | (color >> 10 & 0x3FU) << 5 | (color >> 3 & 0x1FU);
}

}  // namespace

XClient::XClient(const std::string& display)
    : connection_(xcb_connect(display.empty() ? nullptr : display.c_str(), nullptr)) {
  if (xcb_connection_has_error(connection_) != 0) throw std::runtime_error("no X server");
  screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
}

XClient::~XClient() {
  xcb_disconnect(connection_);
}

xcb_window_t XClient::ShowWindow(const Box& box, xcb_window_t parent) {
  return Show(box, parent == XCB_NONE ? screen_->root : parent, screen_->root_depth,
              screen_->root_visual);
}

xcb_window_t XClient::ShowTranslucentWindow(const Box& box) {
  return Show(box, screen_->root, kTranslucentDepth, TranslucentVisual());
}

xcb_window_t XClient::ShowInputWindow(const Box& box) {
  const xcb_window_t window = xcb_generate_id(connection_);
  xcb_create_window(connection_, 0, window, screen_->root, box.x, box.y, box.width, box.height, 0,
                    XCB_WINDOW_CLASS_INPUT_ONLY, screen_->root_visual, 0, nullptr);
  xcb_map_window(connection_, window);
  Finish();
  return window;
}

void XClient::Hide(xcb_window_t window) {
  xcb_unmap_window(connection_, window);
  Finish();
}

void XClient::Destroy(xcb_window_t window) {
  xcb_destroy_window(connection_, window);
  Finish();
}

void XClient::Fill(xcb_window_t window, const Box& box, std::uint32_t color) {
  const std::uint32_t pixel = screen_->root_depth == 16 ? HighColor(color) : color;
  const xcb_gcontext_t context = xcb_generate_id(connection_);
  xcb_create_gc(connection_, context, window, XCB_GC_FOREGROUND, &pixel);
  const xcb_rectangle_t rectangle{box.x, box.y, box.width, box.height};
  xcb_poly_fill_rectangle(connection_, window, context, 1, &rectangle);
  xcb_free_gc(connection_, context);
  Finish();
}

xcb_window_t XClient::Show(const Box& box, xcb_window_t parent, std::uint8_t depth,
                           xcb_visualid_t visual) {
  const xcb_colormap_t colors = xcb_generate_id(connection_);
  xcb_create_colormap(connection_, XCB_COLORMAP_ALLOC_NONE, colors, screen_->root, visual);
  const xcb_window_t window = xcb_generate_id(connection_);
  const std::array<std::uint32_t, 4> values = {0, 0, 1, colors};
  xcb_create_window(
      connection_, depth, window, parent, box.x, box.y, box.width, box.height, 0,
      XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_COLORMAP,
      values.data());
  xcb_map_window(connection_, window);
  Finish();
  return window;
}

xcb_visualid_t XClient::TranslucentVisual() const {
  for (auto depth = xcb_screen_allowed_depths_iterator(screen_); depth.rem != 0;
       xcb_depth_next(&depth)) {
    if (depth.data->depth == kTranslucentDepth && xcb_depth_visuals_length(depth.data) != 0) {
      return xcb_depth_visuals(depth.data)->visual_id;
    }
  }
  throw std::runtime_error("the screen has no translucent windows");
}

void XClient::Finish() {
  std::free(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
}

}  // namespace pagivo::testing
