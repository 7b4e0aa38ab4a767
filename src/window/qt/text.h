// Texts between the portable controls (UTF-8, counted in characters) and Qt (UTF-16).
#pragma once

#include <QList>
#include <QString>
#include <cstddef>
#include <string>
#include <string_view>

namespace pagivo::qt {

inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text) {
  return text.toStdString();
}

// How many characters stand in the first `units` UTF-16 units.
inline std::size_t CharactersBefore(const QString& text, int units) {
  return static_cast<std::size_t>(text.left(units).toUcs4().size());
}

// The other way round; the text's end when it has fewer characters.
int UnitsBefore(const QString& text, std::size_t characters);

// A caption without the & of its access key.
QString WithoutAccessKey(std::string_view caption);

}  // namespace pagivo::qt
