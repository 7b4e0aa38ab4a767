// Late-bound objects: what a Variant of kind Object refers to.
#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "pagivo/export.h"

namespace pagivo {

class Variant;

// An object whose members are reached by name at run time: a host window, a picture, the print
// engine, PgPrint itself. Each member that a class does not offer raises
// ErrorNumber::UnknownMember, which is what these base implementations do.
//
// A host window is any Object that answers GetMember for "WindowState", "Top", "Left", "Height"
// and "Width" (twips).
class PAGIVO_EXPORT Object {
 public:
  virtual ~Object();

  virtual Variant GetMember(std::string_view name);
  virtual void PutMember(std::string_view name, const Variant& value);
  // Arguments that the member takes by reference are written back into `arguments`.
  virtual Variant CallMember(std::string_view name, std::span<Variant> arguments);

 protected:
  Object() = default;
  Object(const Object&) = default;
  Object& operator=(const Object&) = default;
};

using ObjectRef = std::shared_ptr<Object>;

}  // namespace pagivo
