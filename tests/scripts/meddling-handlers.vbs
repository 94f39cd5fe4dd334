' A script's handlers that turn on the grid in the middle of an event, while real keys and clicks come in. Whatever they do,
' the grid goes on: afterwards it takes rows, selects, and commits an edit. The control's own tests go through all events.
Option Explicit
Host.Include "lib/common.vbs"

Dim Armed, Action, Raised, Depth

Sub Grid_SelChanged(aProperty)
    Meddle "SelChanged"
End Sub

Sub Grid_ValidateValue(aProperty, newValue, cancel)
    Meddle "ValidateValue"
End Sub

Sub Grid_KeyDown(code, shift)
    Meddle "KeyDown"
End Sub

Sub Meddle(name)
    Dim i
    If name <> Armed Then Exit Sub
    Raised = Raised + 1
    If Depth > 0 Or Raised > 3 Then Exit Sub
    Depth = 1
    Select Case Action
    Case "refill"
        Grid.LockRefresh = True
        all.Clear
        For i = 1 To 3
            all.Add "Filled" & i, i, "Cat|Sub"
        Next
        Grid.LockRefresh = False
    Case "remove the selected"
        If Not Grid.SelectedProperty Is Nothing Then all.Remove Grid.SelectedProperty.Index
    Case "edit"
        Grid.StartPropertyEdit all(all.Count)
    Case "switch"
        Grid.ActiveView = 1 - Grid.ActiveView
    Case "value"
        all(1).Value = "meddled" & Raised
    End Select
    Depth = 0
End Sub

Dim all, i, row, what
Set all = Grid.Properties
MakePlain 300, 260
For Each Armed In Array("SelChanged", "ValidateValue", "KeyDown")
    For Each Action In Array("refill", "remove the selected", "edit", "switch", "value")
        what = Action & " in " & Armed
        Raised = 3
        all.Clear
        Grid.ActiveView = omCatagorized
        For i = 1 To 4
            all.Add "Row" & i, "value" & i, "Cat|Sub"
        Next
        Raised = 0
        ClickRow 3
        Host.Keys "x{ENTER}{DOWN}y"
        ClickRow 2
        CheckTrue what & ": raised", Raised > 0

        Raised = 3
        all.Clear
        Grid.ActiveView = omAlphabetic
        Set row = all.Add("Last", "last")
        all.Add "Other", "other"
        Host.Keys "{DOWN}z{ENTER}"
        CheckEqual what & ": selected", "Last", Selected()
        CheckEqual what & ": edited", "z", row.Value
        CheckTrue what & ": editor", EditorIsOpen(0)
    Next
Next
Finish
