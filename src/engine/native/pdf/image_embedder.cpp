#include "engine/native/pdf/image_embedder.h"

#include "engine/native/pdf/image_samples.h"
#include "engine/native/pdf/jpeg_frame.h"
#include "engine/native/pdf/number_format.h"

namespace pagivo::native {
namespace {

void AppendEntry(std::string& out, std::string_view key, std::int64_t value) {
  out += key;
  AppendInteger(out, value);
}

std::string ImageEntries(std::int32_t width, std::int32_t height, std::string_view colorSpace) {
  std::string entries = "/Type/XObject/Subtype/Image";
  AppendEntry(entries, "/Width ", width);
  AppendEntry(entries, "/Height ", height);
  entries.append("/BitsPerComponent 8/ColorSpace").append(colorSpace);
  return entries;
}

// Large files are decoded to a half, a quarter or an eighth of their sides.
bool IsDecodedFrom(const PictureImage::Pixels& pixels, const JpegFrame& frame) {
  for (const std::int32_t reduction : {1, 2, 4, 8}) {
    const auto divided = [reduction](std::int32_t side) {
      return (side + reduction - 1) / reduction;
    };
    if (pixels.width == divided(frame.width) && pixels.height == divided(frame.height)) return true;
  }
  return false;
}

std::string ImageName(std::size_t index) {
  return "I" + std::to_string(index);
}

}  // namespace

std::string ImageEmbedder::NameOf(const PictureImage& picture) {
  const auto [place, added] = indexes_.try_emplace(&picture, images_.size());
  if (added) images_.push_back(Write(picture));
  return ImageName(place->second);
}

std::string ImageEmbedder::Resources() const {
  std::string resources;
  for (std::size_t i = 0; i < images_.size(); ++i) {
    resources.append("/").append(ImageName(i)).append(" ");
    AppendReference(resources, images_[i]);
  }
  return resources;
}

ObjectNumber ImageEmbedder::Write(const PictureImage& picture) {
  const ObjectNumber number = file_.Reserve();
  if (WriteJpeg(number, picture)) return number;

  std::string moreEntries;
  if (const ImageSamples alpha = MakeAlphaSamples(picture.GetPixels()); !alpha.bytes.empty()) {
    const ObjectNumber mask = file_.Reserve();
    WriteSamples(mask, alpha, {});
    moreEntries = "/SMask ";
    AppendReference(moreEntries, mask);
  }
  WriteSamples(number, MakeColorSamples(picture.GetPixels()), moreEntries);
  return number;
}

// False when there is no JPEG file, or one that is not this picture.
bool ImageEmbedder::WriteJpeg(ObjectNumber number, const PictureImage& picture) {
  const std::optional<JpegFrame> frame = ReadJpegFrame(picture.Jpeg());
  if (!frame || !IsDecodedFrom(picture.GetPixels(), *frame) ||
      (frame->components != 1 && frame->components != 3)) {
    return false;
  }
  std::string entries = ImageEntries(frame->width, frame->height,
                                     frame->components == 1 ? "/DeviceGray" : "/DeviceRGB");
  entries += "/Filter/DCTDecode";
  const auto* bytes = reinterpret_cast<const char*>(picture.Jpeg().data());
  file_.WriteEncodedStream(number, entries, {bytes, picture.Jpeg().size()});
  return true;
}

// Prediction makes photographs smaller and drawings larger, so both are tried.
void ImageEmbedder::WriteSamples(ObjectNumber number, const ImageSamples& samples,
                                 std::string_view moreEntries) {
  std::string entries = ImageEntries(samples.width, samples.height, samples.colorSpace);
  entries.append(moreEntries).append("/Filter/FlateDecode");
  const std::string plain(file_.Compressor().Compress(samples.bytes));
  const std::string_view predicted = file_.Compressor().Compress(PredictRows(samples));
  if (plain.size() <= predicted.size()) {
    file_.WriteEncodedStream(number, entries, plain);
    return;
  }
  AppendEntry(entries, "/DecodeParms<</Predictor 15/Colors ", samples.samplesPerPixel);
  AppendEntry(entries, "/Columns ", samples.width);
  file_.WriteEncodedStream(number, entries += ">>", predicted);
}

}  // namespace pagivo::native
