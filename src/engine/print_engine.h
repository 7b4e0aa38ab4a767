// The contract with the print engine, a page-layout, printing and preview control, and with the PDF
// exporter.
//
// Everything the component needs of an engine goes through these operations and no others. Lengths
// and positions are twips (1/1440 inch), y down; colours are 0x00BBGGRR; pages count from 1. Any
// operation may raise an Error, and has then changed nothing.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "pagivo/object.h"
#include "pagivo/print_outcome.h"
#include "pagivo/variant.h"

namespace pagivo {

// What an engine tells the window that carries it.
class PrintEngineEvents {
 public:
  // A key went down in the preview surface; the handler sets keyCode to 0 when it consumed it.
  virtual void KeyDown(std::int16_t& keyCode, std::int16_t shift) = 0;
  // `page` is about to be shown; the handler may change it.
  virtual void BeforePageChange(std::int16_t& page) = 0;
  // The shown page has changed.
  virtual void AfterPageChange() = 0;

 protected:
  ~PrintEngineEvents() = default;
};

// Values that the component holds in variables arrive as const references; an engine keeps no
// reference past the call.
class PrintEngine : public Object {
 public:
  // The window that wants the events, or null. Borrowed.
  virtual void SetEvents(PrintEngineEvents* events) = 0;

  // Late binding, through the table of operations.
  Variant GetMember(std::string_view name) override;
  void PutMember(std::string_view name, const Variant& value) override;
  Variant CallMember(std::string_view name, std::span<Variant> arguments) override;

  // The current font. Stays in force across pages and documents.
  virtual std::string GetFontName() = 0;
  virtual void PutFontName(const std::string& name) = 0;
  virtual float GetFontSize() = 0;  // points
  virtual void PutFontSize(float points) = 0;
  virtual void PutFontBold(bool on) = 0;
  virtual void PutFontItalic(bool on) = 0;
  virtual void PutFontUnderline(bool on) = 0;

  // Paper and page.
  virtual std::int32_t GetOrientation() = 0;  // 0 portrait, 1 landscape
  virtual void PutOrientation(std::int32_t orientation) = 0;
  virtual void PutPaperWidth(float width) = 0;
  virtual void PutPaperHeight(float height) = 0;
  virtual std::int32_t GetPaperSize() = 0;  // code of the paper size
  virtual void PutPaperSize(std::int32_t code) = 0;
  virtual bool GetPaperSizes(std::int32_t code) = 0;  // supported by the current printer?
  virtual Variant GetPageWidth() = 0;
  virtual void PutPageWidth(double width) = 0;
  virtual Variant GetPageHeight() = 0;
  virtual void PutPageHeight(double height) = 0;
  // True: coordinates are measured from the paper's edge; false: from the printable area's.
  virtual void PutPhysicalPage(const bool& physical) = 0;
  virtual Variant GetMarginLeft() = 0;
  virtual void PutMarginLeft(const Variant& margin) = 0;
  virtual Variant GetMarginTop() = 0;
  virtual void PutMarginTop(const Variant& margin) = 0;
  virtual Variant GetMarginRight() = 0;
  virtual void PutMarginRight(const Variant& margin) = 0;
  virtual Variant GetMarginBottom() = 0;
  virtual void PutMarginBottom(const Variant& margin) = 0;

  // Printers.
  virtual std::string GetDevices(std::int16_t index) = 0;  // 0..NDevices - 1
  virtual std::int16_t GetNDevices() = 0;
  virtual std::string GetDevice() = 0;
  virtual void PutDevice(const std::string& name) = 0;
  virtual std::string GetPort() = 0;  // where the current printer is
  virtual std::int16_t GetCopies() = 0;
  virtual void PutCopies(std::int16_t copies) = 0;
  // Prints pages firstPage..lastPage of the completed document to the current Device.
  virtual void PrintDoc(bool showDialog, std::int16_t firstPage, std::int16_t lastPage) = 0;
  // One of the engine's own dialogs, 0 printer set-up, 1 page set-up; true when confirmed.
  virtual bool GetPrintDialog(std::int32_t dialog) = 0;

  // The document.
  virtual void StartDoc() = 0;
  virtual void EndDoc() = 0;
  virtual void NewPage() = 0;
  virtual std::int16_t GetPageCount() = 0;
  virtual std::int16_t GetCurrentPage() = 0;
  virtual void StartOverlay(const std::int16_t& page) = 0;
  virtual void EndOverlay() = 0;
  virtual void PutDocName(const std::string& name) = 0;

  // Text.
  virtual void PutTextColor(const std::int32_t& color) = 0;
  virtual void PutCurrentX(const Variant& x) = 0;
  virtual void PutCurrentY(const Variant& y) = 0;
  virtual void PutText(const std::string& text) = 0;  // prints at (CurrentX, CurrentY)
  virtual double GetTextWidth(const std::string& text) = 0;
  virtual double GetTextHeight(const std::string& text) = 0;

  // Drawing.
  virtual void PutPenStyle(std::int32_t style) = 0;
  virtual void PutPenWidth(const Variant& width) = 0;
  virtual std::int32_t GetPenColor() = 0;
  virtual void PutPenColor(std::int32_t color) = 0;
  virtual void PutBrushColor(std::int32_t color) = 0;
  virtual void PutBrushStyle(std::int32_t style) = 0;
  virtual void DrawLine(const Variant& x1, const Variant& y1, const Variant& x2,
                        const Variant& y2) = 0;
  virtual void DrawRectangle(const Variant& x1, const Variant& y1, const Variant& x2,
                             const Variant& y2) = 0;
  // A full circle when `start` and `end` are Missing, else an arc; angles in radians,
  // counter-clockwise from three o'clock.
  virtual void DrawCircle(const Variant& x, const Variant& y, const Variant& radius,
                          const Variant& start, const Variant& end) = 0;
  virtual void PutPolyline(const std::string& points) = 0;  // draws it
  virtual void PutPolygon(const std::string& points) = 0;   // draws it
  virtual void PutX1(const Variant& x) = 0;
  virtual void PutY1(const Variant& y) = 0;
  virtual void PutX2(double x) = 0;
  virtual void PutY2(double y) = 0;
  virtual void PutPicture(const ObjectRef& picture) = 0;  // draws it into (X1, Y1)-(X2, Y2)
  // Draws the contents of a window at the print position.
  virtual void PutRenderControl(const std::int32_t& window) = 0;

  // The preview surface.
  virtual std::int16_t GetPreviewPage() = 0;
  virtual void PutPreviewPage(const std::int16_t& page) = 0;
  virtual double GetZoom() = 0;  // percent
  virtual void PutZoom(double percent) = 0;
  virtual std::int32_t GetZoomMode() = 0;
  virtual void PutZoomMode(std::int32_t mode) = 0;
  virtual double GetScrollTop() = 0;  // twips within the shown page
  virtual void PutScrollTop(double top) = 0;
  virtual double GetTwipsPerPixelX() = 0;
  virtual double GetTwipsPerPixelY() = 0;
};

// ZoomMode.
inline constexpr std::int32_t kZoomPercent = 0;
inline constexpr std::int32_t kZoomOverview = 1;
inline constexpr std::int32_t kZoomTwoPages = 2;
inline constexpr std::int32_t kZoomWholePage = 3;
inline constexpr std::int32_t kZoomPageWidth = 4;

// PrintDialog.
inline constexpr std::int32_t kPrinterSetupDialog = 0;
inline constexpr std::int32_t kPageSetupDialog = 1;

// The contract with the PDF exporter.
class PdfExporter : public Object {
 public:
  // Writes pages firstPage..lastPage of the engine's completed document to the named file. Raises
  // an Error when it cannot; what was there before is then untouched.
  virtual void ExportPdf(const ObjectRef& engine, const std::string& fileName,
                         std::int16_t firstPage, std::int16_t lastPage) = 0;

  // Late binding, through the table of operations.
  Variant CallMember(std::string_view name, std::span<Variant> arguments) override;
};

// What an engine may offer beside the contract: the lists of points that Polyline and Polygon take
// as text, as the numbers that are read in it, x and y in turn.
class PointLists {
 public:
  virtual void DrawPolyline(std::span<const float> numbers) = 0;
  virtual void DrawPolygon(std::span<const float> numbers) = 0;

 protected:
  ~PointLists() = default;
};

// What PrintReport tells.
struct PrintCommandOutcome {
  std::int16_t result = kNothingPrinted;
  std::string description;
  std::string printer;
  std::int32_t copies = 0;
  std::int32_t printedCopies = 0;
};

// What an engine may offer beside the contract: a print command as one whole.
class PrintSeries {
 public:
  // Every PrintDoc until EndSeries prints one of so many copies. The user follows and stops them
  // all as one; after a failure or the user's cancelling every further PrintDoc raises that error
  // again. Raises ErrorNumber::NoDocument within another series.
  virtual void BeginSeries(std::int32_t copies) = 0;
  // Tells the user of a failure and returns when that has been read. Nothing without a series.
  virtual PrintCommandOutcome EndSeries() = 0;

 protected:
  ~PrintSeries() = default;
};

}  // namespace pagivo
