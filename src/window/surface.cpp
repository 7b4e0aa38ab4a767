#include "window/surface.h"

#include <utility>

namespace pagivo {

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

bool Surface::PressKey(std::int16_t keyCode, std::int16_t shift) {
  const auto content = content_;
  return content && content->PressKey(keyCode, shift);
}

}  // namespace pagivo
