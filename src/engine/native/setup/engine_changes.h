// Changes of an engine's settings that belong together.
#pragma once

#include <functional>
#include <vector>

namespace pagivo::native {

class EngineChanges {
 public:
  using Step = std::function<void()>;

  // One change more, and what takes it back.
  void Add(Step make, Step takeBack) { changes_.push_back({std::move(make), std::move(takeBack)}); }

  // Makes them all in the order they were added, or none: when one fails those before it are taken
  // back, the last one first, and its error is passed on. What cannot be taken back stays.
  void Make() const;

 private:
  struct Change {
    Step make;
    Step takeBack;
  };

  void TakeBack(std::size_t count) const;

  std::vector<Change> changes_;
};

}  // namespace pagivo::native
