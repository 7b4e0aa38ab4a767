// The title page, and the heading of the contents.
#include "report_chapters.h"

namespace plumeo {
namespace {

struct Detail {
  const char* label;
  const std::string& text;
};

void DrawDetails(Sheet& sheet, const ProjectTexts& texts, double baseline) {
  const Detail details[] = {
      {"Opdrachtgever", texts.client}, {"Plaats", texts.place}, {"Opgesteld door", texts.author},
      {"Projectnummer", texts.number}, {"Datum", texts.date},   {"Status", texts.version}};
  for (const Detail& detail : details) {
    sheet.Text(detail.label, kHang, baseline, {.size = 9.5, .colour = kMuted});
    sheet.Text(detail.text, kHang + 38, baseline, {.size = 9.5});
    baseline += 6.2;
  }
}

}  // namespace

void ComposeTitlePage(Report& report, const std::string& pictureFolder) {
  Sheet& sheet = report.flow.Paper();
  const ProjectTexts& texts = report.project.texts;
  sheet.Picture(pictureFolder + "/logo.png", {kHang, 18}, {kHang + 44, 29});
  sheet.Picture(pictureFolder + "/pluim.svg", {kHang, 42}, {kTextRight, 147});
  sheet.FillBox({kHang, 157.5}, {kHang + 24, 158.6}, kAccent);
  double baseline = 172;
  const Style title{.size = 26, .bold = true, .colour = kAccent};
  for (const RichText& line :
       BreakLines(sheet, ParseMarkup(Escaped(texts.name)), title, kTextRight - kHang)) {
    RichLine(sheet, line, title).Draw(sheet, kHang, baseline);
    baseline += 11.5;
  }
  sheet.Text("Verspreiding van " + texts.substance + " in de omgeving", kHang, baseline + 0.5,
             {.size = 14, .colour = kInk});
  sheet.Text("Rekenrapport", kHang, baseline + 8.5, {.size = 14, .colour = kMuted});
  DrawDetails(sheet, texts, 232);
}

void ComposeContentsHeading(Report& report) {
  report.flow.NewPage();
  report.flow.Paper().Text("Inhoud", kTextLeft, kTextTop + 3, kChapterStyle);
}

}  // namespace plumeo
