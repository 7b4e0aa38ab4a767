// Pages of the current document as pictures, drawn as the preview draws them.
//
// The document is the one that PgPrint has composed; it may still be being composed. Pages count
// from 1. Errors: PageOutOfRange for a page that it does not have (or when there is none),
// InvalidArgument for a resolution outside kMinimumDotsPerInch..kMaximumDotsPerInch, a picture of
// more than 268 million pixels, or a print engine that is not the component's own, FileAccess when
// the file cannot be written, OutOfMemory also when memory ran out while the document was composed,
// so that something on it is missing.
#pragma once

#include <cstdint>
#include <vector>

#include "pagivo/arguments.h"
#include "pagivo/export.h"

namespace pagivo {

inline constexpr double kMinimumDotsPerInch = 1;
inline constexpr double kMaximumDotsPerInch = 4800;

struct PageImage {
  std::int32_t width = 0;
  std::int32_t height = 0;
  // 0xFFRRGGBB in the machine's byte order, rows top down without padding.
  std::vector<std::uint32_t> pixels;
};

PAGIVO_EXPORT PageImage DrawPageImage(std::int32_t page, double dotsPerInch);
// The same into an image that the caller keeps, whose memory serves for page after page. It is
// empty when this raises.
PAGIVO_EXPORT void DrawPageImage(std::int32_t page, double dotsPerInch, PageImage& image);

// The same to a PNG file. What was there is replaced when the new file is complete, and stays as it
// is on failure.
PAGIVO_EXPORT void WritePagePng(std::int32_t page, double dotsPerInch, const TextArgument& path);

}  // namespace pagivo
