// What the user asked for.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

namespace plumeo {

// An argument that makes no sense; what() says which, in Dutch.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Where the report goes.
enum class Output {
  Automatic,  // a window where there is a display, else a file
  Window,
  Files,
};

struct CommandLine {
  std::string input;  // empty: the example's own
  Output output = Output::Automatic;
  std::string pdf = "plumeo.pdf";
  std::string imageFolder;  // empty: no images
  int imagePages = 0;       // the first so many; 0 for all
  double imageDpi = 96;
  std::int16_t watermark = 0;
  bool help = false;
};

// Throws UsageError.
CommandLine ParseCommandLine(const std::vector<std::string>& arguments);

// What --help shows.
extern const char* const kUsage;

}  // namespace plumeo
