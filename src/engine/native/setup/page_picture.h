// A small picture of a page: its paper, its margins and grey lines for its text.
#pragma once

#include "window/surface.h"

namespace pagivo::native {

// The paper as the page is turned, and its margins. Twips.
struct PageShape {
  double width = 0;
  double height = 0;
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;

  friend bool operator==(const PageShape&, const PageShape&) = default;
};

// Shows the whole page as large as the surface has room for, on whole device pixels.
class PagePicture final : public StillContent {
 public:
  void PutShape(const PageShape& shape);

  void Draw(const SurfaceBitmap& bitmap, const SurfaceColors& colors) override;

 private:
  PageShape shape_;
};

}  // namespace pagivo::native
