// The program as built without windows.
#include <stdexcept>

#include "window_program.h"

namespace plumeo {

void UseWindows() {
  throw std::runtime_error("dit programma is zonder vensters gebouwd");
}

void RunMainWindow(const Project& /*project*/, const Results& /*results*/,
                   const ReportOptions& /*options*/) {
  UseWindows();
}

}  // namespace plumeo
