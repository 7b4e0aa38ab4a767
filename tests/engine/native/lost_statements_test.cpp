// A document that lacks something because memory ran out says so wherever it goes.
#include <new>

#include "engine/native/pdf/pdf_writer.h"
#include "engine/native/spool/memory_print_server.h"
#include "engine/native/view/surface_test.h"
#include "support/scratch_folder.h"
#include "values/errors.h"

namespace pagivo::native {
namespace {

void LoseStatement() {
  IgnoringErrors([] { throw std::bad_alloc(); });
}

class LostStatements : public SurfaceTest {
 protected:
  static constexpr std::uint32_t kRed = 0xFFC00000;

  void ComposeLosing() {
    engine->StartDoc();
    engine->PutText("Een");
    LoseStatement();
    engine->NewPage();
    engine->EndDoc();
  }
};

TEST_F(LostStatements, MakeADocumentLackSomethingWhileItIsComposed) {
  engine->StartDoc();
  EXPECT_TRUE(engine->IsWhole());
  LoseStatement();
  EXPECT_FALSE(engine->IsWhole());
  engine->EndDoc();
  EXPECT_FALSE(engine->IsWhole());
}

TEST_F(LostStatements, MakeNoDifferenceBeforeAndAfter) {
  LoseStatement();
  engine->StartDoc();
  engine->EndDoc();
  LoseStatement();
  EXPECT_TRUE(engine->IsWhole());
}

TEST_F(LostStatements, CountWhileAPageIsDrawnOver) {
  engine->StartDoc();
  engine->EndDoc();
  engine->StartOverlay(1);
  LoseStatement();
  engine->EndOverlay();
  EXPECT_FALSE(engine->IsWhole());
}

TEST_F(LostStatements, OfOneOverlayAreNotForgottenByTheNext) {
  engine->StartDoc();
  engine->EndDoc();
  engine->StartOverlay(1);
  LoseStatement();
  engine->StartOverlay(1);
  engine->EndOverlay();
  EXPECT_FALSE(engine->IsWhole());
}

TEST_F(LostStatements, ForOtherReasonsMakeNoDifference) {
  engine->StartDoc();
  IgnoringErrors([] { ThrowOverflow(); });
  engine->EndDoc();
  EXPECT_TRUE(engine->IsWhole());
}

TEST_F(LostStatements, AreForgottenWithTheirDocument) {
  ComposeLosing();
  engine->StartDoc();
  engine->EndDoc();
  EXPECT_TRUE(engine->IsWhole());
}

TEST_F(LostStatements, AreToldInsteadOfExporting) {
  const ScratchFolder folder;
  ComposeLosing();
  NativePdfExporter exporter;
  ExpectError(ErrorNumber::OutOfMemory,
              [&] { exporter.ExportPdf(engine, folder.FileNamed("a.pdf"), 1, 1); });
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST_F(LostStatements, AreToldInsteadOfPrinting) {
  const auto server = std::make_shared<MemoryPrintServer>();
  server->printers.emplace_back().name = "Laser";
  engine = std::make_shared<NativeEngine>(EngineServices{.printers = server});
  ComposeLosing();
  ExpectError(ErrorNumber::OutOfMemory, [this] { engine->PrintDoc(false, 1, 1); });
  EXPECT_TRUE(server->jobs.empty());
}

TEST_F(LostStatements, AreToldAcrossTheTopOfThePreview) {
  PutArea(1000, 616);
  Compose(1);
  EXPECT_NE(Draw().At(2, 2), kRed);
  ComposeLosing();
  const DrawnSurface drawn = Draw();
  EXPECT_EQ(drawn.At(2, 2), kRed);
  EXPECT_EQ(drawn.At(997, 19), kRed);
  EXPECT_NE(drawn.At(997, 25), kRed);
  EXPECT_EQ(drawn.At(500, 300), kWhite);
}

TEST_F(LostStatements, AreToldInAPreviewThatHasHardlyAnyRoom) {
  ComposeLosing();
  PutArea(40, 5);
  EXPECT_EQ(Draw().At(1, 1), kRed);
}

}  // namespace
}  // namespace pagivo::native
