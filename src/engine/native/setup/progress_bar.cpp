#include "engine/native/setup/progress_bar.h"

#include <algorithm>
#include <cmath>

namespace pagivo::native {

void ProgressBar::PutDone(double done) {
  if (done == done_) return;
  done_ = done;
  Change();
}

// A frame around it, a 96th of an inch wide, and a ground for what is still to be done.
void ProgressBar::Draw(const SurfaceBitmap& bitmap, const SurfaceColors& colors) {
  const std::int32_t line = std::max(static_cast<std::int32_t>(std::lround(Scale())), 1);
  const std::int32_t inside = std::max(bitmap.width - 2 * line, 0);
  const auto filled = static_cast<std::int32_t>(std::lround(std::clamp(done_, 0.0, 1.0) * inside));
  for (std::int32_t y = 0; y < bitmap.height; ++y) {
    const auto row =
        bitmap.pixels.subspan(static_cast<std::size_t>(y) * static_cast<std::size_t>(bitmap.width),
                              static_cast<std::size_t>(bitmap.width));
    std::ranges::fill(row, colors.edge);
    if (y < line || y >= bitmap.height - line || inside == 0) continue;
    const auto bar = row.subspan(static_cast<std::size_t>(line), static_cast<std::size_t>(inside));
    std::ranges::fill(bar, colors.ground);
    std::ranges::fill(bar.first(static_cast<std::size_t>(filled)), colors.highlight);
  }
}

}  // namespace pagivo::native
