// What pictures cost: photographs and a large PNG composed and exported to PDF, beside libharu.
// Each iteration loads every file anew, as hosts do. Read the times as ratios within one run.
#include <benchmark/benchmark.h>
#include <hpdf.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
// <jpeglib.h> wants <cstdio> before it.
#include <jpeglib.h>
#include <png.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "pagivo/pg_print.h"
#include "peak_memory.h"

namespace pagivo::bench {
namespace {

// --- The files

// A photograph as far as packing goes: slow changes of colour, and noise.
class PhotoRows {
 public:
  explicit PhotoRows(std::uint32_t width) : row_(std::size_t{3} * width) {}

  std::vector<std::uint8_t>& Next() {
    const double light = 100 * std::cos(0.005 * y_++);
    for (std::size_t i = 0; i < row_.size(); ++i) {
      const auto x = static_cast<double>(i / 3);
      noise_ = noise_ * 1664525 + 1013904223;
      const double level = 120 + light * std::sin(0.004 * x + static_cast<double>(i % 3));
      row_[i] = static_cast<std::uint8_t>(level + (noise_ >> 24) % 12);
    }
    return row_;
  }

 private:
  std::vector<std::uint8_t> row_;
  std::uint32_t noise_ = 1;
  int y_ = 0;
};

void WriteJpeg(const std::string& path, std::uint32_t width, std::uint32_t height) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  jpeg_compress_struct info{};
  jpeg_error_mgr errors{};
  info.err = jpeg_std_error(&errors);
  jpeg_create_compress(&info);
  jpeg_stdio_dest(&info, file);
  info.image_width = width;
  info.image_height = height;
  info.input_components = 3;
  info.in_color_space = JCS_RGB;
  jpeg_set_defaults(&info);
  jpeg_set_quality(&info, 96, TRUE);
  jpeg_start_compress(&info, TRUE);
  PhotoRows rows(width);
  while (info.next_scanline < height) {
    JSAMPROW row = rows.Next().data();
    jpeg_write_scanlines(&info, &row, 1);
  }
  jpeg_finish_compress(&info);
  jpeg_destroy_compress(&info);
  std::fclose(file);
}

void WritePng(const std::string& path, std::uint32_t width, std::uint32_t height) {
  PhotoRows rows(width);
  std::vector<std::uint8_t> pixels;
  for (std::uint32_t y = 0; y < height; ++y) {
    const std::vector<std::uint8_t>& row = rows.Next();
    pixels.insert(pixels.end(), row.begin(), row.end());
  }
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = width;
  image.height = height;
  image.format = PNG_FORMAT_RGB;
  if (png_image_write_to_file(&image, path.c_str(), 0, pixels.data(), 0, nullptr) == 0) {
    throw std::runtime_error(image.message);
  }
}

// The files, in a folder of their own that goes with this object.
class Files {
 public:
  Files() : folder_(std::filesystem::temp_directory_path() / "pagivo_photos_") {
    folder_ += std::to_string(getpid());
    std::filesystem::create_directory(folder_);
    InAnotherProcess([this] {
      WriteJpeg(Photos().front(), 4000, 3000);
      const std::vector<std::string> photos = Photos();
      for (std::size_t i = 1; i < photos.size(); ++i) {
        std::filesystem::copy_file(photos.front(), photos[i]);
      }
      WritePng(LargePngs().front(), 3000, 2000);
    });
  }
  ~Files() { std::filesystem::remove_all(folder_); }
  Files(const Files&) = delete;
  Files& operator=(const Files&) = delete;

  // Some 52 MB together.
  std::vector<std::string> Photos() const {
    std::vector<std::string> paths;
    for (int i = 0; i < 13; ++i) paths.push_back(Path("foto" + std::to_string(i) + ".jpg"));
    return paths;
  }
  std::vector<std::string> LargePngs() const { return {Path("groot.png")}; }
  std::string Pdf() const { return Path("uit.pdf"); }

 private:
  // What a process has taken once, its children begin with.
  template <typename Work>
  static void InAnotherProcess(Work work) {
    const pid_t child = fork();
    if (child == 0) {
      work();
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    if (status != 0) throw std::runtime_error("the files could not be made");
  }

  std::string Path(const std::string& name) const { return (folder_ / name).string(); }

  std::filesystem::path folder_;
};

Files& TheFiles() {
  static Files files;
  return files;
}

// --- One page a picture

void ExportWithPagivo(const std::vector<std::string>& pictures) {
  PgPrint print;
  print.VsPPInit();
  for (const std::string& picture : pictures) {
    print.VsPPPicture(picture, 1000, 1000, 9000, 7000);
    print.VsPPNewPage();
  }
  print.VsPPFinish("Foto's");
  print.VSPDF(TheFiles().Pdf());
  print.VsPPEinde();
}

void FailInHaru(HPDF_STATUS error, HPDF_STATUS, void*) {
  throw std::runtime_error("libharu failed with status " + std::to_string(error));
}

void ExportWithHaru(const std::vector<std::string>& pictures) {
  const HPDF_Doc document = HPDF_New(FailInHaru, nullptr);
  HPDF_SetCompressionMode(document, HPDF_COMP_ALL);
  for (const std::string& picture : pictures) {
    const HPDF_Page page = HPDF_AddPage(document);
    const bool isJpeg = picture.ends_with(".jpg");
    const HPDF_Image image = isJpeg ? HPDF_LoadJpegImageFromFile(document, picture.c_str())
                                    : HPDF_LoadPngImageFromFile(document, picture.c_str());
    HPDF_Page_DrawImage(page, image, 50, 400, 400, 300);
  }
  HPDF_SaveToFile(document, TheFiles().Pdf().c_str());
  HPDF_Free(document);
}

using Export = void (*)(const std::vector<std::string>& pictures);
using Pictures = std::vector<std::string> (Files::*)() const;

template <Export kExport, Pictures kPictures>
void Time(benchmark::State& state) {
  const std::vector<std::string> pictures = (TheFiles().*kPictures)();
  for (auto _ : state) kExport(pictures);
  state.counters["file_MB"] =
      static_cast<double>(std::filesystem::file_size(TheFiles().Pdf())) / 1e6;
}

template <Export kExport, Pictures kPictures>
void Memory(benchmark::State& state) {
  const std::vector<std::string> pictures = (TheFiles().*kPictures)();
  PeakMemory(state, [&pictures] { kExport(pictures); });
}

#define PAGIVO_BENCHMARK(function) BENCHMARK(function)->Unit(benchmark::kMillisecond)

// First, while this process is small: a child's peak starts at its parent's size.
PAGIVO_BENCHMARK((Memory<ExportWithPagivo, &Files::Photos>))->Iterations(1);
PAGIVO_BENCHMARK((Memory<ExportWithHaru, &Files::Photos>))->Iterations(1);
PAGIVO_BENCHMARK((Memory<ExportWithPagivo, &Files::LargePngs>))->Iterations(1);
PAGIVO_BENCHMARK((Memory<ExportWithHaru, &Files::LargePngs>))->Iterations(1);

PAGIVO_BENCHMARK((Time<ExportWithPagivo, &Files::Photos>))->UseRealTime();
PAGIVO_BENCHMARK((Time<ExportWithHaru, &Files::Photos>))->UseRealTime();
PAGIVO_BENCHMARK((Time<ExportWithPagivo, &Files::LargePngs>))->UseRealTime();
PAGIVO_BENCHMARK((Time<ExportWithHaru, &Files::LargePngs>))->UseRealTime();

}  // namespace
}  // namespace pagivo::bench

BENCHMARK_MAIN();
