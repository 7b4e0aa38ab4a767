// Windows as pictures of a document.
#pragma once

#include <memory>
#include <vector>

#include "engine/native/pictures/picture_image.h"
#include "window/window_system.h"

namespace pagivo::native {

// A window that looks as it did, or as another one does, is the same picture as long as somebody
// holds it: so a document keeps it once.
class WindowPictures {
 public:
  PictureImageRef PictureOf(const WindowImage& image);

 private:
  PictureImageRef FindSame(const PictureImage::Pixels& pixels) const;

  std::vector<std::weak_ptr<const PictureImage>> pictures_;
};

}  // namespace pagivo::native
