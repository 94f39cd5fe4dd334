' A session without a mouse: every row, both views, both orders, both bars, every entry of a list.
Option Explicit
Host.Include "lib/session.vbs"

' Down from the first row to the last one.
Sub WalkDown(what, rows, expected)
    Host.Keys "{HOME}"
    EventLog = ""
    Host.Keys "{DOWN " & rows & "}"
    CheckEvents what, expected
End Sub

Dim place, i
Grid.AlphabeticTabCaption = "&List"
Grid.CategorizedTabCaption = "&Tree"
FillSession 12

' The first key selects the first row; the arrow keys go to each of them and not past the last.
Host.Keys "{DOWN}"
CheckEvents "first key", "delta"
WalkDown "alphabetic", 4, "Bravo, charlie, alpha"

' The access keys of the tabs, and the categories that open and close on the way.
Host.Keys "%t"
CheckEvents "the other view", "view 1"
WalkDown "categorized", 8, "delta, alpha, Nothing, Bravo, charlie"
Host.Keys "{HOME}{LEFT}"
EventLog = ""
Host.Keys "{DOWN}{DOWN}{DOWN}"
CheckEvents "past a closed category", "Bravo"
Host.Keys "{HOME}{RIGHT}{DOWN}"
CheckEqual "opened again", "delta", Selected()
Host.Keys "%l"
EventLog = ""

' Sorting in both orders, by character code: TAB backwards goes to the headers, where SPACE sorts.
Host.Keys "+{TAB} {TAB}"
WalkDown "ascending", 4, "alpha, charlie, delta"
Host.Keys "+{TAB} {TAB}"
WalkDown "descending", 4, "charlie, alpha, Bravo"

' Every entry of a list, one after the other, and back to the first by a letter; then the switch.
Host.Keys "{HOME}{DOWN}{F4}{HOME}{ENTER}"
CheckEqual "first entry", "a", choice.Value
For i = 2 To 12
    Host.Keys "%{DOWN}{DOWN}{ENTER}"
    CheckEqual "entry " & i, "entry " & i, choice.FormattedText
Next
Host.Keys "{F4}{HOME}{ESC}"
CheckEqual "escaped", "entry 12", choice.FormattedText
EventLog = ""
Host.Keys "{DOWN}{F4}{DOWN}{ENTER}"
CheckEvents "the switch", "alpha, alpha=False"

' Both bars by the arrows, in the headers and in the description behind the editor.
Host.Keys "{HOME}"
place = Grid.ColumnDividerPosition
Host.Keys "+{TAB}{RIGHT 3}{LEFT}{TAB}"
CheckEqual "divider", place + 16, Grid.ColumnDividerPosition
place = Grid.DescriptionPaneHeight
Host.Keys "{TAB 2}{UP 2}"
CheckEqual "description pane", place + 16, Grid.DescriptionPaneHeight

' Behind the description comes the tab strip again, where the arrows switch the view.
EventLog = ""
Host.Keys "{TAB}{RIGHT}{LEFT}"
CheckEvents "arrows on the tabs", "view 1, view 0"

Finish
