#include "state/module_state.h"

namespace pagivo {

ModuleState& State() {
  // Never destroyed: it holds an object of the host, which is gone before the process's statics
  // are.
  static ModuleState& state = *new ModuleState;
  return state;
}

}  // namespace pagivo
