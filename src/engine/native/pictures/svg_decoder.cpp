#include "engine/native/pictures/svg_decoder.h"

#include <librsvg/rsvg.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <string_view>

#include "engine/native/pictures/picture_loader.h"
#include "engine/native/pictures/pixbuf_decoder.h"
#include "engine/native/pictures/pixel_alpha.h"

namespace pagivo::native {
namespace {

// Far above any drawing; what stands in memory while it is read is a multiple of it.
constexpr std::size_t kMaximumSvgBytes = std::size_t{64} << 20;

struct Release {
  void operator()(RsvgHandle* handle) const { g_object_unref(handle); }
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using HandleRef = std::unique_ptr<RsvgHandle, Release>;
using SurfaceRef = std::unique_ptr<cairo_surface_t, Release>;
using ContextRef = std::unique_ptr<cairo_t, Release>;

// The work for a filter knows no bound. In all else a drawing's own style sheet rules.
constexpr std::string_view kStyleSheet = "* { filter: none !important }";

// A picture that stands in the drawing is unpacked by the SVG library, which accepts any size.
// Its bytes
// follow the mark, up to whatever delimits the address.
void RequireBoundedEmbeddedPictures(PictureBytes bytes) {
  constexpr std::string_view kMark = ";base64,";
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  for (std::size_t at = text.find(kMark); at != text.npos; at = text.find(kMark, at)) {
    at += kMark.size();
    const std::size_t end = std::min(text.find_first_of("\"'<>)", at), text.size());
    const std::string encoded(text.substr(at, end - at));
    gsize size = 0;
    const std::unique_ptr<guchar, decltype(&g_free)> decoded(
        g_base64_decode(encoded.c_str(), &size), g_free);
    if (!HeaderSizeIsWithinBounds({decoded.get(), size})) RefuseTooLarge();
  }
}

struct Size {
  double width = 0;
  double height = 0;
};

// Without a base address, which is not given here, references to other files are not followed.
HandleRef Parse(PictureBytes bytes) {
  if (bytes.size() > kMaximumSvgBytes) RefuseTooLarge();
  RequireBoundedEmbeddedPictures(bytes);
  HandleRef handle(rsvg_handle_new_from_data(bytes.data(), bytes.size(), nullptr));
  if (!handle) RefuseDamaged();
  rsvg_handle_set_dpi(handle.get(), kSvgDotsPerInch);
  rsvg_handle_set_stylesheet(handle.get(), reinterpret_cast<const guint8*>(kStyleSheet.data()),
                             kStyleSheet.size(), nullptr);
  return handle;
}

// In pixels at kSvgDotsPerInch where the file says so; else its view box gives the proportions, and
// what is drawn where there is no view box either.
Size OwnSize(RsvgHandle* handle) {
  Size size;
  if (rsvg_handle_get_intrinsic_size_in_pixels(handle, &size.width, &size.height) != 0) return size;
  gboolean hasViewBox = FALSE;
  RsvgRectangle box{};
  rsvg_handle_get_intrinsic_dimensions(handle, nullptr, nullptr, nullptr, nullptr, &hasViewBox,
                                       &box);
  if (hasViewBox == FALSE) {
    rsvg_handle_get_geometry_for_element(handle, nullptr, &box, nullptr, nullptr);
  }
  return {box.width, box.height};
}

Size PixelSize(Size own) {
  const double longSide = std::max(own.width, own.height);
  if (!(own.width > 0) || !(own.height > 0) || !std::isfinite(longSide)) RefuseDamaged();
  const double scale =
      std::clamp<double>(longSide, kSvgShortestLongSide, kSvgLongestLongSide) / longSide;
  const auto side = [scale](double length) { return std::max(1.0, std::round(length * scale)); };
  return {side(own.width), side(own.height)};
}

SurfaceRef Render(RsvgHandle* handle, Size size) {
  SurfaceRef surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(size.width),
                                                static_cast<int>(size.height)));
  const ContextRef context(cairo_create(surface.get()));
  const RsvgRectangle viewport{0, 0, size.width, size.height};
  if (rsvg_handle_render_document(handle, context.get(), &viewport, nullptr) == FALSE ||
      cairo_status(context.get()) != CAIRO_STATUS_SUCCESS) {
    RefuseDamaged();
  }
  cairo_surface_flush(surface.get());
  return surface;
}

// From 0xAARRGGBB to four bytes, red first.
void CopyPixel(std::uint32_t pixel, std::uint8_t* to) {
  to[0] = static_cast<std::uint8_t>(pixel >> 16);
  to[1] = static_cast<std::uint8_t>(pixel >> 8);
  to[2] = static_cast<std::uint8_t>(pixel);
  to[3] = static_cast<std::uint8_t>(pixel >> 24);
}

}  // namespace

PictureImage::Pixels DecodeSvg(PictureBytes bytes) {
  const HandleRef handle = Parse(bytes);
  const SurfaceRef surface = Render(handle.get(), PixelSize(OwnSize(handle.get())));
  PictureImage::Pixels pixels{cairo_image_surface_get_width(surface.get()),
                              cairo_image_surface_get_height(surface.get()),
                              true,
                              {}};
  // An ARGB32 surface's rows have no padding.
  const std::size_t count =
      static_cast<std::size_t>(pixels.width) * static_cast<std::size_t>(pixels.height);
  pixels.data.resize(4 * count);
  const auto* from =
      reinterpret_cast<const std::uint32_t*>(cairo_image_surface_get_data(surface.get()));
  for (std::size_t i = 0; i < count; ++i) CopyPixel(from[i], &pixels.data[4 * i]);
  MakeAlphaStraight(pixels);
  return pixels;
}

}  // namespace pagivo::native
