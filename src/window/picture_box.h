// A picture control: holds a picture object.
#pragma once

#include <utility>

#include "pagivo/object.h"

namespace pagivo {

class PictureBox {
 public:
  // Null when there is none.
  const ObjectRef& Picture() const noexcept { return picture_; }
  void PutPicture(ObjectRef picture) { picture_ = std::move(picture); }

 private:
  ObjectRef picture_;
};

}  // namespace pagivo
