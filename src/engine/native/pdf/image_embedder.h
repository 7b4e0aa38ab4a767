// The pictures of a file.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/native/pdf/pdf_file.h"
#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

struct ImageSamples;

// Writes each picture once, when it is first drawn: as its file holds it where PDF takes that.
class ImageEmbedder {
 public:
  explicit ImageEmbedder(PdfFile& file) : file_(file) {}

  // The name of the picture's image resource. The picture must not be empty and must live as long
  // as the embedder.
  std::string NameOf(const PictureImage& picture);

  // The resource dictionary that names the pictures.
  PdfDictionary Resources() const;

 private:
  PdfReference Write(const PictureImage& picture);
  void WriteStored(PdfReference image, const StoredPicture& stored);
  // `mask` says how opaque the samples are; number 0: all are.
  void WriteSamples(PdfReference image, const ImageSamples& samples, PdfReference mask);

  PdfFile& file_;
  std::unordered_map<const PictureImage*, std::size_t> indexes_;  // into images_
  std::vector<PdfReference> images_;
};

}  // namespace pagivo::native
