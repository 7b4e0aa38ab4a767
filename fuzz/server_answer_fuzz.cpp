// Answers of a print server, HTTP and IPP: whatever comes, reading ends, and what is read fits its
// bounds.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "engine/native/spool/cups/http_answer.h"
#include "engine/native/spool/cups/ipp_message.h"

namespace {

using pagivo::native::HttpReader;

void ReadMessage(std::span<const std::uint8_t> bytes) {
  const pagivo::native::IppMessage message = pagivo::native::ParseAnswer(bytes);
  if (!message) return;
  pagivo::native::StatusOf(bytes);
  pagivo::native::ReadPrinters(message.get());
  pagivo::native::ReadMedia(message.get());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::span<const std::uint8_t> rest(data, size);
  ReadMessage(rest);
  HttpReader reader([&rest](std::span<std::uint8_t> buffer) {
    // A piece at a time, so that pieces end anywhere.
    const std::size_t count = std::min({buffer.size(), rest.size(), std::size_t{7}});
    std::ranges::copy(rest.first(count), buffer.begin());
    rest = rest.subspan(count);
    return count;
  });
  while (const auto answer = reader.Next()) {
    if (answer->status < 200 || answer->status > 999) abort();
    if (answer->body.size() > HttpReader::kMostBody) abort();
    ReadMessage(answer->body);
    if (answer->closes) break;
  }
  return 0;
}
