#include "engine/native/pdf/pdf_writer.h"

#include <optional>
#include <utility>

#include "engine/native/pdf/font_embedder.h"
#include "engine/native/pdf/image_embedder.h"
#include "engine/native/pdf/page_player.h"
#include "pagivo/error.h"
#include "system/file_failures.h"
#include "system/host_files.h"

namespace pagivo::native {
namespace {

// Why these pages cannot be written; empty when they can.
std::string RangeFault(const Document& document, const PdfOptions& options) {
  const std::int32_t count = document.PageCount();
  const auto& [first, last, title] = options;
  if (count == 0) return "het document heeft geen pagina's";
  if (first >= 1 && first <= last && last <= count) return {};
  return "pagina " + std::to_string(first) + " tot en met " + std::to_string(last) +
         " is geen deel van een document van " + std::to_string(count) + " pagina's";
}

PdfArray MediaBox(const PdfGeometry& geometry) {
  const auto [width, height] = geometry.Size();
  return PdfArray().Add(0).Add(0).Add(PdfDecimal{width}).Add(PdfDecimal{height});
}

[[noreturn]] void Refuse(ErrorNumber number, const std::string& fileName,
                         const std::string& cause) {
  throw Error(number, "Het bestand \"" + fileName + "\" kan niet worden geschreven: " + cause);
}

}  // namespace

class PdfWriter::Parts {
 public:
  Parts(const Document& document, std::string title, ByteSink sink)
      : document_(document), title_(std::move(title)), sink_(std::move(sink)) {}

  void WritePage(std::int32_t page);
  void Finish();

 private:
  PdfReference WriteContent(std::string_view content);
  PdfDictionary InheritedEntries();
  PdfReference WriteCatalog(PdfReference pages);
  PdfReference WriteInformation();

  const Document& document_;
  std::string title_;
  ByteSink sink_;
  PdfFile file_{sink_};
  PageDeflater contentDeflater_;
  PageTree tree_{file_};
  FontEmbedder fonts_;
  ImageEmbedder images_{file_};
  PagePlayer player_{fonts_, images_};
  // The first page's; pages of another size say so.
  std::optional<PageGeometry> usualSize_;
};

void PdfWriter::Parts::WritePage(std::int32_t page) {
  const PageGeometry& paper = document_.GeometryOf(page);
  if (!usualSize_) usualSize_ = paper;
  const PdfGeometry geometry(paper);
  const std::string_view content = player_.Play(document_, page, geometry);

  const PdfReference object = file_.Reserve();
  PdfDictionary dictionary;
  dictionary.Put("Type", PdfName{"Page"}).Put("Parent", tree_.Add(object));
  if (paper != usualSize_) dictionary.Put("MediaBox", MediaBox(geometry));
  if (geometry.UserUnit() != 1) dictionary.Put("UserUnit", geometry.UserUnit());
  if (!content.empty()) dictionary.Put("Contents", WriteContent(content));
  file_.WriteObject(object, dictionary);
}

PdfReference PdfWriter::Parts::WriteContent(std::string_view content) {
  const PdfReference stream = file_.Reserve();
  file_.WriteEncodedStream(stream, PdfDictionary().Put("Filter", PdfName{"FlateDecode"}),
                           contentDeflater_.Compress(content));
  return stream;
}

// What all pages have in common. Fonts are complete only when all pages are written.
PdfDictionary PdfWriter::Parts::InheritedEntries() {
  PdfDictionary resources;
  resources.Put("Font", fonts_.WriteFonts(file_)).Put("XObject", images_.Resources());
  PdfDictionary entries;
  entries.Put("MediaBox", MediaBox(PdfGeometry(*usualSize_))).Put("Resources", resources);
  return entries;
}

PdfReference PdfWriter::Parts::WriteCatalog(PdfReference pages) {
  PdfDictionary dictionary;
  dictionary.Put("Type", PdfName{"Catalog"}).Put("Pages", pages);
  if (!title_.empty()) {
    dictionary.Put("ViewerPreferences", PdfDictionary().Put("DisplayDocTitle", true));
  }
  const PdfReference catalog = file_.Reserve();
  file_.WriteObject(catalog, dictionary);
  return catalog;
}

PdfReference PdfWriter::Parts::WriteInformation() {
  PdfDictionary dictionary;
  dictionary.Put("Producer", PdfText{"Pagivo"});
  if (!title_.empty()) dictionary.Put("Title", PdfText{title_});
  const PdfReference information = file_.Reserve();
  file_.WriteObject(information, dictionary);
  return information;
}

void PdfWriter::Parts::Finish() {
  const PdfReference pages = tree_.Finish(InheritedEntries());
  const PdfReference catalog = WriteCatalog(pages);
  file_.Finish(catalog, WriteInformation());
}

PdfWriter::PdfWriter(const Document& document, std::string title, ByteSink sink)
    : parts_(std::make_unique<Parts>(document, std::move(title), std::move(sink))) {}

PdfWriter::~PdfWriter() = default;

void PdfWriter::WritePage(std::int32_t page) {
  parts_->WritePage(page);
}

void PdfWriter::Finish() {
  parts_->Finish();
}

PdfOptions WholeDocument(const Document& document) {
  return {.firstPage = 1, .lastPage = document.PageCount(), .title = document.Title()};
}

void WritePdf(const Document& document, const PdfOptions& options, const ByteSink& sink) {
  const std::string fault = RangeFault(document, options);
  if (!fault.empty()) {
    throw Error(ErrorNumber::PageOutOfRange, "De PDF kan niet worden geschreven: " + fault);
  }
  PdfWriter writer(document, options.title, sink);
  for (std::int32_t page = options.firstPage; page <= options.lastPage; ++page) {
    writer.WritePage(page);
  }
  writer.Finish();
}

void WritePdfFile(const Document& document, const PdfOptions& options,
                  const std::string& fileName) {
  const std::string fault = RangeFault(document, options);
  if (!fault.empty()) {
    throw Error(ErrorNumber::PageOutOfRange, DescribeWriteFailure(fileName, fault));
  }
  FileReplacement file(fileName);
  WritePdf(document, options, [&file](std::span<const std::uint8_t> bytes) { file.Write(bytes); });
  file.Commit();
}

void NativePdfExporter::ExportPdf(const ObjectRef& engine, const std::string& fileName,
                                  std::int16_t firstPage, std::int16_t lastPage) {
  const auto* exported = dynamic_cast<const ExportedDocument*>(engine.get());
  if (exported == nullptr) {
    Refuse(ErrorNumber::InvalidArgument, fileName,
           "het document is niet met deze component opgemaakt");
  }
  if (!exported->IsComplete()) {
    Refuse(ErrorNumber::NoDocument, fileName, "er is geen afgesloten document");
  }
  if (!exported->IsWhole()) {
    Refuse(ErrorNumber::OutOfMemory, fileName,
           "het document is niet volledig, want er was te weinig geheugen om het op te maken");
  }
  if (lastPage < 1) Refuse(ErrorNumber::PageOutOfRange, fileName, "er zijn geen pagina's");
  const Document& document = exported->GetDocument();
  if (firstPage < 1 || firstPage > lastPage || lastPage > document.PageCount()) {
    Refuse(ErrorNumber::PageOutOfRange, fileName,
           "het document heeft geen pagina's " + std::to_string(firstPage) + " tot en met " +
               std::to_string(lastPage));
  }
  WritePdfFile(document, {.firstPage = firstPage, .lastPage = lastPage, .title = document.Title()},
               fileName);
}

}  // namespace pagivo::native
