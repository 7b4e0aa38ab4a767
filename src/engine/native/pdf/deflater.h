// Compression for FlateDecode.
#pragma once

#include <libdeflate.h>

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace pagivo::native {

// libdeflate's levels. For the 5,280 bytes of a report page's content they take, in microseconds
// and bytes: level 1 22.8 / 1,778, level 3 36.6 / 1,769, level 6 49.3 / 1,724.
enum class Effort : std::uint8_t {
  // Less than half the time of Small for 3 % more bytes.
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

// For the contents of pages, of which a file has many that are alike: the prefix codes are made for
// one page and serve those that follow, so that a page is looked through and written once. Any byte
// and any match has a code, though a long one when the page that the codes were made for had none.
// What comes out depends on nothing but the pages so far.
class PageDeflater {
 public:
  // The bytes in zlib form. They stay until the next call.
  std::string_view Compress(std::string_view content);

 private:
  // Some bits, of which the lowest one is written first.
  struct Code {
    std::uint32_t bits = 0;
    std::uint32_t count = 0;
  };

  class BitWriter;

  static constexpr int kLiteralCodes = 286;  // bytes, the end of the block, and lengths
  static constexpr int kDistanceCodes = 30;
  static constexpr unsigned kLongestMatch = 258;
  static constexpr unsigned kHashBits = 12;

  template <typename Literal, typename Match>
  void Parse(std::string_view content, Literal literal, Match match);
  void MakeCodes(std::string_view content);
  void MakeHeader(std::span<const std::uint8_t> lengths);
  void WriteHeader(std::span<const Code> header);
  std::string_view Encode(std::string_view content);

  Deflater small_{Effort::Fast};
  std::array<std::uint16_t, 1U << kHashBits> lastSeen_{};  // of four bytes, by their hash
  std::vector<char> output_;

  // Made for one page. The code of a length holds the further bits of that length, too.
  int pagesLeft_ = 0;
  std::size_t bytesForThousand_ = 0;  // what a thousand bytes of that page became
  std::array<Code, kLiteralCodes> literals_{};
  std::array<Code, kLongestMatch + 1> lengths_{};
  std::array<Code, kDistanceCodes> distances_{};
  std::vector<char> header_;  // of the file's form and of the block, as far as its bytes are full
  Code begunByHeader_;        // the rest of it
};

}  // namespace pagivo::native
