#include "values/errors_reported.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "pagivo/error.h"

namespace pagivo {
namespace {

template <typename Call>
void ExpectReported(ErrorNumber number, const std::string& description, Call call) {
  try {
    ReportingErrors(call);
    ADD_FAILURE() << "no error";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), number);
    EXPECT_EQ(error.what(), description);
  }
}

TEST(ReportingErrors, GivesWhatTheCallGives) {
  int value = 7;
  EXPECT_EQ(ReportingErrors([] { return 5; }), 5);
  EXPECT_EQ(&ReportingErrors([&]() -> int& { return value; }), &value);
}

TEST(ReportingErrors, LeavesAnErrorAsItIs) {
  ExpectReported(ErrorNumber::PrinterFailure, "Geen printer",
                 [] { throw Error(ErrorNumber::PrinterFailure, "Geen printer"); });
}

TEST(ReportingErrors, TellsThatMemoryRanOut) {
  ExpectReported(ErrorNumber::OutOfMemory, "Onvoldoende geheugen", [] { throw std::bad_alloc(); });
  ExpectReported(ErrorNumber::OutOfMemory, "Onvoldoende geheugen",
                 [] { std::string().resize(std::string::npos); });
}

TEST(ReportingErrors, MakesAnErrorOfEverythingElse) {
  ExpectReported(ErrorNumber::InvalidArgument, "Onverwachte fout: outside",
                 [] { throw std::runtime_error("outside"); });
  ExpectReported(ErrorNumber::InvalidArgument, "Onverwachte fout", [] { throw 1; });
}

}  // namespace
}  // namespace pagivo
