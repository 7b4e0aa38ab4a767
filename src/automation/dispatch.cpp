#include "automation/dispatch.h"

#include <algorithm>
#include <span>
#include <string>

#include "automation/error_information.h"
#include "automation/method_call.h"
#include "system/windows/wide_text.h"
#include "values/characters.h"

namespace pagivo::automation {
namespace {

const Member<PgPrint>* FindMethod(DISPID dispatchId) {
  const auto rows = kMethods.Rows();
  const std::int64_t index = std::int64_t{dispatchId} - kFirstDispatchId;
  return index < 0 || index >= std::ssize(rows) ? nullptr : &rows[static_cast<std::size_t>(index)];
}

const Member<PgPrint>* FindMethod(std::string_view name) {
  const auto rows = kMethods.Rows();
  const auto row =
      std::ranges::find_if(rows, [&](const auto& method) { return IsAskedFor(method, name); });
  return row == rows.end() ? nullptr : &*row;
}

DISPID PlaceOf(const MemberSignature& method, std::string_view parameter) {
  for (std::size_t i = 0; i < method.parameterCount; ++i) {
    if (EqualInAnyCase(ParameterName(method, i), parameter)) return static_cast<DISPID>(i);
  }
  return DISPID_UNKNOWN;
}

bool FindIds(std::span<LPOLESTR> names, std::span<DISPID> ids) {
  std::ranges::fill(ids, DISPID_UNKNOWN);
  const Member<PgPrint>* method = FindMethod(FromWide(names.front()));
  if (method == nullptr) return false;
  ids.front() = method->dispatchId;
  for (std::size_t i = 1; i < names.size(); ++i) {
    ids[i] = PlaceOf(*method, FromWide(names[i]));
  }
  return std::ranges::find(ids, DISPID_UNKNOWN) == ids.end();
}

[[noreturn]] void RaiseWrongName(const MemberSignature& method, DISPID place) {
  throw Error(ErrorNumber::WrongArgumentCount, std::string(method.name) +
                                                   ": onbekend of dubbel benoemd argument (" +
                                                   std::to_string(place) + ")");
}

// Hosts pass the last argument first, and those with a name before the others.
PlacedArguments PlaceArguments(const MemberSignature& method, const DISPPARAMS& parameters) {
  if (parameters.cNamedArgs == 0 || parameters.cArgs > method.parameterCount) {
    CheckArgumentCount(method, parameters.cArgs);
  }
  PlacedArguments placed{};
  const std::span given(parameters.rgvarg, parameters.cArgs);
  const std::size_t named = parameters.cNamedArgs;
  for (std::size_t i = 0; i < given.size() - named; ++i)
    placed.at(i) = &given[given.size() - 1 - i];
  for (std::size_t i = 0; i < named; ++i) {
    const DISPID place = parameters.rgdispidNamedArgs[i];
    const bool isFree = place >= 0 && static_cast<std::size_t>(place) < method.parameterCount &&
                        placed.at(static_cast<std::size_t>(place)) == nullptr;
    if (!isFree) RaiseWrongName(method, place);
    placed.at(static_cast<std::size_t>(place)) = &given[i];
  }
  return placed;
}

}  // namespace

HRESULT FindDispatchIds(LPOLESTR* names, UINT count, DISPID* ids) noexcept {
  if (names == nullptr || ids == nullptr) return E_POINTER;
  if (count == 0) return E_INVALIDARG;
  bool areFound = false;
  const HRESULT looked = ReportingStatus(
      [&] {
        areFound = FindIds({names, count}, {ids, count});
      },
      LeaveError);
  if (FAILED(looked)) return looked;
  return areFound ? S_OK : DISP_E_UNKNOWNNAME;
}

HRESULT InvokeByDispatchId(PgPrint& print, DISPID dispatchId, WORD flags, LCID locale,
                           DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception) noexcept {
  const Member<PgPrint>* method = FindMethod(dispatchId);
  if (method == nullptr || (flags & DISPATCH_METHOD) == 0) return DISP_E_MEMBERNOTFOUND;
  if (parameters == nullptr || parameters->cNamedArgs > parameters->cArgs) return E_INVALIDARG;
  return ReportingStatus(
      [&] { CallMethod(print, *method, PlaceArguments(*method, *parameters), result, locale); },
      [&](const Error& error) { return FillException(exception, error); });
}

}  // namespace pagivo::automation
