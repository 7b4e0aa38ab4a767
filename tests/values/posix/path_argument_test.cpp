#include <gtest/gtest.h>

#include <filesystem>

#include "pagivo/arguments.h"

namespace pagivo {
namespace {

std::string Taken(const TextArgument& text) {
  return text;
}

// On other systems paths are not made of bytes, and a host says in which of its ways they become
// text.
TEST(TextArgument, TakesAPath) {
  EXPECT_EQ(Taken(std::filesystem::path("map/bestand")), "map/bestand");
}

}  // namespace
}  // namespace pagivo
