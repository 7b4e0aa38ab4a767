#include <algorithm>

#include "values/conversions.h"

namespace pagivo {

std::string_view TrimLeft(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return text;
}

std::string_view TrimRight(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string_view Trim(std::string_view text) {
  return TrimLeft(TrimRight(text));
}

}  // namespace pagivo
