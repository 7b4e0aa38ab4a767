// The methods as callers reach them by name: IDispatch.
#pragma once

#include <oaidl.h>

#include "pagivo/pg_print.h"

namespace pagivo::automation {

// The dispatch id of a method, by its name in any case, and after it those of its parameters: their
// places, from 0. What is unknown has DISPID_UNKNOWN.
HRESULT FindDispatchIds(LPOLESTR* names, UINT count, DISPID* ids) noexcept;

// Calls a method as IDispatch::Invoke does. A failure fills the exception; hosts thus show the
// component's own description of a wrong argument, too.
HRESULT InvokeByDispatchId(PgPrint& print, DISPID method, WORD flags, LCID locale,
                           DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception) noexcept;

}  // namespace pagivo::automation
