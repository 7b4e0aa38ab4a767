// How failures reach a host: as a status, with a description in the thread's error information or
// in the exception that IDispatch::Invoke fills. Nothing that is thrown leaves the component.
#pragma once

#include <oaidl.h>

#include <utility>

#include "pagivo/error.h"
#include "values/errors.h"

namespace pagivo::automation {

// The status of an error number, by which hosts know it: 0x800A0006 is their error 6, an overflow.
HRESULT StatusOf(ErrorNumber number) noexcept;

// Leaves the error's description to the thread and gives its status.
HRESULT LeaveError(const Error& error) noexcept;

// Fills the exception, whose texts its receiver frees, and gives DISP_E_EXCEPTION; for a host that
// takes none, LeaveError.
HRESULT FillException(EXCEPINFO* exception, const Error& error) noexcept;

// Gives what `onError` makes of an error that the call raises, else S_OK.
template <typename Call, typename OnError>
HRESULT ReportingStatus(Call&& call, OnError&& onError) noexcept {
  try {
    ReportingErrors(std::forward<Call>(call));
    return S_OK;
  } catch (const Error& error) {
    return onError(error);
  } catch (...) {  // there is not even memory to describe it
    return E_OUTOFMEMORY;
  }
}

}  // namespace pagivo::automation
