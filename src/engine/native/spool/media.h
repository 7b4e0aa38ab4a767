// The paper that a printer takes.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace pagivo::native {

// A paper as it is fed. Hundredths of a millimetre, as print servers count.
struct MediaSize {
  int width = 0;
  int height = 0;
  friend bool operator==(const MediaSize&, const MediaSize&) = default;
};

// The edges that a printer cannot print on, hundredths of a millimetre.
struct MediaMargins {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  friend bool operator==(const MediaMargins&, const MediaMargins&) = default;
};

struct Medium {
  MediaSize size;
  MediaMargins margins;
  friend bool operator==(const Medium&, const Medium&) = default;
};

// Sizes that a printer takes beside those with a name.
struct CustomMedia {
  MediaSize smallest;
  MediaSize largest;
  MediaMargins margins;
};

// Media in the printer's order. Both lists are empty when the printer does not tell, which is taken
// as taking everything.
struct PrinterMedia {
  std::vector<Medium> media;
  std::vector<CustomMedia> custom;
};

// Two sizes are the same paper when neither side differs by more than this, whichever side is fed
// first.
inline constexpr int kMediaTolerance = 100;

// The size of a page's paper as it is fed upright, from twips.
MediaSize UprightSize(double width, double height);

// The paper to print a page on, measured in twips: the printer's own that is nearest, else the size
// itself when a custom range holds it, rounded up, as print servers cut custom sizes to whole
// points and a size that is too small cuts the page. Empty when the printer has no such paper, or
// does not tell.
std::optional<Medium> FindMedium(const PrinterMedia& printer, double width, double height);

// Whether a printer takes the paper of a code (see document/paper_sizes.h): a known one when it has
// a medium of that size, kPaperUserDefined when it takes custom sizes.
bool SupportsPaper(const PrinterMedia& printer, std::int32_t code);

// The printable area's upper left corner on a page, twips from the paper's. Which way a landscape
// page is turned is the print server's affair, so there it is a corner that is printable both ways.
struct PrintableCorner {
  double x = 0;
  double y = 0;
};
PrintableCorner PrintableCornerOf(const PrinterMedia& printer, double width, double height);

}  // namespace pagivo::native
