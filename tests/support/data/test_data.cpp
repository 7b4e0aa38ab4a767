#include "support/data/test_data.h"

namespace pagivo::testing {

std::string TestDataPath(const std::string& name) {
  return PAGIVO_TEST_DATA "/" + name;
}

}  // namespace pagivo::testing
