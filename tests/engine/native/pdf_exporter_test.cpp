#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "engine/native/engine_test.h"
#include "engine/native/pdf/pdf_writer.h"
#include "support/read_file.h"
#include "support/scratch_folder.h"

namespace pagivo::native {
namespace {

using testing::HasSubstr;

class PdfExporterTest : public EngineTest {
 protected:
  // Three pages, the last one empty.
  void Compose() {
    engine->StartDoc();
    engine->PutText("een");
    engine->NewPage();
    engine->PutText("twee");
    engine->NewPage();
    engine->EndDoc();
  }
  void Export(std::int16_t firstPage, std::int16_t lastPage) {
    exporter.ExportPdf(engine, file, firstPage, lastPage);
  }
  // The export fails so, names the file and the cause, and leaves no file.
  void ExpectRefusal(ErrorNumber number, const std::string& cause, const ObjectRef& object,
                     std::int16_t firstPage, std::int16_t lastPage) {
    try {
      exporter.ExportPdf(object, file, firstPage, lastPage);
      ADD_FAILURE() << "no error";
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), number);
      EXPECT_THAT(error.what(), HasSubstr(file));
      EXPECT_THAT(error.what(), HasSubstr(cause));
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
  }
  std::string Content() { return ReadFile(file); }

  NativePdfExporter exporter;
  ScratchFolder folder;
  std::string file = folder.FileNamed("rapport.pdf");
};

TEST_F(PdfExporterTest, WritesTheChosenPagesOfTheCompletedDocument) {
  Compose();
  Export(1, 2);
  EXPECT_TRUE(Content().starts_with("%PDF-1.7"));
  const std::string two = Content();
  Export(1, 1);
  EXPECT_LT(Content().size(), two.size());
}

TEST_F(PdfExporterTest, WritesTheSameBytesForTheSameDocument) {
  Compose();
  Export(1, 3);
  const std::string first = Content();
  Export(1, 3);
  EXPECT_EQ(Content(), first);
}

TEST_F(PdfExporterTest, WritesADocumentWithAReopenedPage) {
  Compose();
  engine->StartOverlay(std::int16_t{1});
  engine->PutText("Blad 1");
  Export(1, 2);
  EXPECT_FALSE(Content().empty());
}

TEST_F(PdfExporterTest, RefusesADocumentThatIsNotComplete) {
  ExpectRefusal(ErrorNumber::NoDocument, "geen afgesloten document", engine, 1, 1);
  engine->StartDoc();
  ExpectRefusal(ErrorNumber::NoDocument, "geen afgesloten document", engine, 1, 1);
}

TEST_F(PdfExporterTest, RefusesToWriteNoPages) {
  engine->StartDoc();
  engine->EndDoc();
  ExpectRefusal(ErrorNumber::PageOutOfRange, "geen pagina's", engine, 1, 0);
  ExpectRefusal(ErrorNumber::PageOutOfRange, "geen pagina's", engine, 1, -1);
}

TEST_F(PdfExporterTest, RefusesPagesThatTheDocumentDoesNotHave) {
  Compose();
  ExpectRefusal(ErrorNumber::PageOutOfRange, "0 tot en met 2", engine, 0, 2);
  ExpectRefusal(ErrorNumber::PageOutOfRange, "1 tot en met 4", engine, 1, 4);
  ExpectRefusal(ErrorNumber::PageOutOfRange, "3 tot en met 2", engine, 3, 2);
}

TEST_F(PdfExporterTest, RefusesAnotherEngine) {
  const auto picture = std::make_shared<PictureImage>();
  ExpectRefusal(ErrorNumber::InvalidArgument, "niet met deze component", picture, 1, 1);
  ExpectRefusal(ErrorNumber::InvalidArgument, "niet met deze component", nullptr, 1, 1);
}

TEST_F(PdfExporterTest, ARefusalLeavesTheOldFile) {
  Compose();
  Export(1, 2);
  const std::string old = Content();
  EXPECT_THROW(Export(1, 9), Error);
  EXPECT_EQ(Content(), old);
}

}  // namespace
}  // namespace pagivo::native
