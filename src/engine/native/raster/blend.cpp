#include "engine/native/raster/blend.h"

#include <array>
#include <cstring>
#include <utility>

namespace pagivo::native {
namespace {

// The compiler's vectors of so many bytes. Every 16 bytes are a lane, and what is interleaved or
// repeated stays within its lane, as it does in processors.
template <std::size_t kBytes>
struct Vectors {
  static constexpr std::size_t kPixels = kBytes / 4;
  static constexpr std::size_t kWords = kBytes / 2;
  using Bytes [[gnu::vector_size(kBytes)]] = std::uint8_t;
  using Words [[gnu::vector_size(kBytes)]] = std::uint16_t;
  using Pixels [[gnu::vector_size(kBytes)]] = std::uint32_t;

  // A number for every four pixels.
  template <std::size_t... i>
  [[gnu::always_inline]] static void Broadcast(
      const std::array<std::uint32_t, kBytes / 16>& numbers, Bytes& bytes,
      std::index_sequence<i...>) {
    bytes = reinterpret_cast<Bytes>(Pixels{numbers[i / 4]...});
  }
  // The bytes of the lanes' lower halves.
  template <std::size_t... i>
  [[gnu::always_inline]] static void Widen(const Bytes& bytes, Words& words,
                                           std::index_sequence<i...>) {
    words = reinterpret_cast<Words>(
        __builtin_shufflevector(bytes, Bytes{}, (i / 16 * 16 + i % 16 / 2 + i % 2 * kBytes)...));
  }
  // Each word of the lanes' lower halves twice.
  template <std::size_t... i>
  [[gnu::always_inline]] static void Repeat(const Words& words, Words& twice,
                                            std::index_sequence<i...>) {
    twice = __builtin_shufflevector(words, words, (i / 8 * 8 + i % 8 / 2)...);
  }
};

// Mixes a colour into as many pixels at a time as a vector has. The channels of even and of odd
// place are taken apart, so that each has eight bits of room.
template <std::size_t kBytes>
class Mixer {
 public:
  static constexpr std::int32_t kPixels = kBytes / 4;

  [[gnu::always_inline]] explicit Mixer(std::uint32_t color) {
    const Words channels = reinterpret_cast<Words>(Pixels{} + color);
    even_ = channels & 0xFF;
    odd_ = channels >> 8;
  }

  [[gnu::always_inline]] void Blend(std::uint32_t* pixels, const std::uint8_t* coverages) const {
    Words share;
    Spread(coverages, share);
    share += share >> 7;
    Words under;
    std::memcpy(&under, pixels, sizeof under);
    // Differences below 0 come right again in the sums, which fit.
    const Words even = (under << 8) + 128 + (even_ - (under & 0xFF)) * share;
    const Words odd = (under & 0xFF00) + 128 + (odd_ - (under >> 8)) * share;
    under = (even >> 8) | (odd & 0xFF00);
    std::memcpy(pixels, &under, sizeof under);
  }

 private:
  using V = Vectors<kBytes>;
  using Bytes = typename V::Bytes;
  using Words = typename V::Words;
  using Pixels = typename V::Pixels;

  // A pixel's coverage goes to both its words.
  [[gnu::always_inline]] static void Spread(const std::uint8_t* coverages, Words& shares) {
    std::array<std::uint32_t, kBytes / 16> fours;
    std::memcpy(fours.data(), coverages, sizeof fours);
    Bytes covered;
    Words wide;
    V::Broadcast(fours, covered, std::make_index_sequence<V::kPixels>());
    V::Widen(covered, wide, std::make_index_sequence<kBytes>());
    V::Repeat(wide, shares, std::make_index_sequence<V::kWords>());
  }

  Words even_;
  Words odd_;
};

// What the vectors of every processor of the platform hold.
constexpr std::size_t kEveryVector = 16;

template <std::size_t kBytes>
[[gnu::always_inline]] inline void BlendBy(const CoveredRows& rows, const Ink& ink,
                                           std::uint32_t color) {
  const Mixer<kBytes> mixer(color);
  const Mixer<kEveryVector> narrow(color);
  auto [row, stride, coverages, pitch, width, height] = rows;
  for (; height > 0; --height) {
    std::int32_t x = 0;
    for (; x + mixer.kPixels <= width; x += mixer.kPixels) mixer.Blend(row + x, coverages + x);
    for (; x + narrow.kPixels <= width; x += narrow.kPixels) {
      narrow.Blend(row + x, coverages + x);
    }
    for (; x < width; ++x) ink.Blend(row[x], coverages[x]);
    row += stride;
    coverages += pitch;
  }
}

#if defined(__x86_64__) || defined(__i386__)
[[gnu::target("avx2")]] void BlendEights(const CoveredRows& rows, const Ink& ink,
                                         std::uint32_t color) {
  BlendBy<32>(rows, ink, color);
}

bool HasEights() {
  static const bool has = __builtin_cpu_supports("avx2") != 0;
  return has;
}
#else
void BlendEights(const CoveredRows&, const Ink&, std::uint32_t) {}

bool HasEights() {
  return false;
}
#endif

}  // namespace

void Ink::BlendRows(const CoveredRows& rows) const {
  if (HasEights()) return BlendEights(rows, *this, pixel_);
  BlendRowsInFours(rows);
}

void Ink::BlendRowsInFours(const CoveredRows& rows) const {
  BlendBy<kEveryVector>(rows, *this, pixel_);
}

}  // namespace pagivo::native
