// The bytes of a picture file: what kind of file they are, numbers read out of them, and what stops
// their decoding.
#pragma once

#include <csetjmp>
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>

namespace pagivo::native {

using PictureBytes = std::span<const std::uint8_t>;

// Why a picture is refused. The reason is a Dutch clause that the loader completes with the
// picture's name; it never leaves this component.
class DecodeFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class TooLargeFailure : public DecodeFailure {
 public:
  using DecodeFailure::DecodeFailure;
};

// Each refuses a picture: one that is damaged or cut off, one that passes a bound of pixels or
// bytes, one that would be too much work to decode.
[[noreturn]] void RefuseDamaged();
[[noreturn]] void RefuseTooLarge();
[[noreturn]] void RefuseTooMuchWork();

// How a library written in C leaves its callers when it gives up: by a jump past all frames to
// where they entered it.
class WayOut {
 public:
  // Runs a step through the library and says whether it came to its end. Nothing in the step may
  // need tidying up while the library runs.
  template <typename Step>
  bool IsNotTaken(Step step) {
    if (setjmp(place_) != 0) return false;
    step();
    return true;
  }

  [[noreturn]] void Take() { std::longjmp(place_, 1); }

 private:
  std::jmp_buf place_;
};

// Refuses a picture of no pixels as damaged and one of more than kMaximumPixels as too large.
void RequireDecodableSize(std::int64_t width, std::int64_t height);

// Gives the `count` bytes from `at`. Refuses the picture as damaged when they are not all there.
// Places and counts are wider than memory may be, for files say what they like.
PictureBytes Slice(PictureBytes bytes, std::uint64_t at, std::uint64_t count);

// Each gives the whole number at `at`, whose lowest byte stands first (Little) or last (Big), and
// refuses like Slice.
std::uint16_t ReadLittle16(PictureBytes bytes, std::uint64_t at);
std::uint32_t ReadLittle32(PictureBytes bytes, std::uint64_t at);
std::uint16_t ReadBig16(PictureBytes bytes, std::uint64_t at);
std::uint32_t ReadBig32(PictureBytes bytes, std::uint64_t at);

enum class PictureFormat : std::uint8_t { Unknown, Bmp, Gif, Ico, Jpeg, Png, Tiff, Svg };

// Tells the format by the signature at the start of the file, whatever its name. Any XML counts as
// SVG.
PictureFormat FormatOf(PictureBytes bytes);

}  // namespace pagivo::native
