// A document's pages as a PDF 1.7 file.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

#include "engine/native/document/document.h"

namespace pagivo::native {

// Takes the file's bytes in order. May raise Error, which ends the writing.
using ByteSink = std::function<void(std::span<const std::uint8_t>)>;

// Writes a document's pages one by one and gives the sink the file's bytes as it goes; memory does
// not grow with the number of pages but for a few bytes each. The document outlives the writer and
// stays as it is. The same pages give the same bytes.
class PdfWriter {
 public:
  PdfWriter(const Document& document, ByteSink sink);
  ~PdfWriter();
  PdfWriter(const PdfWriter&) = delete;
  PdfWriter& operator=(const PdfWriter&) = delete;

  // The next page of the file is this page of the document, which must exist.
  void WritePage(std::int32_t page);
  // Writes what stands behind the pages. At least one page comes before it and none after it.
  void Finish();

 private:
  class Parts;

  std::unique_ptr<Parts> parts_;
};

// Writes pages firstPage..lastPage (from 1, both inclusive), which must exist.
void WritePdf(const Document& document, std::int32_t firstPage, std::int32_t lastPage,
              const ByteSink& sink);

// The same to a file: written beside the target and moved over it when complete and on disk. Raises
// ErrorNumber::FileAccess with a Dutch description naming the file and the cause; what was there
// before is then untouched and no temporary file stays behind.
void WritePdfFile(const Document& document, std::int32_t firstPage, std::int32_t lastPage,
                  const std::string& fileName);

}  // namespace pagivo::native
