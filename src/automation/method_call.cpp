#include "automation/method_call.h"

#include <xmmintrin.h>

#include <cstdint>
#include <optional>
#include <string>

#include "automation/automation_values.h"
#include "automation/safe_arrays.h"
#include "values/errors.h"

namespace pagivo::automation {
namespace {

using Arguments = std::array<Variant, kMaximumParameters>;

bool IsWrittenBack(const Parameter& parameter) {
  return parameter.passing == Passing::WrittenBack;
}

// The processor's floating point as the component is compiled for it: a host may have it round
// otherwise, or to fewer digits, or raise exceptions. It gets its own back.
class OwnFloatingPoint {
 public:
  OwnFloatingPoint() : vectorsOfHost_(_mm_getcsr()) {
    asm volatile("fnstcw %0" : "=m"(controlOfHost_));
    SetControl(kUsualControl);
    _mm_setcsr(kUsualVectors);
  }
  ~OwnFloatingPoint() {
    SetControl(controlOfHost_);
    _mm_setcsr(vectorsOfHost_);
  }
  OwnFloatingPoint(const OwnFloatingPoint&) = delete;
  OwnFloatingPoint& operator=(const OwnFloatingPoint&) = delete;

 private:
  // Both round to the nearest, the older floating point to all of its digits, and raise nothing.
  static constexpr std::uint16_t kUsualControl = 0x037F;
  static constexpr unsigned kUsualVectors = _MM_MASK_MASK;

  // What has happened is forgotten first, for it would be raised where that is wanted.
  static void SetControl(std::uint16_t control) {
    asm volatile("fnclex\n\tfldcw %0" : : "m"(control));
  }

  std::uint16_t controlOfHost_ = 0;
  unsigned vectorsOfHost_;
};

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
    return MakeDefault(parameter.defaultValue);
  }
  try {
    if (IsArray(parameter) && IsWrittenBack(parameter)) RequireReplaceable(*given);
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

void PutArguments(std::span<const Parameter> parameters, const PlacedArguments& given,
                  const Arguments& before, const Arguments& after, LCID locale) {
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    if (!IsWrittenBack(parameters[i]) || given.at(i) == nullptr) continue;
    PutArgument(parameters[i], *given.at(i), before.at(i), after.at(i), locale);
  }
}

}  // namespace

// Every argument has its value before the method is invoked, which therefore copies none of them.
void CallMethod(PgPrint& print, const Member<PgPrint>& method, const PlacedArguments& given,
                VARIANT* result, LCID locale) {
  const OwnFloatingPoint ownFloatingPoint;
  CountingLosses([&] {
    const std::span<const Parameter> parameters = method.Parameters();
    Arguments arguments;
    for (std::size_t i = 0; i < parameters.size(); ++i) {
      arguments.at(i) = ReadArgument(method, i, given.at(i), locale);
    }
    std::optional<Arguments> before;  // few methods write back
    if (std::ranges::any_of(parameters, IsWrittenBack)) before = arguments;
    const Variant answer =
        method.invoke(method, print, std::span(arguments).first(parameters.size()));
    if (before) PutArguments(parameters, given, *before, arguments, locale);
    if (result != nullptr) *result = MakeVariant(answer);
  });
}

}  // namespace pagivo::automation
