' Edits by real mouse and keyboard, from the first click to the stored value, with handlers that refuse through their
' by-reference arguments.
Option Explicit
Host.Include "lib/common.vbs"

Dim Refuse
Refuse = False

Sub Grid_SelChanged(aProperty)
    Note "selected " & NameOf(aProperty)
End Sub

Sub Grid_ValidateValue(aProperty, newValue, cancel)
    Note "validate " & aProperty.Name & "=" & newValue & " over " & aProperty.Value
    If newValue = "bad" Then cancel = True
End Sub

Sub Grid_PropertyValueChanged(aProperty)
    Note "changed " & aProperty.Name & "=" & aProperty.Value
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

Host.Keys "{DOWN}"
EventLog = ""

' The second click lands in the editor, at the caret's place in the text. Another row takes the typed text along.
Host.Click 280, RowY(1)
Host.Keys "X"
Host.Click 280, RowY(0)
CheckEvents "clicked away", "validate B=twoX over two, changed B=twoX, selected A"

' A refused value stays in the editor, and goes with it; it is asked about once each time that it is confirmed.
Host.Keys "bad{ENTER}"
CheckEvents "refused at ENTER", "validate A=bad over 0abcd"
Host.Keys "{DOWN}"
CheckEvents "moved on", "selected B"
CheckEqual "value after all", "0abcd", a.Value

' A category closes at a double click, if it may, and by its box.
Grid.ActiveView = omCatagorized
EventLog = ""
Refuse = True
Host.DoubleClick NameX(), RowY(0)
CheckEvents "refused", "selected Nothing, collapsing Misc"
Refuse = False
Host.Click 3 + RowHeight \ 4, RowY(0)
ClickRow 1
CheckEvents "closed by its box", "collapsing Misc"
Finish
