// The methods of PgPrint as late-bound callers see them.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "pagivo/pg_print.h"
#include "values/late_binding.h"

namespace pagivo {

// The first method's dispatch id; those of the others follow it one by one.
inline constexpr std::int32_t kFirstDispatchId = 0x60030000;

constexpr std::size_t CountNames(std::string_view names) {
  return names.empty() ? 0 : 1 + static_cast<std::size_t>(std::ranges::count(names, ' '));
}

// The name of a parameter, for callers that name their arguments; empty where a row tells none.
constexpr std::string_view ParameterName(const MemberSignature& signature, std::size_t index) {
  std::string_view names = signature.parameterNames;
  for (; index > 0; --index) {
    const std::size_t end = names.find(' ');
    names = end == std::string_view::npos ? std::string_view() : names.substr(end + 1);
  }
  return names.substr(0, names.find(' '));
}

namespace method_table {

inline constexpr auto kMarker = DefaultValue::Marker;
inline constexpr auto kFalse = DefaultValue::False;
inline constexpr auto kLongZero = DefaultValue::LongZero;
inline constexpr auto kIntegerZero = DefaultValue::IntegerZero;

// Among methods of one name those whose arguments are all in a row.
using Any = const Variant&;
using Points = const Array<float>&;
inline constexpr void (PgPrint::*kLine)(Any, Any, Any, Any, Any, Any, Any, Any, Any,
                                        Any) = &PgPrint::VsPPLine;
inline constexpr void (PgPrint::*kCircle)(Any, Any, Any, Any, Any, Any, Any, Any, Any,
                                          Any) = &PgPrint::VsPPCircle;
inline constexpr void (PgPrint::*kDrawPolyline)(Points, Points, Any, Any, Any, Any, Any,
                                                Any) = &PgPrint::VsPPDrawPolyline;

template <auto kMethod>
constexpr Member<PgPrint> Method(std::string_view name, std::string_view parameterNames = {},
                                 std::initializer_list<DefaultValue> trailingDefaults = {}) {
  Member<PgPrint> method = BindMember<kMethod>(name, 0, MemberKind::Call, trailingDefaults);
  method.parameterNames = parameterNames;
  if (CountNames(parameterNames) != method.parameterCount) throw "every parameter has a name";
  return method;
}

template <std::size_t kCount>
constexpr auto Numbered(std::array<Member<PgPrint>, kCount> rows) {
  std::int32_t dispatchId = kFirstDispatchId;
  for (Member<PgPrint>& row : rows) row.dispatchId = dispatchId++;
  return rows;
}

inline constexpr auto kRows = Numbered(std::array{
    Method<&PgPrint::VsPPAfdrukkenAanUit>("VsPPAfdrukkenAanUit", "AfdrukkenUit"),
    Method<&PgPrint::VsPPPrintR>(
        "VsPPPrintR", "varText varX varY varFontName varSize varBold varUnderline varItalic",
        {kMarker, kMarker, kMarker, kMarker, kMarker, kMarker, kMarker}),
    Method<kDrawPolyline>(
        "VsPPDrawPolyline",
        "varX varY varClosed varFilled varColor varFillStyle varDrawStyle varDrawWidth",
        {kFalse, kFalse, kLongZero, kLongZero, kLongZero, kIntegerZero}),
    Method<&PgPrint::VsPPGetCopies>("VsPPGetCopies"),
    Method<kCircle>("VsPPCircle",
                    "varX1 varY1 varRadius varStart varEnd varFilled varColor varFillStyle "
                    "varDrawStyle varDrawWidth",
                    {kMarker, kMarker, kFalse, kLongZero, kLongZero, kLongZero, kIntegerZero}),
    Method<&PgPrint::VsPPGetCurrentPage>("VsPPGetCurrentPage"),
    Method<&PgPrint::VsPPEinde>("VsPPEinde"),
    Method<&PgPrint::VsPPClose>("VsPPClose"),
    Method<&PgPrint::VsPPFinish>("VsPPFinish", "sTitle"),
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
    Method<&PgPrint::VsPPGetPaperSizes>("VsPPGetPaperSizes", "sPaperSizes nPaperSizes"),
    Method<&PgPrint::VsPPGetPageHeight>("VsPPGetPageHeight"),
    Method<&PgPrint::VsPPGetPageHeightS>("VsPPGetPageHeightS"),
    Method<&PgPrint::VsPPGetPaperHeight>("VsPPGetPaperHeight"),
    Method<&PgPrint::VsPPGetPaperHeightS>("VsPPGetPaperHeightS"),
    Method<&PgPrint::VsPPGetPageWidth>("VsPPGetPageWidth"),
    Method<&PgPrint::VsPPGetPageWidthS>("VsPPGetPageWidthS"),
    Method<&PgPrint::VsPPGetPaperWidth>("VsPPGetPaperWidth"),
    Method<&PgPrint::VsPPGetPaperWidthS>("VsPPGetPaperWidthS"),
    Method<&PgPrint::VsPPGetPageCount>("VsPPGetPageCount"),
    Method<kLine>(
        "VsPPLine",
        "varX1 varY1 varX2 varY2 varBox varFilled varColor varFillStyle varDrawStyle varDrawWidth",
        {kFalse, kFalse, kLongZero, kLongZero, kLongZero, kIntegerZero}),
    Method<&PgPrint::VsPPNewPage>("VsPPNewPage"),
    Method<&PgPrint::VsPPPageSetup>("VsPPPageSetup"),
    Method<&PgPrint::VsPPPicture>("VsPPPicture", "sPicturePath dX1 dY1 dX2 dY2"),
    Method<&PgPrint::VsPPRealPicture>("VsPPRealPicture", "vPicture dX1 dY1 dX2 dY2"),
    Method<&PgPrint::VsPPPrint>(
        "VsPPPrint", "varText varX varY varFontName varSize varBold varUnderline varItalic",
        {kMarker, kMarker, kMarker, kMarker, kMarker, kMarker, kMarker}),
    Method<&PgPrint::VsPPPrinterDialog>("VsPPPrinterDialog", "DeviceName Copies FromPage ToPage"),
    Method<&PgPrint::VsPPPrinterSetup>("VsPPPrinterSetup"),
    Method<&PgPrint::VsPPRenderControl>("VsPPRenderControl", "hwnd"),
    Method<&PgPrint::VsPPSetPhysicalPage>("VsPPSetPhysicalPage", "Setting"),
    Method<&PgPrint::VsPPSetScaleMode>("VsPPSetScaleMode", "ScaleMode"),
    Method<&PgPrint::VsPPSetDevice>("VsPPSetDevice", "DeviceName"),
    Method<&PgPrint::VsPPSetFont>("VsPPSetFont",
                                  "FontName FontSize FontBold FontUnderline FontItalic",
                                  {kMarker, kMarker, kMarker, kMarker, kMarker}),
    Method<&PgPrint::VsPPSetMarginLeft>("VsPPSetMarginLeft", "Margin"),
    Method<&PgPrint::VsPPSetMarginRight>("VsPPSetMarginRight", "Margin"),
    Method<&PgPrint::VsPPSetMarginTop>("VsPPSetMarginTop", "Margin"),
    Method<&PgPrint::VsPPSetMarginBottom>("VsPPSetMarginBottom", "Margin"),
    Method<&PgPrint::VsPPSetOrientation>("VsPPSetOrientation", "Instelling"),
    Method<&PgPrint::VsPPSetPaperSize>("VsPPSetPaperSize", "Instelling"),
    Method<&PgPrint::VsPPSetPageHeight>("VsPPSetPageHeight", "Instelling"),
    Method<&PgPrint::VsPPSetPaperHeight>("VsPPSetPaperHeight", "Instelling"),
    Method<&PgPrint::VsPPSetPageWidth>("VsPPSetPageWidth", "Instelling"),
    Method<&PgPrint::VsPPSetPaperWidth>("VsPPSetPaperWidth", "Instelling"),
    Method<&PgPrint::VsPPSetPreviewMode>("VsPPSetPreviewMode", "PreviewMode"),
    Method<&PgPrint::VsPPStartOverlay>("VsPPStartOverlay", "Bladnummer"),
    Method<&PgPrint::VsPPEndOverlay>("VsPPEndOverlay"),
    Method<&PgPrint::VsPPTextWidth>("VsPPTextWidth", "Tekst"),
    Method<&PgPrint::VsPPTextWidthS>("VsPPTextWidthS", "Tekst"),
    Method<&PgPrint::VsPPTextHeight>("VsPPTextHeight", "Tekst"),
    Method<&PgPrint::VsPPTextHeightS>("VsPPTextHeightS", "Tekst"),
    Method<&PgPrint::VsPPWatermerkInit>("VsPPWatermerkInit", "Watermerk"),
    Method<&PgPrint::VsPPZetHelp>("VsPPZetHelp", "Helpbestand HelpContextID"),
    Method<&PgPrint::VsPPZetInhoud>("VsPPZetInhoud", "sOmschrijving"),
    Method<&PgPrint::VsPPZetKleur>("VsPPZetKleur", "Kleur"),
    Method<&PgPrint::VsPreviewFile>("VsPreviewFile", "Pagina"),
    Method<&PgPrint::VsPrintFile>("VsPrintFile", "AantalExemplaren Van Tm",
                                  {kIntegerZero, kIntegerZero}),
    Method<&PgPrint::VsPPStart>("VsPPStart", "frmProject"),
    Method<&PgPrint::VsPPInit>("VsPPInit"),
    Method<&PgPrint::VsPPGetDevice>("VsPPGetDevice"),
    Method<&PgPrint::VsWatermerkAfdrukken>("VsWatermerkAfdrukken"),
    Method<&PgPrint::VSPDF>("VSPDF", "Filename"),
});

}  // namespace method_table

// Has all 73 methods, in the order of the interface. What is made of them for other callers, such
// as the interface of a component server, is made of these rows, at compile time where it can be.
inline constexpr MemberTable<PgPrint> kMethods(method_table::kRows);

}  // namespace pagivo
