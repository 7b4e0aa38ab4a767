// Calls through the vtable, as early-bound hosts make them, by the header that the build writes.
#include <ocidl.h>

#include "automation_test.h"

namespace pagivo::automation::testing {
namespace {

using VtableCalls = AutomationTest;

TEST_F(VtableCalls, ReachTheMethodsOfTheHeader) {
  SHORT millimetres = 6;
  EXPECT_EQ(print_->VsPPSetScaleMode(&millimetres), S_OK);
  Value margin(10);
  EXPECT_EQ(print_->VsPPSetMarginLeft(margin.Address()), S_OK);
  LONG twips = 0;
  EXPECT_EQ(print_->VsPPGetMarginLeft(&twips), S_OK);
  EXPECT_EQ(twips, 567);
  Value inUnits;
  EXPECT_EQ(print_->VsPPGetMarginLeftS(inUnits.Address()), S_OK);
  EXPECT_NEAR(inUnits.Number(), 10, 0.01);
}

TEST_F(VtableCalls, TakeTheMissingMarkerForWhatIsLeftOut) {
  Value missing = Value::Missing();
  Value size(18);
  EXPECT_EQ(print_->VsPPSetFont(missing.Address(), size.Address(), missing.Address(),
                                missing.Address(), missing.Address()),
            S_OK);
  Value read;
  EXPECT_EQ(print_->VsPPGetFontSize(read.Address()), S_OK);
  EXPECT_EQ(read.Number(), 18);
}

TEST_F(VtableCalls, WriteIntoTheHostsVariables) {
  BSTR device = SysAllocString(L"oud");
  SHORT copies = 3;
  SHORT from = 1;
  SHORT to = 2;
  Value confirmed;
  EXPECT_EQ(print_->VsPPPrinterDialog(&device, &copies, &from, &to, confirmed.Address()), S_OK);
  EXPECT_EQ(confirmed.Kind(), VT_BOOL);
  EXPECT_EQ(SysStringLen(device), 0U);
  SysFreeString(device);
}

TEST_F(VtableCalls, RefuseNullPointers) {
  EXPECT_EQ(print_->VsPPSetScaleMode(nullptr), E_POINTER);
  EXPECT_EQ(print_->VsPPGetMarginLeft(nullptr), E_POINTER);
  EXPECT_EQ(print_->VsPPFinish(nullptr), S_OK);  // a text, which null is the empty one of
}

TEST_F(VtableCalls, LeaveTheDescriptionOfAFailureToTheThread) {
  print_->VsPPNewPage();
  print_->VsPPFinish(nullptr);
  BSTR file = SysAllocString(L"Z:\\geen\\map\\x.pdf");
  EXPECT_EQ(print_->VSPDF(&file), HostError(75));
  SysFreeString(file);
  ComPtr<IErrorInfo> information;
  ASSERT_EQ(GetErrorInfo(0, &information), S_OK);
  Value description;
  Value source;
  V_VT(description.Address()) = V_VT(source.Address()) = VT_BSTR;
  information->GetDescription(&V_BSTR(description.Address()));
  information->GetSource(&V_BSTR(source.Address()));
  EXPECT_NE(description.Text(), L"");
  EXPECT_EQ(source.Text(), L"Pagivo.PgPrint");
  ComPtr<ISupportErrorInfo> support;
  ASSERT_EQ(print_.As(&support), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID__PgPrint), S_OK);
  EXPECT_EQ(support->InterfaceSupportsErrorInfo(IID_IDispatch), S_FALSE);
}

// What is missing counts in this order: a finished document, a page of it, the folder.
TEST_F(VtableCalls, FailAsLateBoundOnesDo) {
  const auto expectFailure = [&](int number) {
    BSTR file = SysAllocString(L"Z:\\geen\\map\\x.pdf");
    EXPECT_EQ(print_->VSPDF(&file), HostError(number));
    SysFreeString(file);
    EXPECT_EQ(Print(L"VSPDF", {L"Z:\\geen\\map\\x.pdf"}).code, HostError(number));
  };
  expectFailure(20001);
  print_->VsPPFinish(nullptr);
  expectFailure(20002);
  print_->VsPPInit();
  print_->VsPPNewPage();
  expectFailure(20001);
  print_->VsPPFinish(nullptr);
  expectFailure(75);
}

TEST_F(VtableCalls, ReachTheObjectByEachOfItsInterfaces) {
  ComPtr<IUnknown> identity;
  ComPtr<IProvideClassInfo> provider;
  ComPtr<IUnknown> again;
  ASSERT_EQ(print_.As(&identity), S_OK);
  ASSERT_EQ(print_.As(&provider), S_OK);
  ASSERT_EQ(provider.As(&again), S_OK);
  EXPECT_EQ(identity.Get(), again.Get());
  ComPtr<ITypeInfo> information;
  ASSERT_EQ(provider->GetClassInfo(&information), S_OK);
  TYPEATTR* attributes = nullptr;
  ASSERT_EQ(information->GetTypeAttr(&attributes), S_OK);
  EXPECT_EQ(attributes->guid, CLSID_PgPrint);
  information->ReleaseTypeAttr(attributes);
  ComPtr<IPersist> none;
  EXPECT_EQ(print_.As(&none), E_NOINTERFACE);
}

}  // namespace
}  // namespace pagivo::automation::testing
