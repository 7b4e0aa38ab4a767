// Where the files of tests/data are.
#pragma once

#include <string>

namespace pagivo {

// The path of the file or folder `name` in tests/data.
std::string TestDataPath(const std::string& name);

}  // namespace pagivo
