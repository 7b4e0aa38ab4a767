// A print engine and a PDF exporter that log what they are asked and answer what they were told.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/print_engine.h"
#include "support/operation_log.h"
#include "values/conversions.h"

namespace pagivo::testing {

// Every operation goes to the log as "get", "put" or "call", its name and its values with their
// kinds. A property answers what was put last or what a test set up; one that was never set
// answers its zero value. No operation has any other effect: NewPage does not count pages.
class RecordingEngine final : public PrintEngine {
 public:
  explicit RecordingEngine(std::shared_ptr<OperationLog> log = std::make_shared<OperationLog>())
      : log_(std::move(log)) {}

  // What reading `property` answers from now on.
  void Answer(std::string_view property, Variant value);
  // The same for one argument of an indexed property: AnswerFor("PaperSizes", 9, true). Goes before
  // what Answer set for all arguments.
  void AnswerFor(std::string_view property, const Variant& argument, Variant value);
  // One value for each reading; the last one stays.
  void AnswerInTurn(std::string_view property, std::vector<Variant> values);

  // See OperationLog.
  void FailOn(std::string line, int occurrence = 0) { log_->FailOn(std::move(line), occurrence); }
  void FailNothing() { log_->FailNothing(); }
  const std::vector<std::string>& Log() const noexcept { return log_->Lines(); }
  void ClearLog() { log_->Clear(); }

  // The window that listens to the engine, to raise events at it; null when there is none.
  PrintEngineEvents* Events() const noexcept { return events_; }
  void SetEvents(PrintEngineEvents* events) override { events_ = events; }

  std::string GetFontName() override { return ToText(Get("FontName")); }
  void PutFontName(const std::string& name) override { Put("FontName", name); }
  float GetFontSize() override { return ToSingle(Get("FontSize")); }
  void PutFontSize(float points) override { Put("FontSize", points); }
  void PutFontBold(bool on) override { Put("FontBold", on); }
  void PutFontItalic(bool on) override { Put("FontItalic", on); }
  void PutFontUnderline(bool on) override { Put("FontUnderline", on); }

  std::int32_t GetOrientation() override { return ToLong(Get("Orientation")); }
  void PutOrientation(std::int32_t orientation) override { Put("Orientation", orientation); }
  void PutPaperWidth(float width) override { Put("PaperWidth", width); }
  void PutPaperHeight(float height) override { Put("PaperHeight", height); }
  std::int32_t GetPaperSize() override { return ToLong(Get("PaperSize")); }
  void PutPaperSize(std::int32_t code) override { Put("PaperSize", code); }
  bool GetPaperSizes(std::int32_t code) override { return ToBoolean(GetAt("PaperSizes", code)); }
  Variant GetPageWidth() override { return Get("PageWidth"); }
  void PutPageWidth(double width) override { Put("PageWidth", width); }
  Variant GetPageHeight() override { return Get("PageHeight"); }
  void PutPageHeight(double height) override { Put("PageHeight", height); }
  void PutPhysicalPage(const bool& physical) override { Put("PhysicalPage", physical); }
  Variant GetMarginLeft() override { return Get("MarginLeft"); }
  void PutMarginLeft(const Variant& margin) override { Put("MarginLeft", margin); }
  Variant GetMarginTop() override { return Get("MarginTop"); }
  void PutMarginTop(const Variant& margin) override { Put("MarginTop", margin); }
  Variant GetMarginRight() override { return Get("MarginRight"); }
  void PutMarginRight(const Variant& margin) override { Put("MarginRight", margin); }
  Variant GetMarginBottom() override { return Get("MarginBottom"); }
  void PutMarginBottom(const Variant& margin) override { Put("MarginBottom", margin); }

  std::string GetDevices(std::int16_t index) override { return ToText(GetAt("Devices", index)); }
  std::int16_t GetNDevices() override { return ToInteger(Get("NDevices")); }
  std::string GetDevice() override { return ToText(Get("Device")); }
  void PutDevice(const std::string& name) override { Put("Device", name); }
  std::string GetPort() override { return ToText(Get("Port")); }
  std::int16_t GetCopies() override { return ToInteger(Get("Copies")); }
  void PutCopies(std::int16_t copies) override { Put("Copies", copies); }
  void PrintDoc(bool showDialog, std::int16_t firstPage, std::int16_t lastPage) override {
    log_->Record("call PrintDoc", {showDialog, firstPage, lastPage});
  }
  bool GetPrintDialog(std::int32_t dialog) override {
    return ToBoolean(GetAt("PrintDialog", dialog));
  }

  void StartDoc() override { log_->Record("call StartDoc"); }
  void EndDoc() override { log_->Record("call EndDoc"); }
  void NewPage() override { log_->Record("call NewPage"); }
  std::int16_t GetPageCount() override { return ToInteger(Get("PageCount")); }
  std::int16_t GetCurrentPage() override { return ToInteger(Get("CurrentPage")); }
  void StartOverlay(const std::int16_t& page) override {
    log_->Record("call StartOverlay", {page});
  }
  void EndOverlay() override { log_->Record("call EndOverlay"); }
  void PutDocName(const std::string& name) override { Put("DocName", name); }

  void PutTextColor(const std::int32_t& color) override { Put("TextColor", color); }
  void PutCurrentX(const Variant& x) override { Put("CurrentX", x); }
  void PutCurrentY(const Variant& y) override { Put("CurrentY", y); }
  void PutText(const std::string& text) override { Put("Text", text); }
  double GetTextWidth(const std::string& text) override {
    return ToDouble(GetAt("TextWidth", text));
  }
  double GetTextHeight(const std::string& text) override {
    return ToDouble(GetAt("TextHeight", text));
  }

  void PutPenStyle(std::int32_t style) override { Put("PenStyle", style); }
  void PutPenWidth(const Variant& width) override { Put("PenWidth", width); }
  std::int32_t GetPenColor() override { return ToLong(Get("PenColor")); }
  void PutPenColor(std::int32_t color) override { Put("PenColor", color); }
  void PutBrushColor(std::int32_t color) override { Put("BrushColor", color); }
  void PutBrushStyle(std::int32_t style) override { Put("BrushStyle", style); }
  void DrawLine(const Variant& x1, const Variant& y1, const Variant& x2,
                const Variant& y2) override {
    log_->Record("call DrawLine", {x1, y1, x2, y2});
  }
  void DrawRectangle(const Variant& x1, const Variant& y1, const Variant& x2,
                     const Variant& y2) override {
    log_->Record("call DrawRectangle", {x1, y1, x2, y2});
  }
  // Logged with three values when both angles are Missing, else with five.
  void DrawCircle(const Variant& x, const Variant& y, const Variant& radius, const Variant& start,
                  const Variant& end) override;
  void PutPolyline(const std::string& points) override { Put("Polyline", points); }
  void PutPolygon(const std::string& points) override { Put("Polygon", points); }
  void PutX1(const Variant& x) override { Put("X1", x); }
  void PutY1(const Variant& y) override { Put("Y1", y); }
  void PutX2(double x) override { Put("X2", x); }
  void PutY2(double y) override { Put("Y2", y); }
  void PutPicture(const ObjectRef& picture) override { Put("Picture", picture); }
  void PutRenderControl(const std::int32_t& window) override { Put("RenderControl", window); }

  std::int16_t GetPreviewPage() override { return ToInteger(Get("PreviewPage")); }
  void PutPreviewPage(const std::int16_t& page) override { Put("PreviewPage", page); }
  double GetZoom() override { return ToDouble(Get("Zoom")); }
  void PutZoom(double percent) override { Put("Zoom", percent); }
  std::int32_t GetZoomMode() override { return ToLong(Get("ZoomMode")); }
  void PutZoomMode(std::int32_t mode) override { Put("ZoomMode", mode); }
  double GetScrollTop() override { return ToDouble(Get("ScrollTop")); }
  void PutScrollTop(double top) override { Put("ScrollTop", top); }
  double GetTwipsPerPixelX() override { return ToDouble(Get("TwipsPerPixelX")); }
  double GetTwipsPerPixelY() override { return ToDouble(Get("TwipsPerPixelY")); }

 private:
  Variant Get(std::string_view property);
  Variant GetAt(std::string_view property, const Variant& argument);
  void Put(std::string_view property, const Variant& value);
  // The next answer to a question; Empty when there is none.
  Variant NextAnswer(std::string_view question);

  std::shared_ptr<OperationLog> log_;
  std::map<std::string, std::vector<Variant>, std::less<>> answers_;
  PrintEngineEvents* events_ = nullptr;
};

// Logs `call ExportPdf Object ..., String "...", Integer 1, Integer 5` and writes no file.
class RecordingPdfExporter final : public PdfExporter {
 public:
  explicit RecordingPdfExporter(std::shared_ptr<OperationLog> log) : log_(std::move(log)) {}

  void ExportPdf(const ObjectRef& engine, const std::string& fileName, std::int16_t firstPage,
                 std::int16_t lastPage) override;

  // The engine handed over last; null before the first export.
  const ObjectRef& Engine() const noexcept { return engine_; }

 private:
  std::shared_ptr<OperationLog> log_;
  ObjectRef engine_;
};

}  // namespace pagivo::testing
