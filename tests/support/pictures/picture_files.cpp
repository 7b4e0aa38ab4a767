#include "support/pictures/picture_files.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "support/data/test_data.h"
#include "support/pictures/png_files.h"

namespace pagivo::native {
namespace {

void PutLittle(Bytes& bytes, std::size_t at, std::uint32_t value, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    bytes.at(at + i) = static_cast<std::uint8_t>(value >> (8 * i));
  }
}

void PutBig(Bytes& bytes, std::size_t at, std::uint32_t value, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    bytes.at(at + i) = static_cast<std::uint8_t>(value >> (8 * (count - 1 - i)));
  }
}

}  // namespace

std::string PicturePath(const std::string& name) {
  return TestDataPath("pictures/" + name);
}

Bytes ReadBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> AllRasterPictureNames() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(PicturePath(""))) {
    const std::string ending = entry.path().extension().string();
    if (ending != ".md" && ending != ".svg") names.push_back(entry.path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

Bytes PngOfSize(std::uint32_t width, std::uint32_t height) {
  std::vector<PngChunk> chunks = ChunksOf(PictureFile("colors.png"));
  PutBig(chunks.front().data, 0, width, 4);
  PutBig(chunks.front().data, 4, height, 4);
  return PngOf(chunks);
}

Bytes GifOfSize(std::uint16_t screen, std::uint16_t frame) {
  // A screen, two colours, one frame whose data is a single pixel, the trailer.
  Bytes bytes{'G', 'I', 'F', '8', '9', 'a', 0, 0, 0, 0, 0x80, 0,    0,    0,    0, 0, 255, 255,
              255, ',', 0,   0,   0,   0,   0, 0, 0, 0, 0,    0x02, 0x02, 0x44, 1, 0, ';'};
  for (const std::size_t at : {6U, 8U}) PutLittle(bytes, at, screen, 2);
  for (const std::size_t at : {24U, 26U}) PutLittle(bytes, at, frame, 2);
  return bytes;
}

Bytes BmpOfSize(std::int32_t width, std::int32_t height) {
  Bytes bytes = PictureFile("colors.bmp");
  PutLittle(bytes, 18, static_cast<std::uint32_t>(width), 4);
  PutLittle(bytes, 22, static_cast<std::uint32_t>(height), 4);
  return bytes;
}

Bytes JpegOfSize(std::uint16_t width, std::uint16_t height) {
  Bytes bytes = PictureFile("colors.jpg");
  constexpr std::array<std::uint8_t, 2> kFrame{0xFF, 0xC0};
  const auto frame = std::search(bytes.begin(), bytes.end(), kFrame.begin(), kFrame.end());
  const auto at = static_cast<std::size_t>(frame - bytes.begin());
  PutBig(bytes, at + 5, height, 2);
  PutBig(bytes, at + 7, width, 2);
  return bytes;
}

Bytes TiffOfSize(std::uint32_t width, std::uint32_t height) {
  struct Entry {
    std::uint32_t tag, value;
  };
  const std::array entries{Entry{256, width}, Entry{257, height}, Entry{258, 8},
                           Entry{259, 1},     Entry{262, 1},      Entry{273, 8},
                           Entry{277, 1},     Entry{278, height}, Entry{279, width * height}};
  Bytes bytes(10 + 12 * entries.size() + 4);
  std::copy_n("II\x2A\0\x08\0\0\0\x09\0", 10, bytes.begin());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const std::size_t at = 10 + 12 * i;
    PutLittle(bytes, at, entries[i].tag, 2);
    PutLittle(bytes, at + 2, 4, 2);  // a 32-bit number
    PutLittle(bytes, at + 4, 1, 4);
    PutLittle(bytes, at + 8, entries[i].value, 4);
  }
  return bytes;
}

Bytes IconOfSize(std::int32_t width, std::int32_t height) {
  const Bytes bitmap = BmpOfSize(width, 2 * height);  // the mask stands below the picture
  Bytes bytes{0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 1, 0, 24, 0, 0, 0, 0, 0, 22, 0, 0, 0};
  std::copy(bitmap.begin() + 14, bitmap.end(), std::back_inserter(bytes));
  PutLittle(bytes, 14, static_cast<std::uint32_t>(bitmap.size() - 14), 4);
  return bytes;
}

Bytes TextBytes(const std::string& text) {
  return {text.begin(), text.end()};
}

std::string WriteInto(const ScratchFolder& folder, const std::string& name, const Bytes& bytes) {
  const std::string path = folder.FileNamed(name);
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(bytes.data()),
             static_cast<std::streamsize>(bytes.size()));
  return path;
}

}  // namespace pagivo::native
