// One document of every kind of content: its PDF has the same bytes on every system. Those bytes
// are kept, so that each system compares itself with them.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>

#include "pagivo/pg_print.h"
#include "support/data/test_data.h"
#include "support/read_file.h"
#include "support/scratch_folder.h"

namespace pagivo {
namespace {

constexpr std::int32_t kRed = 0x2020C0;
constexpr std::int32_t kBlue = 0xC06020;

// The families whose stand-ins of the same metrics, the Liberation fonts, every system has here.
void DrawText(PgPrint& print) {
  double y = 15;
  for (const char* family : {"Arial", "Times New Roman", "Courier New", "Arial Narrow"}) {
    for (int style = 0; style < 4; ++style, y += 9) {
      const bool isBold = (style & 1) != 0;
      const bool isItalic = (style & 2) != 0;
      print.VsPPPrint("Pluimstijging AVOT 1.234,5 µg/m³ € fi ffl", 15, y, family, 7 + 2 * style,
                      isBold, style == 3, isItalic);
      print.VsPPPrintR("Rechts 12.345,67", 195, y, family, 11, isBold, false, isItalic);
    }
  }
  print.VsPPPrint("Één regel\r\nen nog een\ten een tab", 15, y, "Arial", 11, false, false, false);
  print.VsPPPrint("Ελληνικά Жизнь", 15, y + 20, "Times New Roman", 12);
}

void DrawFigures(PgPrint& print) {
  for (std::int32_t style = 0; style <= 7; ++style) {
    const double x = 15 + style * 22;
    print.VsPPLine(x, 15, x + 18, 31, true, true, kBlue, style);
    print.VsPPLine(x, 36, x + 18, 40, false, false, kRed, 0, std::min(style, 6), std::int16_t{30});
    print.VsPPCircle(x + 9, 55, 8.5, 0.3 + style, -2.0, true, kRed, style, 0, std::int16_t{15});
  }
  const auto x = Array<float>::FromValues({20, 60, 35.5F, 90, 140}, 1);
  const auto y = Array<float>::FromValues({80, 100.25F, 75, 110, 79}, 1);
  print.VsPPDrawPolyline(x, y, true, true, kBlue, 4, 0, std::int16_t{40});
}

// The decoders of each system are asked for the last four.
void DrawPictures(PgPrint& print) {
  double x = 15;
  for (const char* name : {"colors.jpg", "colors.png", "alpha.png", "colors.bmp", "colors.gif",
                           "several_sizes.ico", "big_endian_lzw.tif"}) {
    print.VsPPPicture(TestDataPath(std::string("pictures/") + name), x, 130, x + 20, 140);
    x += 25;
  }
}

void Compose(PgPrint& print) {
  print.VsPPInit();
  print.VsPPSetScaleMode(ScaleMode::Millimetres);
  DrawText(print);
  print.VsPPNewPage();
  DrawFigures(print);
  DrawPictures(print);
  print.VsPPNewPage();
  print.VsPPFinish("Overal hetzelfde");
  print.VsPPStartOverlay(1);
  print.VsPPPrint("Blad 1 van 2", 100, 285, "Arial", 9, false, false, false);
  print.VsPPEndOverlay();
}

TEST(SameDocument, HasTheSameBytesOnEverySystem) {
  const ScratchFolder folder;
  const std::string path = folder.FileNamed("document.pdf");
  PgPrint print;
  Compose(print);
  print.VSPDF(path);
  print.VsPPEinde();
  const std::string kept = TestDataPath("documents/every_system.pdf");
  if (ReadFile(path) != ReadFile(kept)) {
    const auto made = std::filesystem::temp_directory_path() / "every_system.pdf";
    std::filesystem::copy_file(path, made, std::filesystem::copy_options::overwrite_existing);
    FAIL() << made << " differs from " << kept
           << "; where that is meant on every system, it takes its place";
  }
}

}  // namespace
}  // namespace pagivo
