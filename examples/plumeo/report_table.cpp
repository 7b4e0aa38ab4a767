#include "report_table.h"

#include <algorithm>
#include <cstddef>

namespace plumeo {
namespace {

constexpr double kPadding = 1.6;
constexpr double kTitleBaseline = 4.3;
constexpr double kUnitBaseline = 8.2;

bool HasUnits(const Table& table) {
  return std::any_of(table.columns.begin(), table.columns.end(),
                     [](const Column& column) { return !column.unit.empty(); });
}

double HeaderHeight(const Table& table) {
  return HasUnits(table) ? 9.9 : 6.2;
}

double WidthOf(const Table& table) {
  double width = 0;
  for (const Column& column : table.columns) width += column.width;
  return width;
}

class TableDrawing {
 public:
  TableDrawing(Flow& flow, const Table& table)
      : sheet_(flow.Paper()), table_(table), top_(flow.Top()), right_(kTextLeft + WidthOf(table)) {}

  void Draw() {
    DrawHeader();
    for (std::size_t row = 0; row < table_.rows.size(); ++row) DrawRow(row);
    Rule(top_ + HeightOf(table_), {.colour = kAccent, .width = 10});
  }

 private:
  void Rule(double y, const Pen& pen) { sheet_.Line({kTextLeft, y}, {right_, y}, pen); }

  void DrawHeader() {
    Rule(top_, kStrongRule);
    double x = kTextLeft;
    Style unitStyle = kSmallMuted;
    for (const Column& column : table_.columns) {
      Cell(column.title, x, top_ + kTitleBaseline, column, kSmallBold);
      if (!column.unit.empty()) Cell(column.unit, x, top_ + kUnitBaseline, column, unitStyle);
      x += column.width;
    }
    Rule(top_ + HeaderHeight(table_), {.colour = kAccent, .width = 10});
  }

  void DrawRow(std::size_t row) {
    const double y = top_ + HeaderHeight(table_) + static_cast<double>(row) * table_.rowHeight;
    const bool total = table_.lastRowIsTotal && row + 1 == table_.rows.size();
    if (row % 2 == 1 && !total) {
      sheet_.FillBox({kTextLeft, y}, {right_, y + table_.rowHeight}, kZebra);
    }
    if (total) Rule(y, {.colour = kAccent, .width = 10});
    double x = kTextLeft;
    const std::vector<std::string>& cells = table_.rows[row];
    for (std::size_t i = 0; i < std::min(cells.size(), table_.columns.size()); ++i) {
      const double baseline = y + table_.rowHeight / 2 + 1.1;
      Cell(cells[i], x, baseline, table_.columns[i], total ? kSmallBold : kSmall);
      x += table_.columns[i].width;
    }
  }

  void Cell(const std::string& markup, double x, double baseline, const Column& column,
            const Style& style) {
    const RichText text = ParseMarkup(markup);
    if (text.empty()) return;
    // A plain number goes out whole, by its right end.
    if (column.align == Align::Right && text.size() == 1 && !text[0].symbol && !text[0].bold &&
        text[0].shift == Shift::None) {
      sheet_.TextRight(text[0].text, x + column.width - kPadding, baseline, style);
      return;
    }
    const RichLine line(sheet_, text, style);
    const double space = column.width - 2 * kPadding - line.Width();
    const double share = column.align == Align::Left ? 0 : column.align == Align::Right ? 1 : 0.5;
    line.Draw(sheet_, x + kPadding + share * space, baseline);
  }

  Sheet& sheet_;
  const Table& table_;
  double top_;
  double right_;
};

}  // namespace

double HeightOf(const Table& table) {
  return HeaderHeight(table) + static_cast<double>(table.rows.size()) * table.rowHeight;
}

void DrawTable(Flow& flow, const Table& table) {
  TableDrawing(flow, table).Draw();
  flow.Space(HeightOf(table) + 8);
}

}  // namespace plumeo
