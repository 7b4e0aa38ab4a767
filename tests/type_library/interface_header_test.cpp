#include "type_library/interface_header.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "api/method_table.h"
#include "type_library/identifiers.h"

namespace pagivo::automation {
namespace {

using ::testing::HasSubstr;

std::string Method(const std::string& declaration) {
  return "\n  virtual HRESULT STDMETHODCALLTYPE " + declaration + " = 0;\n";
}

TEST(InterfaceHeader, DeclaresEveryMethodInInterfaceOrder) {
  const std::string header = InterfaceHeader();
  std::size_t position = header.find("struct _PgPrint : IDispatch {");
  for (const auto& method : kMethods.Rows()) {
    const std::size_t next = header.find(" " + std::string(method.name) + "(", position);
    ASSERT_NE(next, std::string::npos) << method.name;
    position = next;
  }
}

TEST(InterfaceHeader, PassesWhatTheMethodTakesByReferenceAsAPointer) {
  EXPECT_THAT(InterfaceHeader(),
              HasSubstr(Method("VsPPZetHelp(BSTR* Helpbestand, LONG* HelpContextID)")));
  EXPECT_THAT(InterfaceHeader(), HasSubstr(Method("VsPPStart(IDispatch** frmProject)")));
  EXPECT_THAT(InterfaceHeader(),
              HasSubstr(Method("VsPPPicture(BSTR* sPicturePath, DOUBLE* dX1, DOUBLE* dY1, "
                               "DOUBLE* dX2, DOUBLE* dY2)")));
  EXPECT_THAT(InterfaceHeader(), HasSubstr(Method("VsPPSetPhysicalPage(VARIANT_BOOL* Setting)")));
}

TEST(InterfaceHeader, PassesWhatTheMethodTakesByValueAsItIs) {
  EXPECT_THAT(InterfaceHeader(), HasSubstr(Method("VsPPFinish(BSTR sTitle)")));
}

TEST(InterfaceHeader, ReturnsResultsThroughTheLastParameter) {
  EXPECT_THAT(InterfaceHeader(), HasSubstr(Method("VsPPGetCopies(SHORT* result)")));
  EXPECT_THAT(InterfaceHeader(), HasSubstr(Method("VsPPGetPaperSizes(SAFEARRAY** sPaperSizes, "
                                                  "SAFEARRAY** nPaperSizes, SHORT* result)")));
  EXPECT_THAT(InterfaceHeader(), HasSubstr(Method("VsPPInit()")));
}

TEST(InterfaceHeader, WritesTheIdentifiersAsHostsInCTakeThem) {
  EXPECT_THAT(InterfaceHeader(), HasSubstr("constexpr GUID IID__PgPrint = {0x12C714E4, 0xF346, "
                                           "0x42A7, {0x8A, 0x61, 0x93, 0x80, 0xF1, 0xDC, 0xFC, "
                                           "0xAF}};\n"));
}

// Hosts were built against them.
TEST(Identifiers, NeverChange) {
  EXPECT_EQ(kLibraryId, "{A0D9E4BB-2552-4DF8-81DD-8F5A40269736}");
  EXPECT_EQ(kInterfaceId, "{12C714E4-F346-42A7-8A61-9380F1DCFCAF}");
  EXPECT_EQ(kClassId, "{AD670047-A539-4BCE-A620-76CA332EED6E}");
  EXPECT_EQ(kProgramId, "Pagivo.PgPrint");
}

}  // namespace
}  // namespace pagivo::automation
