#include "pagivo/picture.h"

#include "platform/platform.h"

namespace pagivo {

ObjectRef LoadPicture(const std::string& path) {
  return CurrentPlatform().loadPicture(path);
}

}  // namespace pagivo
