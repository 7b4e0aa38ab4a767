#include "engine/native/native_pdf_exporter.h"

#include "engine/native/native_engine.h"
#include "engine/native/pdf/pdf_writer.h"
#include "pagivo/error.h"

namespace pagivo::native {
namespace {

[[noreturn]] void Refuse(ErrorNumber number, const std::string& fileName,
                         const std::string& cause) {
  throw Error(number, "Het bestand \"" + fileName + "\" kan niet worden geschreven: " + cause);
}

}  // namespace

void NativePdfExporter::ExportPdf(const ObjectRef& engine, const std::string& fileName,
                                  std::int16_t firstPage, std::int16_t lastPage) {
  const auto* native = dynamic_cast<const NativeEngine*>(engine.get());
  if (native == nullptr) {
    Refuse(ErrorNumber::InvalidArgument, fileName,
           "het document is niet met deze component opgemaakt");
  }
  if (!native->IsComplete()) {
    Refuse(ErrorNumber::NoDocument, fileName, "er is geen afgesloten document");
  }
  if (!native->IsWhole()) {
    Refuse(ErrorNumber::OutOfMemory, fileName,
           "het document is niet volledig, want er was te weinig geheugen om het op te maken");
  }
  if (lastPage < 1) Refuse(ErrorNumber::PageOutOfRange, fileName, "er zijn geen pagina's");
  const Document& document = native->GetDocument();
  if (firstPage < 1 || firstPage > lastPage || lastPage > document.PageCount()) {
    Refuse(ErrorNumber::PageOutOfRange, fileName,
           "het document heeft geen pagina's " + std::to_string(firstPage) + " tot en met " +
               std::to_string(lastPage));
  }
  WritePdfFile(document, firstPage, lastPage, fileName);
}

}  // namespace pagivo::native
