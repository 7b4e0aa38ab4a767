// Objects of the host: its window, objects with a default property.
#include "automation_test.h"
#include "host_object.h"

namespace pagivo::automation::testing {
namespace {

using ObjectArguments = AutomationTest;

TEST_F(ObjectArguments, AreAskedForTheHostsPlacementByName) {
  HostObject window;
  window.Put(L"WindowState", 0);
  for (const wchar_t* member : {L"Top", L"Left", L"Width", L"Height"}) window.Put(member, 9000);
  EXPECT_EQ(Print(L"VsPPStart", {&window}).status, S_OK);
  EXPECT_GT(window.References(), 1U);
  EXPECT_EQ(Print(L"VsPPFinish", {L"Rapport"}).status, S_OK);
  EXPECT_EQ(Print(L"VsPreviewFile", {1}).status, S_OK);
  EXPECT_TRUE(window.HasBeenAskedFor(L"WindowState"));
  EXPECT_TRUE(window.HasBeenAskedFor(L"Width"));
  EXPECT_EQ(Print(L"VsPPStart", {static_cast<IUnknown*>(nullptr)}).status, S_OK);
  EXPECT_EQ(window.References(), 1U);
}

TEST_F(ObjectArguments, MustBeObjectsWhereTheMethodTakesOne) {
  EXPECT_EQ(Print(L"VsPPStart", {L"venster"}).code, HostError(13));
}

TEST_F(ObjectArguments, GiveTheirDefaultPropertyWhereAValueIsTaken) {
  HostObject box;
  box.Put(L"", 6);
  EXPECT_EQ(Print(L"VsPPSetScaleMode", {&box}).status, S_OK);
  HostObject margin;
  margin.Put(L"", L"10");
  HostObject outer;
  outer.Put(L"", &margin);
  EXPECT_EQ(Print(L"VsPPSetMarginLeft", {&outer}).status, S_OK);
  EXPECT_EQ(Print(L"VsPPGetMarginLeft").result.Number(), 567);
  EXPECT_EQ(margin.References(), 2U);  // one is the outer object's
}

TEST_F(ObjectArguments, WithoutDefaultPropertyAreNoValues) {
  HostObject box;
  EXPECT_EQ(Print(L"VsPPSetScaleMode", {&box}).code, HostError(13));
  EXPECT_EQ(Print(L"VsPPSetMarginLeft", {720}).status, S_OK);
  EXPECT_EQ(Print(L"VsPPSetMarginLeft", {&box}).status, S_OK);  // its statement is ignored
  EXPECT_EQ(Print(L"VsPPGetMarginLeft").result.Number(), 720);
  HostObject endless;
  endless.Put(L"", &endless);
  EXPECT_EQ(Print(L"VsPPSetScaleMode", {&endless}).code, HostError(13));
}

}  // namespace
}  // namespace pagivo::automation::testing
