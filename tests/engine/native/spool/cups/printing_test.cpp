#include "engine/native/spool/cups/printing_test.h"

#include <cstdlib>

namespace pagivo {
namespace {

std::unique_ptr<TestPrintServer>& ServerInUse() {
  static std::unique_ptr<TestPrintServer> server;
  return server;
}

class ServerEnd : public testing::Environment {
 public:
  void TearDown() override { ServerInUse().reset(); }
};

const auto* const kServerEnd = testing::AddGlobalTestEnvironment(new ServerEnd);

}  // namespace

TestPrintServer& Server() {
  auto& server = ServerInUse();
  if (!server) server = std::make_unique<TestPrintServer>();
  return *server;
}

PrintingTest::PrintingTest() {
  for (const char* variable : {"LPDEST", "PRINTER", "CUPS_USER"}) unsetenv(variable);
  Server().Color().ForgetJobs();
  Server().Drawing().ForgetJobs();
  UsePrintServer(Server().Address());
  Platform platform = NativePlatform();
  platform.windows = windows;
  platform.makeEngine = [this](const Platform& inUse) {
    return std::make_shared<native::NativeEngine>(
        native::EngineServices{.windows = inUse.windows, .printers = printers});
  };
  UsePlatform(platform);
  print.VsPPInit();
}

PrintingTest::~PrintingTest() {
  print.VsPPEinde();
  UsePlatform(NativePlatform());
}

void PrintingTest::FinishPage(const std::string& text) {
  print.VsPPPrint(text, 1440.0, 1440.0);
  print.VsPPNewPage();
}

void PrintingTest::Compose(int pageCount) {
  for (int page = 1; page <= pageCount; ++page) FinishPage("Blad " + std::to_string(page));
  print.VsPPFinish("Rapport");
}

std::vector<ReceivedJob> PrintingTest::Received(TestPrinter& printer) {
  Server().AwaitQuiet();
  return printer.ReceivedJobs();
}

std::vector<std::string> PrintingTest::TextsOf(const ReceivedJob& job) {
  std::vector<std::string> texts;
  for (const PdfPage& page : ReadPdfPages(job.pdfFile)) texts.push_back(page.text);
  return texts;
}

}  // namespace pagivo
