#include "engine/native/setup/engine_changes.h"

#include "values/errors.h"

namespace pagivo::native {

void EngineChanges::Make() const {
  for (std::size_t made = 0; made < changes_.size(); ++made) {
    try {
      changes_[made].make();
    } catch (...) {
      TakeBack(made);
      throw;
    }
  }
}

void EngineChanges::TakeBack(std::size_t count) const {
  while (count > 0) IgnoringErrors(changes_[--count].takeBack);
}

}  // namespace pagivo::native
