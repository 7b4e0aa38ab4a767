#include "engine/native/pictures/svg_plain.h"

#include <glib.h>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <set>

#include "engine/native/pictures/picture_format.h"
#include "engine/native/pictures/pixbuf_decoder.h"
#include "engine/native/pictures/pixel_reduction.h"
#include "engine/native/pictures/png_writer.h"
#include "engine/native/pictures/svg_path.h"
#include "engine/native/pictures/svg_values.h"

namespace pagivo::native {
namespace {

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
  const std::unique_ptr<guchar, decltype(&g_free)> bytes(g_base64_decode(text.c_str(), &size),
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
      const std::unique_ptr<gchar, decltype(&g_free)> text(g_base64_encode(png.data(), png.size()),
                                                           g_free);
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

}  // namespace

void MakeSvgPlain(SvgNode& root, const DecodeEmbedded& decode) {
  PlainMaker(decode).Make(root);
}

}  // namespace pagivo::native
