// From a page's record to the coordinates of its PDF page.
#pragma once

#include "engine/native/document/document.h"
#include "engine/native/pdf/content_stream.h"

namespace pagivo::native {

// PDF counts upwards from the lower left corner in units of 1/72 inch, of which readers take at
// most 14,400 a side; on larger pages the unit is larger.
class PdfGeometry {
 public:
  explicit PdfGeometry(const PageGeometry& page);

  // Points in one unit of this page, at least 1.
  int UserUnit() const noexcept { return userUnit_; }
  PdfPoint Size() const noexcept { return size_; }
  // Twips; within limits, whatever the record says.
  const PageGeometry& Paper() const noexcept { return paper_; }

  // From twips. Positions far beyond the paper end at a distance that every reader can count.
  Hundredths Length(double twips) const;
  PdfPoint At(double x, double y) const;
  PdfPoint At(Point point) const { return At(point.x, point.y); }

  // The same unrounded, in units.
  double XInUnits(double x) const { return x * unitsPerTwip_; }
  double YInUnits(double y) const { return (paper_.height - y) * unitsPerTwip_; }
  double InUnits(double twips) const { return twips * unitsPerTwip_; }

 private:
  PageGeometry paper_;
  int userUnit_;
  double unitsPerTwip_;
  PdfPoint size_;
};

}  // namespace pagivo::native
