// The user's own choice of a printer.
#pragma once

#include <string>

namespace pagivo::native {

// What the environment or the files of lpoptions say; empty when they say nothing.
std::string DefaultPrinterOfUser();

}  // namespace pagivo::native
