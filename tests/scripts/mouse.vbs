' Buttons, wheel and scroll bar under a real mouse; the row at the top is told by its colour.
Option Explicit
Host.Include "lib/common.vbs"

Const kRows = 30
Const kFit = 10

Sub Grid_SelChanged(aProperty)
    Note "selected " & NameOf(aProperty)
End Sub

Dim Pressed
Sub Grid_MouseDown(button, shift, x, y, part)
    Pressed = button & " " & shift & " " & x & " " & y & " " & part
End Sub

' The row whose colour stands in the given row of the screen; -1 for none.
Function RowAt(row)
    Dim color
    RowAt = -1
    color = Host.Pixel(20, RowY(row))
    If color \ 256 = &H40 Then RowAt = (color And 255) \ 4
End Function

Dim all, i, row, height, barX
Set all = Grid.Properties
MakePlain 300, 200
Grid.Grid = 0
height = kFit * RowHeight + 2 * RowsTop
barX = 300 - 8
Host.Resize 300, height
Grid.LockRefresh = True
For i = 0 To kRows - 1
    Set row = all.Add("R" & i, "v" & i)
    row.BackColor = &H4000 + i * 4
    row.ForeColor = row.BackColor
Next
Grid.LockRefresh = False
Host.MoveTo 100, height \ 2
Host.Wheel -3
CheckEqual "three notches", 3, RowAt(0)
CheckEqual "the rows below are painted", kFit + 2, RowAt(kFit - 1)
Host.Wheel 50
CheckEqual "the top is the end", 0, RowAt(0)

' Arrows by a row, the shaft by what fits, the thumb freely; the rows have the focus afterwards.
Host.Click barX, height - 5
CheckEqual "arrow down", 1, RowAt(0)
Host.Click barX, height - 30
CheckEqual "shaft below", 1 + kFit, RowAt(0)
Host.Click barX, 5
CheckEqual "arrow up", kFit, RowAt(0)
Host.Drag barX, height \ 2, barX, height - 2
CheckEqual "thumb", kRows - kFit, RowAt(0)
Host.Drag barX, height - 25, barX, 2
CheckEqual "thumb back", 0, RowAt(0)
CheckEvents "scrolling selects nothing", ""
Host.Keys "{HOME}"
CheckEvents "the rows have the focus", "selected R0"

Set Grid.SelectedProperty = all(27)
CheckEqual "a row below comes into view", 18, RowAt(0)

Host.Click 60, 40, 4, 2
CheckEqual "the middle button with Ctrl", "4 2 60 40 3", Pressed
Host.Click 70, 41, 2, 1
CheckEqual "the right button with Shift", "2 1 70 41 3", Pressed
Finish
