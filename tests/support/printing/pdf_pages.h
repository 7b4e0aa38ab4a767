// The pages of a PDF file, as an independent reader sees them.
#pragma once

#include <string>
#include <vector>

namespace pagivo {

struct PdfPage {
  // Points, as the page lies before the reader.
  double width = 0;
  double height = 0;
  std::string text;  // without blanks at the ends
};

std::vector<PdfPage> ReadPdfPages(const std::string& file);

// A grey picture of a page at 36 dots an inch: the bytes of a PGM file.
std::string PictureOfPdfPage(const std::string& file, int page);

}  // namespace pagivo
