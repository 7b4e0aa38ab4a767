// Contents of pages, compressed with the codes of pages before them, as zlib reads them.
#include "engine/native/pdf/deflater.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <random>
#include <string>

namespace pagivo::native::testing {
namespace {

// What zlib makes of it; fails the test when that is not `size` bytes.
std::string Inflated(std::string_view compressed, std::size_t size) {
  std::string bytes(size + 1, '\0');
  auto length = static_cast<uLongf>(bytes.size());
  const int result = uncompress(reinterpret_cast<Bytef*>(bytes.data()), &length,
                                reinterpret_cast<const Bytef*>(compressed.data()),
                                static_cast<uLong>(compressed.size()));
  EXPECT_EQ(result, Z_OK);
  EXPECT_EQ(length, size);
  bytes.resize(length);
  return bytes;
}

// Lines of numbers and words as the content of a page has them.
std::string PageOfText(unsigned seed, std::size_t size) {
  const char* const words[] = {"afstand", "hoogte", "windrichting", "emissie", "bijdrage"};
  std::mt19937 random(seed);
  std::string page = "/F0 9 Tf\nBT\n";
  while (page.size() < size) {
    page += std::to_string(random() % 600) + " -" + std::to_string(random() % 20) + " Td\n[(";
    page += words[random() % 5];
    page += ")-" + std::to_string(random() % 9000) + "(" + std::to_string(random() % 100000);
    page += ")]TJ\n";
  }
  page.resize(size);
  return page;
}

std::string PageOfNoise(unsigned seed, std::size_t size) {
  std::mt19937 random(seed);
  std::string page(size, '\0');
  for (char& byte : page) byte = static_cast<char>(random());
  return page;
}

class PageDeflaterTest : public ::testing::Test {
 protected:
  void ExpectReadBack(const std::string& page) {
    EXPECT_EQ(Inflated(deflater_.Compress(page), page.size()), page) << page.size();
  }

  PageDeflater deflater_;
};

TEST_F(PageDeflaterTest, ManyPagesAreReadBack) {
  for (unsigned page = 0; page < 300; ++page) ExpectReadBack(PageOfText(page, 1000 + page * 37));
}

TEST_F(PageDeflaterTest, PagesOfAnyKindAreReadBackAfterOthers) {
  for (unsigned round = 0; round < 4; ++round) {
    ExpectReadBack(PageOfText(round, 5000));
    ExpectReadBack(PageOfNoise(round, 5000));
    ExpectReadBack(std::string(5000, 'x'));
    ExpectReadBack(PageOfNoise(round, 2000) + std::string(40000, '\xFF') +
                   PageOfNoise(round, 2000));
  }
}

TEST_F(PageDeflaterTest, PagesOfAnySizeAreReadBack) {
  for (const std::size_t size :
       {1U, 999U, 1000U, 1001U, 32767U, 32768U, 32769U, 59999U, 60000U, 60001U}) {
    ExpectReadBack(PageOfText(1, size));
    ExpectReadBack(PageOfNoise(1, size));
    ExpectReadBack(std::string(size, '0'));
  }
}

// Every length that a repetition may have, and places to take it from near and far.
TEST_F(PageDeflaterTest, RepetitionsOfAnyLengthAndDistanceAreReadBack) {
  for (std::size_t between = 0; between < 34000; between = between * 2 + 300) {
    std::string page;
    for (unsigned length = 1; length <= 300; length += 7) {
      const std::string repeated = PageOfNoise(length, length);
      page += repeated;
      if (length == 155) page += PageOfNoise(1000, between);
      page += repeated;
    }
    ExpectReadBack(page.substr(0, 60000));
  }
}

TEST_F(PageDeflaterTest, TheSamePagesGiveTheSameBytes) {
  PageDeflater other;
  for (unsigned page = 0; page < 200; ++page) {
    const std::string content = PageOfText(page, 3000);
    EXPECT_EQ(deflater_.Compress(content), other.Compress(content));
  }
}

// On every machine, whichever way round it numbers bytes.
TEST_F(PageDeflaterTest, TheBytesAreTheseEverywhere) {
  uLong checksum = 0;
  for (unsigned page = 0; page < 3; ++page) {
    const std::string_view bytes = deflater_.Compress(PageOfText(page, 3000));
    checksum = crc32(checksum, reinterpret_cast<const Bytef*>(bytes.data()),
                     static_cast<uInt>(bytes.size()));
  }
  EXPECT_EQ(checksum, 362577308U);
}

TEST_F(PageDeflaterTest, APageTakesATenthMoreThanOnItsOwnAtMost) {
  Deflater alone(Effort::Fast);
  for (unsigned page = 0; page < 140; ++page) {
    const std::string content = PageOfText(page, 5000);
    EXPECT_LE(deflater_.Compress(content).size(), alone.Compress(content).size() * 11 / 10);
  }
}

TEST_F(PageDeflaterTest, APageOfAnotherKindGetsCodesOfItsOwn) {
  Deflater alone(Effort::Fast);
  deflater_.Compress(std::string(5000, 'x'));
  const std::string content = PageOfText(1, 5000);
  EXPECT_LE(deflater_.Compress(content).size(), alone.Compress(content).size() * 11 / 10);
}

}  // namespace
}  // namespace pagivo::native::testing
