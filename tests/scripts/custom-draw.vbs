' A value cell that the host draws: the three stages, the size, what declining the first stage leaves, and which cells ask.
Option Explicit
Host.Include "lib/common.vbs"

Const kRed = &HFF&
Const kGreen = &HFF00&

Dim Decline, Stages, Width, Height, Context, PaintColor
Decline = -1
PaintColor = -1

Sub Grid_PropertyDraw(context_, aProperty, cx, cy, stage, doDefault)
    Stages = Stages & aProperty.Name & stage & " "
    Context = context_
    Width = cx
    Height = cy
    If Not doDefault Then Stages = Stages & "arrived False "
    If stage = Decline Then doDefault = False
    If stage = 2 And PaintColor <> -1 Then Host.FillCell context_, 4, 2, 10, cy - 4, PaintColor
End Sub

' The stages of one painting of the whole grid.
Function Painted()
    Host.Pump 50
    Stages = ""
    Grid.Refresh
    Host.Pump 50
    Painted = Trim(Stages)
End Function

Dim all, drawn, plain, x, i
Set all = Grid.Properties
MakePlain 300, 200
Grid.Grid = 0
Set drawn = all.Add("D", "", "Cat")
Set plain = all.Add("P", "")
drawn.BackColor = kRed
x = 250

' The row is not asked about before it wants to be, then three times a painting, value cell only.
CheckEqual "without custom draw", "", Painted()
CheckEqual "filled", kRed, Host.Pixel(x, RowY(0))
drawn.CustomDraw = True
CheckEqual "with custom draw", "D0 D1 D2", Painted()
CheckEqual "width less one", 300 - 2 * RowsTop - CLng(Grid.ColumnDividerPosition) - 2, Width
CheckEqual "height less one", RowHeight - 1, Height
CheckTrue "a context", Context <> 0

' Declining the erase shows what is beneath. The other two stages cannot be declined.
CheckEqual "filled", kRed, Host.Pixel(x, RowY(0))
Decline = 1
Painted
CheckEqual "second stage declined", kRed, Host.Pixel(x, RowY(0))
Decline = 2
Painted
CheckEqual "third stage declined", kRed, Host.Pixel(x, RowY(0))
Decline = 0
Painted
CheckEqual "erase declined", &HFFFFFF, Host.Pixel(x, RowY(0))
CheckEqual "the name cell is not asked about", kRed, Host.Pixel(NameX(), RowY(0))
Grid.PropertyBackColor = &HCCCCFF
Painted
CheckEqual "the background of the rows shows", &HCCCCFF, Host.Pixel(x, RowY(0))
Grid.Grid = 3
Grid.LineColor = kGreen
Painted
CheckEqual "lines are drawn all the same", kGreen, Host.Pixel(x, RowsTop + RowHeight - 1)
Grid.Grid = 0
Decline = -1

' What the host draws last stays, in the coordinates of the cell.
PaintColor = kGreen
Painted
CheckEqual "drawn by the host", kGreen, Host.Pixel(CLng(Grid.ColumnDividerPosition) + 8, RowY(0))
CheckEqual "beside it", kRed, Host.Pixel(x, RowY(0))
CheckEqual "left of the cell", kRed, Host.Pixel(NameX(), RowY(0))
PaintColor = -1

' A selected row is filled with the highlight; the erase can be declined there too.
drawn.ReadOnly = True
Set Grid.SelectedProperty = drawn
Painted
CheckEqual "selected", kHighlight, Host.Pixel(x, RowY(0))
Decline = 0
Painted
CheckEqual "selected, erase declined", &HCCCCFF, Host.Pixel(x, RowY(0))
Decline = -1
Set Grid.SelectedProperty = Nothing

' Categories, hidden rows, rows of a closed category and rows out of view do not ask.
Grid.ActiveView = omCatagorized
CheckEqual "in its category", "D0 D1 D2", Painted()
Grid.ExpandCategory "Cat", False
CheckEqual "in a closed category", "", Painted()
Grid.ExpandCategory "Cat", True
drawn.Visible = False
CheckEqual "hidden", "", Painted()
drawn.Visible = True
Grid.ActiveView = omAlphabetic
Grid.LockRefresh = True
For i = 1 To 40
    all.Add "R" & i, i
Next
Grid.LockRefresh = False
CheckEqual "in view", "D0 D1 D2", Painted()
Set Grid.SelectedProperty = all(42)
CheckEqual "out of view", "", Painted()
drawn.Value = "new"
Host.Pump 50
CheckEqual "changed out of view", "", Trim(Stages)
Set Grid.SelectedProperty = drawn
Set Grid.SelectedProperty = plain
Host.Pump 50
Stages = ""
drawn.Value = "newer"
Host.Pump 50
CheckEqual "changed in view: its row alone", "D0 D1 D2", Trim(Stages)
Stages = ""
plain.Help = "help"
Host.Pump 50
CheckEqual "another row changed", "", Trim(Stages)
Grid.LockRefresh = True
CheckEqual "under the lock", "", Painted()
Grid.LockRefresh = False

Finish
