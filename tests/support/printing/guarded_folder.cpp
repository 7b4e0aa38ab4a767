#include "support/printing/guarded_folder.h"

#include <stdexcept>

namespace pagivo {
namespace {

// In the background, so that it is nobody's child and is not killed with its family. Servers that
// are going may write a last file meanwhile.
std::string Guard(const std::string& folder) {
  return "exec 3<&0; (trap '' HUP INT TERM; cat <&3; for try in 1 2 3 4 5; do rm -rf '" + folder +
         "' && break; sleep 1; done) >/dev/null 2>&1 &";
}

}  // namespace

// Programs that are started later must not hold the pipe open.
GuardedFolder::GuardedFolder() : guard_(popen(Guard(folder_.Path()).c_str(), "we")) {
  if (!guard_) throw std::runtime_error("nobody to guard " + folder_.Path());
}

}  // namespace pagivo
