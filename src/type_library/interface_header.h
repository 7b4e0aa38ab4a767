// The C++ declaration of the component's automation interface, for hosts that call it through its
// vtable. It is made from the table of methods, as the server's vtable and type library are.
#pragma once

#include <string>

namespace pagivo::automation {

// Makes the text of a header file that declares _PgPrint and the identifiers of interface, class
// and type library. It needs the system's <oaidl.h> and nothing of ours.
std::string InterfaceHeader();

}  // namespace pagivo::automation
