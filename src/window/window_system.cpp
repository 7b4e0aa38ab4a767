#include "window/window_system.h"

namespace pagivo {

FormPeer::~FormPeer() = default;

ControlPeer::~ControlPeer() = default;

WindowSystem::~WindowSystem() = default;

}  // namespace pagivo
