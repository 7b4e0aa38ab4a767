#include <gtest/gtest.h>

#include <array>
#include <string_view>

#include "api/method_table.h"
#include "support/signature_text.h"
#include "values/characters.h"

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

struct ExpectedNames {
  std::string_view method;
  std::string_view parameters;
};

// The names by which hosts pass arguments, of the methods that take any.
constexpr std::array<ExpectedNames, 40> kParameterNames{{
    {"VsPPAfdrukkenAanUit", "AfdrukkenUit"},
    {"VsPPPrintR", "varText varX varY varFontName varSize varBold varUnderline varItalic"},
    {"VsPPDrawPolyline",
     "varX varY varClosed varFilled varColor varFillStyle varDrawStyle varDrawWidth"},
    {"VsPPCircle",
     "varX1 varY1 varRadius varStart varEnd varFilled varColor varFillStyle varDrawStyle "
     "varDrawWidth"},
    {"VsPPFinish", "sTitle"},
    {"VsPPGetPaperSizes", "sPaperSizes nPaperSizes"},
    {"VsPPLine",
     "varX1 varY1 varX2 varY2 varBox varFilled varColor varFillStyle varDrawStyle varDrawWidth"},
    {"VsPPPicture", "sPicturePath dX1 dY1 dX2 dY2"},
    {"VsPPRealPicture", "vPicture dX1 dY1 dX2 dY2"},
    {"VsPPPrint", "varText varX varY varFontName varSize varBold varUnderline varItalic"},
    {"VsPPPrinterDialog", "DeviceName Copies FromPage ToPage"},
    {"VsPPRenderControl", "hwnd"},
    {"VsPPSetPhysicalPage", "Setting"},
    {"VsPPSetScaleMode", "ScaleMode"},
    {"VsPPSetDevice", "DeviceName"},
    {"VsPPSetFont", "FontName FontSize FontBold FontUnderline FontItalic"},
    {"VsPPSetMarginLeft", "Margin"},
    {"VsPPSetMarginRight", "Margin"},
    {"VsPPSetMarginTop", "Margin"},
    {"VsPPSetMarginBottom", "Margin"},
    {"VsPPSetOrientation", "Instelling"},
    {"VsPPSetPaperSize", "Instelling"},
    {"VsPPSetPageHeight", "Instelling"},
    {"VsPPSetPaperHeight", "Instelling"},
    {"VsPPSetPageWidth", "Instelling"},
    {"VsPPSetPaperWidth", "Instelling"},
    {"VsPPSetPreviewMode", "PreviewMode"},
    {"VsPPStartOverlay", "Bladnummer"},
    {"VsPPTextWidth", "Tekst"},
    {"VsPPTextWidthS", "Tekst"},
    {"VsPPTextHeight", "Tekst"},
    {"VsPPTextHeightS", "Tekst"},
    {"VsPPWatermerkInit", "Watermerk"},
    {"VsPPZetHelp", "Helpbestand HelpContextID"},
    {"VsPPZetInhoud", "sOmschrijving"},
    {"VsPPZetKleur", "Kleur"},
    {"VsPreviewFile", "Pagina"},
    {"VsPrintFile", "AantalExemplaren Van Tm"},
    {"VsPPStart", "frmProject"},
    {"VSPDF", "Filename"},
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

TEST(InterfaceTable, NamesEveryParameterAsHostsDo) {
  std::size_t next = 0;
  for (const auto& row : kMethods.Rows()) {
    if (row.parameterCount == 0) continue;
    ASSERT_LT(next, kParameterNames.size());
    EXPECT_EQ(row.name, kParameterNames.at(next).method);
    EXPECT_EQ(row.parameterNames, kParameterNames.at(next).parameters);
    ++next;
  }
  EXPECT_EQ(next, kParameterNames.size());
}

TEST(InterfaceTable, TellsTheParametersOfAMethodApartInAnyCase) {
  for (const auto& row : kMethods.Rows()) {
    for (std::size_t i = 0; i < row.parameterCount; ++i) {
      EXPECT_NE(ParameterName(row, i), "") << row.name;
      for (std::size_t other = 0; other < i; ++other) {
        EXPECT_FALSE(EqualInAnyCase(ParameterName(row, i), ParameterName(row, other))) << row.name;
      }
    }
  }
}

TEST(InterfaceTable, FindsTheNameOfEachParameter) {
  const MemberSignature& picture = kMethods.Rows()[35];
  EXPECT_EQ(ParameterName(picture, 0), "sPicturePath");
  EXPECT_EQ(ParameterName(picture, 4), "dY2");
  EXPECT_EQ(ParameterName(picture, 5), "");
}

TEST(InterfaceTable, HoldsMethodsOnly) {
  for (const auto& row : kMethods.Rows()) EXPECT_EQ(row.kind, MemberKind::Call) << row.name;
}

}  // namespace
}  // namespace pagivo
