#include "engine/native/fonts/face.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "engine/native/fonts/face_support.h"
#include "support/read_file.h"
#include "support/scratch_folder.h"

namespace pagivo::native {
namespace {

class FaceFileTest : public testing::Test {
 protected:
  // Writes the bytes of a face with CFF outlines, its table of outlines under another tag.
  void WriteWithOutlinesTagged(const std::string& tag) {
    std::string bytes = ReadFile(FileFor("Nimbus Sans").path);
    const std::size_t place = bytes.find("CFF ");
    ASSERT_NE(place, std::string::npos);
    std::ofstream(path_, std::ios::binary) << bytes.replace(place, tag.size(), tag);
  }

  const ScratchFolder folder_;
  const std::string path_ = folder_.FileNamed("face.otf");
};

TEST_F(FaceFileTest, WithCffOutlinesIsOpened) {
  WriteWithOutlinesTagged("CFF ");
  EXPECT_EQ(Face(path_, 0).UnitsPerEm(), 1000);
}

TEST_F(FaceFileTest, WithCff2OutlinesIsRefusedBecausePdfCannotHoldThem) {
  WriteWithOutlinesTagged("CFF2");
  EXPECT_THROW(Face(path_, 0), Error);
}

TEST_F(FaceFileTest, WithoutOutlinesIsRefused) {
  WriteWithOutlinesTagged("XXXX");
  EXPECT_THROW(Face(path_, 0), Error);
}

TEST_F(FaceFileTest, ThatIsMissingIsRefused) {
  EXPECT_THROW(Face(path_, 0), Error);
}

}  // namespace
}  // namespace pagivo::native
