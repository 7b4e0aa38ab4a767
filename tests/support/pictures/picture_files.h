// Picture files for tests: those in tests/data/pictures, and made-up ones.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "support/scratch_folder.h"

namespace pagivo::native {

using Bytes = std::vector<std::uint8_t>;

std::string PicturePath(const std::string& name);
Bytes ReadBytes(const std::string& path);
inline Bytes PictureFile(const std::string& name) {
  return ReadBytes(PicturePath(name));
}
// Of all but the SVGs, which not every system draws.
std::vector<std::string> AllRasterPictureNames();

// Files whose headers announce a size that their pixels need not bear out.
Bytes PngOfSize(std::uint32_t width, std::uint32_t height);
Bytes GifOfSize(std::uint16_t screen, std::uint16_t frame);
Bytes BmpOfSize(std::int32_t width, std::int32_t height);
Bytes JpegOfSize(std::uint16_t width, std::uint16_t height);
Bytes TiffOfSize(std::uint32_t width, std::uint32_t height);
Bytes IconOfSize(std::int32_t width, std::int32_t height);
Bytes TextBytes(const std::string& text);

// Writes a file into the folder and gives its path.
std::string WriteInto(const ScratchFolder& folder, const std::string& name, const Bytes& bytes);

}  // namespace pagivo::native
