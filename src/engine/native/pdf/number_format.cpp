#include "engine/native/pdf/number_format.h"

#include <array>
#include <cassert>
#include <charconv>

namespace pagivo::native {
namespace {

constexpr std::array<std::int64_t, 10> kPowersOfTen = {
    1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000, 1'000'000'000};

}  // namespace

void AppendInteger(std::string& out, std::int64_t number) {
  std::array<char, 20> digits;
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  out.append(digits.data(), end);
}

void AppendDecimal(std::string& out, std::int64_t value, int decimals) {
  assert(decimals >= 0 && decimals <= 9);
  const std::int64_t one = kPowersOfTen[static_cast<std::size_t>(decimals)];
  const std::int64_t whole = value / one;
  std::int64_t fraction = value % one;
  if (fraction == 0) return AppendInteger(out, whole);

  if (whole != 0) {
    AppendInteger(out, whole);
  } else if (value < 0) {
    out.push_back('-');
  }
  if (fraction < 0) fraction = -fraction;
  out.push_back('.');
  for (std::int64_t unit = one / 10; fraction != 0; unit /= 10) {
    out.push_back(static_cast<char>('0' + fraction / unit));
    fraction %= unit;
  }
}

}  // namespace pagivo::native
