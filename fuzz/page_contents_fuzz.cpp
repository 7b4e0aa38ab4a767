// Compressing contents of pages: zlib reads back what was written, whatever the pages before were.
#include <zlib.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "engine/native/pdf/deflater.h"

namespace {

// Shorter contents go another way.
constexpr std::size_t kLongEnough = 1000;

std::string PageOf(std::string_view bytes) {
  std::string page;
  while (page.size() < kLongEnough) page += bytes;
  return page;
}

void RequireReadBack(pagivo::native::PageDeflater& deflater, const std::string& page) {
  const std::string_view compressed = deflater.Compress(page);
  std::string bytes(page.size() + 1, '\0');
  uLongf length = bytes.size();
  const int result =
      uncompress(reinterpret_cast<Bytef*>(bytes.data()), &length,
                 reinterpret_cast<const Bytef*>(compressed.data()), compressed.size());
  if (result != Z_OK || std::string_view(bytes).substr(0, length) != page) abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  pagivo::native::PageDeflater deflater;
  RequireReadBack(deflater, PageOf(text.substr(0, size / 2)));
  RequireReadBack(deflater, PageOf(text.substr(size / 2)));
  RequireReadBack(deflater, PageOf(text));
  return 0;
}
