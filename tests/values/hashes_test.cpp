#include "values/hashes.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace pagivo {
namespace {

TEST(HashOfBytes, TellsBytesOfWhichOneOrTwoBitsDiffer) {
  std::vector<std::uint8_t> bytes(21);
  const std::size_t bits = 8 * bytes.size();
  const auto flip = [&bytes](std::size_t bit) {
    bytes[bit / 8] ^= static_cast<std::uint8_t>(1 << bit % 8);
  };
  std::set<std::uint64_t> hashes{HashOfBytes(bytes)};
  std::set<std::uint32_t> lowerHalves;
  std::size_t count = 1;
  for (std::size_t one = 0; one < bits; ++one) {
    flip(one);
    lowerHalves.insert(static_cast<std::uint32_t>(HashOfBytes(bytes)));
    for (std::size_t other = one; other < bits; ++other, ++count) {
      if (other > one) flip(other);
      hashes.insert(HashOfBytes(bytes));
      if (other > one) flip(other);
    }
    flip(one);
  }
  EXPECT_EQ(hashes.size(), count);
  EXPECT_EQ(lowerHalves.size(), bits);
}

TEST(HashOfBytes, TellsHowManyZerosThereAre) {
  std::set<std::uint64_t> hashes;
  for (std::size_t size = 0; size < 100; ++size) {
    hashes.insert(HashOfBytes(std::vector<std::uint8_t>(size)));
  }
  EXPECT_EQ(hashes.size(), 100U);
}

}  // namespace
}  // namespace pagivo
