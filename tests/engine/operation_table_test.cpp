#include "engine/operation_table.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <span>
#include <string_view>
#include <utility>

#include "support/signature_text.h"

namespace pagivo {
namespace {

using testing::TextOf;
using testing::TextOfParameters;

struct Expected {
  std::string_view name;
  std::int32_t dispatchId;
  MemberKind kind;
  std::string_view parameters;
  std::string_view result;
};

// What the component asks of an engine, as engines were built to answer it.
constexpr std::array kEngine = std::to_array<Expected>({
    {"FontName", 2, MemberKind::Get, "", "String"},
    {"FontName", 2, MemberKind::Put, "ref String", ""},
    {"FontSize", 3, MemberKind::Get, "", "Single"},
    {"FontSize", 3, MemberKind::Put, "val Single", ""},
    {"FontBold", 4, MemberKind::Put, "val Boolean", ""},
    {"FontItalic", 5, MemberKind::Put, "val Boolean", ""},
    {"FontUnderline", 7, MemberKind::Put, "val Boolean", ""},
    {"Orientation", 9, MemberKind::Get, "", "Long"},
    {"Orientation", 9, MemberKind::Put, "val Long", ""},
    {"Copies", 10, MemberKind::Get, "", "Integer"},
    {"Copies", 10, MemberKind::Put, "val Integer", ""},
    {"PaperWidth", 11, MemberKind::Put, "val Single", ""},
    {"PaperHeight", 12, MemberKind::Put, "val Single", ""},
    {"PaperSize", 13, MemberKind::Get, "", "Long"},
    {"PaperSize", 13, MemberKind::Put, "val Long", ""},
    {"PaperSizes", 21, MemberKind::Get, "val Long", "Boolean"},
    {"Devices", 23, MemberKind::Get, "val Integer", "String"},
    {"NDevices", 24, MemberKind::Get, "", "Integer"},
    {"Device", 27, MemberKind::Get, "", "String"},
    {"Device", 27, MemberKind::Put, "ref String", ""},
    {"Port", 28, MemberKind::Get, "", "String"},
    {"PageWidth", 31, MemberKind::Get, "", "Variant"},
    {"PageWidth", 31, MemberKind::Put, "val Double", ""},
    {"PageHeight", 32, MemberKind::Get, "", "Variant"},
    {"PageHeight", 32, MemberKind::Put, "val Double", ""},
    {"Zoom", 33, MemberKind::Get, "", "Double"},
    {"Zoom", 33, MemberKind::Put, "val Double", ""},
    {"PhysicalPage", 34, MemberKind::Put, "ref Boolean", ""},
    {"BrushColor", 36, MemberKind::Put, "val Long", ""},
    {"PenColor", 37, MemberKind::Get, "", "Long"},
    {"PenColor", 37, MemberKind::Put, "val Long", ""},
    {"TextColor", 38, MemberKind::Put, "ref Long", ""},
    {"ScrollTop", 48, MemberKind::Get, "", "Double"},
    {"ScrollTop", 48, MemberKind::Put, "val Double", ""},
    {"MarginLeft", 49, MemberKind::Get, "", "Variant"},
    {"MarginLeft", 49, MemberKind::Put, "ref Variant", ""},
    {"MarginTop", 50, MemberKind::Get, "", "Variant"},
    {"MarginTop", 50, MemberKind::Put, "ref Variant", ""},
    {"MarginRight", 51, MemberKind::Get, "", "Variant"},
    {"MarginRight", 51, MemberKind::Put, "ref Variant", ""},
    {"MarginBottom", 52, MemberKind::Get, "", "Variant"},
    {"MarginBottom", 52, MemberKind::Put, "ref Variant", ""},
    {"StartDoc", 65, MemberKind::Call, "", ""},
    {"EndDoc", 66, MemberKind::Call, "", ""},
    {"NewPage", 68, MemberKind::Call, "", ""},
    {"PrintDoc", 70, MemberKind::Call, "val Boolean, 2 val Integer", ""},
    {"BrushStyle", 74, MemberKind::Put, "val Long", ""},
    {"PenStyle", 75, MemberKind::Put, "val Long", ""},
    {"PenWidth", 76, MemberKind::Put, "ref Variant", ""},
    {"X1", 77, MemberKind::Put, "ref Variant", ""},
    {"Y1", 78, MemberKind::Put, "ref Variant", ""},
    {"X2", 79, MemberKind::Put, "val Double", ""},
    {"Y2", 80, MemberKind::Put, "val Double", ""},
    {"Polyline", 81, MemberKind::Put, "ref String", ""},
    {"Polygon", 82, MemberKind::Put, "ref String", ""},
    {"DrawLine", 83, MemberKind::Call, "4 ref Variant", ""},
    {"DrawRectangle", 84, MemberKind::Call, "4 ref Variant", ""},
    {"DrawCircle", 85, MemberKind::Call,
     "3 ref Variant, ref Variant = Missing with next, ref Variant = Missing", ""},
    {"PreviewPage", 88, MemberKind::Get, "", "Integer"},
    {"PreviewPage", 88, MemberKind::Put, "ref Integer", ""},
    {"PageCount", 90, MemberKind::Get, "", "Integer"},
    {"Text", 105, MemberKind::Put, "ref String", ""},
    {"CurrentX", 106, MemberKind::Put, "ref Variant", ""},
    {"CurrentY", 107, MemberKind::Put, "ref Variant", ""},
    {"CurrentPage", 117, MemberKind::Get, "", "Integer"},
    {"TwipsPerPixelX", 120, MemberKind::Get, "", "Double"},
    {"TwipsPerPixelY", 121, MemberKind::Get, "", "Double"},
    {"RenderControl", 122, MemberKind::Put, "ref Long", ""},
    {"StartOverlay", 127, MemberKind::Call, "ref Integer", ""},
    {"EndOverlay", 128, MemberKind::Call, "", ""},
    {"TextWidth", 136, MemberKind::Get, "ref String", "Double"},
    {"TextHeight", 137, MemberKind::Get, "ref String", "Double"},
    {"PrintDialog", 146, MemberKind::Get, "val Long", "Boolean"},
    {"DocName", 147, MemberKind::Put, "ref String", ""},
    {"ZoomMode", 164, MemberKind::Get, "", "Long"},
    {"ZoomMode", 164, MemberKind::Put, "val Long", ""},
    {"Picture", -523, MemberKind::Put, "ref Object", ""},
});

constexpr std::array kExporter = std::to_array<Expected>({
    {"ExportPdf", 4, MemberKind::Call, "ref Object, ref String, 2 val Integer", ""},
});

template <typename Class>
void ExpectOperations(const MemberTable<Class>& table, std::span<const Expected> expected) {
  ASSERT_EQ(table.Rows().size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const auto& row = table.Rows()[i];
    EXPECT_EQ(row.name, expected[i].name);
    EXPECT_EQ(row.dispatchId, expected[i].dispatchId) << row.name;
    EXPECT_EQ(row.kind, expected[i].kind) << row.name;
    EXPECT_EQ(TextOfParameters(row), expected[i].parameters) << row.name;
    EXPECT_EQ(TextOf(row.result), expected[i].result) << row.name;
  }
}

TEST(OperationTable, ListsEveryOperationOfTheEngine) {
  ExpectOperations(kPrintEngineOperations, kEngine);
}

TEST(OperationTable, ListsEveryOperationOfTheExporter) {
  ExpectOperations(kPdfExporterOperations, kExporter);
}

TEST(OperationTable, GivesOneNameToOneDispatchId) {
  std::set<std::string_view> names;
  std::set<std::int32_t> dispatchIds;
  std::set<std::pair<std::int32_t, MemberKind>> accesses;
  for (const auto& row : kPrintEngineOperations.Rows()) {
    names.insert(row.name);
    dispatchIds.insert(row.dispatchId);
    EXPECT_TRUE(accesses.emplace(row.dispatchId, row.kind).second) << row.name;
  }
  EXPECT_EQ(names.size(), dispatchIds.size());
}

}  // namespace
}  // namespace pagivo
