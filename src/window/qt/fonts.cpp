#include "window/qt/fonts.h"

#include <QFontDatabase>
#include <QHash>
#include <QStringList>

#include "window/qt/qt_conversions.h"

namespace pagivo::qt {

namespace {

// Faces about as wide as Tahoma, the closest first.
const QStringList& Replacements() {
  static const QStringList families{
      QStringLiteral("Liberation Sans"), QStringLiteral("Arimo"),
      QStringLiteral("Arial"),           QStringLiteral("Nimbus Sans"),
      QStringLiteral("Noto Sans"),       QStringLiteral("DejaVu Sans Condensed"),
      QStringLiteral("DejaVu Sans")};
  return families;
}

// Picked by hand: a list of families is handed to the system's matching, whose replacement for the
// first one is often a wide face.
QString FindFamily(const QString& wanted) {
  if (QFontDatabase::hasFamily(wanted)) return wanted;
  for (const QString& family : Replacements()) {
    if (QFontDatabase::hasFamily(family)) return family;
  }
  return wanted;
}

// Remembered, for controls ask at every change.
QString InstalledFamily(const QString& wanted) {
  static QHash<QString, QString> found;
  QString& family = found[wanted];
  if (family.isEmpty()) family = FindFamily(wanted);
  return family;
}

}  // namespace

QFont FontFor(std::string_view family, float points, const QPaintDevice& device) {
  QFont font(InstalledFamily(ToQt(family)));
  if (points > 0) font.setPointSizeF(double{points} * kPixelsPerInch / device.logicalDpiY());
  return font;
}

}  // namespace pagivo::qt
