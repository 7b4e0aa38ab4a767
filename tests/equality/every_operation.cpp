#include "equality/every_operation.h"

#include <cairo.h>

#include <array>
#include <cmath>
#include <fstream>
#include <initializer_list>
#include <numbers>

namespace pagivo::test {
namespace {

constexpr std::int32_t kRed = 0x2020C0;
constexpr std::int32_t kGreen = 0x208020;
constexpr std::int32_t kBlue = 0xC06020;

void WritePicture(const std::string& path) {
  cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, 120, 80);
  cairo_t* context = cairo_create(surface);
  cairo_pattern_t* sky = cairo_pattern_create_linear(0, 0, 120, 80);
  cairo_pattern_add_color_stop_rgba(sky, 0, 0.2, 0.5, 0.9, 1);
  cairo_pattern_add_color_stop_rgba(sky, 1, 0.9, 0.7, 0.2, 0.3);
  cairo_set_source(context, sky);
  cairo_arc(context, 60, 40, 38, 0, 2 * std::numbers::pi);
  cairo_fill(context);
  cairo_surface_write_to_png(surface, path.c_str());
  cairo_pattern_destroy(sky);
  cairo_destroy(context);
  cairo_surface_destroy(surface);
}

void WriteDrawing(const std::string& path) {
  std::ofstream(path) << R"(<svg xmlns="http://www.w3.org/2000/svg" width="60" height="40">
<rect width="60" height="40" fill="#dde8f0"/><path d="M5 35 L30 5 L55 35 Z" fill="#a04030"/>
<circle cx="30" cy="25" r="6" fill="#ffffff" stroke="#203040" stroke-width="2"/></svg>)";
}

// Every pen style as a line and around a box.
void DrawPens(PgPrint& print) {
  for (std::int32_t style = 0; style <= 6; ++style) {
    const double y = 20 + style * 6;
    for (std::int16_t width = 0; width <= 60; width = static_cast<std::int16_t>(width + 30)) {
      const double x = 15 + width;
      print.VsPPLine(x, y, x + 26, y, false, false, kBlue, 0, style, width);
    }
    print.VsPPLine(115, y - 2, 135, y + 2, true, false, kRed, 0, style, std::int16_t{20});
    print.VsPPCircle(150, y, 2.2, Missing, Missing, false, kGreen, 0, style, std::int16_t{10});
  }
}

// Every brush style in a box and in a circle.
void DrawBrushes(PgPrint& print) {
  for (std::int32_t style = 0; style <= 7; ++style) {
    const double x = 15 + style * 22;
    print.VsPPLine(x, 68, x + 18, 84, true, true, kGreen, style);
    print.VsPPCircle(x + 9, 97, 9, Missing, Missing, true, kBlue, style);
  }
}

// Arcs with no, one and two lines from the centre.
void DrawArcs(PgPrint& print) {
  struct Ends {
    double start;
    double end;
  };
  constexpr std::array<Ends, 8> kEnds = {{{0.3, 2.0},
                                          {-0.3, 2.0},
                                          {0.3, -2.0},
                                          {-0.3, -2.0},
                                          {2.0, 0.3},
                                          {-2.0, -0.3},
                                          {-4.0, -6.0},
                                          {5.5, 1.0}}};
  double x = 24;
  for (const auto& [start, end] : kEnds) {
    print.VsPPCircle(x, 122, 9, start, end, true, kRed, 0, 0, std::int16_t{15});
    x += 22;
  }
}

void DrawPolylines(PgPrint& print) {
  const auto star = [](double centre, float* x, float* y, int i) {
    const double angle = i * 4 * std::numbers::pi / 5;
    *x = static_cast<float>(centre + 12 * std::sin(angle));
    *y = static_cast<float>(152 - 12 * std::cos(angle));
  };
  Array<float> x(1, 5);
  Array<float> y(1, 5);
  int figure = 0;
  for (const bool closed : {false, true}) {
    for (const std::int32_t fill : {0, 7}) {
      for (std::int32_t i = 1; i <= 5; ++i) star(30 + figure * 40, &x(i), &y(i), i);
      print.VsPPDrawPolyline(x, y, closed, closed, kBlue, fill, 0, std::int16_t{20});
      ++figure;
    }
  }
}

void DrawPictures(PgPrint& print, const std::string& folder) {
  WritePicture(folder + "/bol.png");
  WriteDrawing(folder + "/huis.svg");
  print.VsPPPicture(folder + "/bol.png", 15, 175, 75, 215);
  print.VsPPPicture(folder + "/bol.png", 140, 215, 80, 175);
  print.VsPPPicture(folder + "/huis.svg", 145, 175, 195, 208);
}

void DrawText(PgPrint& print) {
  const std::array<const char*, 6> kFonts = {"Arial",       "Times New Roman", "Courier New",
                                             "DejaVu Sans", "Verdana",         "Georgia"};
  double y = 15;
  for (const char* font : kFonts) {
    int style = 0;
    for (const double size : {7.0, 9.5, 12.0, 16.0}) {
      print.VsPPPrint("Pluimstijging 1.234,5 µg/m³", 15 + style * 47, y, font, size / 1.4,
                      (style & 1) != 0, (style & 2) != 0, style == 3);
      ++style;
    }
    y += 8;
  }
  print.VsPPZetKleur(kRed);
  print.VsPPPrint("Één regel\r\nen nog een\ten een tab", 15, y, "Arial", 11, false, false, false);
  print.VsPPZetKleur(0);
  print.VsPPPrintR("Rechts uitgelijnd 12.345,67", 195, y);
  print.VsPPPrint("Σ Ω α β γ Жизнь  שלום", 15, y + 14, "DejaVu Sans", 12);
}

void DrawPlacedWords(PgPrint& print) {
  const std::array<const char*, 6> kWords = {"pluim", "AVOT", "10,75", "hoogte", "Wind", "f(x)"};
  for (int i = 0; i < kPlacedWords; ++i) {
    const auto [x, y] = PlaceOfWord(i);
    print.VsPPPrint(kWords.at(static_cast<std::size_t>(i) % kWords.size()), x, y,
                    i % 2 == 0 ? "Arial" : "Times New Roman", 8 + i % 5, i % 3 == 0, false,
                    i % 7 == 0);
  }
}

// Pens that stay inside, up to wider than their figures.
void DrawInsidePens(PgPrint& print) {
  double x = 15;
  for (const std::int16_t width : std::initializer_list<std::int16_t>{30, 200, 700, 1100, 5000}) {
    print.VsPPLine(x, 15, x + 30, 35, true, true, kRed, 4, 6, width);
    print.VsPPCircle(x + 12, 55, 12, Missing, Missing, true, kGreen, 7, 6, width);
    print.VsPPCircle(x + 12, 85, 12, -0.4, -2.5, true, kBlue, 2, 6, width);
    print.VsPPCircle(x + 12, 108, 12, 0.4, 2.5, false, kBlue, 0, 6, width);
    x += 36;
  }
}

// Filled arcs with each choice of lines, and the circle that angles a whole turn apart make.
void DrawFilledArcs(PgPrint& print) {
  double x = 25;
  for (const std::int32_t fill : {0, 5}) {
    for (const double start : {0.5, -0.5}) {
      for (const double end : {4.0, -4.0}) {
        print.VsPPCircle(x, 130, 9, start, end, true, kGreen, fill, 0, std::int16_t{30});
        x += 21;
      }
    }
  }
}

void DrawThinLinesAndPoints(PgPrint& print) {
  for (std::int16_t width = 0; width <= 6; ++width) {
    const double y = 145 + width * 2;
    print.VsPPLine(15, y, 60, y + 6, false, false, 0, 0, 0, width);
    const auto x = Array<float>::FromValues({static_cast<float>(80 + width * 8)}, 1);
    const auto top = Array<float>::FromValues({150}, 1);
    print.VsPPDrawPolyline(x, top, width % 2 == 0, false, kRed, 0, 0,
                           static_cast<std::int16_t>(width * 40));
  }
}

// Lines and figures of which the page shows only a part.
void DrawFromAfar(PgPrint& print) {
  for (std::int32_t style = 0; style <= 4; ++style) {
    const double y = 170 + style * 5;
    const auto width = static_cast<std::int16_t>(15 + style * 10);
    print.VsPPLine(-1e5, y, 1e5, y, false, false, kBlue, 0, style, width);
    print.VsPPLine(20 + style * 30, y, 3e6, 1e6, false, false, kRed, 0, style, width);
    print.VsPPLine(20 + style * 9, 200 + style * 3, 2e4, 3e4, true, false, kGreen, 0, style, width);
    print.VsPPCircle(-9e4, 280, 9e4 + 100 + style * 9, Missing, Missing, false, 0, 0, style, width);
    print.VsPPCircle(150, 3e4, 3e4 - 220 - style * 9, 1.0, 2.0, false, 0, 0, style, width);
  }
}

}  // namespace

// A little off the grid each time, so that the words start at every fraction of a pixel.
PlacedWord PlaceOfWord(int i) {
  return {7 + i % 6 * kWordWidth + i * 0.013, 4 + i / 6 * kWordHeight + i * 0.017};
}

void ComposeEveryOperation(PgPrint& print, const std::string& pictureFolder) {
  print.VsPPInit();
  print.VsPPSetScaleMode(6);
  DrawPens(print);
  DrawBrushes(print);
  DrawArcs(print);
  DrawPolylines(print);
  DrawPictures(print, pictureFolder);
  print.VsPPNewPage();
  DrawText(print);
  print.VsPPSetPageWidth(kWordPageWidth);
  print.VsPPSetPageHeight(kWordPageHeight);
  print.VsPPNewPage();
  DrawPlacedWords(print);
  print.VsPPNewPage();
  print.VsPPSetPaperSize(9);
  DrawInsidePens(print);
  DrawFilledArcs(print);
  DrawThinLinesAndPoints(print);
  DrawFromAfar(print);
  print.VsPPNewPage();
  print.VsPPFinish("Alle bewerkingen");
  print.VsPPStartOverlay(1);
  print.VsPPPrint("Blad 1 van 4", 100, 285, "Arial", 9, false, false, false);
  print.VsPPEndOverlay();
}

}  // namespace pagivo::test
