#include "engine/native/pdf/pdf_readers.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "engine/native/pdf/pdf_writer.h"
#include "support/shell/shell.h"

namespace pagivo::native::testing {
namespace {

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    const std::size_t begin = line.find_first_not_of(" \f");
    if (begin == std::string::npos) continue;
    lines.push_back(line.substr(begin, line.find_last_not_of(" \f") - begin + 1));
  }
  return lines;
}

// Readers may mark direction in what they give; the marks are not part of the text.
std::string WithoutDirectionMarks(std::string text) {
  for (const std::string_view mark : {"\u202A", "\u202B", "\u202C", "\u200E", "\u200F"}) {
    for (std::size_t i = text.find(mark); i != std::string::npos; i = text.find(mark)) {
      text.erase(i, mark.size());
    }
  }
  return text;
}

}  // namespace

std::string OutputOf(const std::string& command) {
  const ShellOutcome outcome = RunInShell(command);
  EXPECT_EQ(outcome.status, 0) << command << "\n" << outcome.output;
  return outcome.output;
}

void WriteFile(const std::string& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

std::string PdfBytes(const Document& document) {
  std::string bytes;
  WritePdf(document, WholeDocument(document), [&bytes](std::span<const std::uint8_t> part) {
    bytes.append(reinterpret_cast<const char*>(part.data()), part.size());
  });
  return bytes;
}

PdfOnDisk::PdfOnDisk(const Document& document) : path_(folder_.FileNamed("document.pdf")) {
  WritePdfFile(document, WholeDocument(document), path_);
  const std::string verdict = OutputOf("qpdf --check '" + path_ + "'");
  EXPECT_NE(verdict.find("No syntax or stream encoding errors found"), std::string::npos)
      << verdict;
}

std::vector<std::string> PdfOnDisk::PopplerLines() const {
  return LinesOf(WithoutDirectionMarks(OutputOf("pdftotext -enc UTF-8 '" + path_ + "' -")));
}

std::vector<std::string> PdfOnDisk::MuPdfLines() const {
  const std::string target = folder_.FileNamed("mupdf.txt");
  OutputOf("mutool draw -q -F txt -o '" + target + "' '" + path_ + "'");
  return LinesOf(ReadFile(target));
}

std::string PdfOnDisk::Content(int page) const {
  const std::string target = folder_.FileNamed("content.bin");
  OutputOf("mutool show -b -o '" + target + "' '" + path_ + "' pages/" + std::to_string(page) +
           "/Contents");
  return ReadFile(target);
}

std::string PdfOnDisk::Plain() const {
  const std::string target = folder_.FileNamed("plain.pdf");
  OutputOf("qpdf --qdf --object-streams=disable '" + path_ + "' '" + target + "'");
  return ReadFile(target);
}

int CountOf(std::string_view part, std::string_view text) {
  int count = 0;
  for (std::size_t i = text.find(part); i != std::string_view::npos;
       i = text.find(part, i + part.size())) {
    ++count;
  }
  return count;
}

}  // namespace pagivo::native::testing
