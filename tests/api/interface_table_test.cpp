#include <gtest/gtest.h>

#include <array>
#include <string_view>

#include "api/method_table.h"
#include "support/signature_text.h"

namespace pagivo {
namespace {

using testing::TextOf;
using testing::TextOfParameters;

struct Expected {
  std::string_view name;
  std::string_view parameters;
  std::string_view result;
};

// The interface in its order, as hosts were built against it.
constexpr std::array<Expected, 73> kInterface{{
    {"VsPPAfdrukkenAanUit", "ref Boolean", ""},
    {"VsPPPrintR", "ref String, 7 ref Variant = Missing", ""},
    {"VsPPDrawPolyline",
     "2 ref Single(), 2 ref Variant = False, 3 ref Variant = Long 0, ref Variant = Integer 0", ""},
    {"VsPPGetCopies", "", "Integer"},
    {"VsPPCircle",
     "3 ref Variant, 2 ref Variant = Missing, ref Variant = False, 3 ref Variant = Long 0, ref "
     "Variant = Integer 0",
     ""},
    {"VsPPGetCurrentPage", "", "Integer"},
    {"VsPPEinde", "", ""},
    {"VsPPClose", "", ""},
    {"VsPPFinish", "val String", ""},
    {"VsPPGetFontSize", "", "Variant"},
    {"VsPPGetFontName", "", "String"},
    {"VsPPGetMarginLeft", "", "Long"},
    {"VsPPGetMarginLeftS", "", "Variant"},
    {"VsPPGetMarginRight", "", "Long"},
    {"VsPPGetMarginRightS", "", "Variant"},
    {"VsPPGetMarginTop", "", "Long"},
    {"VsPPGetMarginTopS", "", "Variant"},
    {"VsPPGetMarginBottom", "", "Long"},
    {"VsPPGetMarginBottomS", "", "Variant"},
    {"VsPPGetNDevices", "", "Integer"},
    {"VsPPGetOrientation", "", "Integer"},
    {"VsPPGetPaperSize", "", "Integer"},
    {"VsPPGetPaperSizes", "ref String() written, ref Integer() written", "Integer"},
    {"VsPPGetPageHeight", "", "Long"},
    {"VsPPGetPageHeightS", "", "Variant"},
    {"VsPPGetPaperHeight", "", "Long"},
    {"VsPPGetPaperHeightS", "", "Variant"},
    {"VsPPGetPageWidth", "", "Long"},
    {"VsPPGetPageWidthS", "", "Variant"},
    {"VsPPGetPaperWidth", "", "Long"},
    {"VsPPGetPaperWidthS", "", "Variant"},
    {"VsPPGetPageCount", "", "Integer"},
    {"VsPPLine",
     "4 ref Variant, 2 ref Variant = False, 3 ref Variant = Long 0, ref Variant = Integer 0", ""},
    {"VsPPNewPage", "", ""},
    {"VsPPPageSetup", "", "Boolean"},
    {"VsPPPicture", "ref String, 4 ref Double", ""},
    {"VsPPRealPicture", "ref Variant, 4 ref Double", ""},
    {"VsPPPrint", "ref String, 7 ref Variant = Missing", ""},
    {"VsPPPrinterDialog", "ref String written, 3 ref Integer written", "Variant"},
    {"VsPPPrinterSetup", "", "Boolean"},
    {"VsPPRenderControl", "ref Long", ""},
    {"VsPPSetPhysicalPage", "ref Boolean", ""},
    {"VsPPSetScaleMode", "ref Integer", ""},
    {"VsPPSetDevice", "ref String", ""},
    {"VsPPSetFont", "5 ref Variant = Missing", ""},
    {"VsPPSetMarginLeft", "ref Variant", ""},
    {"VsPPSetMarginRight", "ref Variant", ""},
    {"VsPPSetMarginTop", "ref Variant", ""},
    {"VsPPSetMarginBottom", "ref Variant", ""},
    {"VsPPSetOrientation", "ref Variant", ""},
    {"VsPPSetPaperSize", "ref Variant", ""},
    {"VsPPSetPageHeight", "ref Variant", ""},
    {"VsPPSetPaperHeight", "ref Variant", ""},
    {"VsPPSetPageWidth", "ref Variant", ""},
    {"VsPPSetPaperWidth", "ref Variant", ""},
    {"VsPPSetPreviewMode", "ref Integer", ""},
    {"VsPPStartOverlay", "ref Integer", ""},
    {"VsPPEndOverlay", "", ""},
    {"VsPPTextWidth", "ref String", "Long"},
    {"VsPPTextWidthS", "ref String", "Variant"},
    {"VsPPTextHeight", "ref String", "Long"},
    {"VsPPTextHeightS", "ref String", "Variant"},
    {"VsPPWatermerkInit", "ref Integer", ""},
    {"VsPPZetHelp", "ref String, ref Long", ""},
    {"VsPPZetInhoud", "ref String", ""},
    {"VsPPZetKleur", "ref Long", ""},
    {"VsPreviewFile", "ref Integer written", ""},
    {"VsPrintFile", "ref Integer, 2 ref Variant = Integer 0", ""},
    {"VsPPStart", "ref Object", ""},
    {"VsPPInit", "", ""},
    {"VsPPGetDevice", "", "String"},
    {"VsWatermerkAfdrukken", "", ""},
    {"VSPDF", "ref String", ""},
}};

TEST(InterfaceTable, NamesEveryMethodInInterfaceOrder) {
  ASSERT_EQ(kMethods.Rows().size(), kInterface.size());
  for (std::size_t i = 0; i < kInterface.size(); ++i) {
    EXPECT_EQ(kMethods.Rows()[i].name, kInterface.at(i).name);
  }
}

TEST(InterfaceTable, NumbersTheMethodsConsecutively) {
  std::int32_t dispatchId = 0x60030000;
  for (const auto& row : kMethods.Rows()) EXPECT_EQ(row.dispatchId, dispatchId++) << row.name;
  EXPECT_EQ(kMethods.Rows().back().dispatchId, 0x60030048);
}

TEST(InterfaceTable, GivesEveryParameterItsKindPassingAndDefault) {
  for (std::size_t i = 0; i < kInterface.size(); ++i) {
    EXPECT_EQ(TextOfParameters(kMethods.Rows()[i]), kInterface.at(i).parameters)
        << kInterface.at(i).name;
  }
}

TEST(InterfaceTable, GivesEveryFunctionItsResult) {
  for (std::size_t i = 0; i < kInterface.size(); ++i) {
    EXPECT_EQ(TextOf(kMethods.Rows()[i].result), kInterface.at(i).result) << kInterface.at(i).name;
  }
}

TEST(InterfaceTable, HoldsMethodsOnly) {
  for (const auto& row : kMethods.Rows()) EXPECT_EQ(row.kind, MemberKind::Call) << row.name;
}

}  // namespace
}  // namespace pagivo
