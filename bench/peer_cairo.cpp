#include <cairo-pdf.h>
#include <cairo.h>

#include "peers.h"
#include "report_page.h"

namespace pagivo::bench {
namespace {

void DrawString(cairo_t* context, const ReportString& string) {
  cairo_select_font_face(context, kReportFont, CAIRO_FONT_SLANT_NORMAL,
                         string.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(context, string.size * kTwipsPerPoint);
  double x = string.x;
  if (string.rightAligned) {
    cairo_text_extents_t extents;
    cairo_text_extents(context, string.text.c_str(), &extents);
    x -= extents.x_advance;
  }
  cairo_move_to(context, x, string.y + string.size * kTwipsPerPoint * 0.905);
  cairo_show_text(context, string.text.c_str());
}

void DrawFigures(cairo_t* context, const ReportPage& page, cairo_surface_t* picture) {
  cairo_set_line_width(context, 5);
  bool filled = true;
  for (const auto& [from, to] : page.rectangles) {
    cairo_rectangle(context, from.x, from.y, to.x - from.x, to.y - from.y);
    if (filled) {
      cairo_set_source_rgb(context, 0.88, 0.88, 0.88);
      cairo_fill_preserve(context);
    }
    cairo_set_source_rgb(context, 0, 0, 0);
    cairo_stroke(context);
    filled = false;
  }
  for (const auto& [from, to] : page.lines) {
    cairo_move_to(context, from.x, from.y);
    cairo_line_to(context, to.x, to.y);
    cairo_stroke(context);
  }
  cairo_arc_negative(context, page.arcCenter.x, page.arcCenter.y, page.arcRadius, -page.arcStart,
                     -page.arcEnd);
  cairo_stroke(context);
  for (const ReportPoint& point : page.polygon) cairo_line_to(context, point.x, point.y);
  cairo_close_path(context);
  cairo_set_source_rgb(context, 0.25, 0.5, 0.75);
  cairo_fill_preserve(context);
  cairo_set_source_rgb(context, 0, 0, 0);
  cairo_stroke(context);
  const auto& [from, to] = page.picture;
  cairo_save(context);
  cairo_translate(context, from.x, from.y);
  cairo_scale(context, (to.x - from.x) / cairo_image_surface_get_width(picture),
              (to.y - from.y) / cairo_image_surface_get_height(picture));
  cairo_set_source_surface(context, picture, 0, 0);
  cairo_paint(context);
  cairo_restore(context);
}

void DrawPage(cairo_t* context, const ReportPage& page, cairo_surface_t* picture) {
  DrawFigures(context, page, picture);
  cairo_set_source_rgb(context, 0, 0, 0);
  for (const ReportString& string : page.strings) DrawString(context, string);
}

}  // namespace

void WriteReportWithCairo(int pages, const std::string& fileName) {
  cairo_surface_t* picture = cairo_image_surface_create_from_png(ReportPicturePath().c_str());
  cairo_surface_t* surface = cairo_pdf_surface_create(fileName.c_str(), kPageWidth / kTwipsPerPoint,
                                                      kPageHeight / kTwipsPerPoint);
  cairo_t* context = cairo_create(surface);
  cairo_scale(context, 1 / kTwipsPerPoint, 1 / kTwipsPerPoint);
  for (int number = 0; number < pages; ++number) {
    DrawPage(context, ReportPageOf(number), picture);
    cairo_show_page(context);
  }
  cairo_destroy(context);
  cairo_surface_finish(surface);
  cairo_surface_destroy(surface);
  cairo_surface_destroy(picture);
}

void DrawReportPageWithCairo(int number, int dotsPerInch) {
  const double pixelsPerTwip = dotsPerInch / 1440.0;
  static cairo_surface_t* const picture =
      cairo_image_surface_create_from_png(ReportPicturePath().c_str());
  cairo_surface_t* surface =
      cairo_image_surface_create(CAIRO_FORMAT_ARGB32, static_cast<int>(kPageWidth * pixelsPerTwip),
                                 static_cast<int>(kPageHeight * pixelsPerTwip));
  cairo_t* context = cairo_create(surface);
  cairo_set_source_rgb(context, 1, 1, 1);
  cairo_paint(context);
  cairo_scale(context, pixelsPerTwip, pixelsPerTwip);
  DrawPage(context, ReportPageOf(number), picture);
  cairo_destroy(context);
  cairo_surface_destroy(surface);
}

}  // namespace pagivo::bench
