#include "peer_qt.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <numbers>

#include "report_page.h"

namespace pagivo::bench {
namespace {

QFont FontOf(const ReportString& string) {
  QFont font(kReportFont);
  // Pixels are twips here.
  font.setPixelSize(static_cast<int>(string.size * kTwipsPerPoint));
  font.setBold(string.bold);
  return font;
}

void DrawString(QPainter& painter, const ReportString& string) {
  painter.setFont(FontOf(string));
  const QFontMetricsF metrics(painter.font(), painter.device());
  const QString text = QString::fromStdString(string.text);
  const double left = string.rightAligned ? string.x - metrics.horizontalAdvance(text) : string.x;
  painter.drawText(QPointF(left, string.y + metrics.ascent()), text);
}

QRectF RectangleOf(const ReportLine& corners) {
  return {QPointF(corners.from.x, corners.from.y), QPointF(corners.to.x, corners.to.y)};
}

void DrawFigures(QPainter& painter, const ReportPage& page) {
  painter.setPen(QPen(Qt::black, 5));
  painter.setBrush(QColor(0xE0, 0xE0, 0xE0));
  for (const ReportLine& corners : page.rectangles) {
    painter.drawRect(RectangleOf(corners));
    painter.setBrush(Qt::NoBrush);
  }
  for (const auto& [from, to] : page.lines) {
    painter.drawLine(QPointF(from.x, from.y), QPointF(to.x, to.y));
  }
  const double sixteenths = 16 * 180 / std::numbers::pi;
  const ReportPoint& center = page.arcCenter;
  painter.drawArc(QRectF(center.x - page.arcRadius, center.y - page.arcRadius, 2 * page.arcRadius,
                         2 * page.arcRadius),
                  static_cast<int>(page.arcStart * sixteenths),
                  static_cast<int>((page.arcEnd - page.arcStart) * sixteenths));
  QPolygonF polygon;
  for (const ReportPoint& point : page.polygon) polygon << QPointF(point.x, point.y);
  painter.setBrush(QColor(0x40, 0x80, 0xC0));
  painter.drawPolygon(polygon);
  static const QImage picture(QString::fromStdString(ReportPicturePath()));
  painter.drawImage(RectangleOf(page.picture), picture);
}

}  // namespace

void DrawReportPageWithQt(QPainter& painter, int number) {
  const ReportPage& page = ReportPageOf(number);
  DrawFigures(painter, page);
  for (const ReportString& string : page.strings) DrawString(painter, string);
}

}  // namespace pagivo::bench
