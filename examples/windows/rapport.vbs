' Writes the first pages of a report as PDF: cscript rapport.vbs BESTAND.pdf
'
' Texts and pictures are those that rapport.txt names, one element of a page a line. rapport.cpp makes the
' same file in C++. The component is registered first: regsvr32 pagivo.dll
Option Explicit

Const Millimetres = 6, A4 = 9, Portrait = 1
Const Solid = 0, Dotted = 2, Invisible = 5          ' pens
Const Hang = 22, TextLeft = 36, TextRight = 190     ' the page's grid

Dim ink, muted, rule, accent, shade
ink = RGB(33, 41, 51) : muted = RGB(98, 110, 122) : rule = RGB(196, 204, 211)
accent = RGB(14, 85, 120) : shade = RGB(243, 246, 248)

Dim print, folder
Dim runningTitle, documentTitle, footText, pagesInReport   ' what the whole report shares
Dim y, typeSize                                            ' how far down the page is filled; the type in use

Dim files, lines
Set files = CreateObject("Scripting.FileSystemObject")
folder = files.GetParentFolderName(WScript.ScriptFullName) & "\"
Set print = CreateObject("Pagivo.PgPrint")
print.VsPPInit
print.VsPPSetScaleMode Millimetres
print.VsPPSetPaperSize A4
print.VsPPSetOrientation Portrait
Set lines = files.OpenTextFile(folder & "rapport.txt", 1, False, -1)   ' for reading, in UTF-16
Do Until lines.AtEndOfStream
  Compose Split(lines.ReadLine, "|")
Loop
print.VsPPNewPage   ' ends the last page
print.VsPPFinish documentTitle
DrawFeet
print.VSPDF WScript.Arguments(0)
print.VsPPEinde

' --- What a line of rapport.txt makes ---------------------------------------------------------

Sub Compose(element)
  Select Case element(0)
    Case "rapport"
      runningTitle = element(1) : documentTitle = element(2) : footText = element(3) : pagesInReport = element(4)
    Case "beeld" : print.VsPPPicture folder & element(1), element(2), element(3), element(4), element(5)
    Case "titelblad" : TitlePage element(1), element(2), element(3)
    Case "gegeven" : Detail element(1), element(2)
    Case "inhoud" : Contents element(1)
    Case "verwijzing" : ContentsEntry element(1), element(2), element(3)
    Case "hoofdstuk" : Chapter element(1), element(2)
    Case "paragraaf" : Section element(1), element(2)
    Case "alinea" : Paragraph element(1)
    Case "punt" : Bullet element(1)
    Case "kengetal" : KeyFigure element(1), element(2), element(3), element(4), element(5)
    Case "ruimte" : y = y + element(1)
  End Select
End Sub

Sub TitlePage(name, subject, kind)
  FillBox Hang, 157.5, Hang + 24, 158.6, accent
  UseType 26, True, accent : DrawText name, Hang, 172
  UseType 14, False, ink : DrawText subject, Hang, 184
  UseType 14, False, muted : DrawText kind, Hang, 192
  y = 232
End Sub

Sub Detail(label, text)
  UseType 9.5, False, muted : DrawText label, Hang, y
  UseType 9.5, False, ink : DrawText text, Hang + 38, y
  y = y + 6.2
End Sub

Sub Contents(title)
  NewPage ""
  UseType 18, True, accent : DrawText title, TextLeft, y + 3
  y = y + 18
End Sub

Sub ContentsEntry(number, title, page)
  Dim isChapter, numberLeft, titleLeft
  isChapter = InStr(number, ".") = 0
  numberLeft = TextLeft : titleLeft = TextLeft + 10
  If isChapter Then numberLeft = Hang : titleLeft = TextLeft : y = y + 2.2
  UseType 9.5, isChapter, ink
  DrawText number, numberLeft, y
  DrawText title, titleLeft, y
  DrawLine titleLeft + WidthOf(title) + 2, y, TextRight - 9, y, Dotted, 6
  DrawTextRight page, TextRight, y
  y = y + 5
  If isChapter Then y = y + 0.6
End Sub

Sub Chapter(number, title)
  NewPage title
  print.VsPPZetInhoud number & "  " & title   ' for the contents beside the preview
  y = y + 3
  UseType 18, True, accent
  DrawText number, Hang, y
  DrawText title, TextLeft, y
  y = y + 11
End Sub

Sub Section(number, title)
  print.VsPPZetInhoud "    " & number & "  " & title
  y = y + 3.5
  UseType 11.5, True, accent
  DrawText number, Hang, y
  DrawText title, TextLeft, y
  y = y + 6.8
End Sub

Sub Paragraph(text)
  UseType 9.5, False, ink
  DrawLines text, TextLeft, TextRight - TextLeft, 4.9
  y = y + 2.4
End Sub

Sub Bullet(text)
  print.VsPPCircle TextLeft + 1.2, y - 1.2, 0.55, , , True, accent, , Invisible
  UseType 9.5, False, ink
  DrawLines text, TextLeft + 4.5, TextRight - TextLeft - 4.5, 4.9
  y = y + 0.9
End Sub

' A figure in a box of its own, one of three side by side.
Sub KeyFigure(place, title, value, unit, remark)
  Const Gap = 4, Height = 31
  Dim width, left, top
  width = (TextRight - TextLeft - 2 * Gap) / 3
  left = TextLeft + (place - 1) * (width + Gap)
  top = y + 1
  FillBox left, top, left + width, top + Height, shade
  FillBox left, top, left + 1.1, top + Height, accent
  left = left + 4.5
  UseType 8, False, muted : DrawText title, left, top + 6
  UseType 19, True, accent : DrawText value, left, top + 16
  Dim unitLeft : unitLeft = left + WidthOf(value) + 1.6
  UseType 8.5, False, ink : DrawText unit, unitLeft, top + 16
  UseType 8, False, muted
  y = top + 22.2
  DrawLines remark, left, width - 6, 3.8
  y = top - 1
End Sub

' --- Pages --------------------------------------------------------------------------------------

Sub NewPage(chapterTitle)
  print.VsPPNewPage
  UseType 7.5, False, muted
  DrawText runningTitle, Hang, 17
  DrawTextRight chapterTitle, TextRight, 17
  DrawLine Hang, 19.5, TextRight, 19.5, Solid, 8
  y = 32
End Sub

' Drawn over the finished pages.
Sub DrawFeet
  Dim page
  For page = 1 To print.VsPPGetPageCount - 1   ' the empty page behind the last one counts
    print.VsPPStartOverlay page
    DrawLine Hang, 280.5, TextRight, 280.5, Solid, 8
    UseType 7.5, False, muted
    DrawText footText, Hang, 285
    DrawTextRight "Blad " & page & " van " & pagesInReport, TextRight, 285
    print.VsPPEndOverlay
  Next
End Sub

' --- Text and figures ---------------------------------------------------------------------------

Sub UseType(size, isBold, colour)
  print.VsPPSetFont "Arial", size, isBold, False, False
  print.VsPPZetKleur colour
  typeSize = size
End Sub

Function WidthOf(text)
  WidthOf = print.VsPPTextWidthS(text)
End Function

' The component places a text by its top; lines of type are placed by what their letters stand on.
Function TopOf(baseline)
  Const Ascent = 0.905   ' of the type's size, which is in points
  TopOf = baseline - Ascent * typeSize * 25.4 / 72
End Function

Sub DrawText(text, left, baseline)
  print.VsPPPrint text, left, TopOf(baseline)
End Sub

Sub DrawTextRight(text, right, baseline)
  print.VsPPPrintR text, right, TopOf(baseline)
End Sub

' As many words a line as fit.
Sub DrawLines(text, left, width, leading)
  Dim line, word
  line = ""
  For Each word In Split(text, " ")
    If line = "" Then
      line = word
    ElseIf WidthOf(line & " " & word) <= width Then
      line = line & " " & word
    Else
      DrawText line, left, y
      y = y + leading
      line = word
    End If
  Next
  DrawText line, left, y
  y = y + leading
End Sub

Sub DrawLine(fromX, fromY, toX, toY, style, penWidth)
  print.VsPPLine fromX, fromY, toX, toY, , , rule, , style, penWidth
End Sub

Sub FillBox(left, top, right, bottom, colour)
  print.VsPPLine left, top, right, bottom, True, True, colour, , Invisible
End Sub
