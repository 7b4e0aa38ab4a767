#include "engine/native/pdf/number_format.h"

#include <array>
#include <cassert>

namespace pagivo::native {

void AppendInteger(std::string& out, std::int64_t number) {
  AppendDecimal(out, number, 0);
}

// From the last digit to the first, for that is how they come out of a number.
void AppendDecimal(std::string& out, std::int64_t value, int decimals) {
  assert(decimals >= 0 && decimals <= 9);
  std::uint64_t rest =
      value < 0 ? -static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
  for (; decimals > 0 && rest % 10 == 0; rest /= 10) --decimals;

  std::array<char, 24> characters;
  char* const end = characters.data() + characters.size();
  char* begin = end;
  const auto putDigit = [&] {
    *--begin = static_cast<char>('0' + rest % 10);
    rest /= 10;
  };
  if (decimals > 0) {
    for (; decimals > 0; --decimals) putDigit();
    *--begin = '.';
  } else {
    putDigit();
  }
  while (rest != 0) putDigit();
  if (value < 0) *--begin = '-';
  out.append(begin, end);
}

}  // namespace pagivo::native
