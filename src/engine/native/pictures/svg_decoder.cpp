#include "engine/native/pictures/svg_decoder.h"

#include <librsvg/rsvg.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <string_view>

#include "engine/native/pictures/picture_loader.h"
#include "engine/native/pictures/pixel_alpha.h"
#include "engine/native/pictures/svg_style.h"
#include "engine/native/pictures/svg_work.h"

namespace pagivo::native {
namespace {

struct Release {
  void operator()(RsvgHandle* handle) const { g_object_unref(handle); }
  void operator()(GInputStream* stream) const { g_object_unref(stream); }
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
  void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using HandleRef = std::unique_ptr<RsvgHandle, Release>;
using StreamRef = std::unique_ptr<GInputStream, Release>;
using SurfaceRef = std::unique_ptr<cairo_surface_t, Release>;
using ContextRef = std::unique_ptr<cairo_t, Release>;

// The work for a filter knows no bound.
constexpr std::string_view kStyleSheet = "* { filter: none !important }";

using Size = SvgSize;

// A text of ours is bounded already. Without a base address, which is not given here, references to
// other files are not followed.
HandleRef Parse(const std::string& text) {
  HandleRef handle(rsvg_handle_new_with_flags(RSVG_HANDLE_FLAG_UNLIMITED));
  const StreamRef stream(
      g_memory_input_stream_new_from_data(text.data(), static_cast<gssize>(text.size()), nullptr));
  if (rsvg_handle_read_stream_sync(handle.get(), stream.get(), nullptr, nullptr) == FALSE) {
    RefuseDamaged();
  }
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

Size PixelSize(Size own, double longestSide) {
  const double longSide = std::max(own.width, own.height);
  if (!(own.width > 0) || !(own.height > 0) || !std::isfinite(longSide)) RefuseDamaged();
  const double scale = std::clamp<double>(longSide, kSvgShortestLongSide, longestSide) / longSide;
  const auto side = [scale](double length) { return std::max(1.0, std::round(length * scale)); };
  return {side(own.width), side(own.height)};
}

// The pixels that the drawing becomes: fewer of them where it would be too much work otherwise.
Size BoundedPixelSize(const SvgNode& root, Size own) {
  const SvgIds ids = IdsOf(root);
  for (double side = kSvgLongestLongSide; side >= kSvgShortestLongSide; side /= 2) {
    const Size pixels = PixelSize(own, side);
    if (SvgWorkIsBounded(root, ids, own, pixels)) return pixels;
  }
  RefuseTooMuchWork();
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

PictureImage::Pixels DecodeSvg(PictureBytes bytes, const DecodeEmbedded& decode) {
  SvgNode root = ParseSvg(bytes);
  ResolveSvgStyle(root);
  MakeSvgPlain(root, decode);
  // Telling the size of a drawing that does not say it is as much work as drawing it.
  BoundedPixelSize(root, {kSvgShortestLongSide, kSvgShortestLongSide});
  const HandleRef handle = Parse(WriteSvg(root));
  const SurfaceRef surface = Render(handle.get(), BoundedPixelSize(root, OwnSize(handle.get())));
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
  MakeAlphaStraight(pixels.data);
  return pixels;
}

}  // namespace pagivo::native
