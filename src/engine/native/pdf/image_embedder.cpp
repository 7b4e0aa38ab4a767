#include "engine/native/pdf/image_embedder.h"

#include <span>
#include <utility>

#include "engine/native/pdf/image_samples.h"

namespace pagivo::native {
namespace {

std::string_view BytesOf(std::span<const std::uint8_t> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

PdfName DeviceColorSpace(int components) {
  return {components == 1 ? "DeviceGray" : "DeviceRGB"};
}

PdfArray TableColorSpace(std::span<const std::uint8_t> table) {
  PdfArray space;
  space.Add(PdfName{"Indexed"}).Add(PdfName{"DeviceRGB"});
  space.Add(table.size() / 3 - 1).Add(PdfBytes{BytesOf(table)});
  return space;
}

// An empty table is none.
PdfDictionary ImageDictionary(std::int32_t width, std::int32_t height, int samplesPerPixel,
                              std::span<const std::uint8_t> table) {
  PdfDictionary dictionary;
  dictionary.Put("Type", PdfName{"XObject"}).Put("Subtype", PdfName{"Image"});
  dictionary.Put("Width", width).Put("Height", height).Put("BitsPerComponent", 8);
  if (table.empty()) {
    dictionary.Put("ColorSpace", DeviceColorSpace(samplesPerPixel));
  } else {
    dictionary.Put("ColorSpace", TableColorSpace(table));
  }
  return dictionary;
}

// Of rows that are predicted as PNG does it.
PdfDictionary Prediction(std::int32_t width, int samplesPerPixel) {
  PdfDictionary prediction;
  prediction.Put("Predictor", 15).Put("Colors", samplesPerPixel).Put("Columns", width);
  return prediction;
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
  if (const StoredPicture* stored = picture.Stored()) {
    WriteStored(image, *stored);
    return image;
  }
  const PictureImage::PixelsRef pixels = picture.GetPixels();
  PdfReference mask;
  if (const ImageSamples alpha = MakeAlphaSamples(*pixels); !alpha.bytes.empty()) {
    mask = file_.Reserve();
    WriteSamples(mask, alpha, {});
  }
  WriteSamples(image, MakeColorSamples(*pixels), mask);
  return image;
}

void ImageEmbedder::WriteStored(PdfReference image, const StoredPicture& stored) {
  PdfDictionary dictionary =
      ImageDictionary(stored.width, stored.height, stored.samplesPerPixel, stored.colors);
  if (stored.coding == StoredPicture::Coding::Jpeg) {
    dictionary.Put("Filter", PdfName{"DCTDecode"});
  } else {
    dictionary.Put("Filter", PdfName{"FlateDecode"});
    dictionary.Put("DecodeParms", Prediction(stored.width, stored.samplesPerPixel));
  }
  file_.WriteEncodedStream(image, std::move(dictionary), BytesOf(stored.Data()));
}

// Prediction makes photographs smaller and drawings larger, so both are tried.
void ImageEmbedder::WriteSamples(PdfReference image, const ImageSamples& samples,
                                 PdfReference mask) {
  PdfDictionary dictionary =
      ImageDictionary(samples.width, samples.height, samples.samplesPerPixel, samples.table);
  if (mask.number != 0) dictionary.Put("SMask", mask);
  dictionary.Put("Filter", PdfName{"FlateDecode"});

  const std::string plain(file_.Compressor().Compress(samples.bytes));
  const std::string_view predicted = file_.Compressor().Compress(PredictRows(samples));
  if (plain.size() <= predicted.size()) {
    file_.WriteEncodedStream(image, std::move(dictionary), plain);
    return;
  }
  dictionary.Put("DecodeParms", Prediction(samples.width, samples.samplesPerPixel));
  file_.WriteEncodedStream(image, std::move(dictionary), predicted);
}

}  // namespace pagivo::native
