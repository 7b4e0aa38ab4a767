// Compression for FlateDecode.
#pragma once

#include <libdeflate.h>

#include <memory>
#include <string_view>
#include <vector>

namespace pagivo::native {

// One compressor and one buffer, used again and again.
class Deflater {
 public:
  // Raises std::bad_alloc.
  Deflater();

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
