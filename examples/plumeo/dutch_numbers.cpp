#include "dutch_numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <system_error>

namespace plumeo {
namespace {

// "1234567" gives "1.234.567".
std::string GroupThousands(std::string_view digits) {
  std::string grouped;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i > 0 && (digits.size() - i) % 3 == 0) grouped += '.';
    grouped += digits[i];
  }
  return grouped;
}

}  // namespace

std::string Fixed(double value, int decimals) {
  char buffer[400];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, std::abs(value),
                                    std::chars_format::fixed, decimals);
  const std::string_view text(buffer, result.ptr);
  const std::size_t point = text.find('.');
  std::string number = GroupThousands(text.substr(0, point));
  if (point != std::string_view::npos) number.append(",").append(text.substr(point + 1));
  const bool zero = text.find_first_not_of("0.") == std::string_view::npos;
  return value < 0 && !zero ? "−" + number : number;
}

int DecimalsFor(double value, int digits) {
  if (value == 0) return 0;
  const int magnitude = static_cast<int>(std::floor(std::log10(std::abs(value))));
  return std::clamp(digits - 1 - magnitude, 0, 12);
}

std::string Significant(double value, int digits) {
  return Fixed(value, DecimalsFor(value, digits));
}

std::string Shortest(double value) {
  int decimals = 0;
  double scaled = value;
  while (decimals < 6 && std::abs(scaled - std::round(scaled)) > 1e-6) {
    scaled = value * std::pow(10, ++decimals);
  }
  return Fixed(value, decimals);
}

std::string Percent(double share, int decimals) {
  return Fixed(100 * share, decimals);
}

std::optional<double> ReadNumber(std::string_view text) {
  std::string pointed(text);
  std::replace(pointed.begin(), pointed.end(), ',', '.');
  double value = 0;
  const char* end = pointed.data() + pointed.size();
  const auto result = std::from_chars(pointed.data(), end, value);
  if (result.ec != std::errc() || result.ptr != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

}  // namespace plumeo
