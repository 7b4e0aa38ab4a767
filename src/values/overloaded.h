// One visitor of several lambdas, one for each type that a value may have.
#pragma once

namespace pagivo {

template <typename... Functions>
struct Overloaded : Functions... {
  using Functions::operator()...;
};

template <typename... Functions>
Overloaded(Functions...) -> Overloaded<Functions...>;

}  // namespace pagivo
