#include "support/pictures/damaged_pictures.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdint>
#include <random>

#include "pagivo/error.h"
#include "support/pictures/peak_memory.h"

namespace pagivo::native {
namespace {

std::string RefusalOf(const Bytes& bytes) {
  try {
    DecodePicture(bytes);
    return "none";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::InvalidPicture);
    return error.what();
  }
}

}  // namespace

std::shared_ptr<PictureImage> DecodeOrRefuse(const Bytes& bytes) {
  try {
    auto picture = DecodePicture(bytes);
    picture->GetPixels();
    return picture;
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::InvalidPicture);
    return nullptr;
  }
}

void ExpectRefusedOrWholeWhereverCut(const Bytes& bytes) {
  const auto whole = DecodePicture(bytes);
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    const auto cut = DecodeOrRefuse({bytes.begin(), bytes.begin() + std::ptrdiff_t(length)});
    if (cut == nullptr) continue;
    EXPECT_EQ(cut->GetPixels()->data, whole->GetPixels()->data) << "at " << length;
  }
}

void ExpectRefusedWhenCutToAThird(const Bytes& bytes) {
  EXPECT_EQ(DecodeOrRefuse({bytes.begin(), bytes.begin() + std::ptrdiff_t(bytes.size() / 3)}),
            nullptr);
}

void ExpectDecodedOrRefusedWithAByteChanged(const Bytes& bytes) {
  std::minstd_rand random(1);
  for (int round = 0; round < 100; ++round) {
    Bytes damaged = bytes;
    damaged[random() % damaged.size()] = static_cast<std::uint8_t>(random());
    DecodeOrRefuse(damaged);
  }
}

void ExpectDecodedOrRefusedWithRandomBytesBehindItsSignature(const Bytes& bytes) {
  Bytes damaged = bytes;
  std::minstd_rand random(2);
  for (int round = 0; round < 20; ++round) {
    for (std::size_t at = 8; at < damaged.size(); ++at) {
      damaged[at] = static_cast<std::uint8_t>(random());
    }
    DecodeOrRefuse(damaged);
  }
}

void ExpectRefusedInLittleMemory(const Bytes& bytes, const char* reason) {
  const std::uint64_t before = PeakMemory();
  EXPECT_THAT(RefusalOf(bytes), testing::HasSubstr(reason));
  EXPECT_LT(PeakMemory() - before, std::uint64_t{64} << 20);
}

std::string TestNameOf(std::string file) {
  std::ranges::replace(file, '.', '_');
  return file;
}

}  // namespace pagivo::native
