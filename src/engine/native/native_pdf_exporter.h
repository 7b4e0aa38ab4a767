// Our own PDF exporter behind the contract.
#pragma once

#include "engine/pdf_exporter.h"

namespace pagivo::native {

// Exports documents of NativeEngine. Errors, each naming the file and the cause: InvalidArgument
// for another engine, NoDocument while the document is not complete, PageOutOfRange for pages that
// it does not have, FileAccess when the file cannot be written; and OutOfMemory, also when the
// document is not whole.
class NativePdfExporter final : public PdfExporter {
 public:
  void ExportPdf(const ObjectRef& engine, const std::string& fileName, std::int16_t firstPage,
                 std::int16_t lastPage) override;
};

}  // namespace pagivo::native
