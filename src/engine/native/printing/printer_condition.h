// What a printer says of its state, in words for its users.
#pragma once

#include <string>

#include "engine/native/spool/print_server.h"

namespace pagivo::native {

// What keeps the printer from printing: a sentence in Dutch, empty when all is well.
std::string ConditionOf(const Printer& printer);

}  // namespace pagivo::native
