#include "engine/native/pdf/deflater.h"

#include <new>

namespace pagivo::native {
namespace {

// Four fifths of an export's time goes into compression. Higher levels take longer for a percent.
constexpr int kLevel = 6;

}  // namespace

Deflater::Deflater() : compressor_(libdeflate_alloc_compressor(kLevel)) {
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
