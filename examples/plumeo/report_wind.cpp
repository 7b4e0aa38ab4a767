// Chapter: the wind rose.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "dutch_numbers.h"
#include "report_chapters.h"
#include "report_table.h"

namespace plumeo {
namespace {

constexpr double kDegree = std::numbers::pi / 180;

// The classes that the rose draws together, from the middle outwards.
struct RoseGroup {
  const char* name;
  Stability first;
  Stability last;
  std::int32_t colour;
  std::int32_t brush;
};

constexpr std::array<RoseGroup, 3> kGroups = {{
    {"onstabiel (A, B, C)", Stability::A, Stability::C, kScaleColours[2], BrushStyle::Solid},
    {"neutraal (D)", Stability::D, Stability::D, kAccent, BrushStyle::Solid},
    {"stabiel (E, F)", Stability::E, Stability::F, kAccent, BrushStyle::UpwardDiagonal},
}};

// Of the classes A to `last`.
double FrequencyUpTo(const WindRose& rose, std::size_t sector, Stability last) {
  double sum = 0;
  for (std::size_t i = 0; i <= IndexOf(last); ++i) sum += rose.frequency[sector][i];
  return sum;
}

Point OnCircle(Point centre, double radius, double bearing) {
  return {centre.x + radius * std::sin(bearing * kDegree),
          centre.y - radius * std::cos(bearing * kDegree)};
}

class RoseDrawing {
 public:
  RoseDrawing(Sheet& sheet, const WindRose& rose, Point centre, double radius)
      : sheet_(sheet), rose_(rose), centre_(centre), radius_(radius) {
    double highest = 0;
    for (std::size_t sector = 0; sector < kSectorCount; ++sector) {
      highest = std::max(highest, rose.OfSector(sector));
    }
    while (highest > kMostRings * ring_) ring_ += 0.01;
    rings_ = static_cast<int>(std::ceil(highest / ring_));
  }

  void Draw() {
    for (int ring = 1; ring <= rings_; ++ring) {
      sheet_.Circle(centre_, RadiusOf(ring * ring_), {.colour = kRuleColour, .width = 8});
    }
    for (std::size_t sector = 0; sector < kSectorCount; ++sector) DrawSpoke(sector);
    for (std::size_t sector = 0; sector < kSectorCount; ++sector) DrawSector(sector);
    DrawRingNumbers();
    DrawCompass();
  }

 private:
  double RadiusOf(double frequency) const { return radius_ * frequency / (rings_ * ring_); }

  double BearingOf(std::size_t sector) const {
    return 360.0 * static_cast<double>(sector) / kSectorCount;
  }

  void DrawSpoke(std::size_t sector) {
    sheet_.Line(centre_, OnCircle(centre_, radius_, BearingOf(sector) + 180.0 / kSectorCount),
                {.colour = kRuleColour, .width = 5, .style = PenStyle::Dot});
  }

  // From the outside in: each group covers what the ones outside it have drawn over its place.
  void DrawSector(std::size_t sector) {
    constexpr double kHalfAngle = 12 * kDegree;
    const double middle = (90 - BearingOf(sector)) * kDegree;
    for (std::size_t i = kGroups.size(); i-- > 0;) {
      const RoseGroup& group = kGroups[i];
      const double radius = RadiusOf(FrequencyUpTo(rose_, sector, group.last));
      if (radius <= 0) continue;
      sheet_.Sector(centre_, radius, middle - kHalfAngle, middle + kHalfAngle, group.colour,
                    group.brush);
    }
  }

  void DrawRingNumbers() {
    for (int ring = 2; ring <= rings_; ring += 2) {
      const Point at = OnCircle(centre_, RadiusOf(ring * ring_), 345);
      const std::string label = Percent(ring * ring_, 0) + "\u00a0%";
      const double width = sheet_.Width(label, kSmallMuted);
      sheet_.FillBox({at.x - width / 2 - 0.6, at.y - 1.8}, {at.x + width / 2 + 0.6, at.y + 1.8},
                     kWhite);
      sheet_.TextCentred(label, at.x, at.y + 1.0, kSmallMuted);
    }
  }

  void DrawCompass() {
    constexpr std::array<const char*, kSectorCount> kNames = {
        "N", "30°", "60°", "O", "120°", "150°", "Z", "210°", "240°", "W", "300°", "330°"};
    for (std::size_t sector = 0; sector < kSectorCount; ++sector) {
      const Point at = OnCircle(centre_, radius_ + 6, BearingOf(sector));
      sheet_.TextCentred(kNames[sector], at.x, at.y + 1.2,
                         sector % 3 == 0 ? kBodyBold : kSmallMuted);
    }
  }

  Sheet& sheet_;
  const WindRose& rose_;
  Point centre_;
  double radius_;
  static constexpr int kMostRings = 6;
  double ring_ = 0.01;  // the frequency from ring to ring
  int rings_ = 1;
};

void DrawRoseLegend(Sheet& sheet, Point corner) {
  for (const RoseGroup& group : kGroups) {
    // A slice as in the rose, lying on its side.
    sheet.Sector({corner.x, corner.y}, 8, -14 * kDegree, 14 * kDegree, group.colour, group.brush);
    sheet.Text(group.name, corner.x + 11, corner.y + 1.1, kSmall);
    corner.y += 6.5;
  }
}

void ComposeRose(Report& report) {
  Flow& flow = report.flow;
  const WindRose& rose = report.project.site.windRose;
  std::size_t windiest = 0;
  for (std::size_t sector = 1; sector < kSectorCount; ++sector) {
    if (rose.OfSector(sector) > rose.OfSector(windiest)) windiest = sector;
  }
  const double bearing = 360.0 * static_cast<double>(windiest) / kSectorCount;
  flow.Section("Windroos");
  flow.Paragraph("De wind komt het vaakst uit de sector rond " + Fixed(bearing, 0) + "° (" +
                 CompassName(bearing) + "), " + WithUnit(Percent(rose.OfSector(windiest), 1), "%") +
                 " van het jaar. Neutraal weer (klasse D) heerst in " +
                 WithUnit(Percent(rose.OfClass(Stability::D), 1), "%") +
                 " van de tijd. De lengte van een sector geeft aan hoe vaak de wind uit die "
                 "richting komt.");
  constexpr double kRadius = 40;
  const Point centre{kTextLeft + kTextWidth / 2 - 18, flow.Top() + kRadius + 6};
  RoseDrawing(flow.Paper(), rose, centre, kRadius).Draw();
  DrawRoseLegend(flow.Paper(), {centre.x + kRadius + 12, centre.y + kRadius - 14});
  flow.MoveTo(centre.y + kRadius + 16);
  flow.FigureCaption("Windroos: frequentie per windrichting, verdeeld naar stabiliteit");
}

void DrawFrequencyTable(Report& report) {
  const WindRose& rose = report.project.site.windRose;
  Flow& flow = report.flow;
  Table table{.columns = {{"Wind uit", "graden", 28}}, .rowHeight = 4.9, .lastRowIsTotal = true};
  for (const Stability stability : kStabilities) {
    table.columns.push_back({LetterOf(stability), "%", 17.5});
  }
  table.columns.push_back({"Alle", "%", 21});
  for (std::size_t sector = 0; sector < kSectorCount; ++sector) {
    std::vector<std::string> row = {std::to_string(sector * 360 / kSectorCount)};
    for (const double frequency : rose.frequency[sector]) row.push_back(Percent(frequency, 2));
    row.push_back(Percent(rose.OfSector(sector), 2));
    table.rows.push_back(std::move(row));
  }
  std::vector<std::string> totals = {"Alle"};
  for (const Stability stability : kStabilities) {
    totals.push_back(Percent(rose.OfClass(stability), 2));
  }
  totals.push_back(Percent(rose.Total(), 2));
  table.rows.push_back(std::move(totals));
  flow.Need(HeightOf(table) + kHeadingAndCaption);
  flow.Section("Frequenties");
  flow.TableCaption("Verdeling van het jaar over windrichtingen en stabiliteitsklassen");
  DrawTable(flow, table);
}

}  // namespace

void ComposeWindClimate(Report& report) {
  report.flow.Chapter("Windklimaat");
  ComposeRose(report);
  DrawFrequencyTable(report);
}

}  // namespace plumeo
