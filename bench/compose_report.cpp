#include "compose_report.h"

#include "report_page.h"

namespace pagivo::bench {
namespace {

constexpr std::int32_t kGrey = 0xE0E0E0;
constexpr std::int32_t kBlue = 0xC08040;

void DrawStrings(PgPrint& print, const ReportPage& page) {
  for (const ReportString& string : page.strings) {
    print.VsPPSetFont(kReportFont, string.size, string.bold);
    if (string.rightAligned) {
      print.VsPPPrintR(string.text, string.x, string.y);
    } else {
      print.VsPPPrint(string.text, string.x, string.y);
    }
  }
}

void DrawFigures(PgPrint& print, const ReportPage& page) {
  bool filled = true;
  for (const auto& [from, to] : page.rectangles) {
    print.VsPPLine(from.x, from.y, to.x, to.y, true, filled, kGrey);
    filled = false;
  }
  for (const auto& [from, to] : page.lines) print.VsPPLine(from.x, from.y, to.x, to.y);
  print.VsPPCircle(page.arcCenter.x, page.arcCenter.y, page.arcRadius, page.arcStart, page.arcEnd);
  const auto count = static_cast<std::int32_t>(page.polygon.size());
  Array<float> x(1, count);
  Array<float> y(1, count);
  for (std::int32_t i = 1; i <= count; ++i) {
    x(i) = static_cast<float>(page.polygon[static_cast<std::size_t>(i - 1)].x);
    y(i) = static_cast<float>(page.polygon[static_cast<std::size_t>(i - 1)].y);
  }
  print.VsPPDrawPolyline(x, y, true, true, kBlue);
  const auto& [corner, opposite] = page.picture;
  print.VsPPPicture(ReportPicturePath(), corner.x, corner.y, opposite.x, opposite.y);
}

}  // namespace

void ComposeReport(PgPrint& print, int pages) {
  print.VsPPInit();
  for (int number = 0; number < pages; ++number) {
    const ReportPage& page = ReportPageOf(number);
    DrawFigures(print, page);
    DrawStrings(print, page);
    print.VsPPNewPage();
  }
  print.VsPPFinish("Meetrapport");
}

void WriteReportWithPagivo(int pages, const std::string& fileName) {
  PgPrint print;
  ComposeReport(print, pages);
  print.VSPDF(fileName);
  print.VsPPEinde();
}

}  // namespace pagivo::bench
