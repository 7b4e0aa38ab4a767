#include "automation/method_call.h"

#include <string>

#include "automation/automation_values.h"
#include "automation/safe_arrays.h"
#include "values/errors.h"

namespace pagivo::automation {
namespace {

bool IsArray(const Parameter& parameter) {
  return (VartypeOf(parameter.kind) & VT_ARRAY) != 0;
}

[[noreturn]] void RaiseMissingArgument(const MemberSignature& method, std::size_t index) {
  throw Error(ErrorNumber::WrongArgumentCount,
              std::string(method.name) + ": argument " + std::to_string(index + 1) + " (" +
                  std::string(ParameterName(method, index)) + ") ontbreekt");
}

Variant ReadArgument(const MemberSignature& method, std::size_t index, const VARIANTARG* given,
                     LCID locale) {
  const Parameter& parameter = method.Parameters()[index];
  if (given == nullptr || IsMissing(*given)) {
    if (parameter.defaultValue == DefaultValue::Required) RaiseMissingArgument(method, index);
    return Missing;
  }
  try {
    if (IsArray(parameter) && parameter.passing == Passing::WrittenBack) {
      RequireReplaceable(*given);
    }
    return ReadValue(*given, parameter.kind, locale);
  } catch (const Error& cause) {
    ThrowArgumentError(method, index, ReadAnyValue(*given), cause);
  }
}

void PutArgument(const Parameter& parameter, VARIANTARG& given, const Variant& before,
                 const Variant& after, LCID locale) {
  if (IsArray(parameter)) {
    PutArrayIntoVariable(given, after);
  } else if (after != before) {
    PutIntoVariable(given, after, locale);
  }
}

}  // namespace

void CallMethod(PgPrint& print, const Member<PgPrint>& method, const PlacedArguments& given,
                VARIANT* result, LCID locale) {
  CountingLosses([&] {
    const std::span<const Parameter> parameters = method.Parameters();
    std::array<Variant, kMaximumParameters> arguments;
    std::array<Variant, kMaximumParameters> before;
    for (std::size_t i = 0; i < parameters.size(); ++i) {
      arguments.at(i) = ReadArgument(method, i, given.at(i), locale);
      if (parameters[i].passing == Passing::WrittenBack) before.at(i) = arguments.at(i);
    }
    const Variant answer =
        InvokeMember(method, print, std::span(arguments).first(parameters.size()));
    for (std::size_t i = 0; i < parameters.size(); ++i) {
      if (parameters[i].passing != Passing::WrittenBack || given.at(i) == nullptr) continue;
      PutArgument(parameters[i], *given.at(i), before.at(i), arguments.at(i), locale);
    }
    if (result != nullptr) *result = MakeVariant(answer);
  });
}

}  // namespace pagivo::automation
