#include "values/errors.h"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

#include "pagivo/error.h"

namespace pagivo {
namespace {

TEST(IgnoringErrors, RunsTheStatement) {
  int runs = 0;
  IgnoringErrors([&] { ++runs; });
  EXPECT_EQ(runs, 1);
}

TEST(IgnoringErrors, LosesTheFailingStatementAlone) {
  int before = 0;
  int failing = 7;
  int after = 0;
  IgnoringErrors([&] { before = 1; });
  IgnoringErrors([&] {
    ThrowOverflow();
    failing = 1;
  });
  IgnoringErrors([&] { after = 1; });
  EXPECT_EQ(before, 1);
  EXPECT_EQ(failing, 7);
  EXPECT_EQ(after, 1);
}

TEST(IgnoringErrors, LosesEveryKindOfError) {
  IgnoringErrors([] { throw Error(ErrorNumber::PrinterFailure, "Geen printer"); });
  IgnoringErrors([] { throw std::runtime_error("outside"); });
  IgnoringErrors([] { throw std::bad_alloc(); });
}

TEST(IgnoringErrors, LosesWhatIsNoErrorAtAll) {
  IgnoringErrors([] { throw 1; });
}

TEST(IgnoringErrors, CountsWhatIsLostForWantOfMemoryAndNothingElse) {
  const std::uint32_t before = LostForWantOfMemory();
  IgnoringErrors([] { ThrowOverflow(); });
  IgnoringErrors([] { throw std::runtime_error("outside"); });
  IgnoringErrors([] { throw 1; });
  EXPECT_EQ(LostForWantOfMemory(), before);
  IgnoringErrors([] { throw std::bad_alloc(); });
  IgnoringErrors([] { ThrowOutOfMemory(); });
  TrueOnError([]() -> bool { throw std::bad_alloc(); });
  EXPECT_EQ(LostForWantOfMemory(), before + 3);
}

TEST(TrueOnError, AnswersTheConditionWhenItCanBeTested) {
  EXPECT_TRUE(TrueOnError([] { return true; }));
  EXPECT_FALSE(TrueOnError([] { return false; }));
}

TEST(TrueOnError, IsTrueWhenTheTestFails) {
  EXPECT_TRUE(TrueOnError([]() -> bool { ThrowTypeMismatch(); }));
  EXPECT_TRUE(TrueOnError([]() -> bool { throw std::bad_alloc(); }));
  EXPECT_TRUE(TrueOnError([]() -> bool { throw 1; }));
}

struct Statement {
  void operator()() {}
};
struct Condition {
  bool operator()() { return true; }
};

TEST(IgnoringErrors, NeverEndsTheProcessOfAHost) {
  EXPECT_FALSE(noexcept(IgnoringErrors(Statement())));
  EXPECT_FALSE(noexcept(TrueOnError(Condition())));
}

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
