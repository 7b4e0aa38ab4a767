' Calls every method as a script does: without brackets and with them, with variables and with values,
' with arguments left out. What fails is written, and at the end how many were called.
Option Explicit

Dim print, called, file
Set print = CreateObject("Pagivo.PgPrint")
called = 0
file = WScript.Arguments(0)

Sub Done(method)
  called = called + 1
  If Err.Number <> 0 Then WScript.Echo method & " faalt: " & Err.Number & " " & Err.Description
  Err.Clear
End Sub

Sub Shows(method, kind, value)
  If TypeName(value) <> kind Then WScript.Echo method & " geeft " & TypeName(value) & ", geen " & kind
  Done method
End Sub

Class HostWindow
  Public WindowState
  Public Top
  Public Left
  Public Width
  Public Height
End Class

On Error Resume Next

print.VsPPInit : Done "VsPPInit"
Dim window : Set window = New HostWindow
window.WindowState = 0 : window.Top = 100 : window.Left = 100 : window.Width = 9000 : window.Height = 6000
print.VsPPStart window : Done "VsPPStart"
print.VsPPSetScaleMode 6 : Done "VsPPSetScaleMode"
print.VsPPSetPhysicalPage True : Done "VsPPSetPhysicalPage"
print.VsPPSetPreviewMode 1 : Done "VsPPSetPreviewMode"
print.VsPPZetHelp "plumeo.chm", 12 : Done "VsPPZetHelp"
print.VsPPSetDevice "" : Done "VsPPSetDevice"
print.VsPPSetOrientation 1 : Done "VsPPSetOrientation"
print.VsPPSetPaperSize 9 : Done "VsPPSetPaperSize"
print.VsPPSetPageHeight 297 : Done "VsPPSetPageHeight"
print.VsPPSetPaperHeight 297 : Done "VsPPSetPaperHeight"
print.VsPPSetPageWidth 210 : Done "VsPPSetPageWidth"
print.VsPPSetPaperWidth 210 : Done "VsPPSetPaperWidth"
Dim margin : margin = 10
print.VsPPSetMarginLeft margin : Done "VsPPSetMarginLeft"
print.VsPPSetMarginRight margin : Done "VsPPSetMarginRight"
print.VsPPSetMarginTop margin : Done "VsPPSetMarginTop"
print.VsPPSetMarginBottom "10" : Done "VsPPSetMarginBottom"
print.VsPPAfdrukkenAanUit False : Done "VsPPAfdrukkenAanUit"
print.VsPPWatermerkInit 1 : Done "VsPPWatermerkInit"
print.VsWatermerkAfdrukken : Done "VsWatermerkAfdrukken"

print.VsPPSetFont "Arial", 12, True : Done "VsPPSetFont"
print.VsPPZetKleur 255 : Done "VsPPZetKleur"
Dim text : text = "Goedemorgen"
print.VsPPPrint text, 25, 30 : Done "VsPPPrint"
print.VsPPPrintR text, 185, 30, , 10 : Done "VsPPPrintR"
print.VsPPZetInhoud "Hoofdstuk 1" : Done "VsPPZetInhoud"
print.VsPPLine 25, 42, 185, 60, True, , 255 : Done "VsPPLine"
print.VsPPCircle 100, 100, 20, , , True : Done "VsPPCircle"
print.VsPPDrawPolyline Array(0, 25, 50, 75), Array(0, 100, "120", 100.5), True : Done "VsPPDrawPolyline"
print.VsPPPicture "", 25, 200, 50, 220 : Done "VsPPPicture"
print.VsPPRealPicture Nothing, 25, 200, 50, 220 : Done "VsPPRealPicture"
print.VsPPRenderControl 0
If Err.Number = 0 Then WScript.Echo "VsPPRenderControl zonder venster faalt niet"
Err.Clear : Done "VsPPRenderControl"
print.VsPPNewPage : Done "VsPPNewPage"
print.VsPPFinish "Rapport" : Done "VsPPFinish"
print.VsPPClose : Done "VsPPClose"
print.VsPPStartOverlay 1 : Done "VsPPStartOverlay"
print.VsPPEndOverlay : Done "VsPPEndOverlay"

Shows "VsPPGetCopies", "Integer", print.VsPPGetCopies
Shows "VsPPGetCurrentPage", "Integer", print.VsPPGetCurrentPage
Shows "VsPPGetFontSize", "Single", print.VsPPGetFontSize
Shows "VsPPGetFontName", "String", print.VsPPGetFontName()
Shows "VsPPGetMarginLeft", "Long", print.VsPPGetMarginLeft
Shows "VsPPGetMarginRight", "Long", print.VsPPGetMarginRight
Shows "VsPPGetMarginTop", "Long", print.VsPPGetMarginTop
Shows "VsPPGetMarginBottom", "Long", print.VsPPGetMarginBottom
If Round(print.VsPPGetMarginLeftS) <> 10 Then WScript.Echo "de linkermarge is " & print.VsPPGetMarginLeftS
Done "VsPPGetMarginLeftS"
If Round(print.VsPPGetMarginRightS) <> 10 Then WScript.Echo "de rechtermarge is " & print.VsPPGetMarginRightS
Done "VsPPGetMarginRightS"
If Round(print.VsPPGetMarginTopS) <> 10 Then WScript.Echo "de bovenmarge is " & print.VsPPGetMarginTopS
Done "VsPPGetMarginTopS"
If Round(print.VsPPGetMarginBottomS) <> 10 Then WScript.Echo "de ondermarge is " & print.VsPPGetMarginBottomS
Done "VsPPGetMarginBottomS"
Shows "VsPPGetNDevices", "Integer", print.VsPPGetNDevices
Shows "VsPPGetOrientation", "Integer", print.VsPPGetOrientation
Shows "VsPPGetPaperSize", "Integer", print.VsPPGetPaperSize
Dim names, codes, count
count = print.VsPPGetPaperSizes(names, codes)
If UBound(names) <> count Or UBound(codes) <> count Then WScript.Echo "de papiermaten zijn niet gevuld"
Shows "VsPPGetPaperSizes", "Integer", count
Shows "VsPPGetPageHeight", "Long", print.VsPPGetPageHeight
Shows "VsPPGetPaperHeight", "Long", print.VsPPGetPaperHeight
Shows "VsPPGetPageWidth", "Long", print.VsPPGetPageWidth
Shows "VsPPGetPaperWidth", "Long", print.VsPPGetPaperWidth
Shows "VsPPGetPageHeightS", "Double", print.VsPPGetPageHeightS
Shows "VsPPGetPaperHeightS", "Double", print.VsPPGetPaperHeightS
Shows "VsPPGetPageWidthS", "Double", print.VsPPGetPageWidthS
Shows "VsPPGetPaperWidthS", "Double", print.VsPPGetPaperWidthS
Shows "VsPPGetPageCount", "Integer", print.VsPPGetPageCount
Shows "VsPPGetDevice", "String", print.VsPPGetDevice
Shows "VsPPTextWidth", "Long", print.VsPPTextWidth(text)
Shows "VsPPTextWidthS", "Double", print.VsPPTextWidthS(text)
Shows "VsPPTextHeight", "Long", print.VsPPTextHeight(text)
Shows "VsPPTextHeightS", "Double", print.VsPPTextHeightS("abc")

Shows "VsPPPageSetup", "Boolean", print.VsPPPageSetup
Shows "VsPPPrinterSetup", "Boolean", print.VsPPPrinterSetup
Dim device, copies, first, last
device = "" : copies = 1 : first = 1 : last = 1
Shows "VsPPPrinterDialog", "Boolean", print.VsPPPrinterDialog(device, copies, first, last)
print.VsPreviewFile 1 : Done "VsPreviewFile"
print.VsPrintFile 1, 1 : Done "VsPrintFile"

print.VSPDF file : Done "VSPDF"
print.VSPDF "Z:\geen\map\x.pdf"
If (Err.Number And &HFFFF&) <> 75 Then WScript.Echo "VSPDF faalt met " & Err.Number
If Err.Source <> "Pagivo.PgPrint" Then WScript.Echo "de fout komt van " & Err.Source
Err.Clear
print.VsPPEinde : Done "VsPPEinde"

WScript.Echo called & " methoden"
