#include "window/window_system.h"

#include "window/form_user.h"

namespace pagivo {

FormPeer::~FormPeer() = default;

ControlPeer::~ControlPeer() = default;

WindowSystem::~WindowSystem() = default;

FormUser::~FormUser() = default;

}  // namespace pagivo
