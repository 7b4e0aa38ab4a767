#include "support/printing/pdf_pages.h"

#include <algorithm>
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

struct GreyPicture {
  int width = 0;
  int height = 0;
  std::string dots;  // a byte each, row by row

  int At(int x, int y) const {
    const bool isInside = x >= 0 && x < width && y >= 0 && y < height;
    const auto index = static_cast<std::size_t>(y * width + x);
    return isInside ? static_cast<unsigned char>(dots.at(index)) : 255;
  }
};

// A PGM file: "P5", width, height, the largest value, and the dots.
GreyPicture PictureOf(const std::string& file, int page) {
  const std::string number = std::to_string(page);
  const std::string pgm =
      OutputOf("pdftoppm -r 72 -gray -f " + number + " -l " + number + " '" + file + "'");
  GreyPicture picture;
  int headerSize = 0;
  if (std::sscanf(pgm.c_str(), "P5 %d %d 255%n", &picture.width, &picture.height, &headerSize) !=
      2) {
    throw std::runtime_error("no picture of " + file);
  }
  picture.dots = pgm.substr(static_cast<std::size_t>(headerSize) + 1);
  return picture;
}

int DarkestBeside(const GreyPicture& picture, int x, int y) {
  int darkest = 255;
  for (int row = y - 1; row <= y + 1; ++row) {
    for (int column = x - 1; column <= x + 1; ++column) {
      darkest = std::min(darkest, picture.At(column, row));
    }
  }
  return darkest;
}

bool Covers(const GreyPicture& one, const GreyPicture& other) {
  constexpr int kDark = 100;
  constexpr int kHardlyDark = 200;
  for (int y = 0; y < other.height; ++y) {
    for (int x = 0; x < other.width; ++x) {
      if (other.At(x, y) < kDark && DarkestBeside(one, x, y) > kHardlyDark) return false;
    }
  }
  return true;
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

bool LookAlike(const std::string& oneFile, int onePage, const std::string& otherFile,
               int otherPage) {
  const GreyPicture one = PictureOf(oneFile, onePage);
  const GreyPicture other = PictureOf(otherFile, otherPage);
  return Covers(one, other) && Covers(other, one);
}

}  // namespace pagivo
