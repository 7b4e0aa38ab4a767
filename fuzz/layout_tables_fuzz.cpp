// A font's layout tables: whatever they say, reading their rules ends.
#include "engine/native/fonts/layout_rules.h"
#include "font_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const pagivo::fuzz::FontFile file(data, size);
  if (const auto face = file.Open()) {
    const pagivo::native::LayoutRules rules(*face);
  }
  return 0;
}
