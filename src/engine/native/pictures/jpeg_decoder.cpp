#include "engine/native/pictures/jpeg_decoder.h"

#include <jpeglib.h>

#include <algorithm>
#include <array>
#include <cstdio>  // jpeglib.h wants it before
#include <cstring>
#include <iterator>
#include <new>
#include <vector>

#include "engine/native/pictures/picture_image.h"
#include "engine/native/pictures/picture_loader.h"

namespace pagivo::native {
namespace {

// --- What the markers say

// Marker codes of ITU-T T.81, table B.1; a marker is 0xFF followed by one of them.
constexpr std::uint8_t kBaselineFrame = 0xC0;
constexpr std::uint8_t kProgressiveFrame = 0xC2;
constexpr std::uint8_t kHuffmanTables = 0xC4;
constexpr std::uint8_t kExtension = 0xC8;
constexpr std::uint8_t kArithmeticConditioning = 0xCC;
constexpr std::uint8_t kLastFrame = 0xCF;
constexpr std::uint8_t kFirstRestart = 0xD0;
constexpr std::uint8_t kLastRestart = 0xD7;
constexpr std::uint8_t kStartOfImage = 0xD8;
constexpr std::uint8_t kEndOfImage = 0xD9;
constexpr std::uint8_t kStartOfScan = 0xDA;
constexpr std::uint8_t kApplication0 = 0xE0;
constexpr std::uint8_t kApplication14 = 0xEE;
constexpr std::uint8_t kApplication15 = 0xEF;
constexpr std::uint8_t kComment = 0xFE;

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

// Of the segments of applications the decoder looks at JFIF's and Adobe's; it passes over the
// others and over comments. Markers that it does not know make it refuse the file.
bool MattersToTheDecoder(std::uint8_t marker) {
  if (marker == kApplication0 || marker == kApplication14) return true;
  return marker != kComment && (marker < kApplication0 || marker > kApplication15);
}

// These stand for themselves, so the decoder would look for the next marker in what seems to be
// their segment. None has a place between segments.
bool HasNoSegment(std::uint8_t marker) {
  return marker < kBaselineFrame || (marker >= kFirstRestart && marker <= kStartOfImage);
}

class MarkerWalk {
 public:
  explicit MarkerWalk(PictureBytes bytes) : bytes_(bytes) {}

  void Run() {
    for (;;) {
      const std::uint8_t marker = NextMarker();
      if (marker == kEndOfImage) break;
      if (HasNoSegment(marker)) RefuseDamaged();
      const PictureBytes segment = NextSegment();
      if (IsFrame(marker)) TakeFrame(marker, segment);
      if (marker == kStartOfScan) CountScan();
      TakeForTrial(marker, segment);
      if (marker == kStartOfScan) SkipScanData();
    }
    if (scannedPixels_ == 0 || !HoldsAllBlocks()) RefuseDamaged();
    trial_.insert(trial_.end(), {0xFF, kEndOfImage});
  }

  // The file's own markers around no data, as a picture of one pixel: whatever the decoder has
  // against the file, it has against this one.
  PictureBytes Trial() const { return trial_; }

  JpegStructure Structure() const {
    constexpr std::uint8_t kBitsPerSample = 8;
    const bool isUsual = frameMarker_ == kBaselineFrame || frameMarker_ == kProgressiveFrame;
    return {.width = ReadBig16(frame_, 3),
            .height = ReadBig16(frame_, 1),
            .components = static_cast<int>(components_),
            .suitsPdf = isUsual && frame_[0] == kBitsPerSample};
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

  void TakeFrame(std::uint8_t marker, PictureBytes segment) {
    if (!frame_.empty()) RefuseDamaged();
    frame_ = segment;
    frameMarker_ = marker;
    const std::int64_t height = ReadBig16(segment, 1);
    const std::int64_t width = ReadBig16(segment, 3);
    RequireDecodableSize(width, height);
    if (std::max(width, height) > JPEG_MAX_DIMENSION) RefuseDamaged();
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

  void TakeForTrial(std::uint8_t marker, PictureBytes segment) {
    if (!MattersToTheDecoder(marker)) return;
    const auto length = static_cast<std::uint16_t>(segment.size() + 2);
    trial_.insert(trial_.end(), {0xFF, marker, static_cast<std::uint8_t>(length >> 8),
                                 static_cast<std::uint8_t>(length)});
    std::copy(segment.begin(), segment.end(), std::back_inserter(trial_));
    constexpr std::array<std::uint8_t, 4> kOnePixel{0, 1, 0, 1};
    if (IsFrame(marker)) std::ranges::copy(kOnePixel, trial_.end() - std::ssize(segment) + 1);
  }

  void SkipScanData() {
    const std::size_t begin = at_;
    FindEndOfScanData();
    scanBytes_ += at_ - begin;
  }

  void FindEndOfScanData() {
    for (;;) {
      const PictureBytes rest = bytes_.subspan(at_);
      const auto* found =
          static_cast<const std::uint8_t*>(std::memchr(rest.data(), 0xFF, rest.size()));
      if (found == nullptr) RefuseDamaged();
      at_ = static_cast<std::size_t>(found - bytes_.data());
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

  PictureBytes bytes_;
  std::size_t at_ = 2;  // behind the start-of-image marker
  PictureBytes frame_;
  std::uint8_t frameMarker_ = 0;
  std::size_t components_ = 0;
  std::int64_t pixels_ = 0;
  std::int64_t scannedPixels_ = 0;
  std::size_t scanBytes_ = 0;
  std::vector<std::uint8_t> trial_{0xFF, kStartOfImage};
};

// --- The decoder

// Decoding makes pictures smaller on the way: to a half, a quarter or an eighth.
std::int32_t ReductionWhileDecoding(std::int64_t width, std::int64_t height) {
  constexpr std::int64_t kMost = 8;
  std::int64_t reduction = 1;
  while (reduction < kMost && width * height / (reduction * reduction) > kMaximumKeptPixels) {
    reduction *= 2;
  }
  return static_cast<std::int32_t>(reduction);
}

// Adobe's programs store the four inks the other way round.
void MakeRgbOfCmyk(std::vector<std::uint8_t>& row, bool isInverted) {
  auto to = row.begin();
  for (std::size_t at = 0; at < row.size(); at += 4) {
    const auto light = [isInverted](int ink) { return isInverted ? ink : 255 - ink; };
    const int black = light(row[at + 3]);
    for (std::size_t i = at; i < at + 3; ++i) {
      *to++ = static_cast<std::uint8_t>(black * light(row[i]) / 255);
    }
  }
}

class JpegReader {
 public:
  explicit JpegReader(PictureBytes bytes) : bytes_(bytes) {
    info_.err = jpeg_std_error(&errors_);
    errors_.error_exit = [](j_common_ptr info) {
      static_cast<JpegReader*>(info->client_data)->wayOut_.Take();
    };
    errors_.output_message = [](j_common_ptr) {};
    info_.client_data = this;
    if (!wayOut_.IsNotTaken([this] { jpeg_create_decompress(&info_); })) throw std::bad_alloc();
  }
  ~JpegReader() { jpeg_destroy_decompress(&info_); }
  JpegReader(const JpegReader&) = delete;
  JpegReader& operator=(const JpegReader&) = delete;

  void ReadHeader() {
    Do([this] {
      jpeg_mem_src(&info_, bytes_.data(), static_cast<unsigned long>(bytes_.size()));
      jpeg_read_header(&info_, TRUE);
    });
  }

  PictureImage::Pixels ReadPixels() {
    Begin();
    const auto width = static_cast<std::int32_t>(info_.output_width);
    const auto height = static_cast<std::int32_t>(info_.output_height);
    RowReducer reducer(width, height, false, ReductionFor(width, height, kMaximumKeptPixels));
    std::vector<std::uint8_t> row(std::size_t{info_.output_width} *
                                  static_cast<std::size_t>(info_.output_components));
    while (info_.output_scanline < info_.output_height) {
      ReadRow(row.data());
      if (info_.out_color_space == JCS_CMYK) MakeRgbOfCmyk(row, info_.saw_Adobe_marker != 0);
      reducer.Take(row.data());
    }
    Do([this] { jpeg_finish_decompress(&info_); });
    return reducer.TakePixels();
  }

  // Decoders go by different ones of these marks, so they must not contradict each other.
  bool ColorsAreCertain() const {
    if (info_.num_components == 1) return true;
    if (info_.num_components != 3) return false;
    if (info_.saw_JFIF_marker != 0) {
      return info_.saw_Adobe_marker == 0 || info_.Adobe_transform == 1;
    }
    if (info_.saw_Adobe_marker != 0) return info_.Adobe_transform <= 1;
    return info_.comp_info[0].component_id == 1 && info_.comp_info[1].component_id == 2 &&
           info_.comp_info[2].component_id == 3;
  }

 private:
  // Refuses the picture when the library gives up. The step holds nothing that needs tidying up.
  template <typename Step>
  void Do(Step step) {
    if (!wayOut_.IsNotTaken(step)) RefuseDamaged();
  }

  void Begin() {
    switch (info_.jpeg_color_space) {
      case JCS_GRAYSCALE:
      case JCS_RGB:
      case JCS_YCbCr:
        info_.out_color_space = JCS_RGB;
        break;
      case JCS_CMYK:
      case JCS_YCCK:
        info_.out_color_space = JCS_CMYK;
        break;
      default:
        RefuseDamaged();
    }
    info_.scale_num = 1;
    info_.scale_denom =
        static_cast<unsigned int>(ReductionWhileDecoding(info_.image_width, info_.image_height));
    Do([this] { jpeg_start_decompress(&info_); });
  }

  void ReadRow(std::uint8_t* row) {
    Do([this, &row] { jpeg_read_scanlines(&info_, &row, 1); });
  }

  PictureBytes bytes_;
  WayOut wayOut_;
  jpeg_error_mgr errors_{};
  jpeg_decompress_struct info_{};
};

// The size that ReadPixels comes to.
void TellDecodedSize(JpegStructure& structure) {
  const std::int32_t first = ReductionWhileDecoding(structure.width, structure.height);
  const std::int32_t width = DividedSide(structure.width, first);
  const std::int32_t height = DividedSide(structure.height, first);
  const std::int32_t second = ReductionFor(width, height, kMaximumKeptPixels);
  structure.decodedWidth = DividedSide(width, second);
  structure.decodedHeight = DividedSide(height, second);
}

}  // namespace

JpegStructure ReadJpegStructure(PictureBytes bytes) {
  MarkerWalk walk(bytes);
  walk.Run();
  JpegReader trial(walk.Trial());
  trial.ReadHeader();
  JpegStructure structure = walk.Structure();
  structure.suitsPdf = structure.suitsPdf && trial.ColorsAreCertain();
  trial.ReadPixels();
  TellDecodedSize(structure);
  return structure;
}

PictureImage::Pixels DecodeJpeg(PictureBytes bytes) {
  JpegReader reader(bytes);
  reader.ReadHeader();
  return reader.ReadPixels();
}

}  // namespace pagivo::native
