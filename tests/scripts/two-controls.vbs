' Two controls on one form: each stands where it is put, hears its own events, and TAB goes from one to the other.
Option Explicit
Host.Include "lib\common.vbs"

Dim heard, first, second
Set first = Host.Control("grid")
Set second = Host.AddControl("Ormisk.OrmiskGrid", "Second", 0, 0, 120, 90)

Function Place(control)
    Place = control.Left & " " & control.Top & " " & control.Width & " " & control.Height
End Function

Host.Resize 400, 300
Grid.Properties.Add "A", "one"
second.Properties.Add "B", "two"
CheckEqual "placed", "0 0 120 90", Place(second)
second.Align = 4
second.Width = 150
CheckEqual "aligned", "250 0 150 300", Place(second)
first.Left = first.Left
CheckEqual "the rest", "0 0 250 300", Place(first)
second.Visible = False
CheckEqual "all of it", "0 0 400 300", Place(first)
second.Visible = True
Host.Pump 50
CheckEqual "its own members", "1B", second.Properties.Count & second.Object.Properties.Item(1).Name
CheckEqual "neighbours", "01Second", first.TabIndex & second.TabIndex & second.Name

Sub Grid_SelChanged(aProperty)
    heard = heard & "first "
End Sub
Sub Second_SelChanged(aProperty)
    heard = heard & "second "
End Sub

first.SetFocus
Host.Keys "{DOWN}"
' The description pane is the last place of the first grid; tabs and headers come before the rows of the second.
Host.Keys "{TAB 5}{DOWN}"
CheckEqual "events by name", "first second ", heard
Host.Keys "+{TAB 4}"
second.TabStop = False
Host.Keys "{TAB 2}{RIGHT}"
CheckEqual "a control without a tab stop is passed over", omCatagorized, Grid.ActiveView

On Error Resume Next
second.Width = -1
CheckEqual "a refused size", "A size is not negative", Err.Description
Err.Clear
Host.AddControl "Ormisk.OrmiskGrid", "grid", 0, 0, 10, 10
CheckEqual "a name in use", "A control needs a name of its own", Err.Description
Err.Clear
Host.AddControl "No.Such.Class", "Third", 0, 0, 10, 10
CheckEqual "no such class", True, Err.Number <> 0
CheckEqual "the others are still there", "01", Host.Control("Grid").TabIndex & second.TabIndex
On Error GoTo 0
Finish
