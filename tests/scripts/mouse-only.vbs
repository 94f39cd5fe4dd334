' A session without a keyboard: every row, both views, both orders, both bars, every entry of a list.
Option Explicit
Host.Include "lib/session.vbs"

Dim Part, Refuse
Sub Grid_MouseMove(button, shift, x, y, hit)
    Part = hit
End Sub

Sub Grid_CategoryCollapsing(category, cancel)
    cancel = Refuse
End Sub

' The rows from the first one on screen down, by a click on each.
Sub ClickDown(what, rows, expected)
    Dim i
    Set Grid.SelectedProperty = Nothing
    EventLog = ""
    For i = 0 To rows - 1
        ClickRow i
    Next
    CheckEvents what, expected
End Sub

' The first place of a part of the grid on the line down at x, from y on; the line to the right at y, from x on.
Function FindDown(x, y, hit)
    For FindDown = y To 296
        Host.MoveTo x, FindDown
        If Part = hit Then Exit Function
    Next
    FindDown = -1
End Function

Function FindRight(x, y, hit)
    For FindRight = x To 296
        Host.MoveTo FindRight, y
        If Part = hit Then Exit Function
    Next
    FindRight = -1
End Function

Dim i, x, y, place, boxX
Grid.ColumnDividerPosition = 140
MeasureRows
FillSession 4

' Every row of both views; a box opens and closes its category.
ClickDown "alphabetic", 4, "delta, Bravo, charlie, alpha"
Set Grid.SelectedProperty = Nothing
EventLog = ""
Host.Click FindRight(100, 8, 2) + 5, 8
CheckEvents "the other tab", "view 1"
ClickDown "categorized", 7, "delta, alpha, Nothing, Bravo, charlie"
boxX = 12
Refuse = True
Host.Click boxX, RowY(0)
ClickDown "not closed against the host's will", 3, "delta, alpha"
Refuse = False
Host.Click boxX, RowY(0)
ClickDown "the first category closed", 5, "Bravo, charlie"
Host.Click boxX, RowY(0)
ClickDown "open again", 3, "delta, alpha"
Host.Click 12, 8
EventLog = ""

' A header sorts, and turns the order.
Host.Click 40, RowsTop - 8
ClickDown "ascending", 4, "Bravo, alpha, charlie, delta"
Host.Click 40, RowsTop - 8
ClickDown "descending", 4, "delta, charlie, alpha, Bravo"

' Every entry of a list: a click on the row, one on its button, one on the entry. A double click flips the switch.
ClickRow 1
EventLog = ""
For i = 1 To 4
    Host.Click 284, RowY(1)
    Host.Pump 100
    Host.Click 200, RowY(2) + (i - 1) * ListStep()
    CheckEvents "entry " & i, "charlie=entry " & i
Next
Host.DoubleClick NameX(), RowY(2)
CheckEvents "the switch", "alpha, alpha=False"

' Both bars are dragged, and what is on screen goes with them; a double click on the divider fits the names.
x = FindRight(100, RowsTop - 8, 14)
Host.Drag x, RowsTop - 8, x + 40, RowsTop - 8
CheckTrue "divider", Abs(Grid.ColumnDividerPosition - 180) <= 2
Host.Pump 50
CheckEqual "the highlight reaches farther", kHighlight, Host.Pixel(172, RowY(2))
x = FindRight(100, RowsTop - 8, 14)
Host.DoubleClick x, RowsTop - 8
CheckTrue "fitted to the names", Grid.ColumnDividerPosition < 100
y = FindDown(60, 200, 11)
place = Grid.DescriptionPaneHeight
Host.Drag 60, y, 60, y - 30
CheckTrue "description pane", Abs(Grid.DescriptionPaneHeight - place - 30) <= 2
CheckEqual "its bar on screen", y - 30, FindDown(60, 150, 11)

Finish

' The height of an entry in an open list: less of a margin around the text than a row has.
Function ListStep()
    ListStep = RowHeight - 3
End Function
