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

// Whether two pages show the same at 72 dots an inch: every dark dot of one has a dark one beside
// it in the other, for print servers move pages by parts of a dot.
bool LookAlike(const std::string& oneFile, int onePage, const std::string& otherFile,
               int otherPage);

}  // namespace pagivo
