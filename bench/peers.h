// The same report by the PDF libraries that a host could use instead, each as its users use it: one
// embedded font family, text measured for right alignment, compressed streams.
#pragma once

#include <string>

namespace pagivo::bench {

void WriteReportWithHaru(int pages, const std::string& fileName);
void WriteReportWithCairo(int pages, const std::string& fileName);

// One page as a bitmap at 96 dpi, drawn by cairo with its own text.
void DrawReportPageWithCairo(int number, int dotsPerInch);

}  // namespace pagivo::bench
