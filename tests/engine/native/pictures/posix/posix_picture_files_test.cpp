// Files as only POSIX has them: pipes with a name, contents that change without the times.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "engine/native/pictures/picture_loader.h"
#include "pagivo/error.h"
#include "support/pictures/picture_files.h"

namespace pagivo::native {
namespace {

TEST(PictureFileErrors, IncludeANamedPipeAndDoNotWaitForIt) {
  const ScratchFolder scratch;
  const std::string pipe = scratch.FileNamed("pijp.png");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  try {
    LoadPictureFile(pipe);
    FAIL() << "it was loaded";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::FileAccess);
    EXPECT_THAT(error.what(), testing::HasSubstr("geen gewoon bestand"));
  }
}

// A file whose contents change without its times: a page of memory that is written already takes
// more without telling the file system.
class SharedMemoryFile {
 public:
  explicit SharedMemoryFile(const std::string& path) : size_(std::filesystem::file_size(path)) {
    const int file = open(path.c_str(), O_RDWR);
    bytes_ = static_cast<std::uint8_t*>(mmap(nullptr, size_, PROT_WRITE, MAP_SHARED, file, 0));
    close(file);
  }
  ~SharedMemoryFile() { munmap(bytes_, size_); }
  SharedMemoryFile(const SharedMemoryFile&) = delete;
  SharedMemoryFile& operator=(const SharedMemoryFile&) = delete;

  void WriteLastByte(std::uint8_t byte) const { bytes_[size_ - 1] = byte; }

 private:
  std::size_t size_;
  std::uint8_t* bytes_;
};

TEST(LoadedPictures, AreReadAgainWhenTheFileHasChangedWithinTheSameInstant) {
  const ScratchFolder scratch;
  const std::string path = WriteInto(scratch, "a.bmp", PictureFile("colors.bmp"));
  const SharedMemoryFile file(path);
  file.WriteLastByte(1);
  const auto first = LoadPictureFile(path);
  EXPECT_EQ(LoadPictureFile(path), first) << "nothing has changed yet";
  file.WriteLastByte(2);
  const auto second = LoadPictureFile(path);
  EXPECT_NE(second, first);
  EXPECT_NE(second->GetPixels()->data, first->GetPixels()->data);
  EXPECT_EQ(LoadPictureFile(path), second);
}

}  // namespace
}  // namespace pagivo::native
