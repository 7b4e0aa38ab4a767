// The bytes of a file that a test has made or been given.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

namespace pagivo {

inline std::string ReadFile(const std::filesystem::path& path) {
  std::string bytes(static_cast<std::size_t>(std::filesystem::file_size(path)), '\0');
  std::ifstream(path, std::ios::binary)
      .read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return bytes;
}

}  // namespace pagivo
