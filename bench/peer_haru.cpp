#include <hpdf.h>

#include <stdexcept>

#include "peers.h"
#include "report_page.h"

namespace pagivo::bench {
namespace {

const char* const kRegular = "/usr/share/fonts/truetype/liberation/LiberationSans-Regular.ttf";
const char* const kBold = "/usr/share/fonts/truetype/liberation/LiberationSans-Bold.ttf";

void Fail(HPDF_STATUS error, HPDF_STATUS, void*) {
  throw std::runtime_error("libharu failed with status " + std::to_string(error));
}

HPDF_REAL Points(double twips) {
  return static_cast<HPDF_REAL>(twips / kTwipsPerPoint);
}
HPDF_REAL Up(double twips) {
  return static_cast<HPDF_REAL>((kPageHeight - twips) / kTwipsPerPoint);
}

class HaruReport {
 public:
  HaruReport() : document_(HPDF_New(Fail, nullptr)) {
    HPDF_SetCompressionMode(document_, HPDF_COMP_ALL);
    regular_ = Font(kRegular);
    bold_ = Font(kBold);
    picture_ = HPDF_LoadPngImageFromFile(document_, ReportPicturePath().c_str());
  }
  ~HaruReport() { HPDF_Free(document_); }
  HaruReport(const HaruReport&) = delete;
  HaruReport& operator=(const HaruReport&) = delete;

  void AddPage(const ReportPage& page) {
    page_ = HPDF_AddPage(document_);
    HPDF_Page_SetWidth(page_, Points(kPageWidth));
    HPDF_Page_SetHeight(page_, Points(kPageHeight));
    DrawFigures(page);
    HPDF_Page_SetRGBFill(page_, 0, 0, 0);
    HPDF_Page_BeginText(page_);
    for (const ReportString& string : page.strings) DrawString(string);
    HPDF_Page_EndText(page_);
  }

  void Save(const std::string& fileName) { HPDF_SaveToFile(document_, fileName.c_str()); }

 private:
  HPDF_Font Font(const char* path) {
    const char* name = HPDF_LoadTTFontFromFile(document_, path, HPDF_TRUE);
    return HPDF_GetFont(document_, name, "WinAnsiEncoding");
  }

  void DrawString(const ReportString& string) {
    const auto size = static_cast<HPDF_REAL>(string.size);
    HPDF_Page_SetFontAndSize(page_, string.bold ? bold_ : regular_, size);
    HPDF_REAL x = Points(string.x);
    if (string.rightAligned) x -= HPDF_Page_TextWidth(page_, string.text.c_str());
    HPDF_Page_TextOut(page_, x, Up(string.y) - size * 0.905F, string.text.c_str());
  }

  void DrawFigures(const ReportPage& page) {
    HPDF_Page_SetLineWidth(page_, 0.25F);
    HPDF_Page_SetRGBFill(page_, 0.88F, 0.88F, 0.88F);
    bool filled = true;
    for (const auto& [from, to] : page.rectangles) {
      HPDF_Page_Rectangle(page_, Points(from.x), Up(to.y), Points(to.x - from.x),
                          Points(to.y - from.y));
      filled ? HPDF_Page_FillStroke(page_) : HPDF_Page_Stroke(page_);
      filled = false;
    }
    for (const auto& [from, to] : page.lines) {
      HPDF_Page_MoveTo(page_, Points(from.x), Up(from.y));
      HPDF_Page_LineTo(page_, Points(to.x), Up(to.y));
      HPDF_Page_Stroke(page_);
    }
    HPDF_Page_Arc(page_, Points(page.arcCenter.x), Up(page.arcCenter.y), Points(page.arcRadius), 20,
                  150);
    HPDF_Page_Stroke(page_);
    HPDF_Page_SetRGBFill(page_, 0.25F, 0.5F, 0.75F);
    HPDF_Page_MoveTo(page_, Points(page.polygon[0].x), Up(page.polygon[0].y));
    for (const ReportPoint& point : page.polygon) {
      HPDF_Page_LineTo(page_, Points(point.x), Up(point.y));
    }
    HPDF_Page_ClosePathFillStroke(page_);
    const auto& [from, to] = page.picture;
    HPDF_Page_DrawImage(page_, picture_, Points(from.x), Up(to.y), Points(to.x - from.x),
                        Points(to.y - from.y));
  }

  HPDF_Doc document_;
  HPDF_Font regular_ = nullptr;
  HPDF_Font bold_ = nullptr;
  HPDF_Image picture_ = nullptr;
  HPDF_Page page_ = nullptr;
};

}  // namespace

void WriteReportWithHaru(int pages, const std::string& fileName) {
  HaruReport report;
  for (int number = 0; number < pages; ++number) report.AddPage(ReportPageOf(number));
  report.Save(fileName);
}

}  // namespace pagivo::bench
