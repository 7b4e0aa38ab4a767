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

// What a printer takes, in its own order. Both lists are empty when the printer does not tell; it
// then counts as taking every paper.
struct PrinterMedia {
  std::vector<Medium> media;
  std::vector<CustomMedia> custom;
};

// Two sizes are the same paper when neither side differs by more than this, whichever side is fed
// first.
inline constexpr int kMediaTolerance = 100;

// The size of a page's paper as it is fed upright, from twips.
MediaSize UprightSize(double width, double height);

// Finds the paper for a page of this size in twips: the nearest of the printer's own papers, else
// the size itself when a custom range holds it. That size is rounded up, for print servers cut
// custom sizes to whole points, and paper that is too small cuts the page. Empty when the printer
// has no such paper, or does not tell.
std::optional<Medium> FindMedium(const PrinterMedia& printer, double width, double height);

// Whether a printer takes the paper of a code (see engine/papers.h). It takes a known paper when it
// has a medium of that size, and kPaperUserDefined when it takes custom sizes.
bool SupportsPaper(const PrinterMedia& printer, std::int32_t code);

// The printable area's upper left corner on a page, in twips from the paper's. Which way a
// landscape page is turned is the print server's affair, so on such a page the corner is one that
// can be printed on either way.
struct PrintableCorner {
  double x = 0;
  double y = 0;
};
PrintableCorner PrintableCornerOf(const PrinterMedia& printer, double width, double height);

}  // namespace pagivo::native
