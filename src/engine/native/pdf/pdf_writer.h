// A document's pages as a PDF 1.7 file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "engine/native/document/document.h"
#include "engine/native/pdf/pdf_file.h"
#include "engine/print_engine.h"

namespace pagivo::native {

// Writes a document's pages one by one and gives the sink the file's bytes as it goes; memory does
// not grow with the number of pages but for a few bytes each. The document outlives the writer and
// stays as it is. The same pages give the same bytes.
class PdfWriter {
 public:
  // With an empty title the file has none.
  PdfWriter(const Document& document, std::string title, ByteSink sink);
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

// What of a document is written, and how.
struct PdfOptions {
  // Both from 1 and inclusive. They are clamped by nobody: the document must have these pages.
  std::int32_t firstPage = 1;
  std::int32_t lastPage = 1;
  std::string title = {};  // empty: the file has none
};

// Every page, under the document's own title.
PdfOptions WholeDocument(const Document& document);

// Writes these pages.
void WritePdf(const Document& document, const PdfOptions& options, const ByteSink& sink);

// The same to a file: written beside the target and moved over it when complete and on disk. Raises
// ErrorNumber::FileAccess with a Dutch description naming the file and the cause; what was there
// before is then untouched and no temporary file stays behind.
void WritePdfFile(const Document& document, const PdfOptions& options, const std::string& fileName);

// What an engine tells the exporter of its document.
class ExportedDocument {
 public:
  // The pages recorded so far.
  virtual const Document& GetDocument() const noexcept = 0;
  // The document has been ended.
  virtual bool IsComplete() const noexcept = 0;
  // False when something of the document was lost for want of memory.
  virtual bool IsWhole() const noexcept = 0;

 protected:
  ~ExportedDocument() = default;
};

// Our own PDF exporter behind the contract. It exports the documents of engines that are an
// ExportedDocument. Errors, each naming the file and the cause: InvalidArgument for another engine,
// NoDocument while the document is not complete, PageOutOfRange for pages that it does not have,
// FileAccess when the file cannot be written; and OutOfMemory, also when the document is not whole.
class NativePdfExporter final : public PdfExporter {
 public:
  void ExportPdf(const ObjectRef& engine, const std::string& fileName, std::int16_t firstPage,
                 std::int16_t lastPage) override;
};

}  // namespace pagivo::native
