#include "pagivo/arguments.h"

#include "values/conversions.h"

namespace pagivo {

IntegerArgument::operator std::int16_t() const {
  return ToInteger(value_);
}

IntegerVariable::IntegerVariable(Variant& variable)
    : value_(variable.ToInteger()), variable_(&variable), put_([](void* held, std::int16_t value) {
        AssignKeepingKind(*static_cast<Variant*>(held), value);
      }) {}

IntegerVariable& IntegerVariable::operator=(std::int16_t value) {
  value_ = value;
  if (put_ != nullptr) put_(variable_, value);
  return *this;
}

}  // namespace pagivo
