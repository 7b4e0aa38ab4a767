#include "engine/native/pdf/deflater.h"

#include <new>

namespace pagivo::native {

Deflater::Deflater(Effort effort)
    : compressor_(libdeflate_alloc_compressor(static_cast<int>(effort))) {
  if (!compressor_) throw std::bad_alloc();
}

std::string_view Deflater::Compress(std::string_view bytes) {
  const std::size_t bound = libdeflate_zlib_compress_bound(compressor_.get(), bytes.size());
  if (buffer_.size() < bound) buffer_.resize(bound);
  const std::size_t size = libdeflate_zlib_compress(compressor_.get(), bytes.data(), bytes.size(),
                                                    buffer_.data(), buffer_.size());
  return {buffer_.data(), size};
}

}  // namespace pagivo::native
