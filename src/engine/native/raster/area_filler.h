// Shapes filled by the area that they cover of each pixel.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "engine/native/document/geometry.h"
#include "engine/native/raster/canvas.h"

namespace pagivo::native {

using PixelPoint = ExactPoint;

// Pixels; what lies further out is taken to lie here.
inline constexpr double kFarthestPixel = 4e6;

// Corners are taken to 1/256 of a pixel and areas are computed in whole numbers from there, so a
// pixel gets the same coverage whatever part of the page is drawn. The storage is kept from shape
// to shape.
class AreaFiller {
 public:
  // Forgets a shape that was not drawn.
  void Clear() noexcept { edges_.clear(); }

  // Adds a closed contour to the shape.
  void Add(std::span<const PixelPoint> contour);

  // Draws the shape and forgets it.
  void Fill(Canvas& canvas, FillRule rule, const Ink& ink);

 private:
  // From top to bottom, in 1/256 of a pixel.
  struct Edge {
    std::int32_t x1 = 0;
    std::int32_t y1 = 0;
    std::int32_t x2 = 0;
    std::int32_t y2 = 0;
    std::int32_t direction = 0;  // 1 when it was drawn downwards, else -1
  };
  // The cells of a row that hold anything; counted from the left of the area that is drawn.
  struct Row {
    std::int32_t* cells = nullptr;
    std::int32_t begin = 0;
    std::int32_t end = 0;
  };

  void AddEdge(PixelPoint from, PixelPoint to);
  PixelBox Bounds() const;
  void BeginBand(std::int32_t rows);
  void DrawRow(const Row& row, FillRule rule, const Ink& ink, std::uint32_t* pixels) const;
  void EnterEdge(const Edge& edge, const PixelBox& band);
  void EnterPiece(Row& row, std::int32_t from, std::int32_t to, std::int32_t height) const;
  void EnterWithinCell(Row& row, std::int32_t cell, std::int32_t height, std::int32_t rights) const;

  std::vector<Edge> edges_;
  std::vector<std::int32_t> cells_;  // all 0 between calls
  std::vector<Row> rows_;
  std::int32_t width_ = 0;
};

}  // namespace pagivo::native
