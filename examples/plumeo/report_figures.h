// The outcomes that a reader looks for first.
#pragma once

#include <array>
#include <string>

#include "results.h"

namespace plumeo {

struct KeyFigure {
  std::string title;
  std::string value;
  std::string unit;
  std::string remark;  // where and when, or how it compares with the limit
};

// The highest mean of an hour, the highest of the year, and the latter with the background.
std::array<KeyFigure, 3> KeyFigures(const Project& project, const Results& results);

// Whether all receptors stay within both limits, as a sentence; names those that do not.
std::string Judgement(const Project& project, const Results& results);

}  // namespace plumeo
