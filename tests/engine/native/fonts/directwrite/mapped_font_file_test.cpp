#include <gtest/gtest.h>

#include <filesystem>

#include "engine/native/fonts/face.h"
#include "engine/native/fonts/face_finder.h"
#include "engine/native/fonts/font_file.h"
#include "pagivo/error.h"
#include "support/scratch_folder.h"

namespace pagivo::native {
namespace {

namespace fs = std::filesystem;

std::string FontPath() {
  return MakeFaceFinder()->Find({"Liberation Sans", false, false, std::nullopt}, 0).value().path;
}

fs::path PathOf(const std::string& utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

TEST(MappedFontFile, MayHaveANameOfAnyCharacters) {
  const ScratchFolder folder;
  const std::string path = folder.FileNamed("Größe \u0416 \u5B57 \U0001D11E.ttf");
  fs::copy_file(PathOf(FontPath()), PathOf(path));
  EXPECT_NE(Face(path, 0).GlyphOf(U'a'), 0u);
}

TEST(MappedFontFile, HasTheBytesOfTheFile) {
  const std::string path = FontPath();
  hb_blob_t* const file = OpenFontFile(path);
  ASSERT_NE(file, nullptr);
  EXPECT_EQ(hb_blob_get_length(file), fs::file_size(PathOf(path)));
  hb_blob_destroy(file);
}

TEST(MappedFontFile, IsNoneWhereThereIsNoneOrAnEmptyOne) {
  const ScratchFolder folder;
  const std::string path = folder.FileNamed("leeg.ttf");
  EXPECT_EQ(OpenFontFile(path), nullptr);
  fs::copy_file(PathOf(FontPath()), PathOf(path));
  fs::resize_file(PathOf(path), 0);
  EXPECT_EQ(OpenFontFile(path), nullptr);
  EXPECT_THROW(Face(path, 0), Error);
}

}  // namespace
}  // namespace pagivo::native
