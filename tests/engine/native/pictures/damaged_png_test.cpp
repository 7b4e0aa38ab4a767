// PNG files whose checksums are right and whose data are damaged all the same: what only a faulty
// or hostile program writes.
#include <gtest/gtest.h>
#include <png.h>

#include <algorithm>
#include <memory>
#include <vector>

#include "engine/native/pictures/picture_loader.h"
#include "engine/native/pictures/png_codec.h"
#include "support/pictures/damaged_pictures.h"
#include "support/pictures/picture_files.h"
#include "support/pictures/png_files.h"

namespace pagivo::native {
namespace {

constexpr std::size_t kWidth = 100;
constexpr std::size_t kHeight = 10;

Bytes FileOf(std::uint8_t color, const Bytes& data) {
  return PngOf({{"IHDR", HeaderOf(kWidth, kHeight, 8, color)}, {"IDAT", data}, {"IEND", {}}});
}

// The file with other data.
Bytes WithData(const Bytes& file, const Bytes& data) {
  std::vector<PngChunk> chunks = ChunksOf(file);
  std::erase_if(chunks, [](const PngChunk& chunk) { return chunk.type == "IDAT"; });
  const std::vector<PngChunk> others = DataChunks(data);
  chunks.insert(chunks.end() - 1, others.begin(), others.end());
  return PngOf(chunks);
}

Bytes DataOf(const Bytes& file) {
  Bytes data;
  for (const PngChunk& chunk : ChunksOf(file)) {
    if (chunk.type == "IDAT") data.insert(data.end(), chunk.data.begin(), chunk.data.end());
  }
  return data;
}

// Of the kind of colours that the parameter is in the header: grey, of one sample a pixel, or RGB.
class DamagedPng : public testing::TestWithParam<std::uint8_t> {
 protected:
  std::size_t RowSize() const { return kWidth * (GetParam() == PNG_COLOR_TYPE_GRAY ? 1 : 3); }

  // So many rows that are not predicted, each of one value of its own.
  Bytes Rows(std::size_t count) const {
    Bytes rows;
    for (std::size_t y = 0; y < count; ++y) {
      rows.push_back(0);
      rows.insert(rows.end(), RowSize(), ValueOf(y));
    }
    return rows;
  }

  // A file that gives the rows and then a block of no kind that there is.
  Bytes FileDamagedBehind(const Bytes& rows) const {
    Bytes data = StoredBlock(BlockPlace::Inner, rows);
    data.insert(data.begin(), {0x78, 0x01});
    data.push_back(0x07);
    return FileOf(GetParam(), data);
  }

  // A file that ends with the rows.
  Bytes FileEndingWith(const Bytes& rows) const {
    return PngOfRows({{"IHDR", HeaderOf(kWidth, kHeight, 8, GetParam())}}, rows);
  }

  // A whole file, packed by libpng.
  static Bytes WholeFile() {
    return PackedPng(GetParam() == PNG_COLOR_TYPE_GRAY ? PNG_FORMAT_GRAY : PNG_FORMAT_RGB);
  }

  // The picture goes to PDF as it is, and shows so many rows and white below.
  static void ExpectRowsAndWhite(const Bytes& file, std::size_t rows) {
    const auto picture = DecodePicture(file);
    ASSERT_NE(picture->Stored(), nullptr);
    EXPECT_TRUE(std::ranges::equal(picture->Stored()->Data(), DataOf(file)));
    const Bytes pixels = picture->GetPixels()->data;
    ASSERT_EQ(pixels.size(), 3 * kWidth * kHeight);
    for (std::size_t at = 0; at < pixels.size(); ++at) {
      const std::size_t y = at / (3 * kWidth);
      ASSERT_EQ(pixels[at], y < rows ? ValueOf(y) : 0xFF) << "in row " << y;
    }
  }

 private:
  static std::uint8_t ValueOf(std::size_t y) { return static_cast<std::uint8_t>(20 * y + 7); }
};

INSTANTIATE_TEST_SUITE_P(OfOneSampleOrThree, DamagedPng,
                         testing::Values(std::uint8_t{PNG_COLOR_TYPE_GRAY},
                                         std::uint8_t{PNG_COLOR_TYPE_RGB}),
                         [](const auto& instance) {
                           return instance.param == PNG_COLOR_TYPE_GRAY ? "Grey" : "Rgb";
                         });

TEST_P(DamagedPng, ShowsTheRowsAboveTheDamageAndWhiteBelow) {
  Bytes rows = Rows(5);
  rows.resize(rows.size() - RowSize() / 2);
  ExpectRowsAndWhite(FileDamagedBehind(rows), 4);
  ExpectRowsAndWhite(FileDamagedBehind({0, 1, 2, 3}), 0);
}

TEST_P(DamagedPng, OfTooFewRowsShowsThoseAndWhiteBelow) {
  ExpectRowsAndWhite(FileEndingWith(Rows(4)), 4);
}

TEST_P(DamagedPng, ShowsTheRowsAboveOneThatIsPredictedInNoKnownWay) {
  Bytes rows = Rows(6);
  rows[4 * (1 + RowSize())] = PNG_FILTER_VALUE_LAST;
  ExpectRowsAndWhite(FileEndingWith(rows), 4);
}

TEST_P(DamagedPng, ShowsAllRowsWhereOnlyTheirChecksumIsDamagedOrMissing) {
  const Bytes file = WholeFile();
  Bytes data = DataOf(file);
  data.back() ^= 1;
  EXPECT_EQ(DecodePicture(WithData(file, data))->GetPixels()->data, DecodePng(file).data);
  data.resize(data.size() - 4);
  const auto picture = DecodePicture(WithData(file, data));
  EXPECT_EQ(picture->GetPixels()->data, DecodePng(file).data);
  EXPECT_TRUE(std::ranges::equal(picture->Stored()->Data(), data));
}

TEST_P(DamagedPng, OfAnyByteGivesAWholePicture) {
  const Bytes file = WholeFile();
  const Bytes whole = DataOf(file);
  for (std::size_t at = 2; at < whole.size(); ++at) {
    Bytes data = whole;
    data[at] ^= 0x55;
    const auto picture = DecodePicture(WithData(file, data));
    ASSERT_NE(picture->Stored(), nullptr) << at;
    ASSERT_TRUE(std::ranges::equal(picture->Stored()->Data(), data)) << at;
    ASSERT_EQ(picture->GetPixels()->data.size(), std::size_t{3} * 50 * 40) << at;
  }
}

TEST_P(DamagedPng, CutOffAnywhereGivesItsFirstRows) {
  const Bytes file = WholeFile();
  const Bytes whole = DataOf(file);
  const Bytes expected = DecodePng(file).data;
  for (std::size_t size = 50; size < whole.size(); size += 7) {
    const auto picture =
        DecodePicture(WithData(file, {whole.begin(), whole.begin() + std::ptrdiff_t(size)}));
    const Bytes pixels = picture->GetPixels()->data;
    const auto [end, unused] = std::ranges::mismatch(pixels, expected);
    EXPECT_TRUE(std::all_of(end, pixels.end(), [](std::uint8_t byte) { return byte == 0xFF; }))
        << "at " << size;
  }
}

TEST_P(DamagedPng, InAnIconIsShownAlike) {
  const Bytes png = FileEndingWith(Rows(4));
  Bytes icon{0, 0, 1, 0, 1, 0, kWidth, kHeight, 0, 0, 1, 0, 24, 0, 0, 0, 0, 0, 22, 0, 0, 0};
  icon.at(14) = static_cast<std::uint8_t>(png.size());
  icon.at(15) = static_cast<std::uint8_t>(png.size() >> 8);
  icon.insert(icon.end(), png.begin(), png.end());
  EXPECT_EQ(DecodePicture(icon)->GetPixels()->data, DecodePicture(png)->GetPixels()->data);
}

// --- What is refused, or decoded when it is loaded, as libpng does it

TEST_P(DamagedPng, OfAWrongChecksumOrWithoutItsEndIsRefused) {
  const Bytes file = FileEndingWith(Rows(4));
  ASSERT_NE(DecodeOrRefuse(file), nullptr);
  std::size_t end = 8;
  for (const PngChunk& chunk : ChunksOf(file)) {
    end += 12 + chunk.data.size();
    Bytes damaged = file;
    damaged.at(end - 1) ^= 1;
    EXPECT_EQ(DecodeOrRefuse(damaged), nullptr) << "the checksum of " << chunk.type;
  }
  EXPECT_EQ(DecodeOrRefuse({file.begin(), file.end() - 12}), nullptr);
  EXPECT_EQ(DecodeOrRefuse({file.begin(), file.end() - 1}), nullptr);
}

TEST_P(DamagedPng, WhoseDataDoNotBeginLikeZlibIsRefused) {
  const Bytes file = FileEndingWith(Rows(4));
  Bytes data = DataOf(file);
  struct Beginning {
    std::uint8_t first;
    std::uint8_t second;
    const char* name;
  };
  for (const auto& [first, second, name] :
       {Beginning{0x78, 0x02, "the check"}, Beginning{0x77, 0x14, "the method"},
        Beginning{0x78, 0x20, "a dictionary"}, Beginning{0x88, 0x1C, "the window"}}) {
    data.at(0) = first;
    data.at(1) = second;
    EXPECT_EQ(DecodeOrRefuse(WithData(file, data)), nullptr) << name;
  }
}

TEST_P(DamagedPng, OfFewerBytesThanItsRowsCanBePackedIntoIsRefused) {
  const Bytes header{0, 0, 4, 0, 0, 0, 4, 0, 8, GetParam(), 0, 0, 0};  // 1024 x 1024
  const Bytes file = PngOf(
      {{"IHDR", header}, {"tEXt", Bytes(9000, 'a')}, {"IDAT", {0x78, 0x01, 3, 0}}, {"IEND", {}}});
  EXPECT_EQ(DecodeOrRefuse(file), nullptr);
}

TEST_P(DamagedPng, OfDataLargerThanItsRowsIsRefused) {
  Bytes rows = Rows(kHeight);
  EXPECT_NE(DecodeOrRefuse(FileEndingWith(rows)), nullptr);
  rows[0] = PNG_FILTER_VALUE_LAST;
  EXPECT_EQ(DecodeOrRefuse(FileEndingWith(rows)), nullptr);
}

TEST(DamagedPngOfATable, IsRefused) {
  const Bytes file = PackedPng(PNG_FORMAT_RGB_COLORMAP);
  ASSERT_NE(DecodePicture(file)->Stored(), nullptr);
  const Bytes whole = DataOf(file);
  EXPECT_EQ(DecodeOrRefuse(WithData(file, {whole.begin(), whole.end() - 20})), nullptr);
  Bytes data = whole;
  data.at(2) = 0x07;
  EXPECT_EQ(DecodeOrRefuse(WithData(file, data)), nullptr);
}

TEST(DamagedPngOfATable, ThatLacksAColorIsDecodedWhenItIsLoaded) {
  std::vector<PngChunk> chunks = ChunksOf(PackedPng(PNG_FORMAT_RGB_COLORMAP));
  const auto table = std::ranges::find(chunks, "PLTE", &PngChunk::type);
  ASSERT_NE(table, chunks.end());
  table->data.resize(table->data.size() - 3);
  const auto picture = DecodePicture(PngOf(chunks));
  EXPECT_EQ(picture->Stored(), nullptr);
  EXPECT_EQ(picture->Width(), 50);
}

}  // namespace
}  // namespace pagivo::native
