// Picture files for tests: those in tests/data/pictures, and made-up ones.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace pagivo::native {

using Bytes = std::vector<std::uint8_t>;

std::string PicturePath(const std::string& name);
Bytes ReadBytes(const std::string& path);
inline Bytes PictureFile(const std::string& name) {
  return ReadBytes(PicturePath(name));
}
std::vector<std::string> AllPictureNames();

// Files whose headers announce a size that their pixels need not bear out.
Bytes PngOfSize(std::uint32_t width, std::uint32_t height);
Bytes GifOfSize(std::uint16_t screen, std::uint16_t frame);
Bytes BmpOfSize(std::int32_t width, std::int32_t height);
Bytes JpegOfSize(std::uint16_t width, std::uint16_t height);
Bytes TiffOfSize(std::uint32_t width, std::uint32_t height);
Bytes IconOfSize(std::int32_t width, std::int32_t height);
Bytes TextBytes(const std::string& text);

// A folder of its own for one test, gone with it.
class ScratchFolder {
 public:
  ScratchFolder();
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  // Writes a file into it and gives its path.
  std::string Write(const std::string& name, const Bytes& bytes) const;

 private:
  std::filesystem::path path_;
};

}  // namespace pagivo::native
