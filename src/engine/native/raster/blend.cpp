#include "engine/native/raster/blend.h"

#include <array>
#include <cstring>
#include <utility>

namespace pagivo::native {
namespace {

// The compiler's vectors of so many bytes. Every 16 bytes are a lane, and what is interleaved or
// packed stays within its lane, as it does in processors.
template <std::size_t kBytes>
struct Vectors {
  static constexpr std::size_t kPixels = kBytes / 4;
  static constexpr std::size_t kWords = kBytes / 2;
  using Bytes [[gnu::vector_size(kBytes)]] = std::uint8_t;
  using Words [[gnu::vector_size(kBytes)]] = std::uint16_t;
  using Pixels [[gnu::vector_size(kBytes)]] = std::uint32_t;

  // From the lower halves of the lanes of two vectors, in turn a byte of `low` and one of `high`.
  template <std::size_t... i>
  [[gnu::always_inline]] static void InterleaveLower(const Bytes& low, const Bytes& high,
                                                     Words& words, std::index_sequence<i...>) {
    words = reinterpret_cast<Words>(
        __builtin_shufflevector(low, high, (i / 16 * 16 + i % 16 / 2 + i % 2 * kBytes)...));
  }
  // The same from the upper halves.
  template <std::size_t... i>
  [[gnu::always_inline]] static void InterleaveUpper(const Bytes& low, const Bytes& high,
                                                     Words& words, std::index_sequence<i...>) {
    words = reinterpret_cast<Words>(
        __builtin_shufflevector(low, high, (i / 16 * 16 + 8 + i % 16 / 2 + i % 2 * kBytes)...));
  }
  // Each word of the lanes' lower halves twice.
  template <std::size_t... i>
  [[gnu::always_inline]] static void RepeatLower(const Words& words, Bytes& bytes,
                                                 std::index_sequence<i...>) {
    bytes =
        reinterpret_cast<Bytes>(__builtin_shufflevector(words, words, (i / 8 * 8 + i % 8 / 2)...));
  }
  // The lower bytes of the words.
  template <std::size_t... i>
  [[gnu::always_inline]] static void Pack(const Words& low, const Words& high, Bytes& bytes,
                                          std::index_sequence<i...>) {
    bytes = __builtin_shufflevector(reinterpret_cast<Bytes>(low), reinterpret_cast<Bytes>(high),
                                    (i / 16 * 16 + i % 8 * 2 + i % 16 / 8 * kBytes)...);
  }
  // A number for every four pixels.
  template <std::size_t... i>
  [[gnu::always_inline]] static void Broadcast(
      const std::array<std::uint32_t, kBytes / 16>& numbers, Bytes& bytes,
      std::index_sequence<i...>) {
    bytes = reinterpret_cast<Bytes>(Pixels{numbers[i / 4]...});
  }
};

// Mixes a colour into as many pixels at a time as a vector has.
template <std::size_t kBytes>
class Mixer {
 public:
  static constexpr std::int32_t kPixels = kBytes / 4;

  [[gnu::always_inline]] explicit Mixer(std::uint32_t color) {
    const Bytes colors = reinterpret_cast<Bytes>(Pixels{} + color);
    V::InterleaveLower(colors, Bytes{}, color_, kEveryByte);
  }

  [[gnu::always_inline]] void Blend(std::uint32_t* pixels, const std::uint8_t* coverages) const {
    std::array<std::uint32_t, kBytes / 16> fours;
    std::memcpy(fours.data(), coverages, sizeof fours);
    Bytes covered;
    Words twice;
    V::Broadcast(fours, covered, std::make_index_sequence<V::kPixels>());
    V::InterleaveLower(covered, covered, twice, kEveryByte);
    V::RepeatLower(twice, covered, std::make_index_sequence<V::kWords>());
    Bytes under;
    std::memcpy(&under, pixels, sizeof under);
    Words low;
    Words high;
    Words lowShare;
    Words highShare;
    const Bytes half = Bytes{} + 128;
    V::InterleaveLower(half, under, low, kEveryByte);
    V::InterleaveUpper(half, under, high, kEveryByte);
    V::InterleaveLower(covered, Bytes{}, lowShare, kEveryByte);
    V::InterleaveUpper(covered, Bytes{}, highShare, kEveryByte);
    Mix(low, lowShare);
    Mix(high, highShare);
    V::Pack(low, high, under, kEveryByte);
    std::memcpy(pixels, &under, sizeof under);
  }

 private:
  using V = Vectors<kBytes>;
  using Bytes = typename V::Bytes;
  using Words = typename V::Words;
  using Pixels = typename V::Pixels;
  static constexpr std::make_index_sequence<kBytes> kEveryByte{};

  // `under` comes 256 times as large and a half more. Differences below 0 come right again in the
  // sum, which fits.
  [[gnu::always_inline]] void Mix(Words& under, const Words& coverage) const {
    const Words share = coverage + (coverage >> 7);
    under = (under + (color_ - (under >> 8)) * share) >> 8;
  }

  Words color_;
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
