// Picture files loaded: BMP, GIF, ICO, JPEG, PNG, TIFF and SVG.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

// Files larger than this are refused before they are read.
inline constexpr std::uint64_t kMaximumPictureFileBytes = std::uint64_t{3} << 26;

// Pictures of more pixels than this are refused before they are decoded. A fuzzer, which is built
// with this macro as libFuzzer's users agree on, tries many small ones instead of a few large ones.
#ifdef FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION
inline constexpr std::int64_t kMaximumPixels = std::int64_t{1} << 18;
#else
inline constexpr std::int64_t kMaximumPixels = std::int64_t{1} << 27;
#endif

// So are pictures for which the decoder needs more memory than this.
inline constexpr std::int64_t kMaximumDecoderBytes = std::int64_t{3} << 26;

// A picture of more pixels is made smaller by the least whole number that brings it below: an A4
// sheet at 508 dots an inch, more than an output can tell apart.
#ifdef FUZZING_BUILD_MODE_UNSAFE_FOR_PRODUCTION
inline constexpr std::int64_t kMaximumKeptPixels = 1 << 14;
#else
inline constexpr std::int64_t kMaximumKeptPixels = 3 << 23;
#endif

// An SVG becomes pixels when it is loaded: its own size at this resolution, made smaller or larger
// until its longer side lies within the bounds, and smaller again, not below the lower bound, where
// drawing it would be too much work. What it refers to outside itself is not loaded and filter
// effects are not drawn.
inline constexpr double kSvgDotsPerInch = 300;
inline constexpr int kSvgShortestLongSide = 1024;
inline constexpr int kSvgLongestLongSide = 4096;

// Loads a picture file. Of an animation, of a TIFF with several pages the first picture counts, of
// an icon the largest one. Orientation and colour profiles stored beside the pixels are not
// applied.
//
// An empty path gives an empty picture. Raises ErrorNumber::FileAccess when the file cannot be read
// or is no ordinary file, ErrorNumber::InvalidPicture when it is no picture, is damaged, incomplete
// or too large; the description names the file. Damage within the data of a file that stays as it
// is (StoredPicture) is no error and costs nothing but pixels. The same unchanged file gives the
// same object while somebody holds it. Whether it has changed is told by its identity, size and
// times of change, and by its contents as long as the last change is so recent that the times may
// not tell.
std::shared_ptr<PictureImage> LoadPictureFile(const std::string& path);

// The same from a picture file's bytes, of which a copy is kept at most. Raises
// ErrorNumber::InvalidPicture.
std::shared_ptr<PictureImage> DecodePicture(std::span<const std::uint8_t> bytes);

}  // namespace pagivo::native
