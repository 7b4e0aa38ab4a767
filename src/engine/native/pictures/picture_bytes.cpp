#include "engine/native/pictures/picture_bytes.h"

#include <array>
#include <string_view>

#include "engine/native/pictures/picture_loader.h"

namespace pagivo::native {
namespace {

using namespace std::string_view_literals;

struct Signature {
  std::string_view bytes;
  PictureFormat format;
};

// XML may start with a byte order mark; in UTF-16 its first character is two bytes wide.
constexpr std::array kSignatures{
    Signature{"BM"sv, PictureFormat::Bmp},
    Signature{"GIF87a"sv, PictureFormat::Gif},
    Signature{"GIF89a"sv, PictureFormat::Gif},
    Signature{"\0\0\1\0"sv, PictureFormat::Ico},
    Signature{"\xFF\xD8\xFF"sv, PictureFormat::Jpeg},
    Signature{"\x89PNG\r\n\x1A\n"sv, PictureFormat::Png},
    Signature{"II\x2A\0"sv, PictureFormat::Tiff},
    Signature{"MM\0\x2A"sv, PictureFormat::Tiff},
    Signature{"\xFF\xFE<\0"sv, PictureFormat::Svg},
    Signature{"\xFE\xFF\0<"sv, PictureFormat::Svg},
};

bool StartsLikeXml(std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  return first != std::string_view::npos && text[first] == '<';
}

}  // namespace

PictureFormat FormatOf(PictureBytes bytes) {
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  for (const Signature& signature : kSignatures) {
    if (text.starts_with(signature.bytes)) return signature.format;
  }
  return StartsLikeXml(text) ? PictureFormat::Svg : PictureFormat::Unknown;
}

void RefuseDamaged() {
  throw DecodeFailure("de inhoud is beschadigd of onvolledig");
}

void RefuseTooLarge() {
  throw TooLargeFailure("de afmetingen zijn te groot");
}

void RefuseTooMuchWork() {
  throw TooLargeFailure("de inhoud is te ingewikkeld");
}

void RequireDecodableSize(std::int64_t width, std::int64_t height) {
  if (width <= 0 || height <= 0) RefuseDamaged();
  if (width > kMaximumPixels / height) RefuseTooLarge();
}

PictureBytes Slice(PictureBytes bytes, std::uint64_t at, std::uint64_t count) {
  if (at > bytes.size() || count > bytes.size() - at) RefuseDamaged();
  return bytes.subspan(static_cast<std::size_t>(at), static_cast<std::size_t>(count));
}

std::uint16_t ReadLittle16(PictureBytes bytes, std::uint64_t at) {
  const PictureBytes number = Slice(bytes, at, 2);
  return static_cast<std::uint16_t>(number[0] | number[1] << 8);
}

std::uint32_t ReadLittle32(PictureBytes bytes, std::uint64_t at) {
  return ReadLittle16(bytes, at) | std::uint32_t{ReadLittle16(bytes, at + 2)} << 16;
}

std::uint16_t ReadBig16(PictureBytes bytes, std::uint64_t at) {
  const PictureBytes number = Slice(bytes, at, 2);
  return static_cast<std::uint16_t>(number[0] << 8 | number[1]);
}

std::uint32_t ReadBig32(PictureBytes bytes, std::uint64_t at) {
  return std::uint32_t{ReadBig16(bytes, at)} << 16 | ReadBig16(bytes, at + 2);
}

}  // namespace pagivo::native
