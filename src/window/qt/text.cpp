#include "window/qt/text.h"

namespace pagivo::qt {

int UnitsBefore(const QString& text, std::size_t characters) {
  qsizetype units = 0;
  for (; characters > 0 && units < text.size(); --characters) {
    units += text.at(units).isHighSurrogate() && units + 1 < text.size() ? 2 : 1;
  }
  return static_cast<int>(units);
}

QString WithoutAccessKey(std::string_view caption) {
  std::string plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && i + 1 < caption.size()) ++i;
    plain += caption[i];
  }
  return ToQt(plain);
}

}  // namespace pagivo::qt
