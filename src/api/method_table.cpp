#include "api/method_table.h"

#include <array>

#include "values/errors.h"
#include "values/process_wide.h"

namespace pagivo {

namespace {

constexpr auto kMarker = DefaultValue::Marker;
constexpr auto kFalse = DefaultValue::False;
constexpr auto kLongZero = DefaultValue::LongZero;
constexpr auto kIntegerZero = DefaultValue::IntegerZero;

// Among methods of one name those whose arguments are all in a row.
using Any = const Variant&;
using Points = const Array<float>&;
constexpr void (PgPrint::*kLine)(Any, Any, Any, Any, Any, Any, Any, Any, Any,
                                 Any) = &PgPrint::VsPPLine;
constexpr void (PgPrint::*kCircle)(Any, Any, Any, Any, Any, Any, Any, Any, Any,
                                   Any) = &PgPrint::VsPPCircle;
constexpr void (PgPrint::*kDrawPolyline)(Points, Points, Any, Any, Any, Any, Any,
                                         Any) = &PgPrint::VsPPDrawPolyline;

template <auto kMethod>
consteval Member<PgPrint> Method(std::string_view name,
                                 std::initializer_list<DefaultValue> trailingDefaults = {}) {
  return BindMember<kMethod>(name, 0, MemberKind::Call, trailingDefaults);
}

template <std::size_t kCount>
consteval auto Numbered(std::array<Member<PgPrint>, kCount> rows) {
  std::int32_t dispatchId = kFirstDispatchId;
  for (Member<PgPrint>& row : rows) row.dispatchId = dispatchId++;
  return rows;
}

constexpr auto kRows = Numbered(std::array{
    Method<&PgPrint::VsPPAfdrukkenAanUit>("VsPPAfdrukkenAanUit"),
    Method<&PgPrint::VsPPPrintR>("VsPPPrintR",
                                 {kMarker, kMarker, kMarker, kMarker, kMarker, kMarker, kMarker}),
    Method<kDrawPolyline>("VsPPDrawPolyline",
                          {kFalse, kFalse, kLongZero, kLongZero, kLongZero, kIntegerZero}),
    Method<&PgPrint::VsPPGetCopies>("VsPPGetCopies"),
    Method<kCircle>("VsPPCircle",
                    {kMarker, kMarker, kFalse, kLongZero, kLongZero, kLongZero, kIntegerZero}),
    Method<&PgPrint::VsPPGetCurrentPage>("VsPPGetCurrentPage"),
    Method<&PgPrint::VsPPEinde>("VsPPEinde"),
    Method<&PgPrint::VsPPClose>("VsPPClose"),
    Method<&PgPrint::VsPPFinish>("VsPPFinish"),
    Method<&PgPrint::VsPPGetFontSize>("VsPPGetFontSize"),
    Method<&PgPrint::VsPPGetFontName>("VsPPGetFontName"),
    Method<&PgPrint::VsPPGetMarginLeft>("VsPPGetMarginLeft"),
    Method<&PgPrint::VsPPGetMarginLeftS>("VsPPGetMarginLeftS"),
    Method<&PgPrint::VsPPGetMarginRight>("VsPPGetMarginRight"),
    Method<&PgPrint::VsPPGetMarginRightS>("VsPPGetMarginRightS"),
    Method<&PgPrint::VsPPGetMarginTop>("VsPPGetMarginTop"),
    Method<&PgPrint::VsPPGetMarginTopS>("VsPPGetMarginTopS"),
    Method<&PgPrint::VsPPGetMarginBottom>("VsPPGetMarginBottom"),
    Method<&PgPrint::VsPPGetMarginBottomS>("VsPPGetMarginBottomS"),
    Method<&PgPrint::VsPPGetNDevices>("VsPPGetNDevices"),
    Method<&PgPrint::VsPPGetOrientation>("VsPPGetOrientation"),
    Method<&PgPrint::VsPPGetPaperSize>("VsPPGetPaperSize"),
    Method<&PgPrint::VsPPGetPaperSizes>("VsPPGetPaperSizes"),
    Method<&PgPrint::VsPPGetPageHeight>("VsPPGetPageHeight"),
    Method<&PgPrint::VsPPGetPageHeightS>("VsPPGetPageHeightS"),
    Method<&PgPrint::VsPPGetPaperHeight>("VsPPGetPaperHeight"),
    Method<&PgPrint::VsPPGetPaperHeightS>("VsPPGetPaperHeightS"),
    Method<&PgPrint::VsPPGetPageWidth>("VsPPGetPageWidth"),
    Method<&PgPrint::VsPPGetPageWidthS>("VsPPGetPageWidthS"),
    Method<&PgPrint::VsPPGetPaperWidth>("VsPPGetPaperWidth"),
    Method<&PgPrint::VsPPGetPaperWidthS>("VsPPGetPaperWidthS"),
    Method<&PgPrint::VsPPGetPageCount>("VsPPGetPageCount"),
    Method<kLine>("VsPPLine", {kFalse, kFalse, kLongZero, kLongZero, kLongZero, kIntegerZero}),
    Method<&PgPrint::VsPPNewPage>("VsPPNewPage"),
    Method<&PgPrint::VsPPPageSetup>("VsPPPageSetup"),
    Method<&PgPrint::VsPPPicture>("VsPPPicture"),
    Method<&PgPrint::VsPPRealPicture>("VsPPRealPicture"),
    Method<&PgPrint::VsPPPrint>("VsPPPrint",
                                {kMarker, kMarker, kMarker, kMarker, kMarker, kMarker, kMarker}),
    Method<&PgPrint::VsPPPrinterDialog>("VsPPPrinterDialog"),
    Method<&PgPrint::VsPPPrinterSetup>("VsPPPrinterSetup"),
    Method<&PgPrint::VsPPRenderControl>("VsPPRenderControl"),
    Method<&PgPrint::VsPPSetPhysicalPage>("VsPPSetPhysicalPage"),
    Method<&PgPrint::VsPPSetScaleMode>("VsPPSetScaleMode"),
    Method<&PgPrint::VsPPSetDevice>("VsPPSetDevice"),
    Method<&PgPrint::VsPPSetFont>("VsPPSetFont", {kMarker, kMarker, kMarker, kMarker, kMarker}),
    Method<&PgPrint::VsPPSetMarginLeft>("VsPPSetMarginLeft"),
    Method<&PgPrint::VsPPSetMarginRight>("VsPPSetMarginRight"),
    Method<&PgPrint::VsPPSetMarginTop>("VsPPSetMarginTop"),
    Method<&PgPrint::VsPPSetMarginBottom>("VsPPSetMarginBottom"),
    Method<&PgPrint::VsPPSetOrientation>("VsPPSetOrientation"),
    Method<&PgPrint::VsPPSetPaperSize>("VsPPSetPaperSize"),
    Method<&PgPrint::VsPPSetPageHeight>("VsPPSetPageHeight"),
    Method<&PgPrint::VsPPSetPaperHeight>("VsPPSetPaperHeight"),
    Method<&PgPrint::VsPPSetPageWidth>("VsPPSetPageWidth"),
    Method<&PgPrint::VsPPSetPaperWidth>("VsPPSetPaperWidth"),
    Method<&PgPrint::VsPPSetPreviewMode>("VsPPSetPreviewMode"),
    Method<&PgPrint::VsPPStartOverlay>("VsPPStartOverlay"),
    Method<&PgPrint::VsPPEndOverlay>("VsPPEndOverlay"),
    Method<&PgPrint::VsPPTextWidth>("VsPPTextWidth"),
    Method<&PgPrint::VsPPTextWidthS>("VsPPTextWidthS"),
    Method<&PgPrint::VsPPTextHeight>("VsPPTextHeight"),
    Method<&PgPrint::VsPPTextHeightS>("VsPPTextHeightS"),
    Method<&PgPrint::VsPPWatermerkInit>("VsPPWatermerkInit"),
    Method<&PgPrint::VsPPZetHelp>("VsPPZetHelp"),
    Method<&PgPrint::VsPPZetInhoud>("VsPPZetInhoud"),
    Method<&PgPrint::VsPPZetKleur>("VsPPZetKleur"),
    Method<&PgPrint::VsPreviewFile>("VsPreviewFile"),
    Method<&PgPrint::VsPrintFile>("VsPrintFile", {kIntegerZero, kIntegerZero}),
    Method<&PgPrint::VsPPStart>("VsPPStart"),
    Method<&PgPrint::VsPPInit>("VsPPInit"),
    Method<&PgPrint::VsPPGetDevice>("VsPPGetDevice"),
    Method<&PgPrint::VsWatermerkAfdrukken>("VsWatermerkAfdrukken"),
    Method<&PgPrint::VSPDF>("VSPDF"),
});

}  // namespace

constinit const MemberTable<PgPrint> kMethods(kRows);

Variant PgPrint::CallMember(std::string_view name, std::span<Variant> arguments) {
  return ReportingErrors([&] { return kMethods.Call(*this, name, arguments); });
}

Variant PgPrint::CallMember(std::int32_t dispatchId, std::span<Variant> arguments) {
  return ReportingErrors([&] { return kMethods.Call(*this, dispatchId, arguments); });
}

PgPrint& PredeclaredPgPrint() {
  return ProcessWide<PgPrint>();
}

}  // namespace pagivo
