' An edit from the first key to the stored value: the order of the events, refusals, and what leaves the value alone.
Option Explicit
Host.Include "lib/common.vbs"

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

Sub Grid_DisplayError(message, number, showBox)
    Note "error " & message
    showBox = False
End Sub

Dim all, a, b
Set all = Grid.Properties
MakePlain 300, 200
Set a = all.Add("A", "one")
Set b = all.Add("B", "two")

' Typing over a selected row replaces its text; ENTER stores it and gives the focus back to the rows.
ClickRow 0
CheckEvents "click", "selected A"
CheckTrue "the editor is there at once", EditorIsOpen(0)
Host.Keys "new{ENTER}"
CheckEvents "typed over", "validate A=new over one, changed A=new"
CheckEqual "stored", "new", a.Value
CheckTrue "the editor stays", EditorIsOpen(0)
Host.Keys "{DOWN}"
CheckEvents "the rows have the focus", "selected B"
CheckTrue "the editor follows", EditorIsOpen(1)
Host.Keys "{UP}"
CheckEvents "back", "selected A"

' ESC brings the value back, and stores nothing later either.
Host.Keys "zzz{ESC}"
CheckEvents "ESC", ""
Host.Keys "{DOWN}{UP}"
CheckEvents "moved after ESC", "selected B, selected A"
CheckEqual "value after ESC", "new", a.Value

' F4 and Alt+Down go into the editor with all of the text selected. ENTER on an untouched text is no edit.
Host.Keys "{F4}{ENTER}"
CheckEvents "ENTER untouched", ""
Host.Keys "{F4}xy{ENTER}"
CheckEvents "F4 and typed", "validate A=xy over new, changed A=xy"
Host.Keys "%{DOWN}{END}z{ENTER}"
CheckEvents "Alt+Down and added at the end", "validate A=xyz over xy, changed A=xyz"
Host.Keys "{F4}{HOME}%{DOWN}all{ENTER}"
CheckEvents "Alt+Down inside selects all", "validate A=all over xyz, changed A=all"
Host.Keys "{F4}{BACKSPACE}{ENTER}"
CheckEvents "emptied", "validate A= over all, changed A="

' The same text again is no change.
a.Value = "same"
CheckEvents "the host's own change", "changed A=same"
Host.Keys "same{ENTER}"
CheckEvents "typed the same", ""
Host.Keys "{DOWN}{UP}"
EventLog = ""

' The host's change reaches the open editor, over what was typed.
Host.Keys "half"
a.Value = "host"
CheckEvents "changed below the editor", "changed A=host"
Host.Keys "{ENTER}{DOWN}{UP}"
CheckEvents "nothing is left of the typed text", "selected B, selected A"
CheckEqual "value", "host", a.Value

' Another row takes the selection: the old value is stored before the selection moves.
Host.Keys "moved"
ClickRow 1
CheckEvents "clicked away", "validate A=moved over host, changed A=moved, selected B"
Host.Keys "too"
Set Grid.SelectedProperty = a
CheckEvents "selected away", "validate B=too over two, changed B=too, selected A"

' A refused value is not stored. It stays in the editor, is asked for again whenever the editor commits, and goes with it.
Host.Keys "bad{ENTER}"
CheckEvents "refused at ENTER and as the focus goes", "validate A=bad over moved, validate A=bad over moved"
CheckEqual "value after a refusal", "moved", a.Value
CheckTrue "the editor stays", EditorIsOpen(0)
Host.Keys "{DOWN}"
CheckEvents "moved on", "validate A=bad over moved, selected B"
Host.Keys "{UP}{DOWN}"
CheckEvents "the refused text is gone", "selected A, selected B"
CheckEqual "value after all", "moved", a.Value

' The edit box itself: arrows, Home and End move in the text, not among the rows.
Set Grid.SelectedProperty = a
EventLog = ""
Host.Keys "ac{LEFT}b{HOME}0{END}d{UP}{DOWN}{ENTER}"
CheckEvents "keys of the box", "validate A=0abcd over moved, changed A=0abcd"

' Hidden and removed rows take their editor with them; a removed one stores nothing.
Host.Keys "hidden"
a.Visible = False
CheckEvents "hidden in the middle of an edit", "validate A=hidden over 0abcd, changed A=hidden, selected Nothing"
a.Visible = True
CheckEvents "shown again", ""
Set Grid.SelectedProperty = a
Host.Keys "gone"
EventLog = ""
all.Remove 1
CheckEvents "removed in the middle of an edit", ""
CheckEqual "value of a removed row", "hidden", a.Value
Set Grid.SelectedProperty = b
Host.Keys "gone"
EventLog = ""
all.Clear
CheckEvents "cleared in the middle of an edit", ""
CheckEqual "value of a cleared row", "too", b.Value
Host.Keys "x{ENTER}{DOWN}{F4}{ESC}"
CheckEvents "keys without rows", ""

' The other view closes the editor and opens it on the same row there.
Set a = all.Add("A", "one")
ClickRow 0
Host.Keys "view"
EventLog = ""
Grid.ActiveView = omCatagorized
CheckEvents "view switched in the middle of an edit", "validate A=view over one, changed A=view"
CheckEqual "selection stays", "A", Selected()
CheckTrue "editor in the other view", EditorIsOpen(1)
Host.Keys "more{ENTER}"
CheckEvents "edited there", "validate A=more over view, changed A=more"

Finish
