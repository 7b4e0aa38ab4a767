#include "engine/operation_table.h"

#include <array>

namespace pagivo {

namespace {

constexpr std::array kEngineRows{
    BindMember<&PrintEngine::GetFontName>("FontName", 2, MemberKind::Get),
    BindMember<&PrintEngine::PutFontName>("FontName", 2, MemberKind::Put),
    BindMember<&PrintEngine::GetFontSize>("FontSize", 3, MemberKind::Get),
    BindMember<&PrintEngine::PutFontSize>("FontSize", 3, MemberKind::Put),
    BindMember<&PrintEngine::PutFontBold>("FontBold", 4, MemberKind::Put),
    BindMember<&PrintEngine::PutFontItalic>("FontItalic", 5, MemberKind::Put),
    BindMember<&PrintEngine::PutFontUnderline>("FontUnderline", 7, MemberKind::Put),
    BindMember<&PrintEngine::GetOrientation>("Orientation", 9, MemberKind::Get),
    BindMember<&PrintEngine::PutOrientation>("Orientation", 9, MemberKind::Put),
    BindMember<&PrintEngine::GetCopies>("Copies", 10, MemberKind::Get),
    BindMember<&PrintEngine::PutCopies>("Copies", 10, MemberKind::Put),
    BindMember<&PrintEngine::PutPaperWidth>("PaperWidth", 11, MemberKind::Put),
    BindMember<&PrintEngine::PutPaperHeight>("PaperHeight", 12, MemberKind::Put),
    BindMember<&PrintEngine::GetPaperSize>("PaperSize", 13, MemberKind::Get),
    BindMember<&PrintEngine::PutPaperSize>("PaperSize", 13, MemberKind::Put),
    BindMember<&PrintEngine::GetPaperSizes>("PaperSizes", 21, MemberKind::Get),
    BindMember<&PrintEngine::GetDevices>("Devices", 23, MemberKind::Get),
    BindMember<&PrintEngine::GetNDevices>("NDevices", 24, MemberKind::Get),
    BindMember<&PrintEngine::GetDevice>("Device", 27, MemberKind::Get),
    BindMember<&PrintEngine::PutDevice>("Device", 27, MemberKind::Put),
    BindMember<&PrintEngine::GetPort>("Port", 28, MemberKind::Get),
    BindMember<&PrintEngine::GetPageWidth>("PageWidth", 31, MemberKind::Get),
    BindMember<&PrintEngine::PutPageWidth>("PageWidth", 31, MemberKind::Put),
    BindMember<&PrintEngine::GetPageHeight>("PageHeight", 32, MemberKind::Get),
    BindMember<&PrintEngine::PutPageHeight>("PageHeight", 32, MemberKind::Put),
    BindMember<&PrintEngine::GetZoom>("Zoom", 33, MemberKind::Get),
    BindMember<&PrintEngine::PutZoom>("Zoom", 33, MemberKind::Put),
    BindMember<&PrintEngine::PutPhysicalPage>("PhysicalPage", 34, MemberKind::Put),
    BindMember<&PrintEngine::PutBrushColor>("BrushColor", 36, MemberKind::Put),
    BindMember<&PrintEngine::GetPenColor>("PenColor", 37, MemberKind::Get),
    BindMember<&PrintEngine::PutPenColor>("PenColor", 37, MemberKind::Put),
    BindMember<&PrintEngine::PutTextColor>("TextColor", 38, MemberKind::Put),
    BindMember<&PrintEngine::GetScrollTop>("ScrollTop", 48, MemberKind::Get),
    BindMember<&PrintEngine::PutScrollTop>("ScrollTop", 48, MemberKind::Put),
    BindMember<&PrintEngine::GetMarginLeft>("MarginLeft", 49, MemberKind::Get),
    BindMember<&PrintEngine::PutMarginLeft>("MarginLeft", 49, MemberKind::Put),
    BindMember<&PrintEngine::GetMarginTop>("MarginTop", 50, MemberKind::Get),
    BindMember<&PrintEngine::PutMarginTop>("MarginTop", 50, MemberKind::Put),
    BindMember<&PrintEngine::GetMarginRight>("MarginRight", 51, MemberKind::Get),
    BindMember<&PrintEngine::PutMarginRight>("MarginRight", 51, MemberKind::Put),
    BindMember<&PrintEngine::GetMarginBottom>("MarginBottom", 52, MemberKind::Get),
    BindMember<&PrintEngine::PutMarginBottom>("MarginBottom", 52, MemberKind::Put),
    BindMember<&PrintEngine::StartDoc>("StartDoc", 65, MemberKind::Call),
    BindMember<&PrintEngine::EndDoc>("EndDoc", 66, MemberKind::Call),
    BindMember<&PrintEngine::NewPage>("NewPage", 68, MemberKind::Call),
    BindMember<&PrintEngine::PrintDoc>("PrintDoc", 70, MemberKind::Call),
    BindMember<&PrintEngine::PutBrushStyle>("BrushStyle", 74, MemberKind::Put),
    BindMember<&PrintEngine::PutPenStyle>("PenStyle", 75, MemberKind::Put),
    BindMember<&PrintEngine::PutPenWidth>("PenWidth", 76, MemberKind::Put),
    BindMember<&PrintEngine::PutX1>("X1", 77, MemberKind::Put),
    BindMember<&PrintEngine::PutY1>("Y1", 78, MemberKind::Put),
    BindMember<&PrintEngine::PutX2>("X2", 79, MemberKind::Put),
    BindMember<&PrintEngine::PutY2>("Y2", 80, MemberKind::Put),
    BindMember<&PrintEngine::PutPolyline>("Polyline", 81, MemberKind::Put),
    BindMember<&PrintEngine::PutPolygon>("Polygon", 82, MemberKind::Put),
    BindMember<&PrintEngine::DrawLine>("DrawLine", 83, MemberKind::Call),
    BindMember<&PrintEngine::DrawRectangle>("DrawRectangle", 84, MemberKind::Call),
    BindMember<&PrintEngine::DrawCircle>("DrawCircle", 85, MemberKind::Call,
                                         {DefaultValue::MarkerWithNext, DefaultValue::Marker}),
    BindMember<&PrintEngine::GetPreviewPage>("PreviewPage", 88, MemberKind::Get),
    BindMember<&PrintEngine::PutPreviewPage>("PreviewPage", 88, MemberKind::Put),
    BindMember<&PrintEngine::GetPageCount>("PageCount", 90, MemberKind::Get),
    BindMember<&PrintEngine::PutText>("Text", 105, MemberKind::Put),
    BindMember<&PrintEngine::PutCurrentX>("CurrentX", 106, MemberKind::Put),
    BindMember<&PrintEngine::PutCurrentY>("CurrentY", 107, MemberKind::Put),
    BindMember<&PrintEngine::GetCurrentPage>("CurrentPage", 117, MemberKind::Get),
    BindMember<&PrintEngine::GetTwipsPerPixelX>("TwipsPerPixelX", 120, MemberKind::Get),
    BindMember<&PrintEngine::GetTwipsPerPixelY>("TwipsPerPixelY", 121, MemberKind::Get),
    BindMember<&PrintEngine::PutRenderControl>("RenderControl", 122, MemberKind::Put),
    BindMember<&PrintEngine::StartOverlay>("StartOverlay", 127, MemberKind::Call),
    BindMember<&PrintEngine::EndOverlay>("EndOverlay", 128, MemberKind::Call),
    BindMember<&PrintEngine::GetTextWidth>("TextWidth", 136, MemberKind::Get),
    BindMember<&PrintEngine::GetTextHeight>("TextHeight", 137, MemberKind::Get),
    BindMember<&PrintEngine::GetPrintDialog>("PrintDialog", 146, MemberKind::Get),
    BindMember<&PrintEngine::PutDocName>("DocName", 147, MemberKind::Put),
    BindMember<&PrintEngine::GetZoomMode>("ZoomMode", 164, MemberKind::Get),
    BindMember<&PrintEngine::PutZoomMode>("ZoomMode", 164, MemberKind::Put),
    BindMember<&PrintEngine::PutPicture>("Picture", -523, MemberKind::Put),
};

constexpr std::array kExporterRows{
    BindMember<&PdfExporter::ExportPdf>("ExportPdf", 4, MemberKind::Call),
};

}  // namespace

constinit const MemberTable<PrintEngine> kPrintEngineOperations(kEngineRows);
constinit const MemberTable<PdfExporter> kPdfExporterOperations(kExporterRows);

Variant PrintEngine::GetMember(std::string_view name) {
  return kPrintEngineOperations.Get(*this, name);
}

void PrintEngine::PutMember(std::string_view name, const Variant& value) {
  kPrintEngineOperations.Put(*this, name, value);
}

Variant PrintEngine::CallMember(std::string_view name, std::span<Variant> arguments) {
  return kPrintEngineOperations.Call(*this, name, arguments);
}

Variant PdfExporter::CallMember(std::string_view name, std::span<Variant> arguments) {
  return kPdfExporterOperations.Call(*this, name, arguments);
}

}  // namespace pagivo
