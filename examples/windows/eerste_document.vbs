' Writes a document of one page as PDF: cscript eerste_document.vbs BESTAND.pdf
' The component is registered first: regsvr32 pagivo.dll
Option Explicit

Const Millimetres = 6

Dim print
Set print = CreateObject("Pagivo.PgPrint")
print.VsPPInit
print.VsPPSetScaleMode Millimetres
print.VsPPPrint "Goedemorgen", 25, 30, "Arial", 24, True
print.VsPPLine 25, 42, 185, 42, , , RGB(0, 0, 128), , , 20
print.VsPPNewPage
print.VsPPFinish "Eerste document"
print.VSPDF WScript.Arguments(0)
