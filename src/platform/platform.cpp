#include "platform/platform.h"

#include <optional>
#include <utility>

namespace pagivo {

namespace {

std::optional<Platform>& InUse() {
  // Never destroyed: windows may belong to a toolkit that is gone before the process's statics are.
  static auto& platform = *new std::optional<Platform>;
  return platform;
}

}  // namespace

const Platform& CurrentPlatform() {
  std::optional<Platform>& platform = InUse();
  if (!platform) platform = NativePlatform();
  return *platform;
}

void UsePlatform(Platform platform) {
  InUse() = std::move(platform);
}

}  // namespace pagivo
