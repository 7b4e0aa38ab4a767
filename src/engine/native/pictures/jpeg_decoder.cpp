#include "engine/native/pictures/jpeg_decoder.h"

#include <algorithm>
#include <optional>
#include <string_view>

#include "engine/native/pictures/picture_loader.h"

namespace pagivo::native {
namespace {

// Marker codes of ITU-T T.81, table B.1; a marker is 0xFF followed by one of them.
constexpr std::uint8_t kBaselineFrame = 0xC0;
constexpr std::uint8_t kProgressiveFrame = 0xC2;
constexpr std::uint8_t kHuffmanTables = 0xC4;
constexpr std::uint8_t kExtension = 0xC8;
constexpr std::uint8_t kArithmeticConditioning = 0xCC;
constexpr std::uint8_t kLastFrame = 0xCF;
constexpr std::uint8_t kFirstRestart = 0xD0;
constexpr std::uint8_t kLastRestart = 0xD7;
constexpr std::uint8_t kEndOfImage = 0xD9;
constexpr std::uint8_t kStartOfScan = 0xDA;
constexpr std::uint8_t kApplication0 = 0xE0;
constexpr std::uint8_t kApplication14 = 0xEE;

// A scan that changes hardly anything still costs a pass over all pixels; photographs have about
// ten.
constexpr std::int64_t kMaximumScannedPixels = 2 * kMaximumPixels;

bool IsFrame(std::uint8_t marker) {
  return marker >= kBaselineFrame && marker <= kLastFrame && marker != kHuffmanTables &&
         marker != kExtension && marker != kArithmeticConditioning;
}

bool StandsInScanData(std::uint8_t marker) {
  return marker == 0 || (marker >= kFirstRestart && marker <= kLastRestart);
}

bool StartsWith(PictureBytes bytes, std::string_view text) {
  return std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size())
      .starts_with(text);
}

class MarkerWalk {
 public:
  explicit MarkerWalk(PictureBytes bytes) : bytes_(bytes) {}

  JpegStructure Run() {
    for (;;) {
      const std::uint8_t marker = NextMarker();
      if (marker == kEndOfImage) break;
      const PictureBytes segment = NextSegment();
      TakeSegment(marker, segment);
      if (marker == kStartOfScan) SkipScanData();
    }
    if (scannedPixels_ == 0 || !HoldsAllBlocks()) RefuseDamaged();
    return {FrameSuitsPdf() && ColorsAreCertain()};
  }

 private:
  std::uint8_t NextMarker() {
    if (Slice(bytes_, at_, 1)[0] != 0xFF) RefuseDamaged();
    while (Slice(bytes_, at_, 1)[0] == 0xFF) ++at_;  // any number of fill bytes
    return bytes_[at_++];
  }

  PictureBytes NextSegment() {
    const std::size_t length = ReadBig16(bytes_, at_);
    if (length < 2) RefuseDamaged();
    const PictureBytes segment = Slice(bytes_, at_ + 2, length - 2);
    at_ += length;
    return segment;
  }

  void TakeSegment(std::uint8_t marker, PictureBytes segment) {
    if (IsFrame(marker)) {
      TakeFrame(marker, segment);
    } else if (marker == kStartOfScan) {
      CountScan();
    } else if (marker == kApplication0) {
      jfif_ = jfif_ || StartsWith(segment, {"JFIF\0", 5});
    } else if (marker == kApplication14 && StartsWith(segment, "Adobe") && segment.size() >= 12) {
      adobeTransform_ = segment[11];
    }
  }

  void TakeFrame(std::uint8_t marker, PictureBytes segment) {
    if (!frame_.empty()) RefuseDamaged();
    frame_ = segment;
    frameMarker_ = marker;
    const std::int64_t height = ReadBig16(segment, 1);
    const std::int64_t width = ReadBig16(segment, 3);
    RequireDecodableSize(width, height);
    pixels_ = width * height;
    components_ = Slice(segment, 5, 1)[0];
    Slice(segment, 6, components_ * 3);
  }

  void CountScan() {
    if (frame_.empty()) RefuseDamaged();
    scannedPixels_ += pixels_;
    if (scannedPixels_ > kMaximumScannedPixels) RefuseTooLarge();
    // Of a file of several scans the decoder keeps two bytes for every sample, until the last scan.
    const bool severalScans = frameMarker_ >= kProgressiveFrame || scannedPixels_ > pixels_;
    if (severalScans && 2 * Samples() > kMaximumDecoderBytes) RefuseTooLarge();
  }

  // Of all components, of which some may have fewer rows and columns than the picture.
  std::int64_t Samples() const {
    std::int64_t most = 1;
    std::int64_t sum = 0;
    for (std::size_t i = 0; i < components_; ++i) {
      const std::uint8_t factors = frame_[7 + 3 * i];
      const std::int64_t share = std::int64_t{factors >> 4} * (factors & 15);
      most = std::max(most, share);
      sum += share;
    }
    return pixels_ * sum / most;
  }

  void SkipScanData() {
    const std::size_t begin = at_;
    FindEndOfScanData();
    scanBytes_ += at_ - begin;
  }

  void FindEndOfScanData() {
    for (;;) {
      const auto found = std::find(bytes_.begin() + std::ptrdiff_t(at_), bytes_.end(), 0xFF);
      at_ = static_cast<std::size_t>(found - bytes_.begin());
      const std::uint8_t next = Slice(bytes_, at_, 2)[1];
      if (next == 0xFF) {
        at_ += 1;
      } else if (StandsInScanData(next)) {
        at_ += 2;
      } else {
        return;
      }
    }
  }

  // Huffman codes spend a bit at least on every block of 8 x 8 pixels. The decoder would paint the
  // blocks that are missing grey.
  bool HoldsAllBlocks() const {
    if (frameMarker_ > kProgressiveFrame) return true;
    const std::size_t rows = (ReadBig16(frame_, 1) + 7U) / 8;
    const std::size_t columns = (ReadBig16(frame_, 3) + 7U) / 8;
    return scanBytes_ * 8 >= rows * columns;
  }

  bool FrameSuitsPdf() const {
    constexpr std::uint8_t kBitsPerSample = 8;
    return (frameMarker_ == kBaselineFrame || frameMarker_ == kProgressiveFrame) &&
           frame_[0] == kBitsPerSample;
  }

  // Decoders go by different ones of these marks, so they must not contradict each other.
  bool ColorsAreCertain() const {
    if (components_ == 1) return true;
    if (components_ != 3) return false;
    if (jfif_) return adobeTransform_.value_or(1) == 1;
    if (adobeTransform_) return *adobeTransform_ <= 1;
    return frame_[6] == 1 && frame_[9] == 2 && frame_[12] == 3;
  }

  PictureBytes bytes_;
  std::size_t at_ = 2;  // behind the start-of-image marker
  PictureBytes frame_;
  std::uint8_t frameMarker_ = 0;
  std::size_t components_ = 0;
  std::int64_t pixels_ = 0;
  std::int64_t scannedPixels_ = 0;
  std::size_t scanBytes_ = 0;
  bool jfif_ = false;
  std::optional<std::uint8_t> adobeTransform_;
};

}  // namespace

JpegStructure ReadJpegStructure(PictureBytes bytes) {
  return MarkerWalk(bytes).Run();
}

}  // namespace pagivo::native
