// A font as the host asks for it.
#pragma once

#include <string>

namespace pagivo::native {

struct FontDescription {
  std::string name = "Arial";
  float size = 10;  // points
  bool bold = false;
  bool italic = false;
  bool underline = false;
  friend bool operator==(const FontDescription&, const FontDescription&) = default;
};

}  // namespace pagivo::native
