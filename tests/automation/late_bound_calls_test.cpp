// Calls through IDispatch, as scripts and late-bound hosts make them.
#include "automation_test.h"

namespace pagivo::automation::testing {
namespace {

using LateBoundCalls = AutomationTest;

TEST_F(LateBoundCalls, FindMethodsByNameInAnyCase) {
  EXPECT_EQ(Print(L"vsppgetpagecount").status, S_OK);
  EXPECT_EQ(Print(L"VsPPBestaatNiet").status, DISP_E_UNKNOWNNAME);
}

TEST_F(LateBoundCalls, TakeVariablesOfScriptsForTypedParameters) {
  Value scaleMode(L"6");
  EXPECT_EQ(Call(*print_.Get(), L"VsPPSetScaleMode", {Reference(scaleMode)}).status, S_OK);
  EXPECT_EQ(Print(L"VsPPSetMarginLeft", {10}).status, S_OK);
  EXPECT_EQ(Print(L"VsPPGetMarginLeft").result.Number(), 567);
  EXPECT_EQ(scaleMode.Text(), L"6");
}

TEST_F(LateBoundCalls, AnswerInTheKindsOfTheInterface) {
  EXPECT_EQ(Print(L"VsPPGetPageCount").result.Kind(), VT_I2);
  EXPECT_EQ(Print(L"VsPPGetMarginLeft").result.Kind(), VT_I4);
  EXPECT_EQ(Print(L"VsPPGetFontName").result.Kind(), VT_BSTR);
  EXPECT_EQ(Print(L"VsPPGetFontSize").result.Kind(), VT_R4);
  EXPECT_EQ(Print(L"VsPPInit").result.Kind(), VT_EMPTY);
}

TEST_F(LateBoundCalls, TakeArgumentsByName) {
  EXPECT_EQ(
      CallNamed(*print_.Get(), L"VsPPSetFont", {{L"fontsize", 24}, {L"FontName", L"Arial"}}).status,
      S_OK);
  EXPECT_EQ(Print(L"VsPPGetFontSize").result.Number(), 24);
  EXPECT_EQ(Print(L"VsPPGetFontName").result.Text(), L"Arial");
  EXPECT_EQ(CallNamed(*print_.Get(), L"VsPPSetFont", {{L"Kleur", 24}}).status, DISP_E_UNKNOWNNAME);
}

TEST_F(LateBoundCalls, RefuseAnArgumentThatIsGivenTwice) {
  const Value size(24);
  const Outcome outcome =
      Call(*print_.Get(), L"VsPPSetFont", {size.Get()}, {size.Get()}, {DISPID{0}});
  EXPECT_EQ(outcome.status, DISP_E_EXCEPTION);
  EXPECT_EQ(outcome.code, HostError(450));
}

TEST_F(LateBoundCalls, TakeTheMissingMarkerForWhatIsLeftOut) {
  EXPECT_EQ(Print(L"VsPPSetFont", {Value::Missing(), 18}).status, S_OK);
  EXPECT_EQ(Print(L"VsPPGetFontSize").result.Number(), 18);
  const Outcome required = Print(L"VsPPLine", {Value::Missing(), 2, 3, 4});
  EXPECT_EQ(required.code, HostError(450));
  EXPECT_EQ(required.description, L"VsPPLine: argument 1 (varX1) ontbreekt");
}

TEST_F(LateBoundCalls, DescribeWrongArgumentsInDutch) {
  const Outcome mismatch = Print(L"VsPPSetScaleMode", {L"zes"});
  EXPECT_EQ(mismatch.status, DISP_E_EXCEPTION);
  EXPECT_EQ(mismatch.code, HostError(13));
  EXPECT_EQ(mismatch.source, L"Pagivo.PgPrint");
  EXPECT_EQ(mismatch.description,
            L"VsPPSetScaleMode, argument 1 (String): Typen komen niet met elkaar overeen");
  EXPECT_EQ(Print(L"VsPPSetScaleMode", {40000}).code, HostError(6));
  EXPECT_EQ(Print(L"VsPPFinish").code, HostError(450));
}

TEST_F(LateBoundCalls, ReportTheFailureOfAMethodWithItsDescription) {
  Print(L"VsPPNewPage");
  Print(L"VsPPFinish", {L"Rapport"});
  const Outcome outcome = Print(L"VSPDF", {L"Z:\\geen\\map\\x.pdf"});
  EXPECT_EQ(outcome.status, DISP_E_EXCEPTION);
  EXPECT_EQ(outcome.code, HostError(75));
  EXPECT_NE(outcome.description, L"");
}

TEST_F(LateBoundCalls, ConvertDatesAndCurrencyAsAutomationDoes) {
  EXPECT_EQ(Print(L"VsPPSetMarginLeft", {Value(720).As(VT_CY)}).status, S_OK);
  EXPECT_EQ(Print(L"VsPPGetMarginLeft").result.Number(), 720);
  EXPECT_EQ(Print(L"VsPPSetMarginLeft", {Value(360.0).As(VT_DATE)}).status, S_OK);
  EXPECT_EQ(Print(L"VsPPGetMarginLeft").result.Number(), 360);
  EXPECT_EQ(Print(L"VsPPSetScaleMode", {Value(6).As(VT_CY)}).status, S_OK);
  EXPECT_EQ(Print(L"VsPPTextWidth", {Value(12345.5).As(VT_CY)}).result.Number(),
            Print(L"VsPPTextWidth", {Value(12345.5).As(VT_BSTR)}).result.Number());
  EXPECT_EQ(Print(L"VsPPTextWidth", {Value(45000.0).As(VT_DATE)}).result.Number(),
            Print(L"VsPPTextWidth", {Value(45000.0).As(VT_DATE).As(VT_BSTR)}).result.Number());
}

TEST_F(LateBoundCalls, KeepTheKindOfAVariableThatTheyWrite) {
  Value device(L"oud");
  Value copies(L"3");
  Value from(1);
  Value to(2.0);
  const Outcome outcome =
      Call(*print_.Get(), L"VsPPPrinterDialog",
           {Reference(device), Reference(copies), Reference(from), Reference(to)});
  EXPECT_EQ(outcome.status, S_OK);
  EXPECT_EQ(outcome.result.Kind(), VT_BOOL);
  EXPECT_EQ(device.Text(), L"");
  EXPECT_EQ(device.Kind(), VT_BSTR);
  EXPECT_EQ(copies.Kind(), VT_BSTR);
  EXPECT_EQ(from.Kind(), VT_I4);
  EXPECT_EQ(to.Kind(), VT_R8);
}

TEST_F(LateBoundCalls, AreMethodsOnly) {
  DISPPARAMS none{};
  EXPECT_EQ(print_->Invoke(0x60030003, IID_NULL, 0, DISPATCH_PROPERTYPUT, &none, nullptr, nullptr,
                           nullptr),
            DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(
      print_->Invoke(0x60030049, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
      DISP_E_MEMBERNOTFOUND);
}

TEST_F(LateBoundCalls, LeaveTheErrorToTheThreadWhereNoExceptionIsTaken) {
  DISPPARAMS none{};
  EXPECT_EQ(
      print_->Invoke(0x60030008, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr),
      HostError(450));
  ComPtr<IErrorInfo> information;
  EXPECT_EQ(GetErrorInfo(0, &information), S_OK);
}

}  // namespace
}  // namespace pagivo::automation::testing
