// PgPrint: compose a document page by page, show it, print it, write it as PDF.
//
// One document is composed at a time: the scale factors, the watermark, the contents table, the
// print request and the preview window that carries the print engine exist once per process and are
// shared by every PgPrint. All calls come from one thread, the host's user-interface thread.
//
// A host with a screen calls UseQtWindows (pagivo/qt_windows.h) once; until it has, every window
// closes at once as if its user had closed it.
//
// Units: positions and lengths are in the host's units, chosen with VsPPSetScaleMode (twips at
// first, 1/1440 inch); y runs down. Getters whose names end in S answer in those units, the others
// in twips. Colours are 0x00BBGGRR.
//
// Errors: every method ignores the errors of its statements, each statement for itself, and a
// getter whose reading fails answers its zero value. Three methods throw pagivo::Error instead:
// VsPPAfdrukkenAanUit, VsPPRenderControl and VSPDF. A number that does not fit a 16-bit argument is
// such an error (ErrorNumber::Overflow): the method then does nothing.
//
// The order of a document: VsPPInit, VsPPStart, settings, content with VsPPNewPage after every page
// (the last one too), VsPPFinish, perhaps overlays, then VsPreviewFile, VsPrintFile or VSPDF, at
// the end VsPPEinde. The page after the last VsPPNewPage is never shown, printed or exported.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "pagivo/arguments.h"
#include "pagivo/array.h"
#include "pagivo/constants.h"
#include "pagivo/drawing_options.h"
#include "pagivo/error.h"
#include "pagivo/export.h"
#include "pagivo/object.h"
#include "pagivo/variant.h"

namespace pagivo {

// Creating any PgPrint resets the contents count, the watermark and the scale factors for all of
// them. Destroying one closes nothing.
//
// Parameters that a method changes are non-const references or an IntegerVariable; optional ones
// are Variants with their defaults. An optional argument is left out at the end of a call, and
// where the default is Missing, by passing Missing. Where the default is another value, Missing is
// an argument that cannot be converted: a property that it stands for keeps the engine's value, and
// as a condition (varBox, varFilled, varFillStyle, varClosed) it counts as true. To skip those,
// name the ones that are given instead: see drawing_options.h.
class PAGIVO_EXPORT PgPrint : public Object {
 public:
  PgPrint();
  PgPrint(const PgPrint&) = delete;
  PgPrint& operator=(const PgPrint&) = delete;

  // --- The document's life ------------------------------------------------------------------

  // Resets contents, watermark and units, opens a new, empty document with margins 0 and black
  // text.
  virtual void VsPPInit();
  // Remembers the host's main window, over which the preview is placed: an object with the members
  // "WindowState" (2 = maximised), "Top", "Left", "Height" and "Width" in twips. May be null.
  virtual void VsPPStart(const ObjectRef& frmProject);
  // Ends the page, begins the next one and draws the watermark on it.
  virtual void VsPPNewPage();
  // Names the document, captions the preview window, ends the document.
  virtual void VsPPFinish(TextArgument sTitle);
  virtual void VsPPClose();
  // Discards the preview window and its document.
  virtual void VsPPEinde();
  virtual std::int16_t VsPPGetCurrentPage();
  virtual std::int16_t VsPPGetPageCount();
  virtual std::string VsPPGetDevice();
  // Adds a contents entry for the page being composed; at most 50 are kept.
  virtual void VsPPZetInhoud(const TextArgument& sOmschrijving);
  // Text colour, 0x00BBGGRR.
  virtual void VsPPZetKleur(const std::int32_t& Kleur);
  // Hides (true) or shows (false) the preview's print button. Throws.
  virtual void VsPPAfdrukkenAanUit(const bool& AfdrukkenUit);
  // Accepted and ignored.
  virtual void VsPPSetPreviewMode(const IntegerArgument& PreviewMode);
  virtual void VsPPZetHelp(const TextArgument& Helpbestand, const std::int32_t& HelpContextID);

  // --- Units --------------------------------------------------------------------------------

  // One of ScaleMode in constants.h; anything else is twips.
  virtual void VsPPSetScaleMode(const IntegerArgument& ScaleMode);
  virtual Variant VsPPTextWidthS(const TextArgument& Tekst);
  virtual Variant VsPPTextHeightS(const TextArgument& Tekst);
  virtual Variant VsPPGetMarginLeftS();
  virtual Variant VsPPGetMarginRightS();
  virtual Variant VsPPGetMarginTopS();
  virtual Variant VsPPGetMarginBottomS();
  virtual Variant VsPPGetPageHeightS();
  virtual Variant VsPPGetPaperHeightS();
  virtual Variant VsPPGetPageWidthS();
  virtual Variant VsPPGetPaperWidthS();

  // --- Text ---------------------------------------------------------------------------------

  // Prints with the text's top left at (varX, varY). What is left out keeps the engine's value; a
  // font that is given stays in force. Size in points.
  virtual void VsPPPrint(const TextArgument& varText, const Variant& varX = Missing,
                         const Variant& varY = Missing, const Variant& varFontName = Missing,
                         const Variant& varSize = Missing, const Variant& varBold = Missing,
                         const Variant& varUnderline = Missing, const Variant& varItalic = Missing);
  // The same with the text's right end at varX, measured in the font in force before the call.
  virtual void VsPPPrintR(const TextArgument& varText, const Variant& varX = Missing,
                          const Variant& varY = Missing, const Variant& varFontName = Missing,
                          const Variant& varSize = Missing, const Variant& varBold = Missing,
                          const Variant& varUnderline = Missing,
                          const Variant& varItalic = Missing);
  virtual void VsPPSetFont(const Variant& FontName = Missing, const Variant& FontSize = Missing,
                           const Variant& FontBold = Missing,
                           const Variant& FontUnderline = Missing,
                           const Variant& FontItalic = Missing);
  virtual std::string VsPPGetFontName();
  virtual Variant VsPPGetFontSize();
  virtual std::int32_t VsPPTextWidth(const TextArgument& Tekst);
  virtual std::int32_t VsPPTextHeight(const TextArgument& Tekst);

  // --- Drawing ------------------------------------------------------------------------------
  //
  // varDrawStyle is the pen's style (PenStyle in constants.h), varDrawWidth its width in twips (0 =
  // hairline), varColor its colour. A filled figure is filled in the pen's colour with brush style
  // varFillStyle (BrushStyle). Each figure also takes its options by name:
  //
  //   print.VsPPLine(25, 30, 185, 60, {.box = true, .color = Color::Blue, .drawWidth = 20});

  virtual void VsPPLine(const Variant& varX1, const Variant& varY1, const Variant& varX2,
                        const Variant& varY2, const Variant& varBox = false,
                        const Variant& varFilled = false, const Variant& varColor = std::int32_t{0},
                        const Variant& varFillStyle = std::int32_t{0},
                        const Variant& varDrawStyle = std::int32_t{0},
                        const Variant& varDrawWidth = std::int16_t{0});
  void VsPPLine(const Variant& varX1, const Variant& varY1, const Variant& varX2,
                const Variant& varY2, const LineOptions& options);
  // A full circle unless both angles are given (radians, counter-clockwise from three o'clock; a
  // negative one adds a line from the centre). The radius takes the horizontal unit.
  virtual void VsPPCircle(const Variant& varX1, const Variant& varY1, const Variant& varRadius,
                          const Variant& varStart = Missing, const Variant& varEnd = Missing,
                          const Variant& varFilled = false,
                          const Variant& varColor = std::int32_t{0},
                          const Variant& varFillStyle = std::int32_t{0},
                          const Variant& varDrawStyle = std::int32_t{0},
                          const Variant& varDrawWidth = std::int16_t{0});
  void VsPPCircle(const Variant& varX1, const Variant& varY1, const Variant& varRadius,
                  const CircleOptions& options);
  // Points 1 to varX's upper bound, the first 32,767; those that are no numbers are left out. A
  // std::vector<float> or a span is drawn whole.
  virtual void VsPPDrawPolyline(const Array<float>& varX, const Array<float>& varY,
                                const Variant& varClosed = false, const Variant& varFilled = false,
                                const Variant& varColor = std::int32_t{0},
                                const Variant& varFillStyle = std::int32_t{0},
                                const Variant& varDrawStyle = std::int32_t{0},
                                const Variant& varDrawWidth = std::int16_t{0});
  void VsPPDrawPolyline(const Array<float>& varX, const Array<float>& varY,
                        const PolylineOptions& options);
  // BMP, GIF, ICO, JPEG, PNG, TIFF or SVG, stretched into the rectangle.
  virtual void VsPPPicture(const TextArgument& sPicturePath, const double& dX1, const double& dY1,
                           const double& dX2, const double& dY2);
  // The same with a picture object (see pagivo/picture.h); anything else draws nothing.
  virtual void VsPPRealPicture(const Variant& vPicture, const double& dX1, const double& dY1,
                               const double& dX2, const double& dY2);

  // --- Page layout --------------------------------------------------------------------------

  virtual std::int32_t VsPPGetMarginLeft();
  virtual std::int32_t VsPPGetMarginRight();
  virtual std::int32_t VsPPGetMarginTop();
  virtual std::int32_t VsPPGetMarginBottom();
  virtual void VsPPSetMarginLeft(const Variant& Margin);
  virtual void VsPPSetMarginRight(const Variant& Margin);
  virtual void VsPPSetMarginTop(const Variant& Margin);
  virtual void VsPPSetMarginBottom(const Variant& Margin);
  // One of Orientation in constants.h.
  virtual std::int16_t VsPPGetOrientation();
  virtual void VsPPSetOrientation(const Variant& Instelling);
  // One of PaperSize in constants.h.
  virtual std::int16_t VsPPGetPaperSize();
  virtual void VsPPSetPaperSize(const Variant& Instelling);
  // The paper getters answer what the page getters answer.
  virtual std::int32_t VsPPGetPageHeight();
  virtual std::int32_t VsPPGetPaperHeight();
  virtual std::int32_t VsPPGetPageWidth();
  virtual std::int32_t VsPPGetPaperWidth();
  virtual void VsPPSetPageHeight(const Variant& Instelling);
  virtual void VsPPSetPaperHeight(const Variant& Instelling);
  virtual void VsPPSetPageWidth(const Variant& Instelling);
  // Takes the vertical unit.
  virtual void VsPPSetPaperWidth(const Variant& Instelling);
  // True: measure from the paper's edge; false: from the printable area's.
  virtual void VsPPSetPhysicalPage(const bool& Setting);
  // Resizes both arrays to 0..n, fills 1..n with the names and codes of the n paper sizes that the
  // printer supports, and returns n.
  virtual std::int16_t VsPPGetPaperSizes(Array<std::string>& sPaperSizes,
                                         Array<std::int16_t>& nPaperSizes);

  // --- Printers -----------------------------------------------------------------------------

  virtual std::int16_t VsPPGetNDevices();
  virtual void VsPPSetDevice(const TextArgument& DeviceName);
  virtual std::int16_t VsPPGetCopies();
  // The component's own print dialog; true when confirmed. All four arguments receive the choices.
  virtual Variant VsPPPrinterDialog(std::string& DeviceName, IntegerVariable Copies,
                                    IntegerVariable FromPage, IntegerVariable ToPage);
  // The engine's own dialogs; true when confirmed.
  virtual bool VsPPPrinterSetup();
  virtual bool VsPPPageSetup();
  // Draws a window's contents into the document. Throws.
  virtual void VsPPRenderControl(const std::int32_t& hwnd);

  // --- Overlays and watermark ---------------------------------------------------------------

  // Reopens page Bladnummer of the finished document for drawing.
  virtual void VsPPStartOverlay(const IntegerArgument& Bladnummer);
  virtual void VsPPEndOverlay();
  // Chooses watermark picture 1, 2 or 3 and draws it on the current page and every later one.
  virtual void VsPPWatermerkInit(const IntegerArgument& Watermerk);
  virtual void VsWatermerkAfdrukken();

  // --- Output -------------------------------------------------------------------------------

  // Shows the preview at a page, modally. In two-page view an even Pagina becomes the odd one
  // before it, for the host's variable too.
  virtual void VsPreviewFile(IntegerVariable Pagina);
  // Prints pages Van to Tm, once per copy; 0 stands for the first and the last page.
  virtual void VsPrintFile(const IntegerArgument& AantalExemplaren,
                           const Variant& Van = std::int16_t{0},
                           const Variant& Tm = std::int16_t{0});
  // Writes the document to a PDF file. Throws; what was there before is then untouched.
  virtual void VSPDF(const TextArgument& Filename);

  // --- Late binding -------------------------------------------------------------------------

  // Calls a method by its name (in any case) or dispatch id, arguments in the order of its
  // parameters. Optional ones are left out at the end, and anywhere by Missing; they then hold
  // their defaults. What the method assigned to a by-reference parameter is written back into
  // `arguments`, in the kind that was there unless that cannot hold it. Errors: UnknownMember,
  // WrongArgumentCount, TypeMismatch or Overflow for an argument that cannot be converted, and what
  // the method itself throws.
  Variant CallMember(std::string_view name, std::span<Variant> arguments) override;
  Variant CallMember(std::int32_t dispatchId, std::span<Variant> arguments);
};

// The predeclared object, for hosts that create none. Made at first use.
PAGIVO_EXPORT PgPrint& PredeclaredPgPrint();

}  // namespace pagivo
