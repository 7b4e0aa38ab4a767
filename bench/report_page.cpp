#include "report_page.h"

#include <png.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <random>
#include <stdexcept>

namespace pagivo::bench {
namespace {

constexpr int kDifferentPages = 100;
constexpr int kRows = 12;
constexpr int kNumberColumns = 5;
constexpr int kWordColumns = 6;
constexpr int kRemarks = 36;

const std::array<const char*, 16> kWords = {
    "afstand",  "hoogte",   "windrichting", "emissie", "bijdrage", "jaargemiddeld",
    "ruwheid",  "bronterm", "receptor",     "stabiel", "neutraal", "achtergrond",
    "Toetsing", "warmte",   "AVO-waarde",   "pluim"};

class PageMaker {
 public:
  explicit PageMaker(int number) : random_(static_cast<unsigned>(number)) {
    AddHeading(number);
    AddTable();
    AddRemarks();
    AddFigures();
  }

  ReportPage page;

 private:
  void Add(std::string text, double x, double y, double size = 9, bool bold = false,
           bool rightAligned = false) {
    page.strings.push_back({std::move(text), x, y, size, bold, rightAligned});
  }

  std::string Word() { return kWords.at(random_() % kWords.size()); }

  // A number as Dutch tables write it: 1.234,56
  std::string Number() {
    const auto value = random_() % 10000;
    const auto hundredths = random_() % 100;
    std::string text = std::to_string(value % 1000);
    if (value >= 1000) {
      text = std::to_string(value / 1000) + "." + std::string(3 - text.size(), '0') + text;
    }
    return text + "," + std::to_string(hundredths / 10) + std::to_string(hundredths % 10);
  }

  void AddHeading(int number) {
    Add("Verspreidingsberekening", 1134, 800, 14, true);
    Add("Hoofdstuk " + std::to_string(number % 9 + 1) + ": " + Word(), 1134, 1200, 11, true);
    Add("Blad " + std::to_string(number), 10772, 800, 8, false, true);
    Add("Rekenmodel versie 1.1", 1134, 16100, 8);
    Add("Project 2026-" + std::to_string(number % 100), 5000, 16100, 8);
    Add("Opdrachtgever: Voorbeeld BV", 8000, 16100, 8);
  }

  void AddTable() {
    for (int column = 0; column < kNumberColumns + kWordColumns; ++column) {
      Add(Word(), 1134 + column * 880, 1700, 8, true);
    }
    for (int row = 0; row < kRows; ++row) {
      const double y = 2000 + row * 260;
      for (int column = 0; column < kWordColumns; ++column) Add(Word(), 1134 + column * 880, y);
      for (int column = 0; column < kNumberColumns; ++column) {
        Add(Number(), 7200 + column * 880, y, 9, false, true);
      }
      page.lines.push_back({{1134, y + 240}, {10772, y + 240}});
    }
  }

  void AddRemarks() {
    for (int remark = 0; remark < kRemarks; ++remark) {
      Add(Word() + " " + Word() + " " + Number() + " m", 1134, 5600 + remark * 230);
    }
  }

  void AddFigures() {
    page.lines.push_back({{1134, 1560}, {10772, 1560}});
    page.lines.push_back({{6000, 14000}, {10500, 14000}});
    page.lines.push_back({{6000, 9500}, {6000, 14000}});
    page.rectangles = {{{{1134, 1640}, {10772, 1900}}, {{5900, 9400}, {10772, 14200}}}};
    page.arcCenter = {8200, 12000};
    page.arcRadius = 900;
    page.arcStart = 0.3;
    page.arcEnd = 2.6;
    for (int i = 0; i < 24; ++i) {
      page.polygon.push_back({6000 + i * 180.0, 13900 - static_cast<double>(random_() % 2200)});
    }
    page.picture = {{7200, 5800}, {9800, 8400}};
  }

  std::mt19937 random_;
};

// Rings of several colours that are all a little transparent, outside them nothing.
std::vector<std::uint8_t> PicturePixels(int side) {
  std::vector<std::uint8_t> pixels;
  for (int i = 0; i < side * side; ++i) {
    const double radius = std::hypot(i % side + 0.5 - side / 2.0, i / side + 0.5 - side / 2.0);
    const auto ring = static_cast<std::uint8_t>(32 * std::floor(8 - 16 * radius / side));
    const bool isOutside = radius > side / 2.0;
    const std::uint8_t alpha = isOutside ? 0 : 230;
    pixels.insert(pixels.end(), {ring, 102, static_cast<std::uint8_t>(255 - ring), alpha});
  }
  return pixels;
}

bool isPictureLeftOut = false;

struct TemporaryPicture {
  TemporaryPicture() {
    constexpr int kSide = 64;
    path = (std::filesystem::temp_directory_path() /
            ("pagivo_bench_" + std::to_string(getpid()) + ".png"))
               .string();
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = image.height = kSide;
    image.format = PNG_FORMAT_RGBA;
    if (png_image_write_to_file(&image, path.c_str(), 0, PicturePixels(kSide).data(), 0, nullptr) ==
        0) {
      throw std::runtime_error(path + " cannot be written");
    }
  }
  ~TemporaryPicture() { std::filesystem::remove(path); }

  std::string path;
};

}  // namespace

ReportPage MakeReportPage(int number) {
  return PageMaker(number).page;
}

const std::string& ReportPicturePath() {
  static const std::string none;
  if (isPictureLeftOut) return none;
  static const TemporaryPicture picture;
  return picture.path;
}

void LeaveOutReportPicture() {
  isPictureLeftOut = true;
}

const std::vector<ReportPage>& ReportPages(int count) {
  static const std::vector<ReportPage> pages = [count] {
    std::vector<ReportPage> made;
    for (int i = 0; i < std::min(count, kDifferentPages); ++i)
      made.push_back(MakeReportPage(i + 1));
    return made;
  }();
  return pages;
}

const ReportPage& ReportPageOf(int number) {
  const std::vector<ReportPage>& pages = ReportPages(kDifferentPages);
  return pages[static_cast<std::size_t>(number) % pages.size()];
}

}  // namespace pagivo::bench
