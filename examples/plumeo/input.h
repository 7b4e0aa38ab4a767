// What the calculation is about, as read from its input file.
#pragma once

#include <string>
#include <vector>

#include "climate.h"
#include "key_values.h"

namespace plumeo {

// A place where people live or stay, metres east and north of the stack.
struct Receptor {
  std::string name;
  double east = 0;
  double north = 0;
};

// Texts for the title page and the headers.
struct ProjectTexts {
  std::string name;
  std::string number;
  std::string place;
  std::string client;
  std::string author;
  std::string date;
  std::string version;
  std::string substance;
};

struct Project {
  std::string inputPath;
  ProjectTexts texts;
  Site site;
  double background = 0;                 // ug/m3, the year's mean without the stack
  double yearlyLimit = 0;                // ug/m3
  double hourlyLimit = 0;                // ug/m3
  double mapHalfWidth = 0;               // m, from the stack to the maps' edges
  Stability designClass = Stability::D;  // of the crosswind profiles and the map of one hour
  std::vector<Receptor> receptors;
};

// Throws InputError at the first thing that is wrong: a file that cannot be read, a line that is
// no "key = value", an unknown section or key, one that is missing or occurs twice, a value that
// is no number or lies outside its range.
Project ReadProject(const std::string& path);

}  // namespace plumeo
