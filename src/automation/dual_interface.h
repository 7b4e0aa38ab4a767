// The vtable of _PgPrint, made from the table of methods: IDispatch's seven functions and after
// them one for each method, whose parameters are those of its row in the types of automation.
//
// A C++ class would have to declare the methods a second time. An interface, however, is a pointer
// to a row of pointers to functions, which take the interface as their first argument.
#pragma once

#include <oaidl.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <tuple>
#include <type_traits>
#include <utility>

#include "automation/automation_values.h"
#include "automation/method_call.h"

namespace pagivo::automation {

class PrintObject;

// What a host's pointer to _PgPrint points to.
struct DualInterface {
  const void* const* vtable;
  PrintObject* object;
};

// Calls a method for its slot in the vtable.
HRESULT CallFromSlot(const DualInterface& self, const Member<PgPrint>& method,
                     const PlacedArguments& arguments, VARIANT* result) noexcept;

// --- The types of automation, by kind ---------------------------------------------------------

// In the order of ValueKind.
using AutomationTypes = std::tuple<void, VARIANT_BOOL, SHORT, LONG, FLOAT, DOUBLE, BSTR, VARIANT,
                                   IDispatch*, SAFEARRAY*, SAFEARRAY*, SAFEARRAY*>;

template <ValueKind kKind>
using AutomationType = std::tuple_element_t<static_cast<std::size_t>(kKind), AutomationTypes>;

// --- The slot of one method -------------------------------------------------------------------

template <std::size_t kMethod>
constexpr const Member<PgPrint>& kRow = method_table::kRows[kMethod];

template <std::size_t kMethod, std::size_t kParameter>
constexpr Parameter kParameterOf = method_table::kRows[kMethod].parameterSlots[kParameter];

template <Parameter kParameter>
struct PassedParameter {
  using Value = AutomationType<kParameter.kind>;
  static constexpr bool kIsPointer = kParameter.passing != Passing::ByValue;
  using Type = std::conditional_t<kIsPointer, Value*, Value>;

  static bool IsGiven(Type given) {
    if constexpr (kIsPointer) return given != nullptr;
    return true;
  }

  // The argument as a value that owns nothing.
  static VARIANTARG Wrap(Type given) {
    VARIANTARG argument;
    VariantInit(&argument);
    if constexpr (kIsPointer) {
      V_VT(&argument) = static_cast<VARTYPE>(VT_BYREF | VartypeOf(kParameter.kind));
      V_BYREF(&argument) = given;
    } else {
      V_VT(&argument) = VartypeOf(kParameter.kind);
      std::memcpy(&V_NONE(&argument), &given, sizeof given);
    }
    return argument;
  }
};

template <std::size_t kMethod, typename Indices>
struct MethodSlot;

template <std::size_t kMethod, std::size_t... kIndex>
struct MethodSlot<kMethod, std::index_sequence<kIndex...>> {
  template <std::size_t kParameter>
  using Passed = PassedParameter<kParameterOf<kMethod, kParameter>>;
  static constexpr ValueKind kResult = method_table::kRows[kMethod].result;

  static HRESULT Call(DualInterface* self, VARIANT* result,
                      typename Passed<kIndex>::Type... given) noexcept {
    if (!(Passed<kIndex>::IsGiven(given) && ...)) return E_POINTER;
    [[maybe_unused]] std::array<VARIANTARG, sizeof...(kIndex)> arguments{
        Passed<kIndex>::Wrap(given)...};
    return CallFromSlot(*self, kRow<kMethod>, PlacedArguments{&std::get<kIndex>(arguments)...},
                        result);
  }

  static HRESULT STDMETHODCALLTYPE Procedure(DualInterface* self,
                                             typename Passed<kIndex>::Type... given) noexcept {
    return Call(self, nullptr, given...);
  }

  template <typename Result>
  struct Function {
    static HRESULT STDMETHODCALLTYPE Run(DualInterface* self,
                                         typename Passed<kIndex>::Type... given,
                                         Result* result) noexcept {
      if (result == nullptr) return E_POINTER;
      VARIANT answer;
      VariantInit(&answer);
      const HRESULT called = Call(self, &answer, given...);
      if constexpr (std::is_same_v<Result, VARIANT>) {
        *result = answer;
      } else {
        *result = {};
        if (SUCCEEDED(called)) std::memcpy(result, &V_NONE(&answer), sizeof *result);
      }
      return called;
    }
  };

  static const void* Address() {
    if constexpr (kResult == ValueKind::Nothing) {
      return reinterpret_cast<const void*>(&Procedure);
    } else {
      using Result = AutomationType<kResult>;
      return reinterpret_cast<const void*>(&Function<Result>::Run);
    }
  }
};

// --- The whole vtable -------------------------------------------------------------------------

inline constexpr std::size_t kDispatchSlots = 7;
using Vtable = std::array<const void*, kDispatchSlots + method_table::kRows.size()>;

template <std::size_t... kMethod>
Vtable MakeVtable(const std::array<const void*, kDispatchSlots>& dispatch,
                  std::index_sequence<kMethod...>) {
  Vtable vtable{};
  std::ranges::copy(dispatch, vtable.begin());
  ((vtable[kDispatchSlots + kMethod] = MethodSlot<
        kMethod, std::make_index_sequence<method_table::kRows[kMethod].parameterCount>>::Address()),
   ...);
  return vtable;
}

}  // namespace pagivo::automation
