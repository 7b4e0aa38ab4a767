#include "engine/native/pdf/pdf_readers.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "engine/native/pdf/pdf_writer.h"

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

ScratchFolder::ScratchFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "pagivo_pdf_XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
  path_ = name;
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string OutputOf(const std::string& command) {
  FILE* pipe = popen((command + " 2>&1").c_str(), "r");
  if (pipe == nullptr) throw std::runtime_error("no shell");
  std::string output;
  char buffer[4096];
  while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, pipe)) {
    output.append(buffer, count);
  }
  const int status = pclose(pipe);
  EXPECT_EQ(WEXITSTATUS(status), 0) << command << "\n" << output;
  return output;
}

std::string ReadFile(const std::string& path) {
  const std::ifstream file(path, std::ios::binary);
  std::ostringstream bytes;
  bytes << file.rdbuf();
  return bytes.str();
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

PdfOnDisk::PdfOnDisk(const Document& document) : path_(folder_.File("document.pdf")) {
  WritePdfFile(document, WholeDocument(document), path_);
  const std::string verdict = OutputOf("qpdf --check '" + path_ + "'");
  EXPECT_NE(verdict.find("No syntax or stream encoding errors found"), std::string::npos)
      << verdict;
}

std::vector<std::string> PdfOnDisk::PopplerLines() const {
  return LinesOf(WithoutDirectionMarks(OutputOf("pdftotext -enc UTF-8 '" + path_ + "' -")));
}

std::vector<std::string> PdfOnDisk::MuPdfLines() const {
  const std::string target = folder_.File("mupdf.txt");
  OutputOf("mutool draw -q -F txt -o '" + target + "' '" + path_ + "'");
  return LinesOf(ReadFile(target));
}

std::string PdfOnDisk::Content(int page) const {
  const std::string target = folder_.File("content.bin");
  OutputOf("mutool show -b -o '" + target + "' '" + path_ + "' pages/" + std::to_string(page) +
           "/Contents");
  return ReadFile(target);
}

std::string PdfOnDisk::Plain() const {
  const std::string target = folder_.File("plain.pdf");
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
