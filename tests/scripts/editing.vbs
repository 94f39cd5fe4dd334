' Edits by real mouse and keyboard, from the first click to the stored value, with handlers that refuse through their
' by-reference arguments.
Option Explicit
Host.Include "lib/common.vbs"

Dim ShowBoxes, Refuse, Chase
ShowBoxes = False
Refuse = False
Set Chase = Nothing

Sub Grid_SelChanged(aProperty)
    Dim target
    Note "selected " & NameOf(aProperty)
    Set target = Chase
    Set Chase = Nothing
    If Not target Is Nothing Then Set Grid.SelectedProperty = target
End Sub

Sub Grid_ValidateValue(aProperty, newValue, cancel)
    Note "validate " & aProperty.Name & "=" & newValue & " over " & aProperty.Value
    If newValue = "bad" Then cancel = True
End Sub

Sub Grid_PropertyValueChanged(aProperty)
    Note "changed " & aProperty.Name & "=" & aProperty.Value
End Sub

Sub Grid_DisplayError(message, number, showBox)
    Note "error " & Hex(number) & " " & message
    If Not ShowBoxes Then showBox = False
End Sub

Sub Grid_CategoryCollapsing(category, cancel)
    Note "collapsing " & category
    If Refuse Then cancel = True
End Sub

Dim all, a, b
Set all = Grid.Properties
MakePlain 300, 200
Set a = all.Add("A", "one")
Set b = all.Add("B", "two")

' Typing over a selected row replaces its text; ESC brings it back, ENTER stores it and gives the focus back to the rows.
ClickRow 0
CheckTrue "the editor is there at once", EditorIsOpen(0)
Host.Keys "zzz{ESC}new{ENTER}{DOWN}{UP}"
CheckEvents "typed over", "selected A, validate A=new over one, changed A=new, selected B, selected A"

' F4 and Alt+Down go into the editor with all of the text selected. ENTER on an untouched text is no edit.
Host.Keys "{F4}{ENTER}{F4}{HOME}%{DOWN}all{ENTER}"
CheckEvents "Alt+Down inside selects all", "validate A=all over new, changed A=all"
Host.Keys "ac{LEFT}b{HOME}0{END}d{UP}{DOWN}{ENTER}"
CheckEvents "keys of the box", "validate A=0abcd over all, changed A=0abcd"

' The host's change reaches the open editor, over what was typed.
Host.Keys "half"
a.Value = "host"
Host.Keys "{ENTER}{DOWN}"
CheckEvents "changed below the editor", "changed A=host, selected B"

' The second click lands in the editor, at the caret's place in the text. Another row takes the typed text along.
Host.Click 280, RowY(1)
Host.Keys "X"
Host.Click 280, RowY(0)
CheckEvents "clicked away", "validate B=twoX over two, changed B=twoX, selected A"

' A refused value stays in the editor and is asked for again whenever the editor commits; it goes with the editor.
Host.Keys "bad{ENTER}"
CheckEvents "refused at ENTER and as the focus goes", "validate A=bad over host, validate A=bad over host"
Host.Keys "{DOWN}"
CheckEvents "moved on", "validate A=bad over host, selected B"
CheckEqual "value after all", "host", a.Value

' A handler that selects another row wins; its row has the editor.
Set Chase = b
ClickRow 0
CheckEvents "chased", "selected A, selected B"
CheckTrue "editor after the chase", EditorIsOpen(1)

' The column divider takes the editor along; a disabled grid takes no input.
Grid.ColumnDividerPosition = Grid.ColumnDividerPosition - 60
Host.DoubleClick Grid.ColumnDividerPosition + 30, RowY(1)
Host.Keys "moved{ENTER}"
CheckEvents "edited at the new place", "validate B=moved over twoX, changed B=moved"
Grid.Enabled = False
ClickRow 0
Host.Keys "off{ENTER}"
CheckEvents "input to a disabled grid", ""
Grid.Enabled = True

' Without the host's word a box tells a refusal. It is shut by a key while it runs.
b.SetEditorParam "MinLength", "3"
Set Grid.SelectedProperty = a
ClickRow 1
EventLog = ""
ShowBoxes = True
Host.Keys "x{ENTER}{ESC}"
ShowBoxes = False
CheckEvents "with a box", "error 80040002 Entered text is too small in length"
Host.Keys "{ESC}"

' The other view closes the editor and opens it on the same row there; a category closes at a double click, if it may.
Host.Keys "view"
Grid.ActiveView = omCatagorized
CheckEvents "view switched in an edit", "validate B=view over moved, changed B=view"
CheckTrue "editor in the other view", EditorIsOpen(2)
Refuse = True
Host.DoubleClick NameX(), RowY(0)
CheckEvents "refused", "selected Nothing, collapsing Misc"
Refuse = False
Host.Click 3 + RowHeight \ 4, RowY(0)
ClickRow 1
CheckEvents "closed by its box", "collapsing Misc"
Finish
