// What tests of files that a host names share.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <span>
#include <string>
#include <string_view>

#include "pagivo/error.h"
#include "support/read_file.h"
#include "support/scratch_folder.h"
#include "system/host_files.h"

namespace pagivo {

inline std::span<const std::uint8_t> Bytes(std::string_view text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

inline void Replace(const std::string& path, std::string_view contents) {
  FileReplacement file(path);
  file.Write(Bytes(contents));
  file.Commit();
}

// What the user is told; empty on success.
inline std::string FailureOf(const std::function<void()>& statement) {
  try {
    statement();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::FileAccess);
    return error.what();
  }
  return {};
}

// Both ways of looking at a file fail with the same description.
inline void ExpectRefused(const std::string& path, const std::string& description) {
  for (const auto& look : {std::function<void()>([&] { IdentityOf(path); }),
                           std::function<void()>([&] { InputFile file(path); })}) {
    try {
      look();
      ADD_FAILURE() << path << " was taken";
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), ErrorNumber::FileAccess);
      EXPECT_EQ(error.what(), description);
    }
  }
}

class FilesOfAHost : public testing::Test {
 protected:
  std::string Old(const std::string& contents = "oud") const {
    const std::string path = folder.FileNamed("oud.pdf");
    std::ofstream(path) << contents;
    return path;
  }

  long Entries() const {
    return static_cast<long>(std::distance(std::filesystem::directory_iterator(folder.Path()), {}));
  }

  ScratchFolder folder;
};

}  // namespace pagivo
