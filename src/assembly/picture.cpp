#include "pagivo/picture.h"

#include "platform/platform.h"
#include "values/errors.h"

namespace pagivo {

ObjectRef LoadPicture(const TextArgument& path) {
  return ReportingErrors([&] { return CurrentPlatform().loadPicture(path); });
}

}  // namespace pagivo
