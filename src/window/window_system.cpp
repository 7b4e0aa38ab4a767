#include "window/window_system.h"

namespace pagivo {

FormPeer::~FormPeer() = default;

ToolbarPeer::~ToolbarPeer() = default;

WindowSystem::~WindowSystem() = default;

}  // namespace pagivo
