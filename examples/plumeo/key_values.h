// A text file of sections and "key = value" lines.
//
//   [bron]
//   hoogte = 45    # m, above the ground
//
// Blank lines and what follows a '#' are left out. Keys stand in a section and occur once in it; a
// section occurs once.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace plumeo {

// Something wrong in an input file; what() is "file:line: what is wrong", in Dutch. Line 0 is the
// file as a whole.
class InputError : public std::runtime_error {
 public:
  InputError(const std::string& file, int line, const std::string& message)
      : std::runtime_error(file + ":" + std::to_string(line) + ": " + message) {}
};

struct KeyValue {
  std::string key;
  std::string value;
  int line = 0;
};

struct Section {
  std::string name;
  int line = 0;
  std::vector<KeyValue> entries;

  const KeyValue* Find(std::string_view key) const;
};

struct KeyValueFile {
  std::string path;
  int lineCount = 0;
  std::vector<Section> sections;

  const Section* Find(std::string_view name) const;
};

// Throws InputError.
KeyValueFile ReadKeyValueFile(const std::string& path);

}  // namespace plumeo
