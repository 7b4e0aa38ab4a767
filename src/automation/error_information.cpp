#include "automation/error_information.h"

#include <oleauto.h>
#include <wrl/client.h>

#include "automation/automation_values.h"
#include "automation/identities.h"
#include "system/windows/wide_text.h"

namespace pagivo::automation {
namespace {

using Microsoft::WRL::ComPtr;

void SetThreadsError(const Error& error) {
  ComPtr<ICreateErrorInfo> created;
  ComPtr<IErrorInfo> information;
  if (FAILED(CreateErrorInfo(&created)) || FAILED(created.As(&information))) return;
  std::wstring description = ToWide(error.what());
  std::wstring source = ToWide(kProgramId);
  created->SetGUID(kInterfaceGuid);
  created->SetDescription(description.data());
  created->SetSource(source.data());
  SetErrorInfo(0, information.Get());
}

}  // namespace

HRESULT StatusOf(ErrorNumber number) noexcept {
  return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, static_cast<std::int32_t>(number));
}

HRESULT LeaveError(const Error& error) noexcept {
  SetErrorInfo(0, nullptr);  // an older failure's must not pass for this one's
  IgnoringErrors([&] { SetThreadsError(error); });
  return StatusOf(error.Number());
}

HRESULT FillException(EXCEPINFO* exception, const Error& error) noexcept {
  if (exception == nullptr) return LeaveError(error);
  *exception = {};
  exception->scode = StatusOf(error.Number());
  IgnoringErrors([&] { exception->bstrSource = MakeBstr(std::string(kProgramId)); });
  IgnoringErrors([&] { exception->bstrDescription = MakeBstr(error.what()); });
  return DISP_E_EXCEPTION;
}

}  // namespace pagivo::automation
