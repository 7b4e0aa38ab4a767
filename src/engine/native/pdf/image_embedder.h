// The pictures of a file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "engine/native/pdf/pdf_file.h"
#include "engine/native/pictures/picture_image.h"

namespace pagivo::native {

struct ImageSamples;

// Writes each picture once, when it is first drawn.
class ImageEmbedder {
 public:
  explicit ImageEmbedder(PdfFile& file) : file_(file) {}

  // The name of the picture's image resource. The picture must not be empty and must live as long
  // as the embedder.
  std::string NameOf(const PictureImage& picture);

  // The entries of the resource dictionary for external objects.
  std::string Resources() const;

 private:
  ObjectNumber Write(const PictureImage& picture);
  bool WriteJpeg(ObjectNumber number, const PictureImage& picture);
  void WriteSamples(ObjectNumber number, const ImageSamples& samples, std::string_view moreEntries);

  PdfFile& file_;
  std::unordered_map<const PictureImage*, std::size_t> indexes_;  // into images_
  std::vector<ObjectNumber> images_;
};

}  // namespace pagivo::native
