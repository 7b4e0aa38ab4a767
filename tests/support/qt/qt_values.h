// What tests of windows in Qt say in Qt's own values.
#pragma once

#include <QString>
#include <string_view>

namespace pagivo::testing {

inline QString Text(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace pagivo::testing
