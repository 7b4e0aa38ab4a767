// Arrays by reference: of the very kind, as early-bound hosts have them, and of Variants, as
// scripts.
#include "automation_test.h"

namespace pagivo::automation::testing {
namespace {

using ArrayArguments = AutomationTest;

Value ArrayOf(VARTYPE kind, UINT dimensions, ULONG count) {
  std::vector<SAFEARRAYBOUND> bounds(dimensions, SAFEARRAYBOUND{count, 0});
  Value array;
  V_VT(array.Address()) = static_cast<VARTYPE>(VT_ARRAY | kind);
  V_ARRAY(array.Address()) = SafeArrayCreate(kind, dimensions, bounds.data());
  return array;
}

VARIANT ReferenceToArray(VARTYPE kind, SAFEARRAY*& array) {
  VARIANT reference;
  V_VT(&reference) = static_cast<VARTYPE>(VT_BYREF | VT_ARRAY | kind);
  V_ARRAYREF(&reference) = &array;
  return reference;
}

LONG UpperBound(SAFEARRAY* array) {
  LONG bound = -1;
  SafeArrayGetUBound(array, 1, &bound);
  return bound;
}

TEST_F(ArrayArguments, ComeBackAsArraysOfVariantsInVariablesOfScripts) {
  Value names;
  Value codes;
  const Outcome outcome =
      Call(*print_.Get(), L"VsPPGetPaperSizes", {Reference(names), Reference(codes)});
  EXPECT_EQ(outcome.status, S_OK);
  EXPECT_EQ(names.Kind(), VT_ARRAY | VT_VARIANT);
  EXPECT_EQ(codes.Kind(), VT_ARRAY | VT_VARIANT);
  EXPECT_EQ(UpperBound(V_ARRAY(names.Address())), outcome.result.Number());
}

TEST_F(ArrayArguments, ComeBackInTheVeryKindOfAVariable) {
  SAFEARRAY* names = nullptr;
  SAFEARRAY* codes = nullptr;
  const Outcome outcome = Call(*print_.Get(), L"VsPPGetPaperSizes",
                               {ReferenceToArray(VT_BSTR, names), ReferenceToArray(VT_I2, codes)});
  EXPECT_EQ(outcome.status, S_OK);
  ASSERT_NE(names, nullptr);
  ASSERT_NE(codes, nullptr);
  VARTYPE kind = VT_EMPTY;
  SafeArrayGetVartype(names, &kind);
  EXPECT_EQ(kind, VT_BSTR);
  EXPECT_EQ(UpperBound(codes), outcome.result.Number());
  SafeArrayDestroy(names);
  SafeArrayDestroy(codes);
}

TEST_F(ArrayArguments, StayAsTheyAreWhileTheyAreLocked) {
  SAFEARRAY* names = SafeArrayCreateVector(VT_BSTR, 0, 7);
  SAFEARRAY* codes = nullptr;
  SafeArrayLock(names);
  EXPECT_EQ(Call(*print_.Get(), L"VsPPGetPaperSizes",
                 {ReferenceToArray(VT_BSTR, names), ReferenceToArray(VT_I2, codes)})
                .code,
            HostError(10));
  EXPECT_EQ(UpperBound(names), 6);
  EXPECT_EQ(codes, nullptr);
  SHORT count = 0;
  EXPECT_EQ(print_->VsPPGetPaperSizes(&names, &codes, &count), HostError(10));
  SafeArrayUnlock(names);
  EXPECT_EQ(print_->VsPPGetPaperSizes(&names, &codes, &count), S_OK);
  EXPECT_EQ(UpperBound(names), count);
  SafeArrayDestroy(names);
  SafeArrayDestroy(codes);
}

TEST_F(ArrayArguments, AreConvertedElementByElement) {
  Value points = ArrayOf(VT_VARIANT, 1, 3);
  VARIANT* elements = nullptr;
  SafeArrayAccessData(V_ARRAY(points.Address()), reinterpret_cast<void**>(&elements));
  V_VT(&elements[1]) = VT_I2;
  V_I2(&elements[1]) = 100;
  V_VT(&elements[2]) = VT_BSTR;
  V_BSTR(&elements[2]) = SysAllocString(L"250");
  SafeArrayUnaccessData(V_ARRAY(points.Address()));
  EXPECT_EQ(Print(L"VsPPDrawPolyline", {points, points, true}).status, S_OK);
  const Value doubles = ArrayOf(VT_R8, 1, 3);
  EXPECT_EQ(Print(L"VsPPDrawPolyline", {doubles, doubles}).status, S_OK);
}

TEST_F(ArrayArguments, MustHaveOneDimensionAndElementsThatCanBeConverted) {
  const Value square = ArrayOf(VT_R4, 2, 3);
  EXPECT_EQ(Print(L"VsPPDrawPolyline", {square, square}).code, HostError(13));
  EXPECT_EQ(Print(L"VsPPDrawPolyline", {1.5, 2.5}).code, HostError(13));
  const Value objects = ArrayOf(VT_UNKNOWN, 1, 2);
  EXPECT_EQ(Print(L"VsPPDrawPolyline", {objects, objects}).code, HostError(13));
}

}  // namespace
}  // namespace pagivo::automation::testing
