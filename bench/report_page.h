// The page that everything is measured with: a page of a calculation report, described without any
// library, so that each library under measurement composes the very same page.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace pagivo::bench {

inline constexpr double kTwipsPerPoint = 20;

// Lengths in twips from the page's upper left corner, y down; an A4 page is 11906 x 16838.
struct ReportString {
  std::string text;
  double x = 0;     // of the left end, or of the right end when rightAligned
  double y = 0;     // of the top
  double size = 9;  // points
  bool bold = false;
  bool rightAligned = false;
};

struct ReportPoint {
  double x = 0;
  double y = 0;
};

struct ReportLine {
  ReportPoint from;
  ReportPoint to;
};

struct ReportPage {
  std::vector<ReportString> strings;     // 185, of which 61 right-aligned
  std::vector<ReportLine> lines;         // 15
  std::array<ReportLine, 2> rectangles;  // corners; the first is filled light grey
  ReportPoint arcCenter;
  double arcRadius = 0;
  double arcStart = 0;  // radians, counter-clockwise
  double arcEnd = 0;
  std::vector<ReportPoint> polygon;  // filled blue
  ReportLine picture;                // its corners
};

inline constexpr const char* kReportFont = "Arial";
inline constexpr double kPageWidth = 11906;
inline constexpr double kPageHeight = 16838;

// Page `number` of the report: always the same for the same number, numbers and words differ from
// page to page.
ReportPage MakeReportPage(int number);

// A small PNG picture file (64 x 64, colours and transparency), made in the temporary folder at
// first use and removed at exit.
const std::string& ReportPicturePath();

// From then on there is no picture: the path is empty, and no file is read while pages are
// composed.
void LeaveOutReportPicture();

// The pages that a benchmark composes in turn: a hundred different ones, made at first use. A
// program that composes fewer has only those made, by asking for that many before anything else.
const ReportPage& ReportPageOf(int number);
const std::vector<ReportPage>& ReportPages(int count);

}  // namespace pagivo::bench
