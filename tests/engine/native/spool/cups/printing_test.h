// What the tests on real printers share: one print server for the program, and for each test a host
// with a document.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "engine/native/native_engine.h"
#include "engine/native/spool/cups/cups_print_server.h"
#include "pagivo/error.h"
#include "pagivo/pg_print.h"
#include "platform/platform.h"
#include "preview/preview_form.h"
#include "support/printing/pdf_pages.h"
#include "support/printing/test_print_server.h"
#include "window/headless/headless_windows.h"

namespace pagivo {

// Started when a test first needs it, ended with the program's tests.
TestPrintServer& Server();

// Printing goes to Server(); nothing has been read from it, and its printers have received nothing.
class PrintingTest : public testing::Test {
 protected:
  PrintingTest();
  ~PrintingTest() override;

  native::NativeEngine& Engine() {
    return dynamic_cast<native::NativeEngine&>(*PreviewForm().vsPrint());
  }

  // Pages with their numbers on them, and the empty one that every document ends with.
  void Compose(int pageCount);
  void FinishPage(const std::string& text);

  // What a printer has received once the server has come to rest.
  static std::vector<ReceivedJob> Received(TestPrinter& printer);
  // The texts on a received job's pages.
  static std::vector<std::string> TextsOf(const ReceivedJob& job);

  std::shared_ptr<HeadlessWindows> windows = std::make_shared<HeadlessWindows>();
  std::shared_ptr<native::CupsPrintServer> printers = std::make_shared<native::CupsPrintServer>();
  PgPrint print;
};

// The description of the Error that the statement raises, which must be a PrinterFailure; empty
// when it raises none.
template <typename Statement>
std::string PrinterFailureOf(Statement&& statement) {
  try {
    statement();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::PrinterFailure) << error.what();
    return error.what();
  }
  return {};
}

template <typename Statement>
std::chrono::duration<double> TimeOf(Statement&& statement) {
  const auto start = std::chrono::steady_clock::now();
  statement();
  return std::chrono::steady_clock::now() - start;
}

}  // namespace pagivo
