// Compression for FlateDecode.
#pragma once

#include <libdeflate.h>

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace pagivo::native {

// libdeflate's levels. For the 5,280 bytes of a report page's content they take, in microseconds
// and bytes: level 1 22.8 / 1,778, level 3 36.6 / 1,769, level 6 49.3 / 1,724.
enum class Effort : std::uint8_t {
  // For what every page has: less than half the time of Small for 3 % more bytes.
  Fast = 1,
  // For what a file has once. Higher levels take twice as long on pictures for a percent or two.
  Small = 6
};

// One compressor and one buffer, used again and again.
class Deflater {
 public:
  // Raises std::bad_alloc.
  explicit Deflater(Effort effort);

  // The bytes in zlib form. They stay until the next call.
  std::string_view Compress(std::string_view bytes);

 private:
  struct Free {
    void operator()(libdeflate_compressor* compressor) const {
      libdeflate_free_compressor(compressor);
    }
  };
  std::unique_ptr<libdeflate_compressor, Free> compressor_;
  std::vector<char> buffer_;
};

}  // namespace pagivo::native
