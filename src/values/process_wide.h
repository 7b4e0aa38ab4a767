// Objects that the whole process shares.
#pragma once

namespace pagivo {

// The process's one object of this type, made when it is first asked for and never destroyed. At
// the end of the process the objects of the host, of toolkits and of this library go in an order
// that nobody knows; this one may hold some of them, or be asked by others. Whatever must be done
// at the end is left to std::atexit, therefore.
//
// One function of the library asks for each type, and everybody else calls that function.
template <typename Object>
Object& ProcessWide(Object* (*make)() = [] { return new Object; }) {
  static Object& object = *make();
  return object;
}

}  // namespace pagivo
