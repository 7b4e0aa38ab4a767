// print_server: a print server with two real printers, for a test that is a script. It ends when
// its input ends.
//
// It writes its address, then answers each line that it reads with a line of JSON:
//   jobs PRINTER   what the printer has received so far, in the order of arrival
//   pages FILE     the pages of a PDF file, as an independent reader sees them
//   rest           [], when the server has nothing left to print
//   forget         the same, and what the printers have received is no more
// A question that it cannot answer ends it, with the reason on its error output.
#include <cstdio>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/printing/pdf_pages.h"
#include "support/printing/test_print_server.h"

namespace pagivo {
namespace {

std::string Quoted(const std::string& text) {
  std::string quoted = "\"";
  for (const char character : text) {
    if (static_cast<unsigned char>(character) < ' ') {
      char escaped[8];
      std::snprintf(escaped, sizeof escaped, "\\u%04x", static_cast<unsigned>(character));
      quoted += escaped;
      continue;
    }
    if (character == '"' || character == '\\') quoted += '\\';
    quoted += character;
  }
  return quoted + '"';
}

std::string ToJson(const ReceivedJob& job) {
  return "{\"title\": " + Quoted(job.name) + ", \"copies\": " + std::to_string(job.copies) +
         ", \"media\": " + Quoted(job.media) + ", \"file\": " + Quoted(job.pdfFile) + "}";
}

std::string ToJson(const PdfPage& page) {
  return "{\"width\": " + std::to_string(page.width) +
         ", \"height\": " + std::to_string(page.height) + ", \"text\": " + Quoted(page.text) + "}";
}

template <typename Item>
std::string ToJson(const std::vector<Item>& items) {
  std::string list;
  for (const Item& item : items) list += (list.empty() ? "" : ", ") + ToJson(item);
  return "[" + list + "]";
}

void Forget(TestPrintServer& server) {
  server.Color().ForgetJobs();
  server.Drawing().ForgetJobs();
}

std::string Answer(TestPrintServer& server, const std::string& question) {
  const std::size_t blank = question.find(' ');
  const std::string subject = blank == std::string::npos ? "" : question.substr(blank + 1);
  if (question.starts_with("pages ")) return ToJson(ReadPdfPages(subject));
  for (TestPrinter* printer : {&server.Color(), &server.Drawing()}) {
    if (question == "jobs " + printer->Name()) return ToJson(printer->ReceivedJobs());
  }
  if (question != "rest" && question != "forget") {
    throw std::runtime_error("no such question: " + question);
  }
  server.AwaitQuiet();
  if (question == "forget") Forget(server);
  return "[]";
}

void Serve() {
  TestPrintServer server;
  std::cout << server.Address() << std::endl;
  for (std::string question; std::getline(std::cin, question);) {
    std::cout << Answer(server, question) << std::endl;
  }
}

}  // namespace
}  // namespace pagivo

int main() {
  try {
    pagivo::Serve();
  } catch (const std::exception& error) {
    std::cerr << "print_server: " << error.what() << '\n';
    return 1;
  }
}
