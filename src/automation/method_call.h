// One call of a method with arguments and result as the host passes them.
#pragma once

#include <oaidl.h>

#include <array>

#include "api/method_table.h"

namespace pagivo::automation {

// One for each parameter, in their order; null for what was left out.
using PlacedArguments = std::array<VARIANTARG*, kMaximumParameters>;

// Converts the arguments, calls the method, and puts what it wrote into the host's variables. What
// is left out, or given as the missing marker, holds its default. `result`, which may be null,
// becomes the method's result. Raises WrongArgumentCount for a required argument that is missing,
// what the conversion of an argument raises, and what the method raises; nothing is put then.
void CallMethod(PgPrint& print, const Member<PgPrint>& method, const PlacedArguments& given,
                VARIANT* result, LCID locale);

}  // namespace pagivo::automation
