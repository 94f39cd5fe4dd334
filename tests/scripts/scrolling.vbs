' Wheel, scroll bar, keys and code scroll the rows; the row at the top is told by its colour.
Option Explicit
Host.Include "lib/common.vbs"

Const kRows = 30
Const kFit = 10

Sub Grid_ValidateValue(aProperty, newValue, cancel)
    Note "validate " & newValue
End Sub

Sub Grid_PropertyValueChanged(aProperty)
    Note "changed " & aProperty.Name
End Sub

Sub Grid_SelChanged(aProperty)
    Note "selected " & NameOf(aProperty)
End Sub

' The row whose colour stands in the given row of the screen; -1 for none.
Function RowAt(row)
    Dim color
    RowAt = -1
    color = Host.Pixel(20, RowY(row))
    If color \ 256 = &H40 Then RowAt = (color And 255) \ 4
End Function

Dim all, i, row, width, height, barX
Set all = Grid.Properties
MakePlain 300, 200
Grid.Grid = 0
width = 300
height = kFit * RowHeight + 2 * RowsTop
barX = width - 8
Host.Resize width, height

' As many rows as fit need no bar.
Grid.LockRefresh = True
For i = 0 To kRows - 1
    Set row = all.Add("R" & i, "v" & i)
    row.BackColor = &H4000 + i * 4
    row.ForeColor = row.BackColor
    row.Visible = i < kFit
Next
Grid.LockRefresh = False
Host.MoveTo 100, height \ 2
Host.Wheel -1
CheckEqual "no bar", 0, RowAt(0)
CheckEqual "rows reach the right edge", RowAt(3), (Host.Pixel(width - 3, RowY(3)) And 255) \ 4
CheckEvents "nothing happened", ""

' All rows: a bar that the wheel moves by a row a notch, between its ends.
Grid.LockRefresh = True
For i = 0 To kRows - 1
    all(i + 1).Visible = True
Next
Grid.LockRefresh = False
Host.Pump 50
CheckEqual "first row", 0, RowAt(0)
CheckEqual "last row in view", kFit - 1, RowAt(kFit - 1)
Host.Wheel -1
CheckEqual "a notch", 1, RowAt(0)
CheckEqual "the rows below are painted", kFit, RowAt(kFit - 1)
Host.Wheel -3
CheckEqual "three notches", 4, RowAt(0)
CheckEqual "the rows below are painted", kFit + 3, RowAt(kFit - 1)
Host.Wheel 1
CheckEqual "back", 3, RowAt(0)
CheckEqual "the rows above are painted", 4, RowAt(1)
Host.Wheel 0.5
CheckEqual "half a notch", 3, RowAt(0)
Host.Wheel 50
CheckEqual "the top is the end", 0, RowAt(0)
Host.Wheel -50
CheckEqual "the bottom is the end", kRows - kFit, RowAt(0)
CheckEqual "the last row", kRows - 1, RowAt(kFit - 1)
Host.Wheel 50

' The bar: arrows by a row, the shaft by what fits, the thumb freely.
Host.Click barX, height - 5
CheckEqual "arrow down", 1, RowAt(0)
Host.Click barX, height - 30
CheckEqual "shaft below", 1 + kFit, RowAt(0)
Host.Click barX, 5
CheckEqual "arrow up", kFit, RowAt(0)
Host.Click barX, 20
CheckEqual "shaft above", 0, RowAt(0)
Host.Drag barX, 25, barX, height - 2
CheckEqual "thumb", kRows - kFit, RowAt(0)
Host.Drag barX, height - 25, barX, 2
CheckEqual "thumb back", 0, RowAt(0)
CheckEvents "scrolling selects nothing", ""
Host.Keys "{HOME}"
CheckEvents "the rows have the focus after the bar", "selected R0"

' Selecting brings a row into view; from below by one more than needed where the row ends at the edge.
Set Grid.SelectedProperty = all(7)
CheckEqual "in view already", 0, RowAt(0)
Set Grid.SelectedProperty = all(27)
CheckEqual "from below", 18, RowAt(0)
Set Grid.SelectedProperty = all(6)
CheckEqual "from above", 5, RowAt(1) - 1
Set Grid.SelectedProperty = all(kRows)
CheckEqual "not past the end", kRows - kFit, RowAt(0)
Set Grid.SelectedProperty = all(1)
Set Grid.SelectedProperty = Nothing
CheckEqual "first again", 0, RowAt(0)
Host.Resize width, height + RowHeight \ 2
Set Grid.SelectedProperty = all(kFit + 1)
CheckEqual "a row half in view", 2, RowAt(0)
Set Grid.SelectedProperty = Nothing
Host.Resize width, height
Host.Wheel 50

' Scrolling in the middle of an edit commits and keeps the editor, at its row's new place, out of view too.
ClickRow 3
EventLog = ""
Host.Keys "typed"
Host.Wheel -2
CheckEvents "scrolled in an edit", "validate typed, changed R3"
CheckTrue "the editor moved along", EditorIsOpen(1)
Host.Wheel -5
Host.Wheel 7
CheckTrue "the editor came back into view", EditorIsOpen(3)
CheckEvents "scrolled without change", ""
Host.Keys "{HOME}{ENTER}"
ClickRow 4
EventLog = ""
Host.Keys "again{ENTER}"
CheckEvents "edited after scrolling", "validate again, changed R4"

' Fewer rows than the place needs: the place moves up with the end.
Host.Wheel -50
Grid.LockRefresh = True
For i = kRows To kFit + 3 Step -1
    all.Remove i
Next
Grid.LockRefresh = False
Set Grid.SelectedProperty = Nothing
CheckEqual "the end moved up", 2, RowAt(0)
all.Remove kFit + 2
all.Remove kFit + 1
CheckEqual "without the bar", 0, RowAt(0)
all.Clear
Grid.Refresh
CheckEqual "without rows", -1, RowAt(0)

' A big grid is walked as quickly as a small one.
Grid.LockRefresh = True
For i = 0 To 19999
    all.Add "R" & i, i
Next
Grid.LockRefresh = False
Host.Keys "{HOME}"
EventLog = ""
Host.Keys "{END}"
CheckEvents "the last of many", "selected R19999"
Host.Keys "{PGUP}{HOME}{PGDN}"
CheckEvents "pages among many", "selected R19990, selected R0, selected R9"
all.Clear

Finish
