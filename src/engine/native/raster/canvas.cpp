#include "engine/native/raster/canvas.h"

#include <algorithm>
#include <cmath>
#include <new>

#include "pagivo/error.h"

namespace pagivo::native {
namespace {

// Rows of paper that are laid at once: a few lines of text, which processors have room for.
constexpr std::int32_t kPaperRows = 32;

// The pixels of one direction, within bounds, that a stretch between two edges meets.
struct Extent {
  Extent(double edge, double otherEdge, std::int32_t low, std::int32_t high)
      : from(std::min(edge, otherEdge)),
        to(std::max(edge, otherEdge)),
        begin(Within(std::floor(from), low, high)),
        end(Within(std::ceil(to), low, high)) {}

  // How much of the pixel from `at` to `at` + 1 lies between the edges.
  double ShareOf(std::int32_t at) const {
    return std::clamp(std::min(to, at + 1.0) - std::max(from, double(at)), 0.0, 1.0);
  }

  static std::int32_t Within(double edge, std::int32_t low, std::int32_t high) {
    return static_cast<std::int32_t>(std::clamp<double>(edge, low, std::max(low, high)));
  }

  double from;
  double to;
  std::int32_t begin;
  std::int32_t end;
};

}  // namespace

Canvas::Canvas(Bitmap& bitmap, const PageView& view, const PixelSize& page, PaperState paper)
    : bitmap_(bitmap),
      left_(view.left),
      top_(view.top),
      clip_{std::max(view.left, 0), std::max(view.top, 0),
            std::min(view.left + bitmap.width, page.width),
            std::min(view.top + bitmap.height, page.height)},
      paperBottom_(paper == PaperState::Laid ? clip_.bottom : clip_.top) {}

Canvas::~Canvas() = default;

// Most pages need no cairo.
void Canvas::BeginCairo() {
  surface_.reset(cairo_image_surface_create_for_data(
      reinterpret_cast<unsigned char*>(bitmap_.pixels.data()), CAIRO_FORMAT_ARGB32, bitmap_.width,
      bitmap_.height, 4 * bitmap_.width));
  context_.reset(cairo_create(surface_.get()));
  if (cairo_status(context_.get()) != CAIRO_STATUS_SUCCESS) {
    throw Error(ErrorNumber::InvalidArgument, "De pagina is te groot om te tekenen");
  }
  cairo_translate(context_.get(), -left_, -top_);
  cairo_rectangle(context_.get(), clip_.left, clip_.top, std::max(0, clip_.right - clip_.left),
                  std::max(0, clip_.bottom - clip_.top));
  cairo_clip(context_.get());
}

cairo_t* Canvas::Vectors(std::int32_t bottom) {
  LayPaper(bottom);
  if (context_ == nullptr) BeginCairo();
  if (pixelsChanged_) cairo_surface_mark_dirty(surface_.get());
  pixelsChanged_ = false;
  return context_.get();
}

void Canvas::RequireDrawn() const {
  if (context_ && cairo_status(context_.get()) == CAIRO_STATUS_NO_MEMORY) throw std::bad_alloc();
}

std::uint32_t* Canvas::Row(std::int32_t y) {
  LayPaper(y + 1);
  if (!pixelsChanged_ && surface_ != nullptr) cairo_surface_flush(surface_.get());
  pixelsChanged_ = true;
  return PixelsOf(y);
}

void Canvas::LayMorePaper(std::int32_t bottom) {
  if (clip_.IsEmpty()) return;
  if (surface_ != nullptr) cairo_surface_flush(surface_.get());
  pixelsChanged_ = true;
  const std::int32_t end = std::min(std::max(bottom, paperBottom_ + kPaperRows), clip_.bottom);
  for (; paperBottom_ < end; ++paperBottom_) {
    std::fill(PixelsOf(paperBottom_) + clip_.left, PixelsOf(paperBottom_) + clip_.right,
              kPaperPixel);
  }
}

void Canvas::DrawCoverage(const Coverage& coverage, std::int32_t left, std::int32_t top,
                          const Ink& ink) {
  // The blanks at the rows' ends are blended along where there is room for them.
  const std::int32_t right =
      left + (left + coverage.pitch <= clip_.right ? coverage.pitch : coverage.width);
  const PixelBox box = Intersection({left, top, right, top + coverage.height}, clip_);
  if (box.IsEmpty()) return;
  LayPaper(box.bottom);
  const std::uint8_t* covered =
      coverage.bytes + std::ptrdiff_t{box.top - top} * coverage.pitch + (box.left - left);
  ink.BlendRows({.pixels = Row(box.top) + box.left,
                 .stride = bitmap_.width,
                 .coverages = covered,
                 .pitch = coverage.pitch,
                 .width = box.right - box.left,
                 .height = box.bottom - box.top});
}

void Canvas::FillRectangle(const PixelRectangle& rectangle, const Ink& ink) {
  const Extent columns(rectangle.left, rectangle.right, clip_.left, clip_.right);
  const Extent rows(rectangle.top, rectangle.bottom, clip_.top, clip_.bottom);
  if (columns.begin >= columns.end || rows.begin >= rows.end) return;
  for (std::int32_t y = rows.begin; y < rows.end; ++y) {
    std::uint32_t* row = Row(y);
    const double height = 255 * rows.ShareOf(y);
    const auto coverage = [&](std::int32_t x) {
      return static_cast<std::uint32_t>(height * columns.ShareOf(x) + 0.5);
    };
    // All pixels between the outer two are covered as much.
    const std::int32_t last = columns.end - 1;
    ink.Blend(row[columns.begin], coverage(columns.begin));
    if (last == columns.begin) continue;
    if (last > columns.begin + 1) {
      ink.BlendRun(row + columns.begin + 1, row + last, coverage(columns.begin + 1));
    }
    ink.Blend(row[last], coverage(last));
  }
}

}  // namespace pagivo::native
