#include "pagivo/object.h"

#include <gtest/gtest.h>

#include "pagivo/error.h"
#include "pagivo/variant.h"

namespace pagivo {
namespace {

struct Bare : Object {};

template <typename Access>
void ExpectUnknownMember(Access access) {
  try {
    access();
    ADD_FAILURE() << "nothing was raised";
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), ErrorNumber::UnknownMember);
    EXPECT_STREQ(error.what(), "Onbekend lid: Height");
  }
}

TEST(Object, HasNoMembersOfItsOwn) {
  Bare bare;
  ExpectUnknownMember([&] { bare.GetMember("Height"); });
  ExpectUnknownMember([&] { bare.PutMember("Height", 1.0); });
  ExpectUnknownMember([&] { bare.CallMember("Height", {}); });
}

}  // namespace
}  // namespace pagivo
