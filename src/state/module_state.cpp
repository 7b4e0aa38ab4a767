#include "state/module_state.h"

#include "values/process_wide.h"

namespace pagivo {

ModuleState& State() {
  return ProcessWide<ModuleState>();
}

}  // namespace pagivo
