' Handlers that clear, remove, add, hide, select, switch the view or re-enter in the middle of any event. Whatever they do,
' the grid goes on: afterwards it takes rows, shows them, and commits an edit.
' Included after common.vbs; the scripts say which events it is about.

Dim Armed, Action, Raised, Depth
Armed = ""
Depth = 0

Sub Meddle(name)
    If name <> Armed Then Exit Sub
    Raised = Raised + 1
    If Depth > 0 Or Raised > 3 Then Exit Sub
    Depth = Depth + 1
    Act
    Depth = Depth - 1
End Sub

Sub Act()
    Dim all, row, i
    Set all = Grid.Properties
    Select Case Action
    Case "clear"
        all.Clear
    Case "refill"
        all.Clear
        For i = 1 To 3
            all.Add "Filled" & i, i, "Cat|Sub"
        Next
    Case "remove"
        If all.Count > 0 Then all.Remove 1
    Case "remove the selected"
        If Not Grid.SelectedProperty Is Nothing Then all.Remove Grid.SelectedProperty.Index
    Case "add"
        all.Add "Added" & all.Count & "_" & Raised, "x", "Cat|Sub"
    Case "hide"
        For Each row In all
            row.Visible = False
        Next
    Case "select"
        Set Grid.SelectedProperty = Nothing
        If all.Count > 1 Then
            If all(2).Visible Then Set Grid.SelectedProperty = all(2)
        End If
    Case "edit"
        If all.Count > 0 Then
            If all(all.Count).Visible And Not all(all.Count).ReadOnly Then Grid.StartPropertyEdit all(all.Count)
        End If
    Case "switch"
        Grid.ActiveView = 1 - Grid.ActiveView
    Case "collapse"
        Grid.ExpandCategory "Cat", False
        Grid.ExpandCategory "Cat|Sub", True
    Case "value"
        If all.Count > 0 Then all(1).Value = "meddled" & Raised
    Case "layout"
        Grid.ShowTabs = Not Grid.ShowTabs
        Grid.Headers = 2 - Grid.Headers
        Grid.ColumnDividerPosition = 90
        Grid.Refresh
    Case "lock"
        Grid.LockRefresh = True
        all.Clear
        all.Add "Locked", 1, "Cat"
        Grid.LockRefresh = False
    End Select
End Sub

Sub Grid_SelChanged(aProperty)
    Meddle "SelChanged"
End Sub
Sub Grid_ValidateValue(aProperty, newValue, cancel)
    Meddle "ValidateValue"
End Sub
Sub Grid_PropertyValueChanged(aProperty)
    Meddle "PropertyValueChanged"
End Sub
Sub Grid_PropertyAdded(aProperty)
    Meddle "PropertyAdded"
End Sub
Sub Grid_PropertyDeleted(aProperty)
    Meddle "PropertyDeleted"
End Sub
Sub Grid_CategoryExpanding(category, cancel)
    Meddle "CategoryExpanding"
End Sub
Sub Grid_CategoryCollapsing(category, cancel)
    Meddle "CategoryCollapsing"
End Sub
Sub Grid_ActiveViewChanged()
    Meddle "ActiveViewChanged"
End Sub
Sub Grid_PropertyDraw(context, aProperty, cx, cy, stage, doDefault)
    Meddle "PropertyDraw"
End Sub
Sub Grid_DisplayError(message, number, showBox)
    showBox = False
    Meddle "DisplayError"
End Sub
Sub Grid_KeyDown(code, shift)
    Meddle "KeyDown"
End Sub
Sub Grid_KeyPress(code)
    Meddle "KeyPress"
End Sub
Sub Grid_KeyUp(code, shift)
    Meddle "KeyUp"
End Sub
Sub Grid_MouseDown(button, shift, x, y, part)
    Meddle "MouseDown"
End Sub
Sub Grid_MouseMove(button, shift, x, y, part)
    Meddle "MouseMove"
End Sub
Sub Grid_MouseUp(button, shift, x, y, part)
    Meddle "MouseUp"
End Sub

Sub Fill()
    Dim all, row, i
    Set all = Grid.Properties
    Grid.ShowTabs = False
    Grid.Headers = 0
    Grid.ActiveView = omCatagorized
    all.Clear
    For i = 1 To 4
        Set row = all.Add("Row" & i, "value" & i, "Cat|Sub")
    Next
    row.SetEditorParam "MinLength", "3"
    Set row = all.Add("Drawn", "d", "Cat")
    row.CustomDraw = Armed = "PropertyDraw"
    Grid.ExpandCategory "Cat|Sub", True
    Grid.ColumnDividerPosition = 150
End Sub

' Brings the event about. Rows from the top: Cat, Sub, Row1 to Row4, Drawn.
Sub Trigger(name)
    Select Case name
    Case "SelChanged"
        ClickRow 2
        ClickRow 3
    Case "ValidateValue", "PropertyValueChanged"
        ClickRow 3
        Host.Keys "typed{ENTER}"
        ClickRow 2
        Host.Keys "more"
        ClickRow 4
    Case "PropertyAdded"
        ClickRow 2
        Grid.Properties.Add "Late", 1, "Cat|Sub|Deep"
    Case "PropertyDeleted"
        ClickRow 2
        Host.Keys "half"
        Grid.Properties.Remove 1
    Case "CategoryExpanding"
        ClickRow 2
        Grid.ExpandCategory "Cat", False
        Host.DoubleClick NameX(), RowY(0)
    Case "CategoryCollapsing"
        ClickRow 2
        Host.Keys "half"
        Host.DoubleClick NameX(), RowY(1)
    Case "ActiveViewChanged"
        ClickRow 3
        Host.Keys "half"
        Grid.ActiveView = omAlphabetic
    Case "PropertyDraw"
        ClickRow 2
        Grid.Refresh
        Host.Pump 50
    Case "DisplayError"
        ClickRow 5
        Host.Keys "x{ENTER}"
        ClickRow 2
    Case "KeyDown", "KeyPress", "KeyUp"
        ClickRow 2
        Host.Keys "{DOWN}{RIGHT}{LEFT}x{ENTER}"
        Host.Keys "{F4}%{DOWN}{ESC}^+r{PGDN}{END}{HOME}{SUBTRACT}{ADD}"
    Case Else
        ClickRow 3
        Host.DoubleClick NameX(), RowY(1)
        Host.DoubleClick NameX(), RowY(4)
        Host.Click ValueX(), RowY(2)
        Host.MoveTo 10, 10
    End Select
End Sub

' The grid works: rows come, are shown, and an edit is stored.
Sub CheckWorks(what)
    Dim all, row
    Armed = ""
    Set all = Grid.Properties
    Grid.ShowTabs = False
    Grid.Headers = 0
    Grid.ColumnDividerPosition = 150
    Grid.ActiveView = omAlphabetic
    all.Clear
    CheckEqual what & ": cleared", "Nothing", Selected()
    Set row = all.Add("Last", "last")
    all.Add "Other", "other"
    ClickRow 0
    CheckEqual what & ": selected", "Last", Selected()
    Host.Keys "works{ENTER}"
    CheckEqual what & ": edited", "works", row.Value
    CheckEqual what & ": editor", True, EditorIsOpen(0)
    CheckEqual what & ": rows", 2, all.Count
End Sub

Sub MeddleIn(events)
    Dim event_, actions, action_
    actions = Array("clear", "refill", "remove", "remove the selected", "add", "hide", "select", "edit", "switch", "collapse", _
        "value", "layout", "lock")
    MakePlain 300, 260
    For Each event_ In events
        For Each action_ In actions
            Armed = event_
            Raised = 3
            Action = action_
            Fill
            Raised = 0
            Trigger event_
            CheckTrue event_ & " was raised", Raised > 0
            CheckWorks action_ & " in " & event_
        Next
    Next
End Sub
