// PDF files written for a test, and what independent readers say of them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/native/document/document.h"
#include "support/read_file.h"
#include "support/scratch_folder.h"

namespace pagivo::native::testing {

// What a command prints, its complaints included. Fails the test when the command fails.
std::string OutputOf(const std::string& command);

void WriteFile(const std::string& path, std::string_view bytes);

// Every page of the document as the bytes of a file.
std::string PdfBytes(const Document& document);

// A document's file on disk, checked by qpdf.
class PdfOnDisk {
 public:
  explicit PdfOnDisk(const Document& document);

  const std::string& Path() const { return path_; }

  // The lines of text that a reader finds, blank ones left out, blanks at their ends trimmed.
  std::vector<std::string> PopplerLines() const;
  std::vector<std::string> MuPdfLines() const;

  std::string Fonts() const { return OutputOf("pdffonts '" + path_ + "'"); }
  std::string Images() const { return OutputOf("pdfimages -list '" + path_ + "'"); }
  std::string Information(const std::string& options = "") const {
    return OutputOf("pdfinfo " + options + " '" + path_ + "'");
  }
  // The decoded content of a page, counted from 1.
  std::string Content(int page) const;
  // The file with everything decoded that readers decode.
  std::string Plain() const;

  const ScratchFolder& Folder() const { return folder_; }

 private:
  ScratchFolder folder_;
  std::string path_;
};

int CountOf(std::string_view part, std::string_view text);

}  // namespace pagivo::native::testing
