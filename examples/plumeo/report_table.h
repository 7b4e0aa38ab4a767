// Tables with rules and zebra rows.
#pragma once

#include <string>
#include <vector>

#include "report_flow.h"

namespace plumeo {

enum class Align { Left, Right, Centre };

struct Column {
  std::string title;  // markup
  std::string unit;   // markup, under the title; may be empty
  double width = 20;  // mm
  Align align = Align::Right;
};

// The cells are markup. A row with fewer cells than there are columns ends early.
struct Table {
  std::vector<Column> columns = {};
  std::vector<std::vector<std::string>> rows = {};
  double rowHeight = 5.4;
  bool lastRowIsTotal = false;
};

double HeightOf(const Table& table);

// What a section's heading and a caption take above a table that is to stay with them.
inline constexpr double kHeadingAndCaption = 14;

// At the flow's place, from the text's left edge; the flow then stands below it. A table is never
// divided over pages.
void DrawTable(Flow& flow, const Table& table);

}  // namespace plumeo
