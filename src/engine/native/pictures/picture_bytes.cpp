#include "engine/native/pictures/picture_bytes.h"

#include "engine/native/pictures/picture_loader.h"

namespace pagivo::native {

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

PictureBytes Slice(PictureBytes bytes, std::size_t at, std::size_t count) {
  if (at > bytes.size() || count > bytes.size() - at) RefuseDamaged();
  return bytes.subspan(at, count);
}

std::uint16_t ReadLittle16(PictureBytes bytes, std::size_t at) {
  const PictureBytes number = Slice(bytes, at, 2);
  return static_cast<std::uint16_t>(number[0] | number[1] << 8);
}

std::uint32_t ReadLittle32(PictureBytes bytes, std::size_t at) {
  return ReadLittle16(bytes, at) | std::uint32_t{ReadLittle16(bytes, at + 2)} << 16;
}

std::uint16_t ReadBig16(PictureBytes bytes, std::size_t at) {
  const PictureBytes number = Slice(bytes, at, 2);
  return static_cast<std::uint16_t>(number[0] << 8 | number[1]);
}

std::uint32_t ReadBig32(PictureBytes bytes, std::size_t at) {
  return std::uint32_t{ReadBig16(bytes, at)} << 16 | ReadBig16(bytes, at + 2);
}

}  // namespace pagivo::native
