#include "engine/native/raster/area_filler.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace pagivo::native {
namespace {

constexpr std::int32_t kOne = 256;  // a pixel's side in the units of edges
constexpr int kShift = 8;

// The sums of a row's cells from the left count a pixel's area in 2 * 256 * 256 parts.
constexpr std::int32_t kWholeCell = 2 * kOne * kOne;
constexpr std::int32_t kWholeWidth = 2 * kOne;

// A band of rows has about this many cells: they stay in the processor's cache.
constexpr std::int32_t kBandCells = 1 << 16;

std::int32_t Rounded(double value) {
  constexpr std::int64_t kBias = std::int64_t{1} << 40;  // makes cutting off round downwards
  return static_cast<std::int32_t>(
      static_cast<std::int64_t>(value + static_cast<double>(kBias) + 0.5) - kBias);
}

// Edges fit in 32 bits.
std::int32_t UnitsOf(double pixels) {
  return Rounded(std::clamp(pixels, -kFarthestPixel, kFarthestPixel) * kOne);
}

// Cells are looked at and drawn four at a time: where one of them is filled, its neighbours mostly
// are, too, and deciding on each would cost more than drawing it.
constexpr std::int32_t kGroup = 4;
constexpr std::size_t kMostAtOnce = 64;  // cells, whole groups

bool IsBlankGroup(const std::int32_t* cells) {
  return (cells[0] | cells[1] | cells[2] | cells[3]) == 0;
}

std::uint32_t CoverageOf(std::int32_t sum, FillRule rule) {
  std::int32_t area = std::abs(sum);
  if (rule == FillRule::EvenOdd) {
    area %= 2 * kWholeCell;
    area = std::min(area, 2 * kWholeCell - area);
  }
  return static_cast<std::uint32_t>((std::min(area, kWholeCell) * 255 + kWholeCell / 2) /
                                    kWholeCell);
}

}  // namespace

void AreaFiller::Add(std::span<const PixelPoint> contour) {
  if (contour.empty()) return;
  PixelPoint last = contour.back();
  for (const PixelPoint& point : contour) AddEdge(std::exchange(last, point), point);
}

void AreaFiller::AddEdge(PixelPoint from, PixelPoint to) {
  Edge edge{UnitsOf(from.x), UnitsOf(from.y), UnitsOf(to.x), UnitsOf(to.y), 1};
  if (edge.y1 == edge.y2) return;
  if (edge.y1 > edge.y2) edge = {edge.x2, edge.y2, edge.x1, edge.y1, -1};
  edges_.push_back(edge);
}

PixelBox AreaFiller::Bounds() const {
  PixelBox units{INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN};
  for (const Edge& edge : edges_) {
    units = {std::min({units.left, edge.x1, edge.x2}), std::min(units.top, edge.y1),
             std::max({units.right, edge.x1, edge.x2}), std::max(units.bottom, edge.y2)};
  }
  return {units.left >> kShift, units.top >> kShift, (units.right + kOne - 1) >> kShift,
          (units.bottom + kOne - 1) >> kShift};
}

void AreaFiller::Fill(Canvas& canvas, FillRule rule, const Ink& ink) {
  const PixelBox box = edges_.empty() ? PixelBox{} : Intersection(Bounds(), canvas.Clip());
  if (!box.IsEmpty()) {
    width_ = box.right - box.left;
    const std::int32_t bandRows = std::max(1, kBandCells / width_);
    for (std::int32_t top = box.top; top < box.bottom; top += bandRows) {
      const PixelBox band{box.left, top, box.right, std::min(top + bandRows, box.bottom)};
      BeginBand(band.bottom - band.top);
      for (const Edge& edge : edges_) EnterEdge(edge, band);
      for (std::int32_t y = top; y < band.bottom; ++y) {
        DrawRow(rows_[static_cast<std::size_t>(y - top)], rule, ink, canvas.Row(y) + box.left);
      }
    }
  }
  edges_.clear();
}

void AreaFiller::DrawRow(const Row& row, FillRule rule, const Ink& ink,
                         std::uint32_t* pixels) const {
  const auto [cells, begin, end] = row;
  const std::int32_t width = width_;
  std::int32_t sum = 0;
  for (std::int32_t x = begin; x < width;) {
    std::int32_t next = x;
    while (next < end && IsBlankGroup(cells + next)) next += kGroup;
    next = next < end ? next : width;
    if (next > x) {
      const std::uint32_t coverage = CoverageOf(sum, rule);
      if (coverage > 0) ink.BlendRun(pixels + x, pixels + next, coverage);
    } else {
      std::array<std::uint8_t, kMostAtOnce> coverages;
      std::uint8_t* coverage = coverages.data();
      do {
        for (std::int32_t i = 0; i < kGroup; ++i) {
          sum += std::exchange(cells[next++], 0);
          *coverage++ = static_cast<std::uint8_t>(CoverageOf(sum, rule));
        }
      } while (next < end && !IsBlankGroup(cells + next) && coverage < coverages.end());
      ink.BlendRows({.pixels = pixels + x,
                     .coverages = coverages.data(),
                     .width = std::min(next, width) - x});
    }
    x = next;
  }
  cells[width] = 0;
}

// A row has a cell more than pixels, for what the last one gives to its right, and blank ones to
// fill up the last group.
void AreaFiller::BeginBand(std::int32_t rows) {
  const auto pitch = static_cast<std::size_t>(width_) + kGroup;
  const auto count = static_cast<std::size_t>(rows);
  if (cells_.size() < pitch * count) cells_.resize(pitch * count);
  rows_.resize(count);
  for (std::size_t i = 0; i < count; ++i) rows_[i] = {cells_.data() + i * pitch, width_, 0};
}

// Every row's piece is computed from the whole edge, so that it does not depend on the band.
void AreaFiller::EnterEdge(const Edge& edge, const PixelBox& band) {
  std::int32_t y = std::max(edge.y1, band.top << kShift);
  const std::int32_t end = std::min(edge.y2, band.bottom << kShift);
  if (y >= end) return;
  const double slope = (double{1} * edge.x2 - edge.x1) / (double{1} * edge.y2 - edge.y1);
  const std::int32_t left = band.left << kShift;
  const auto xAt = [&](std::int32_t at) {
    return at == edge.y2 ? edge.x2 - left
                         : edge.x1 - left + Rounded((double{1} * at - edge.y1) * slope);
  };
  std::int32_t x = xAt(y);
  for (std::size_t row = static_cast<std::size_t>((y >> kShift) - band.top); y < end; ++row) {
    const std::int32_t nextY = std::min((y & ~(kOne - 1)) + kOne, end);
    const std::int32_t nextX = xAt(nextY);
    EnterPiece(rows_[row], x, nextX, (nextY - y) * edge.direction);
    x = nextX;
    y = nextY;
  }
}

// Part of an edge within a row; `height` is how much of the row it spans.
void AreaFiller::EnterPiece(Row& row, std::int32_t from, std::int32_t to,
                            std::int32_t height) const {
  if (from > to) std::swap(from, to);
  if (from >= width_ << kShift) return;
  if (to <= 0) return EnterWithinCell(row, 0, height, 0);
  const std::int32_t first = from >> kShift;
  if (to <= (first + 1) << kShift) {
    return EnterWithinCell(row, first, height, from + to - 2 * (first << kShift));
  }
  const double rise = height / (double{1} * to - from);
  const auto heightAt = [&](std::int32_t x) {
    return x >= to ? height : Rounded((double{1} * x - from) * rise);
  };
  std::int32_t reached = 0;
  std::int32_t x = from;
  if (from < 0) {
    x = 0;
    reached = heightAt(x);
    EnterWithinCell(row, 0, reached, 0);
  }
  for (std::int32_t cell = x >> kShift; x < to && cell < width_; ++cell) {
    const std::int32_t nextX = std::min((cell + 1) << kShift, to);
    const std::int32_t next = heightAt(nextX);
    EnterWithinCell(row, cell, next - reached, x + nextX - 2 * (cell << kShift));
    reached = next;
    x = nextX;
  }
}

// `rights` is how far right of the cell's left edge the piece's two ends lie, together.
void AreaFiller::EnterWithinCell(Row& row, std::int32_t cell, std::int32_t height,
                                 std::int32_t rights) const {
  row.cells[cell] += height * (kWholeWidth - rights);
  row.cells[cell + 1] += height * rights;
  row.begin = std::min(row.begin, cell);
  row.end = std::max(row.end, cell + 2);
}

}  // namespace pagivo::native
