// A bar that is filled from the left as far as the work is done.
#pragma once

#include "engine/native/setup/still_content.h"

namespace pagivo::native {

class ProgressBar final : public StillContent {
 public:
  // From 0 to 1.
  void PutDone(double done);
  double Done() const noexcept { return done_; }

  void Draw(const SurfaceBitmap& bitmap, const SurfaceColors& colors) override;

 private:
  double done_ = 0;
};

}  // namespace pagivo::native
