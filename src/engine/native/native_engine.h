// Our own engine behind the contract.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/native/document/document.h"
#include "engine/native/document/recorder.h"
#include "engine/native/fonts/text_layout.h"
#include "engine/native/pdf/pdf_writer.h"
#include "engine/native/printing/printer_choice.h"
#include "engine/native/printing/printing_series.h"
#include "engine/native/settings/page_setup.h"
#include "engine/native/view/preview.h"
#include "engine/print_engine.h"
#include "window/window_system.h"

namespace pagivo::native {

class Font;
struct ArcAngles;

// What export, print and preview say of a document that is not whole.
inline constexpr const char* kLacksSomething =
    "Het document is niet volledig: er was te weinig geheugen om het op te maken";

// What the engine needs of its surroundings.
struct EngineServices {
  // Shows the engine's own dialogs and knows the windows that are drawn into a document. Null: a
  // dialog is never confirmed, and there are no windows.
  std::shared_ptr<WindowSystem> windows = nullptr;
  // Null: there are no printers.
  std::shared_ptr<PrintServer> printers = nullptr;
};

// A document's life: none, composing (StartDoc .. EndDoc), complete, complete with a page reopened
// (StartOverlay .. EndOverlay), and complete while it is being printed. Drawing needs composing or
// an open overlay; without it every drawing operation raises ErrorNumber::NoDocument and does
// nothing else.
//
// A fresh engine: Arial 10, black text, solid black hairline pen, transparent white brush, margins
// of an inch, A4 portrait, preview of the whole page. Font, colours, pen, brush, margins, paper,
// the rectangle of X1 to Y2, document name and copies stay in force across pages and documents. The
// print position is unset at StartDoc, NewPage and StartOverlay: each coordinate that has not been
// put when it is first used becomes that of the upper left corner of the margins then in force.
//
// A page keeps the paper that it was begun with. New paper settings reach the page being composed
// only while it has nothing but pictures on it, else the next one. A picture that covers the page,
// as watermarks do, is fitted to its new size.
class NativeEngine final : public PrintEngine,
                           public PointLists,
                           public PrintSeries,
                           public PageSetupOwner,
                           public ExportedDocument,
                           private PreviewSource,
                           public std::enable_shared_from_this<NativeEngine> {
 public:
  static constexpr std::int32_t kMaximumPages = 32767;
  static constexpr float kMaximumFontSize = 1638;  // points

  explicit NativeEngine(EngineServices services = {});
  ~NativeEngine() override;

  // The pages recorded so far; no pages before the first StartDoc. Replaced by StartDoc.
  const Document& GetDocument() const noexcept override { return *document_; }
  // The document has been ended. A page may be reopened.
  bool IsComplete() const noexcept override;
  // False when memory ran out while the document was composed or drawn over and the statement was
  // lost (values/errors.h), so that something of it is missing.
  bool IsWhole() const noexcept override;
  // Raises ErrorNumber::OutOfMemory when it is not.
  void RequireWhole() const;
  // Shows the document on surfaces. It keeps the engine alive.
  std::shared_ptr<Preview> GetPreview() { return {shared_from_this(), &preview_}; }

  void SetEvents(PrintEngineEvents* events) override { preview_.SetEvents(events); }

  // --- The document (native_engine.cpp) ---------------------------------------------------
  void StartDoc() override;
  void EndDoc() override;
  void NewPage() override;
  std::int16_t GetPageCount() override;
  // The page begun last; while a page is reopened, that page; 0 before the first StartDoc.
  std::int16_t GetCurrentPage() override;
  // Only when the document is complete. Ends an overlay that is still open.
  void StartOverlay(const std::int16_t& page) override;
  void EndOverlay() override;
  void PutDocName(const std::string& name) override;

  // --- Text (engine_text.cpp) -------------------------------------------------------------
  std::string GetFontName() override { return font_.name; }
  void PutFontName(const std::string& name) override;
  float GetFontSize() override { return font_.size; }
  void PutFontSize(float points) override;
  void PutFontBold(bool on) override;
  void PutFontItalic(bool on) override;
  void PutFontUnderline(bool on) override;
  void PutTextColor(const std::int32_t& color) override;
  void PutCurrentX(const Variant& x) override;
  void PutCurrentY(const Variant& y) override;
  void PutText(const std::string& text) override;
  double GetTextWidth(const std::string& text) override;
  double GetTextHeight(const std::string& text) override;

  // --- The page setup (engine_paper.cpp) --------------------------------------------------
  const PageSetup& Setup() const noexcept override { return setup_; }
  void Apply(const PageSetup& setup) override;
  PrinterChoice& Printers() noexcept override { return printers_; }
  bool HasDocument() const noexcept override { return document_->PageCount() > 0; }
  std::int32_t GetOrientation() override;
  void PutOrientation(std::int32_t orientation) override;
  void PutPaperWidth(float width) override;
  void PutPaperHeight(float height) override;
  std::int32_t GetPaperSize() override { return setup_.paper.Code(); }
  void PutPaperSize(std::int32_t code) override;
  bool GetPaperSizes(std::int32_t code) override;
  // A Double: the settings in force; while a page is reopened, that page's own.
  Variant GetPageWidth() override;
  void PutPageWidth(double width) override;
  Variant GetPageHeight() override;
  void PutPageHeight(double height) override;
  // False: positions count from the printable area's corner, as the current printer has it now.
  // What is drawn already stays where it is.
  void PutPhysicalPage(const bool& physical) override;
  Variant GetMarginLeft() override { return setup_.margins.left; }
  void PutMarginLeft(const Variant& margin) override;
  Variant GetMarginTop() override { return setup_.margins.top; }
  void PutMarginTop(const Variant& margin) override;
  Variant GetMarginRight() override { return setup_.margins.right; }
  void PutMarginRight(const Variant& margin) override;
  Variant GetMarginBottom() override { return setup_.margins.bottom; }
  void PutMarginBottom(const Variant& margin) override;

  // --- Drawing (engine_drawing.cpp) -------------------------------------------------------
  void PutPenStyle(std::int32_t style) override;
  void PutPenWidth(const Variant& width) override;
  std::int32_t GetPenColor() override { return penColor_; }  // as it was put
  void PutPenColor(std::int32_t color) override;
  void PutBrushColor(std::int32_t color) override;
  void PutBrushStyle(std::int32_t style) override;
  void DrawLine(const Variant& x1, const Variant& y1, const Variant& x2,
                const Variant& y2) override;
  void DrawRectangle(const Variant& x1, const Variant& y1, const Variant& x2,
                     const Variant& y2) override;
  void DrawCircle(const Variant& x, const Variant& y, const Variant& radius, const Variant& start,
                  const Variant& end) override;
  void PutPolyline(const std::string& points) override;
  void PutPolygon(const std::string& points) override;
  void DrawPolyline(std::span<const float> numbers) override;
  void DrawPolygon(std::span<const float> numbers) override;
  void PutX1(const Variant& x) override;
  void PutY1(const Variant& y) override;
  void PutX2(double x) override;
  void PutY2(double y) override;
  void PutPicture(const ObjectRef& picture) override;

  // --- Printers (engine_printing.cpp) -----------------------------------------------------
  std::string GetDevices(std::int16_t index) override;
  std::int16_t GetNDevices() override;
  std::string GetDevice() override;
  void PutDevice(const std::string& name) override;
  std::string GetPort() override;
  std::int16_t GetCopies() override { return copies_; }
  void PutCopies(std::int16_t copies) override;
  // Prints those of the pages that exist, if the document is whole; no dialog is shown. What takes
  // a while gets a window in which the user can stop it, and what fails is told there. Other code
  // may run meanwhile, but the document stays as it is: what would change it raises
  // ErrorNumber::NoDocument.
  void PrintDoc(bool showDialog, std::int16_t firstPage, std::int16_t lastPage) override;
  // A PrintDoc outside a series is a series of its own.
  void BeginSeries(std::int32_t copies) override;
  PrintCommandOutcome EndSeries() override;

  // --- Windows (engine_windows.cpp) -------------------------------------------------------
  bool GetPrintDialog(std::int32_t dialog) override;
  // In the window's own size. The print position stays.
  void PutRenderControl(const std::int32_t& window) override;

  // --- The preview ------------------------------------------------------------------------
  std::int16_t GetPreviewPage() override { return static_cast<std::int16_t>(preview_.Page()); }
  void PutPreviewPage(const std::int16_t& page) override { preview_.ShowPage(page); }
  double GetZoom() override { return preview_.Zoom(); }
  void PutZoom(double percent) override { preview_.PutZoom(percent); }
  std::int32_t GetZoomMode() override { return preview_.ZoomMode(); }
  void PutZoomMode(std::int32_t mode) override { preview_.PutZoomMode(mode); }
  double GetScrollTop() override { return preview_.ScrollTop(); }
  void PutScrollTop(double top) override { preview_.PutScrollTop(top); }
  double GetTwipsPerPixelX() override { return kTwipsPerPixel; }
  double GetTwipsPerPixelY() override { return kTwipsPerPixel; }

 private:
  struct Place {
    double x = 0;
    double y = 0;
  };

  enum class Stage : std::uint8_t { None, Composing, Complete, Overlay, Printing };

  // Where the next text goes; unset coordinates are those of the margins. After a text that is at
  // its end; hosts nearly always put another position first, so the end is measured only when it is
  // asked for.
  struct PrintPosition {
    std::optional<double> x;  // of that text's left end while `isAfterText`
    std::optional<double> y;
    bool isAfterText = false;  // the one that was recorded last
  };

  static constexpr const char* kStillPrinting = "Het document wordt nog afgedrukt";

  bool IsDrawing() const noexcept;
  void RequireDrawing() const;
  void RequireNoPrinting() const;
  void PrintCopy(std::int16_t firstPage, std::int16_t lastPage);
  SentJobs SendCopy(std::int16_t firstPage, std::int16_t lastPage, const PrintWatcher& watcher);
  SentJobs SendPages(const PrintRequest& request, const PrintWatcher& watcher);
  template <typename Change>
  void ChangeSetup(Change change);
  bool PageTakesOtherPaper() const noexcept;
  void ReadPrintableArea();
  Point OriginOn(const PageGeometry& page) const;
  void ApplyOrigin();
  void ChangeFontName(const std::string& name);
  template <typename Value>
  void ChangeFont(Value FontDescription::*property, Value value);
  Font& CurrentFont();
  double MeasurePiece(std::string_view piece);
  double LineSpacing();
  TextLayout LayOut(const std::string& text);
  double WidthOfLines(const std::string& text);
  double WidthOfLastText() const;
  Place SettlePrintPosition();
  void DrawPiece(Place place, std::string_view piece);
  void DrawLines(const std::string& text);
  void SetStyles(Recorder& recorder) const;
  PictureImageRef PictureOf(const WindowImage& image);
  void DrawArc(Point center, float radius, const ArcAngles& angles);
  void RecordPolyline(std::span<const Point> points);
  void RecordPolygon(std::span<const Point> points);
  PageGeometry BlankPage() const noexcept override { return setup_.paper.Geometry(); }
  std::string_view Notice() const noexcept override { return IsWhole() ? "" : kLacksSomething; }

  EngineServices services_;
  std::unique_ptr<Document> document_;
  std::unique_ptr<Recorder> recorder_;  // into document_
  Stage stage_ = Stage::None;
  std::int32_t overlayPage_ = 0;
  bool isWhole_ = true;                  // up to the end of the last drawing
  std::uint32_t lostBeforeDrawing_ = 0;  // statements, for want of memory
  std::string documentName_;
  PageSetup setup_;
  FontDescription font_;
  std::shared_ptr<Font> foundFont_;  // the library's for font_, once looked up
  Color textColor_ = 0;
  PrintPosition position_;
  Pen pen_;
  std::int32_t penColor_ = 0;
  Brush brush_;
  std::vector<std::weak_ptr<const PictureImage>> windowPictures_;
  Rectangle target_;  // X1, Y1, X2, Y2
  std::int16_t copies_ = 1;
  PrinterChoice printers_;
  std::unique_ptr<PrintingSeries> series_;  // the one under way
  bool isPhysicalPage_ = true;
  PrinterMedia printerMedia_;  // of the current printer, unless isPhysicalPage_
  Preview preview_{*this};
};

// The engine's preview on a surface; null when the engine is another one.
std::shared_ptr<SurfaceContent> MakeSurface(const std::shared_ptr<PrintEngine>& engine);

}  // namespace pagivo::native
