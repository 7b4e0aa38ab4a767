#include "engine/native/pdf/image_embedder.h"

#include "engine/native/pdf/image_samples.h"
#include "engine/native/pdf/jpeg_frame.h"

namespace pagivo::native {
namespace {

PdfName DeviceColorSpace(int components) {
  return {components == 1 ? "DeviceGray" : "DeviceRGB"};
}

PdfArray TableColorSpace(std::span<const std::uint32_t> table) {
  std::string bytes;
  for (const std::uint32_t color : table) {
    for (const int shift : {16, 8, 0}) bytes.push_back(static_cast<char>(color >> shift));
  }
  PdfArray space;
  space.Add(PdfName{"Indexed"}).Add(PdfName{"DeviceRGB"});
  space.Add(table.size() - 1).Add(PdfBytes{bytes});
  return space;
}

PdfDictionary ImageDictionary(std::int32_t width, std::int32_t height) {
  PdfDictionary dictionary;
  dictionary.Put("Type", PdfName{"XObject"}).Put("Subtype", PdfName{"Image"});
  dictionary.Put("Width", width).Put("Height", height).Put("BitsPerComponent", 8);
  return dictionary;
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

PdfDictionary ImageEmbedder::Resources() const {
  PdfDictionary resources;
  for (std::size_t i = 0; i < images_.size(); ++i) resources.Put(ImageName(i), images_[i]);
  return resources;
}

PdfReference ImageEmbedder::Write(const PictureImage& picture) {
  const PdfReference image = file_.Reserve();
  if (WriteJpeg(image, picture)) return image;

  PdfReference mask;
  if (const ImageSamples alpha = MakeAlphaSamples(picture.GetPixels()); !alpha.bytes.empty()) {
    mask = file_.Reserve();
    WriteSamples(mask, alpha, {});
  }
  WriteSamples(image, MakeColorSamples(picture.GetPixels()), mask);
  return image;
}

// False when there is no JPEG file, or one that is not this picture.
bool ImageEmbedder::WriteJpeg(PdfReference image, const PictureImage& picture) {
  const std::optional<JpegFrame> frame = ReadJpegFrame(picture.Jpeg());
  if (!frame || !IsDecodedFrom(picture.GetPixels(), *frame) ||
      (frame->components != 1 && frame->components != 3)) {
    return false;
  }
  PdfDictionary dictionary = ImageDictionary(frame->width, frame->height);
  dictionary.Put("ColorSpace", DeviceColorSpace(frame->components));
  dictionary.Put("Filter", PdfName{"DCTDecode"});
  const auto* bytes = reinterpret_cast<const char*>(picture.Jpeg().data());
  file_.WriteEncodedStream(image, std::move(dictionary), {bytes, picture.Jpeg().size()});
  return true;
}

// Prediction makes photographs smaller and drawings larger, so both are tried.
void ImageEmbedder::WriteSamples(PdfReference image, const ImageSamples& samples,
                                 PdfReference mask) {
  PdfDictionary dictionary = ImageDictionary(samples.width, samples.height);
  if (samples.table.empty()) {
    dictionary.Put("ColorSpace", DeviceColorSpace(samples.samplesPerPixel));
  } else {
    dictionary.Put("ColorSpace", TableColorSpace(samples.table));
  }
  if (mask.number != 0) dictionary.Put("SMask", mask);
  dictionary.Put("Filter", PdfName{"FlateDecode"});

  const std::string plain(file_.Compressor().Compress(samples.bytes));
  const std::string_view predicted = file_.Compressor().Compress(PredictRows(samples));
  if (plain.size() <= predicted.size()) {
    file_.WriteEncodedStream(image, std::move(dictionary), plain);
    return;
  }
  PdfDictionary prediction;
  prediction.Put("Predictor", 15).Put("Colors", samples.samplesPerPixel);
  prediction.Put("Columns", samples.width);
  dictionary.Put("DecodeParms", prediction);
  file_.WriteEncodedStream(image, std::move(dictionary), predicted);
}

}  // namespace pagivo::native
