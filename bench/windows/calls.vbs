' Calls methods of the server, so many times in a row as the first argument says, and prints the
' nanoseconds of a call as the script host makes it: of the fastest row, less the fastest loop without.
Option Explicit

Const kRows = 5
Dim print, count
Set print = CreateObject("Pagivo.PgPrint")
count = CLng(WScript.Arguments(0))
print.VsPPInit

Dim row, i, pages, begin, text
Dim ofLoop, ofAnswers, ofPrints
ofLoop = 1000000 : ofAnswers = 1000000 : ofPrints = 1000000
text = "Hoogte van de ligger"

Function Least(seconds)
  Least = Timer - begin
  If seconds < Least Then Least = seconds
End Function

For row = 1 To kRows
  begin = Timer
  For i = 1 To count
  Next
  ofLoop = Least(ofLoop)
  begin = Timer
  For i = 1 To count
    pages = print.VsPPGetPageCount
  Next
  ofAnswers = Least(ofAnswers)
  begin = Timer
  For i = 1 To count
    print.VsPPPrint text, 1440, 1440
  Next
  ofPrints = Least(ofPrints)
Next
WScript.Echo "script_answer " & CLng((ofAnswers - ofLoop) / count * 1000000000)
WScript.Echo "script_print " & CLng((ofPrints - ofLoop) / count * 1000000000)
print.VsPPEinde
