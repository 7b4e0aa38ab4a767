// Objects of the host, reached through their IDispatch.
#pragma once

#include <oaidl.h>

#include "pagivo/object.h"

namespace pagivo::automation {

class OwnedValue;

// Makes an object whose members are the host's object's; it holds that object. Null for null and
// for an object without IDispatch.
ObjectRef MakeHostObject(IUnknown* object);

// Gives the value of the object's default property; false for null and for an object that has none
// that can be read without arguments.
bool ReadDefaultProperty(IUnknown* object, OwnedValue& value);

}  // namespace pagivo::automation
