#include "engine/native/pdf/pdf_writer.h"

#include <optional>
#include <utility>

#include "engine/native/pdf/font_embedder.h"
#include "engine/native/pdf/image_embedder.h"
#include "engine/native/pdf/number_format.h"
#include "engine/native/pdf/page_geometry.h"
#include "engine/native/pdf/page_player.h"
#include "engine/native/pdf/page_tree.h"
#include "engine/native/pdf/pdf_file.h"
#include "engine/native/pdf/text_string.h"
#include "files/file_failures.h"
#include "files/file_replacement.h"
#include "pagivo/error.h"

namespace pagivo::native {
namespace {

// Why these pages cannot be written; empty when they can.
std::string RangeFault(const Document& document, std::int32_t firstPage, std::int32_t lastPage) {
  const std::int32_t count = document.PageCount();
  if (count == 0) return "het document heeft geen pagina's";
  if (firstPage >= 1 && firstPage <= lastPage && lastPage <= count) return {};
  return "pagina " + std::to_string(firstPage) + " tot en met " + std::to_string(lastPage) +
         " is geen deel van een document van " + std::to_string(count) + " pagina's";
}

std::string MediaBox(const PdfGeometry& geometry) {
  std::string box = "/MediaBox[0 0 ";
  AppendHundredths(box, geometry.Size().x);
  box.push_back(' ');
  AppendHundredths(box, geometry.Size().y);
  return box + "]";
}

}  // namespace

class PdfWriter::Parts {
 public:
  Parts(const Document& document, ByteSink sink) : document_(document), sink_(std::move(sink)) {}

  void WritePage(std::int32_t page);
  void Finish() { WriteTrailer(tree_.Finish(InheritedEntries())); }

 private:
  std::string InheritedEntries();
  void WriteTrailer(ObjectNumber pages);

  const Document& document_;
  ByteSink sink_;
  PdfFile file_{sink_};
  Deflater contentDeflater_{Effort::Fast};
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

  const ObjectNumber number = file_.Reserve();
  std::string value = "<</Type/Page/Parent ";
  AppendReference(value, tree_.Add(number));
  if (paper != usualSize_) value += MediaBox(geometry);
  if (geometry.UserUnit() != 1) {
    value += "/UserUnit ";
    AppendInteger(value, geometry.UserUnit());
  }
  if (!content.empty()) {
    const ObjectNumber stream = file_.Reserve();
    file_.WriteEncodedStream(stream, "/Filter/FlateDecode", contentDeflater_.Compress(content));
    value += "/Contents ";
    AppendReference(value, stream);
  }
  file_.WriteObject(number, value += ">>");
}

// What all pages have in common. Fonts are complete only when all pages are written.
std::string PdfWriter::Parts::InheritedEntries() {
  std::string entries = MediaBox(PdfGeometry(*usualSize_));
  entries += "/Resources<</Font<<" + fonts_.WriteFonts(file_) + ">>";
  entries += "/XObject<<" + images_.Resources() + ">>>>";
  return entries;
}

void PdfWriter::Parts::WriteTrailer(ObjectNumber pages) {
  const ObjectNumber catalog = file_.Reserve();
  std::string value = "<</Type/Catalog/Pages ";
  AppendReference(value, pages);
  if (!document_.Title().empty()) value += "/ViewerPreferences<</DisplayDocTitle true>>";
  file_.WriteObject(catalog, value += ">>");

  const ObjectNumber information = file_.Reserve();
  value = "<</Producer(Pagivo)";
  if (!document_.Title().empty()) AppendTextString(value += "/Title", document_.Title());
  file_.WriteObject(information, value += ">>");

  std::string trailer = "/Root ";
  AppendReference(trailer, catalog);
  AppendReference(trailer += "/Info ", information);
  file_.Finish(trailer);
}

PdfWriter::PdfWriter(const Document& document, ByteSink sink)
    : parts_(std::make_unique<Parts>(document, std::move(sink))) {}

PdfWriter::~PdfWriter() = default;

void PdfWriter::WritePage(std::int32_t page) {
  parts_->WritePage(page);
}

void PdfWriter::Finish() {
  parts_->Finish();
}

void WritePdf(const Document& document, std::int32_t firstPage, std::int32_t lastPage,
              const ByteSink& sink) {
  const std::string fault = RangeFault(document, firstPage, lastPage);
  if (!fault.empty()) {
    throw Error(ErrorNumber::PageOutOfRange, "De PDF kan niet worden geschreven: " + fault);
  }
  PdfWriter writer(document, sink);
  for (std::int32_t page = firstPage; page <= lastPage; ++page) writer.WritePage(page);
  writer.Finish();
}

void WritePdfFile(const Document& document, std::int32_t firstPage, std::int32_t lastPage,
                  const std::string& fileName) {
  const std::string fault = RangeFault(document, firstPage, lastPage);
  if (!fault.empty()) {
    throw Error(ErrorNumber::PageOutOfRange, DescribeWriteFailure(fileName, fault));
  }
  FileReplacement file(fileName);
  WritePdf(document, firstPage, lastPage,
           [&file](std::span<const std::uint8_t> bytes) { file.Write(bytes); });
  file.Commit();
}

}  // namespace pagivo::native
