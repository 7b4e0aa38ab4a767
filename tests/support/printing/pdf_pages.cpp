#include "support/printing/pdf_pages.h"

#include <array>
#include <cstdio>
#include <memory>
#include <sstream>
#include <stdexcept>

namespace pagivo {
namespace {

std::string OutputOf(const std::string& command) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  if (!pipe) throw std::runtime_error("cannot run " + command);
  std::string output;
  std::array<char, 4096> buffer{};
  for (std::size_t count = 1; count > 0;) {
    count = std::fread(buffer.data(), 1, buffer.size(), pipe.get());
    output.append(buffer.data(), count);
  }
  return output;
}

std::string Trimmed(const std::string& text) {
  const std::size_t begin = text.find_first_not_of(" \n\f");
  if (begin == std::string::npos) return {};
  return text.substr(begin, text.find_last_not_of(" \n\f") + 1 - begin);
}

// "Page    1 size:  595.276 x 841.89 pts (A4)"
bool ReadSize(const std::string& line, PdfPage& page) {
  return std::sscanf(line.c_str(), "Page %*d size: %lf x %lf", &page.width, &page.height) == 2;
}

}  // namespace

std::vector<PdfPage> ReadPdfPages(const std::string& file) {
  std::vector<PdfPage> pages;
  std::istringstream lines(OutputOf("pdfinfo -l 99999 '" + file + "'"));
  for (std::string line; std::getline(lines, line);) {
    PdfPage page;
    if (ReadSize(line, page)) pages.push_back(page);
  }
  std::istringstream texts(OutputOf("pdftotext '" + file + "' -"));
  for (PdfPage& page : pages) {
    std::getline(texts, page.text, '\f');
    page.text = Trimmed(page.text);
  }
  return pages;
}

std::string PictureOfPdfPage(const std::string& file, int page) {
  const std::string number = std::to_string(page);
  return OutputOf("pdftoppm -r 36 -gray -f " + number + " -l " + number + " '" + file + "'");
}

}  // namespace pagivo
