#include "window/surface.h"

#include <utility>

namespace pagivo {

namespace {

// `share` of 255 parts of `over`.
std::uint32_t Blend(std::uint32_t under, std::uint32_t over, int share) {
  std::uint32_t blended = 0xFF000000;
  for (const int shift : {0, 8, 16}) {
    const int from = static_cast<int>(under >> shift & 0xFF);
    const int to = static_cast<int>(over >> shift & 0xFF);
    blended |= static_cast<std::uint32_t>(from + (to - from) * share / 255) << shift;
  }
  return blended;
}

SurfaceBars WantedBars(const SurfaceContent& content) {
  return {.horizontal = content.HorizontalRange().wanted,
          .vertical = content.VerticalRange().wanted};
}

}  // namespace

SurfaceColors SurfaceColorsFor(std::uint32_t window, std::uint32_t text,
                               std::uint32_t highlight) noexcept {
  constexpr std::uint32_t kBlack = 0xFF000000;
  const std::uint32_t ground = Blend(window, kBlack, 32);
  return {.ground = ground, .edge = Blend(ground, text, 96), .highlight = highlight};
}

SurfaceContent::~SurfaceContent() = default;

Surface::~Surface() {
  if (content_) content_->WhenChanged(nullptr);
}

void Surface::PutContent(std::shared_ptr<SurfaceContent> content) {
  if (content_) content_->WhenChanged(nullptr);
  content_ = std::move(content);
  if (content_) content_->WhenChanged([this] { Refresh(); });
  Refresh();
}

// A bar that has appeared stays, so that this comes to an end.
SurfaceBars Surface::FitBars(const SurfaceBars& present, const AreaBeside& areaBeside) {
  const auto content = content_;
  if (!content) return present;
  SurfaceBars bars = present;
  content->PutArea(areaBeside(bars));
  for (const bool mayHide : {true, false, false}) {
    SurfaceBars wanted = WantedBars(*content);
    if (!mayHide) {
      wanted.horizontal |= bars.horizontal;
      wanted.vertical |= bars.vertical;
    }
    if (wanted == bars) continue;
    bars = wanted;
    content->PutArea(areaBeside(bars));
  }
  return bars;
}

bool Surface::PressKey(std::int16_t keyCode, std::int16_t shift) {
  const auto content = content_;
  return content && content->PressKey(keyCode, shift);
}

}  // namespace pagivo
