#include "window_overview.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>
#include <string>

#include "dutch_numbers.h"
#include "report_chapters.h"
#include "report_figures.h"

namespace plumeo {
namespace {

constexpr int kColumnSpacing = 12;

QString Text(const std::string& utf8) {
  return QString::fromStdString(utf8);
}

// Of the window's font, so many times as large.
QLabel* MakeTitle(const QString& text, double enlargement) {
  auto* label = new QLabel(text);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * enlargement);
  font.setBold(true);
  label->setFont(font);
  return label;
}

void AddKeyFigure(QGridLayout& grid, int row, const KeyFigure& figure) {
  auto* value = MakeTitle(Text(figure.value), 1);
  value->setAlignment(Qt::AlignRight);
  grid.addWidget(new QLabel(Text(figure.title)), row, 0);
  grid.addWidget(value, row, 1);
  grid.addWidget(new QLabel(Text(figure.unit)), row, 2);
  grid.addWidget(new QLabel(Text(figure.remark)), row, 3);
}

// Names at the left, numbers at the right, the judgement in the middle.
Qt::Alignment AlignmentOf(const QTableWidget& table, int column) {
  if (column == 0) return Qt::AlignLeft | Qt::AlignVCenter;
  return column + 1 < table.columnCount() ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignCenter;
}

void PutCell(QTableWidget& table, int row, int column, const std::string& text) {
  auto* item = new QTableWidgetItem(Text(text));
  item->setTextAlignment(AlignmentOf(table, column));
  table.setItem(row, column, item);
}

void PutReceptor(QTableWidget& table, int row, const Project& project,
                 const ReceptorResult& result) {
  const std::string cells[] = {
      result.receptor.name,
      Fixed(result.distance, 0),
      Micrograms(result.yearlyMean),
      Fixed(YearWithBackground(project, result), 2),
      Fixed(HourWithBackground(project, result), 1),
      IsWithinLimits(project, result) ? "voldoet" : "voldoet niet",
  };
  int column = 0;
  for (const std::string& text : cells) PutCell(table, row, column++, text);
}

// To be read, not to be worked in.
QTableWidget* MakeTable(int rows, const QStringList& columns) {
  auto* table = new QTableWidget(rows, static_cast<int>(columns.size()));
  table->setHorizontalHeaderLabels(columns);
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->setTabKeyNavigation(false);
  table->setShowGrid(false);
  table->setAlternatingRowColors(true);
  table->verticalHeader()->hide();
  table->horizontalHeader()->setHighlightSections(false);
  return table;
}

// As wide as they need with some air between them; the first one takes what is left.
void SpreadColumns(QTableWidget& table) {
  constexpr int kAir = 16;
  table.resizeColumnsToContents();
  for (int column = 0; column < table.columnCount(); ++column) {
    table.horizontalHeaderItem(column)->setTextAlignment(AlignmentOf(table, column));
    table.setColumnWidth(column, table.columnWidth(column) + kAir);
  }
  table.horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
}

}  // namespace

QWidget* MakeHeading(const Project& project) {
  const ProjectTexts& texts = project.texts;
  auto* heading = new QWidget;
  auto* layout = new QVBoxLayout(heading);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(MakeTitle(Text(texts.name), 1.6));
  layout->addWidget(new QLabel(Text(texts.number + "  ·  " + texts.version + "  ·  " + texts.date +
                                    "  ·  " + texts.client)));
  return heading;
}

QWidget* MakeKeyFigures(const Project& project, const Results& results) {
  auto* group = new QGroupBox("Hoogste concentraties " + Text(project.texts.substance));
  auto* grid = new QGridLayout(group);
  grid->setColumnStretch(3, 1);
  grid->setHorizontalSpacing(kColumnSpacing);
  int row = 0;
  for (const KeyFigure& figure : KeyFigures(project, results)) AddKeyFigure(*grid, row++, figure);
  return group;
}

QWidget* MakeReceptorTable(const Project& project, const Results& results) {
  auto* group = new QGroupBox("Toetspunten");
  auto* table = MakeTable(static_cast<int>(results.receptors.size()),
                          {"Toetspunt", "Afstand\nm", "Bron, jaar\nµg/m³", "Totaal, jaar\nµg/m³",
                           "Totaal, uur\nµg/m³", "Toetswaarden"});
  table->setAccessibleName(group->title());
  int row = 0;
  for (const ReceptorResult& result : results.receptors) {
    PutReceptor(*table, row++, project, result);
  }
  SpreadColumns(*table);
  auto* layout = new QVBoxLayout(group);
  layout->addWidget(table);
  layout->addWidget(new QLabel(Text(Judgement(project, results))));
  return group;
}

}  // namespace plumeo
