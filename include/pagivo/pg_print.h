// PgPrint: compose a document page by page, show it, print it, write it as PDF.
//
// One document is composed at a time: the scale factors, the watermark, the contents table, the
// print request and the preview window that carries the print engine exist once per process and are
// shared by every PgPrint. All calls come from one thread, the host's user-interface thread.
//
// Units: positions and lengths are in the host's units, chosen with VsPPSetScaleMode (twips at
// first, 1/1440 inch); y runs down. Getters whose names end in S answer in those units, the others
// in twips. Colours are 0x00BBGGRR.
//
// Errors: every method ignores the errors of its statements, each statement for itself, and a
// getter whose reading fails answers its zero value. Three methods throw pagivo::Error instead:
// VsPPAfdrukkenAanUit, VsPPRenderControl and VSPDF.
//
// The order of a document: VsPPInit, VsPPStart, settings, content with VsPPNewPage after every page
// (the last one too), VsPPFinish, perhaps overlays, then VsPreviewFile, VsPrintFile or VSPDF, at
// the end VsPPEinde. The page after the last VsPPNewPage is never shown, printed or exported.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "pagivo/array.h"
#include "pagivo/error.h"
#include "pagivo/object.h"
#include "pagivo/variant.h"

namespace pagivo {

// Creating any PgPrint resets the contents count, the watermark and the scale factors for all of
// them. Destroying one closes nothing.
//
// Parameters that a method changes are non-const references; optional ones are Variants, and
// Missing leaves them out.
class PgPrint : public Object {
 public:
  PgPrint();

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
  virtual void VsPPFinish(std::string sTitle);
  virtual void VsPPClose();
  // Discards the preview window and its document.
  virtual void VsPPEinde();
  virtual std::int16_t VsPPGetCurrentPage();
  virtual std::int16_t VsPPGetPageCount();
  virtual std::string VsPPGetDevice();
  // Adds a contents entry for the page being composed; at most 50 are kept.
  virtual void VsPPZetInhoud(const std::string& sOmschrijving);
  // Text colour, 0x00BBGGRR.
  virtual void VsPPZetKleur(const std::int32_t& Kleur);
  // Hides (true) or shows (false) the preview's print button. Throws.
  virtual void VsPPAfdrukkenAanUit(const bool& AfdrukkenUit);
  // Accepted and ignored.
  virtual void VsPPSetPreviewMode(const std::int16_t& PreviewMode);
  virtual void VsPPZetHelp(const std::string& Helpbestand, const std::int32_t& HelpContextID);

  // --- Units --------------------------------------------------------------------------------

  // 1 twip, 2 point, 3 screen pixel, 4 character cell (120 x 240 twips), 5 inch, 6 millimetre,
  // 7 centimetre; anything else twip.
  virtual void VsPPSetScaleMode(const std::int16_t& ScaleMode);
  virtual Variant VsPPTextWidthS(const std::string& Tekst);
  virtual Variant VsPPTextHeightS(const std::string& Tekst);
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
  virtual void VsPPPrint(const std::string& varText, const Variant& varX = Missing,
                         const Variant& varY = Missing, const Variant& varFontName = Missing,
                         const Variant& varSize = Missing, const Variant& varBold = Missing,
                         const Variant& varUnderline = Missing, const Variant& varItalic = Missing);
  // The same with the text's right end at varX, measured in the font in force before the call.
  virtual void VsPPPrintR(const std::string& varText, const Variant& varX = Missing,
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
  virtual std::int32_t VsPPTextWidth(const std::string& Tekst);
  virtual std::int32_t VsPPTextHeight(const std::string& Tekst);

  // --- Drawing ------------------------------------------------------------------------------
  //
  // varDrawStyle is the pen's style (0 solid, 1 dash, 2 dot, 3 dash-dot, 4 dash-dot-dot,
  // 5 invisible, 6 inside solid), varDrawWidth its width in twips (0 = hairline), varColor its
  // colour. A filled figure is filled in the pen's colour with brush style varFillStyle (0 solid,
  // 2 horizontal, 3 vertical, 4 upward diagonal, 5 downward diagonal, 6 cross, 7 diagonal cross).

  virtual void VsPPLine(const Variant& varX1, const Variant& varY1, const Variant& varX2,
                        const Variant& varY2, const Variant& varBox = false,
                        const Variant& varFilled = false, const Variant& varColor = std::int32_t{0},
                        const Variant& varFillStyle = std::int32_t{0},
                        const Variant& varDrawStyle = std::int32_t{0},
                        const Variant& varDrawWidth = std::int16_t{0});
  // A full circle unless both angles are given (radians, counter-clockwise from three o'clock; a
  // negative one adds a line from the centre). The radius takes the horizontal unit.
  virtual void VsPPCircle(const Variant& varX1, const Variant& varY1, const Variant& varRadius,
                          const Variant& varStart = Missing, const Variant& varEnd = Missing,
                          const Variant& varFilled = false,
                          const Variant& varColor = std::int32_t{0},
                          const Variant& varFillStyle = std::int32_t{0},
                          const Variant& varDrawStyle = std::int32_t{0},
                          const Variant& varDrawWidth = std::int16_t{0});
  // Points 1 to the upper bound of varX; an element 0 is not drawn.
  virtual void VsPPDrawPolyline(const Array<float>& varX, const Array<float>& varY,
                                const Variant& varClosed = false, const Variant& varFilled = false,
                                const Variant& varColor = std::int32_t{0},
                                const Variant& varFillStyle = std::int32_t{0},
                                const Variant& varDrawStyle = std::int32_t{0},
                                const Variant& varDrawWidth = std::int16_t{0});
  // BMP, GIF, ICO, JPEG, PNG, TIFF or SVG, stretched into the rectangle.
  virtual void VsPPPicture(const std::string& sPicturePath, const double& dX1, const double& dY1,
                           const double& dX2, const double& dY2);
  // The same with a picture object (see pagivo/picture.h).
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
  // 1 portrait, 2 landscape.
  virtual std::int16_t VsPPGetOrientation();
  virtual void VsPPSetOrientation(const Variant& Instelling);
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
  virtual void VsPPSetDevice(const std::string& DeviceName);
  virtual std::int16_t VsPPGetCopies();
  // The component's own print dialog; true when confirmed. All four arguments receive the choices.
  virtual Variant VsPPPrinterDialog(std::string& DeviceName, std::int16_t& Copies,
                                    std::int16_t& FromPage, std::int16_t& ToPage);
  // The engine's own dialogs; true when confirmed.
  virtual bool VsPPPrinterSetup();
  virtual bool VsPPPageSetup();
  // Draws a window's contents into the document. Throws.
  virtual void VsPPRenderControl(const std::int32_t& hwnd);

  // --- Overlays and watermark ---------------------------------------------------------------

  // Reopens page Bladnummer of the finished document for drawing.
  virtual void VsPPStartOverlay(const std::int16_t& Bladnummer);
  virtual void VsPPEndOverlay();
  // Chooses watermark picture 1, 2 or 3 and draws it on the current page and every later one.
  virtual void VsPPWatermerkInit(const std::int16_t& Watermerk);
  virtual void VsWatermerkAfdrukken();

  // --- Output -------------------------------------------------------------------------------

  // Shows the preview at a page, modally. In two-page view an even Pagina becomes the odd one
  // before it.
  virtual void VsPreviewFile(std::int16_t& Pagina);
  // Prints pages Van to Tm, once per copy; 0 stands for the first and the last page.
  virtual void VsPrintFile(const std::int16_t& AantalExemplaren,
                           const Variant& Van = std::int16_t{0},
                           const Variant& Tm = std::int16_t{0});
  // Writes the document to a PDF file. Throws; what was there before is then untouched.
  virtual void VSPDF(const std::string& Filename);

  // --- Late binding -------------------------------------------------------------------------

  // Calls a method by its name (in any case) or dispatch id, arguments in the order of its
  // parameters; trailing optional ones may be left out. Results of by-reference parameters are
  // written back into `arguments`. Errors: UnknownMember, WrongArgumentCount, TypeMismatch or
  // Overflow for an argument that cannot be converted, and what the method itself throws.
  Variant CallMember(std::string_view name, std::span<Variant> arguments) override;
  Variant CallMember(std::int32_t dispatchId, std::span<Variant> arguments);
};

// The predeclared object, for hosts that create none. Made at first use.
PgPrint& PredeclaredPgPrint();

}  // namespace pagivo
