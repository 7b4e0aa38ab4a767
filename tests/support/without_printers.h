// What users are told when they print in a test, where there is no printer on any system.
#pragma once

namespace pagivo::testing {

extern const char* const kFailureWithoutPrinters;
extern const char* const kAdviceWithoutPrinters;

}  // namespace pagivo::testing
