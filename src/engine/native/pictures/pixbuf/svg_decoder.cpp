#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "engine/native/cairo/cairo_library.h"
#include "engine/native/pictures/picture_bytes.h"
#include "engine/native/pictures/picture_image.h"
#include "engine/native/pictures/picture_loader.h"
#include "engine/native/pictures/pixbuf/picture_libraries.h"
#include "engine/native/pictures/pixbuf/pixbuf_decoder.h"
#include "engine/native/pictures/pixbuf/svg_document.h"
#include "engine/native/pictures/pixbuf/svg_values.h"
#include "engine/native/pictures/pixbuf/svg_work.h"
#include "engine/native/pictures/png_codec.h"
#include "engine/native/pictures/system_decoders.h"

namespace pagivo::native {
namespace {

// The pixels of all pictures that stand in a file, by what their headers say.
constexpr std::int64_t kMaximumSvgPicturePixels = std::int64_t{1} << 24;
// A picture of more pixels is made smaller than this.
constexpr std::int64_t kMaximumSvgOnePicturePixels = std::int64_t{1} << 22;

bool IsKnown(const SvgNode& node) {
  static const std::set<std::string_view> kElements{
      "svg",      "g",       "a",        "switch",  "defs",           "symbol",
      "use",      "path",    "rect",     "circle",  "ellipse",        "line",
      "polyline", "polygon", "text",     "tspan",   "image",          "stop",
      "marker",   "mask",    "clipPath", "pattern", "linearGradient", "radialGradient"};
  return node.name.empty() || kElements.contains(node.name);
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::string PercentDecoded(std::string_view text) {
  std::string plain;
  plain.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isCode = text[i] == '%' && i + 2 < text.size() && HexDigit(text[i + 1]) >= 0 &&
                        HexDigit(text[i + 2]) >= 0;
    if (!isCode) {
      plain.push_back(text[i]);
      continue;
    }
    plain.push_back(static_cast<char>(HexDigit(text[i + 1]) * 16 + HexDigit(text[i + 2])));
    i += 2;
  }
  return plain;
}

std::vector<std::uint8_t> Base64Decoded(const std::string& text) {
  gsize size = 0;
  const std::unique_ptr<guchar, decltype(&::g_free)> bytes(g_base64_decode(text.c_str(), &size),
                                                           g_free);
  return {bytes.get(), bytes.get() + size};
}

bool EndsWithBase64(std::string_view text) {
  constexpr std::string_view kMark = "base64";
  const std::size_t end = text.find_last_not_of(" \t\r\n") + 1;
  if (end < kMark.size()) return false;
  const std::string mark(text.substr(end - kMark.size(), kMark.size()));
  return g_ascii_strcasecmp(mark.c_str(), "base64") == 0;
}

// What a "data:" address holds; none for another address.
std::optional<std::vector<std::uint8_t>> EmbeddedBytes(std::string_view address) {
  address.remove_prefix(std::min(address.find_first_not_of(" \t\r\n"), address.size()));
  const std::string scheme(address.substr(0, 5));
  const std::size_t comma = address.find(',');
  if (g_ascii_strcasecmp(scheme.c_str(), "data:") != 0 || comma == address.npos) {
    return std::nullopt;
  }
  const std::string content = PercentDecoded(address.substr(comma + 1));
  if (EndsWithBase64(address.substr(0, comma))) return Base64Decoded(content);
  return std::vector<std::uint8_t>(content.begin(), content.end());
}

class PlainMaker {
 public:
  explicit PlainMaker(const DecodeEmbedded& decode) : decode_(decode) {}

  void Make(SvgNode& node) {
    MakeReferencePlain(node);
    MakeTransformPlain(node, "transform");
    MakeTransformPlain(node, "gradientTransform");
    MakeTransformPlain(node, "patternTransform");
    for (auto& [key, value] : node.attributes) {
      if (key == "d") value.resize(ReadSvgPath(value).length);
    }
    std::erase_if(node.children, [](const SvgNode& child) { return !IsKnown(child); });
    for (SvgNode& child : node.children) Make(child);
  }

 private:
  static constexpr const char* kReference = "xlink:href";

  void MakeReferencePlain(SvgNode& node) {
    const std::string address(node.Attribute(kReference));
    if (address.empty()) return;
    std::string plain;
    if (node.name == "image") {
      plain = PlainPicture(node, address);
    } else if (const std::string_view id = ReferenceIn(address); !id.empty()) {
      plain.append("#").append(id);
    }
    if (!plain.empty()) return node.Put(node.attributes, kReference, plain);
    std::erase_if(node.attributes, [](const auto& entry) { return entry.first == kReference; });
  }

  // Empty for a picture that is not drawn.
  std::string PlainPicture(SvgNode& node, std::string_view address) {
    const std::optional<std::vector<std::uint8_t>> bytes = EmbeddedBytes(address);
    if (!bytes || FormatOf(*bytes) == PictureFormat::Unknown ||
        FormatOf(*bytes) == PictureFormat::Svg) {
      return {};
    }
    pixels_ += HeaderPixels(*bytes);
    if (pixels_ > kMaximumSvgPicturePixels) RefuseTooLarge();
    try {
      const PictureImage::Pixels picture = Reduced(decode_(*bytes), kMaximumSvgOnePicturePixels);
      node.pixels = static_cast<double>(picture.width) * picture.height;
      const std::vector<std::uint8_t> png = WritePng(picture);
      const std::unique_ptr<gchar, decltype(&::g_free)> text(
          g_base64_encode(png.data(), png.size()), g_free);
      return std::string("data:image/png;base64,") + text.get();
    } catch (const TooLargeFailure&) {
      throw;
    } catch (const DecodeFailure&) {
      return {};  // the rest of the drawing stands
    }
  }

  // Style sheets write them in their own way, which our reading turns into the attribute's.
  static void MakeTransformPlain(SvgNode& node, std::string_view key) {
    const std::string_view text = node.Property(key);
    if (text.empty()) return;
    const SvgMatrix matrix = SvgTransform(text);
    std::string plain = "matrix(";
    for (const double number : {matrix.xx, matrix.yx, matrix.xy, matrix.yy, matrix.x0, matrix.y0}) {
      char written[G_ASCII_DTOSTR_BUF_SIZE];
      plain.append(g_ascii_dtostr(written, sizeof written, number)).append(" ");
    }
    plain.back() = ')';
    node.Put(node.attributes, key, plain);
    std::erase_if(node.style, [key](const auto& entry) { return entry.first == key; });
  }

  const DecodeEmbedded& decode_;
  std::int64_t pixels_ = 0;
};

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

// Leaves what the work for a drawing can be told of: the elements that draw, references within the
// file, path data as far as it is such, transforms as attributes. A picture in the file, however it
// is spelt there, becomes a PNG of ours; one that cannot be decoded and one from outside go.
// Refuses pictures of too many pixels.
void MakeSvgPlain(SvgNode& root, const DecodeEmbedded& decode) {
  PlainMaker(decode).Make(root);
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
