// What the topics of the interface share: the engine, and values on their way there.
#pragma once

#include <cstdint>
#include <utility>

#include "engine/print_engine.h"
#include "pagivo/variant.h"
#include "preview/preview_form.h"
#include "state/module_state.h"
#include "values/conversions.h"
#include "values/errors.h"
#include "values/variant_arithmetic.h"

namespace pagivo {

// Each answers in twips a position or length that is in host units.
inline Variant ScaledX(const Variant& value) {
  return InTwips(value, State().ScaleX);
}
inline Variant ScaledY(const Variant& value) {
  return InTwips(value, State().ScaleY);
}

// Answers as a getter does: what `read` answers, or the zero value when it fails.
template <typename Read>
auto ReadOrZero(Read&& read) {
  decltype(read()) value{};
  IgnoringErrors([&] { value = std::forward<Read>(read)(); });
  return value;
}

}  // namespace pagivo
