// Numbers as a Dutch reader expects them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace plumeo {

// "1.234,50": a fixed number of decimals, decimal comma, points between thousands, a true minus.
std::string Fixed(double value, int decimals);

// How many decimals give a value that many significant digits: 0 to 12, 0 for the value 0.
int DecimalsFor(double value, int digits);

// As many decimals as give about that many significant digits: "0,0417", "12,3", "1.235".
std::string Significant(double value, int digits);

// No more decimals than the value needs, at most six: "0,15", "20".
std::string Shortest(double value);

// A share of one as a percentage without its sign: 0.125 gives "12,5".
std::string Percent(double share, int decimals);

// A whole text as a number, with a decimal comma or point, else nothing.
std::optional<double> ReadNumber(std::string_view text);

}  // namespace plumeo
