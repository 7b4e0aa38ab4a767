#include "support/data/test_data.h"

namespace pagivo {

std::string TestDataPath(const std::string& name) {
  return PAGIVO_TEST_DATA "/" + name;
}

}  // namespace pagivo
