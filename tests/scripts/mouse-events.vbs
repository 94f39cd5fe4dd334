' What the host hears of the mouse: the part of the grid, the place, the buttons; and the bars that the mouse drags.
Option Explicit
Host.Include "lib/common.vbs"

Const kAlphabeticTab = 1
Const kCategorizedTab = 2
Const kRowsArea = 3
Const kDescription = 10
Const kDescriptionBar = 11
Const kNameHeader = 12
Const kValueHeader = 13
Const kHeaderBar = 14

Dim LastPart, LastMove, MouseX, MouseY, MouseButton, MouseShift
LastPart = -1

Sub Grid_MouseMove(button, shift, x, y, part)
    LastPart = part
    LastMove = "move"
End Sub

Sub Grid_MouseDown(button, shift, x, y, part)
    Note "down " & part
    MouseX = x
    MouseY = y
    MouseButton = button
    MouseShift = shift
End Sub

' Over the value header moves come as releases; only what comes with a button is noted.
Sub Grid_MouseUp(button, shift, x, y, part)
    If button <> 0 Then Note "up " & part
    LastPart = part
    LastMove = "up"
End Sub

Sub Grid_ActiveViewChanged()
    Note "view " & Grid.ActiveView
End Sub

' The part at a point, by moving the mouse there.
Function PartAt(x, y)
    LastPart = -1
    Host.MoveTo x, y
    PartAt = LastPart
End Function

' The first place of a part on a line downwards or to the right, or -1.
Function FindDown(x, part)
    Dim y
    For y = 1 To 298
        If PartAt(x, y) = part Then
            FindDown = y
            Exit Function
        End If
    Next
    FindDown = -1
End Function

Function FindRight(y, part)
    Dim x
    For x = 1 To 298
        If PartAt(x, y) = part Then
            FindRight = x
            Exit Function
        End If
    Next
    FindRight = -1
End Function

' The place of the last MouseDown is where the mouse was pressed.
Sub CheckPlace(what, x, y)
    CheckTrue what & ": x " & MouseX & " for " & x, Abs(MouseX - x) <= 1
    CheckTrue what & ": y " & MouseY & " for " & y, Abs(MouseY - y) <= 1
End Sub

Dim all, tabY, tabX, headerY, rowsTop2, barY, barX, before, fitted, paneY
Set all = Grid.Properties
Host.Resize 300, 300
all.Add "A rather long name of a row", 1
all.Add "B", 2
Host.Pump 50

' Each part of the control is where it is, from the top to the bottom.
tabY = 8
CheckEqual "first tab", kAlphabeticTab, PartAt(12, tabY)
tabX = FindRight(tabY, kCategorizedTab)
CheckTrue "second tab", tabX > 20
CheckEqual "beside the tabs", 0, PartAt(295, tabY)
headerY = FindDown(60, kNameHeader)
CheckTrue "name header", headerY > tabY
headerY = headerY + 6
rowsTop2 = FindDown(60, kRowsArea)
CheckTrue "rows", rowsTop2 > headerY
barY = FindDown(60, kDescriptionBar)
CheckTrue "description bar", barY > rowsTop2
CheckEqual "description", kDescription, PartAt(60, 295)
barX = FindRight(headerY, kHeaderBar)
CheckTrue "bar between the headers", barX > 20
CheckEqual "value header", kValueHeader, PartAt(barX + 30, headerY)
CheckEqual "moves over the value header come as releases", "up", LastMove
CheckEqual "name header", kNameHeader, PartAt(barX - 30, headerY)
CheckEqual "moves elsewhere are moves", "move", LastMove
EventLog = ""

' Press and release, their place, their button and the keys held.
Host.Click 60, rowsTop2 + 5
CheckEvents "rows", "down 3, up 3"
CheckPlace "rows", 60, rowsTop2 + 5
CheckEqual "left button", 1, MouseButton
Host.Click 60, 280, 2, 1
CheckEvents "description", "down 10, up 10"
CheckPlace "description", 60, 280
CheckEqual "right button", 2, MouseButton
CheckEqual "Shift", 1, MouseShift
Host.Click 60, 280, 4, 2
CheckEqual "middle button", 4, MouseButton
CheckEqual "Ctrl", 2, MouseShift
EventLog = ""
Host.Click barX + 30, headerY
CheckEvents "value header: the release comes as a press", "down 13, down 13"
CheckPlace "value header", barX + 30, headerY
Host.Click barX - 30, headerY
CheckEvents "name header", "down 12, up 12"
Grid.Sorted = False
EventLog = ""

' Tabs switch the view.
Host.Click tabX + 5, tabY
CheckEvents "categorized tab", "view 1, down 2, up 2"
CheckEqual "view", 1, Grid.ActiveView
Host.Click tabX + 5, tabY
CheckEvents "again", "down 2, up 2"
Host.Click 12, tabY
CheckEvents "alphabetic tab", "view 0, down 1, up 1"

' The header bar is dragged, and fits the names at a double click.
before = Grid.ColumnDividerPosition
Host.Drag barX, headerY, barX + 40, headerY
CheckTrue "dragged by 40: " & Grid.ColumnDividerPosition - before, Abs(Grid.ColumnDividerPosition - before - 40) <= 1
Grid.ColumnDividerPosition = -1
fitted = Grid.ColumnDividerPosition
CheckTrue "the names fit", fitted > 40 And fitted < 290
Grid.ColumnDividerPosition = before
CheckEqual "put back", before, Grid.ColumnDividerPosition
Host.DoubleClick barX, headerY
CheckEqual "double click on the bar", fitted, Grid.ColumnDividerPosition
Grid.ColumnDividerPosition = 100000
CheckTrue "no farther than the grid", Grid.ColumnDividerPosition > 250 And Grid.ColumnDividerPosition < 300
Grid.ColumnDividerPosition = before

' The description bar is dragged, and goes back and forth at double clicks.
barY = barY + 1
before = Grid.DescriptionPaneHeight
Host.Drag 60, barY, 60, barY - 50
CheckTrue "dragged by 50: " & Grid.DescriptionPaneHeight - before, Abs(Grid.DescriptionPaneHeight - before - 50) <= 1
paneY = Grid.DescriptionPaneHeight
Host.DoubleClick 60, barY - 50
CheckTrue "back: " & Grid.DescriptionPaneHeight, Abs(Grid.DescriptionPaneHeight - before) <= 1
Host.DoubleClick 60, barY
CheckTrue "forth: " & Grid.DescriptionPaneHeight, Abs(Grid.DescriptionPaneHeight - paneY) <= 1
Grid.DescriptionPaneHeight = before
CheckTrue "put back", Abs(Grid.DescriptionPaneHeight - before) <= 1
Grid.ShowDescription = False
CheckEqual "rows instead of the description", kRowsArea, PartAt(60, 285)
Grid.ShowDescription = True
CheckEqual "the description again", kDescription, PartAt(60, 295)

' Without tabs and headers the rows begin at the top.
Grid.ShowTabs = False
Grid.Headers = 0
CheckEqual "rows at the top", kRowsArea, PartAt(60, 6)
Grid.Headers = 2
CheckEqual "header at the top", kNameHeader, PartAt(60, 8)
Grid.ShowTabs = True
CheckEqual "tabs at the top", kAlphabeticTab, PartAt(12, tabY)

Finish
