// Arrays of automation and the component's own.
#pragma once

#include <oaidl.h>

#include "pagivo/variant.h"
#include "values/late_binding.h"

namespace pagivo::automation {

// The elements of an array of one dimension, with its bounds, in the kind of the parameter; those
// of another kind, as scripts have them, are converted one by one. No array, and one that was never
// given bounds, has no elements. `value` is dereferenced. Raises ErrorNumber::TypeMismatch for all
// else, and what the conversion of an element raises.
Variant ReadArray(const VARIANT& value, ValueKind wanted, LCID locale);

// The same for a parameter that takes any kind: elements of a kind that the component has, else
// Nothing.
Variant ReadArrayOfAnyKind(const VARIANT& value);

// Raises error 10, of an array that is fixed or in use, unless the host's variable can get an array
// of other bounds.
void RequireReplaceable(const VARIANT& given);

// Puts the array in the place of the one in the host's variable: of the same kind of elements where
// the variable has a kind or held such an array, else of Variants, which scripts can read. Nothing
// is put where no variable was passed.
void PutArrayIntoVariable(VARIANT& given, const Variant& array);

}  // namespace pagivo::automation
