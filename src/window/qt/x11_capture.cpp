#include "window/qt/x11_capture.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <bit>
#include <cstdlib>
#include <memory>
#include <string>

#include "pagivo/error.h"
#include "window/qt/qt_conversions.h"

namespace pagivo::qt {

namespace {

struct Free {
  void operator()(void* reply) const { std::free(reply); }
};
template <typename Value>
using Reply = std::unique_ptr<Value, Free>;

// Device pixels from the window's upper left corner; right and bottom lie outside.
struct Part {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  bool IsEmpty() const { return right <= left || bottom <= top; }
  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
};

[[noreturn]] void Refuse(std::uint32_t window, const std::string& reason) {
  throw Error(ErrorNumber::InvalidArgument,
              "Venster " + std::to_string(static_cast<std::int32_t>(window)) + " " + reason);
}

// A window can vanish between any two questions: none is answered then.
template <typename Value>
Reply<Value> Require(std::uint32_t window, Value* reply) {
  if (reply == nullptr) Refuse(window, "bestaat niet of is niet te zien");
  return Reply<Value>(reply);
}

Reply<xcb_get_geometry_reply_t> GeometryOf(xcb_connection_t& connection, xcb_window_t window) {
  return Require(
      window, xcb_get_geometry_reply(&connection, xcb_get_geometry(&connection, window), nullptr));
}

xcb_window_t ParentOf(xcb_connection_t& connection, xcb_window_t window) {
  return Require(window,
                 xcb_query_tree_reply(&connection, xcb_query_tree(&connection, window), nullptr))
      ->parent;
}

void RequireShown(xcb_connection_t& connection, xcb_window_t window) {
  const auto attributes =
      Require(window, xcb_get_window_attributes_reply(
                          &connection, xcb_get_window_attributes(&connection, window), nullptr));
  if (attributes->map_state != XCB_MAP_STATE_VIEWABLE ||
      attributes->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT) {
    Refuse(window, "is niet te zien");
  }
}

// The part of the window that all its ancestors, the screen the last of them, let show.
Part VisiblePart(xcb_connection_t& connection, xcb_window_t window) {
  constexpr int kUnlimited = 1 << 20;
  Part part{0, 0, kUnlimited, kUnlimited};
  int x = 0;  // of the window's corner within `ancestor`
  int y = 0;
  for (xcb_window_t ancestor = window; ancestor != XCB_WINDOW_NONE;
       ancestor = ParentOf(connection, ancestor)) {
    const auto geometry = GeometryOf(connection, ancestor);
    part = {std::max(part.left, -x), std::max(part.top, -y),
            std::min(part.right, geometry->width - x), std::min(part.bottom, geometry->height - y)};
    x += geometry->x + geometry->border_width;
    y += geometry->y + geometry->border_width;
  }
  return part;
}

// How the pixels of an image lie in its bytes and what they mean.
struct PixelLayout {
  std::size_t bytesPerPixel = 0;
  std::size_t bytesPerRow = 0;
  bool isBigEndian = false;
  const xcb_visualtype_t* visual = nullptr;  // its masks tell where the colours stand
};

const xcb_visualtype_t* FindVisual(const xcb_setup_t& setup, xcb_visualid_t id) {
  for (auto screen = xcb_setup_roots_iterator(&setup); screen.rem != 0; xcb_screen_next(&screen)) {
    for (auto depth = xcb_screen_allowed_depths_iterator(screen.data); depth.rem != 0;
         xcb_depth_next(&depth)) {
      for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem != 0;
           xcb_visualtype_next(&visual)) {
        if (visual.data->visual_id == id) return visual.data;
      }
    }
  }
  return nullptr;
}

// The server's format for images of that depth; null when there is none.
const xcb_format_t* FindFormat(const xcb_setup_t& setup, std::uint8_t depth) {
  for (auto format = xcb_setup_pixmap_formats_iterator(&setup); format.rem != 0;
       xcb_format_next(&format)) {
    if (format.data->depth == depth) return format.data;
  }
  return nullptr;
}

PixelLayout LayoutOf(const xcb_setup_t& setup, const xcb_get_image_reply_t& image,
                     std::size_t width) {
  const xcb_format_t* format = FindFormat(setup, image.depth);
  if (format == nullptr) return {};
  const std::size_t rowBits = width * format->bits_per_pixel;
  const std::size_t pad = format->scanline_pad;
  return {.bytesPerPixel = format->bits_per_pixel / std::size_t{8},
          .bytesPerRow = (rowBits + pad - 1) / pad * pad / 8,
          .isBigEndian = setup.image_byte_order == XCB_IMAGE_ORDER_MSB_FIRST,
          .visual = FindVisual(setup, image.visual)};
}

bool HasColors(const PixelLayout& layout) {
  return layout.bytesPerPixel >= 2 && layout.visual != nullptr &&
         (layout.visual->_class == XCB_VISUAL_CLASS_TRUE_COLOR ||
          layout.visual->_class == XCB_VISUAL_CLASS_DIRECT_COLOR);
}

std::uint32_t PixelAt(const std::uint8_t* bytes, const PixelLayout& layout) {
  std::uint32_t pixel = 0;
  for (std::size_t i = 0; i < layout.bytesPerPixel; ++i) {
    const std::size_t place = layout.isBigEndian ? i : layout.bytesPerPixel - 1 - i;
    pixel = pixel << 8 | bytes[place];
  }
  return pixel;
}

// The bits of a colour, stretched or shrunk to eight.
std::uint32_t Channel(std::uint32_t pixel, std::uint32_t mask) {
  const std::uint64_t most = mask >> std::countr_zero(mask);
  const std::uint64_t value = (pixel & mask) >> std::countr_zero(mask);
  return most == 0 ? 0 : static_cast<std::uint32_t>((value * 255 + most / 2) / most);
}

std::uint32_t ColorOf(std::uint32_t pixel, const xcb_visualtype_t& visual) {
  return 0xFF000000U | Channel(pixel, visual.red_mask) << 16 |
         Channel(pixel, visual.green_mask) << 8 | Channel(pixel, visual.blue_mask);
}

std::vector<std::uint32_t> ColorsOf(const std::uint8_t* bytes, const PixelLayout& layout,
                                    std::size_t width, std::size_t height) {
  std::vector<std::uint32_t> colors;
  colors.reserve(width * height);
  for (std::size_t y = 0; y < height; ++y) {
    for (std::size_t x = 0; x < width; ++x) {
      const std::uint8_t* pixel = bytes + y * layout.bytesPerRow + x * layout.bytesPerPixel;
      colors.push_back(ColorOf(PixelAt(pixel, layout), *layout.visual));
    }
  }
  return colors;
}

Reply<xcb_get_image_reply_t> ImageOf(xcb_connection_t& connection, xcb_window_t window,
                                     const Part& part) {
  constexpr std::uint32_t kAllPlanes = ~0U;
  return Require(window, xcb_get_image_reply(
                             &connection,
                             xcb_get_image(&connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window,
                                           static_cast<std::int16_t>(part.left),
                                           static_cast<std::int16_t>(part.top),
                                           static_cast<std::uint16_t>(part.Width()),
                                           static_cast<std::uint16_t>(part.Height()), kAllPlanes),
                             nullptr));
}

}  // namespace

WindowImage CaptureX11Window(xcb_connection_t& connection, std::uint32_t window, double density) {
  RequireShown(connection, window);
  const Part part = VisiblePart(connection, window);
  if (part.IsEmpty()) Refuse(window, "is niet te zien");
  const auto image = ImageOf(connection, window, part);
  const auto width = static_cast<std::size_t>(part.Width());
  const auto height = static_cast<std::size_t>(part.Height());
  const PixelLayout layout = LayoutOf(*xcb_get_setup(&connection), *image, width);
  const auto length = static_cast<std::size_t>(xcb_get_image_data_length(image.get()));
  if (!HasColors(layout) || length < layout.bytesPerRow * height) {
    Refuse(window, "heeft geen kleuren die kunnen worden overgenomen");
  }
  const auto twips = [density](int pixels) {
    return static_cast<float>(pixels / density) * kTwipsPerPixel;
  };
  return {.width = part.Width(),
          .height = part.Height(),
          .pixels = ColorsOf(xcb_get_image_data(image.get()), layout, width, height),
          .size = {.width = twips(part.Width()), .height = twips(part.Height())}};
}

}  // namespace pagivo::qt
