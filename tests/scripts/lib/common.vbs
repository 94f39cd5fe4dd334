' Shared by the scripts of the folder above: checks, a log of events, and the places of rows on screen.

Host.Include "lib/checks.vbs"

Const omCatagorized = 1
Const omCustomEditor = 1
Const omNumberEditor = 3
Const kLibrary = "OrmiskGrid"
Const kHighlight = &HFF0000

Dim EventLog, RowHeight, RowsTop
EventLog = ""

' The log of events.

Sub Note(text)
    If EventLog <> "" Then EventLog = EventLog & ", "
    EventLog = EventLog & text
End Sub

' The events since the last call are exactly these.
Sub CheckEvents(what, expected)
    CheckEqual what & ": events", expected, EventLog
    EventLog = ""
End Sub

' Rows. They fill the whole grid, without tabs, headers, description or border.

Sub MakePlain(width, height)
    Grid.ShowTabs = False
    Grid.ShowDescription = False
    Grid.Headers = 0
    Grid.Appearance = 0
    Grid.BorderStyle = 0
    Grid.HighlightBackColor = kHighlight
    Host.Resize width, height
    Grid.ColumnDividerPosition = width / 2
    MeasureRows
End Sub

' Finds the height of a row and the top of the first one, from the colour of a row that is removed again.
Sub MeasureRows()
    Dim probe, y, lines, x
    lines = Grid.Grid
    x = Grid.ColumnDividerPosition \ 2
    Grid.Grid = 0
    Set probe = Grid.Properties.Add("probe", 0)
    probe.BackColor = &H0000FF
    probe.ForeColor = &H0000FF
    y = 0
    Do While Host.Pixel(x, y) <> &H0000FF And y < 200
        y = y + 1
    Loop
    RowsTop = y
    Do While Host.Pixel(x, y) = &H0000FF And y < 400
        y = y + 1
    Loop
    RowHeight = y - RowsTop
    Grid.Properties.Remove 1
    Grid.Grid = lines
    EventLog = ""
    CheckTrue "rows have a height", RowHeight >= 10 And RowHeight < 100
End Sub

' The middle of a row on screen, counted from 0 at the top.
Function RowY(row)
    RowY = RowsTop + row * RowHeight + RowHeight \ 2
End Function

Function NameX()
    NameX = CLng(Grid.ColumnDividerPosition) - 20
End Function

Sub ClickRow(row)
    Host.Click NameX(), RowY(row)
End Sub
