// Hashes for tables without an order, and by which equal contents are known: 64 bits on every
// system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace pagivo {

// The hash with one number more, which changes its upper half most.
constexpr std::uint64_t Mix(std::uint64_t hash, std::uint64_t number) {
  return (hash ^ number) * 0x9E3779B97F4A7C15U;
}

// The hash with its upper half in the lower one, too.
constexpr std::uint64_t Fold(std::uint64_t hash) {
  return hash ^ hash >> 32;
}

// The hash as the standard library's tables take it, which is its lower half where they have 32
// bits.
constexpr std::size_t TableHash(std::uint64_t hash) {
  return static_cast<std::size_t>(Fold(hash));
}

// The hash with one number more, of which every bit changes many of the hash.
constexpr std::uint64_t MixThoroughly(std::uint64_t hash, std::uint64_t number) {
  return Fold(Mix(0, Fold(Mix(hash, number))));
}

inline std::uint64_t HashOfBytes(std::span<const std::uint8_t> bytes) {
  std::uint64_t hash = bytes.size();
  std::uint64_t number = 0;
  for (; bytes.size() >= sizeof number; bytes = bytes.subspan(sizeof number)) {
    std::memcpy(&number, bytes.data(), sizeof number);
    hash = MixThoroughly(hash, number);
  }
  number = 0;
  if (!bytes.empty()) std::memcpy(&number, bytes.data(), bytes.size());
  return MixThoroughly(hash, number);
}

}  // namespace pagivo
