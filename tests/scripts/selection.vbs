' The selection and edits that the host asks for: what moves it, what is told, what is refused; rows that cannot be edited.
Option Explicit
Host.Include "lib/common.vbs"

Dim Chase
Set Chase = Nothing

Sub Grid_SelChanged(aProperty)
    Dim target
    Note "selected " & NameOf(aProperty)
    If Chase Is Nothing Then Exit Sub
    Set target = Chase
    Set Chase = Nothing
    Set Grid.SelectedProperty = target
End Sub

Sub Grid_ValidateValue(aProperty, newValue, cancel)
    Note "validate " & aProperty.Name
End Sub

Sub Grid_PropertyValueChanged(aProperty)
    Note "changed " & aProperty.Name & "=" & aProperty.Value
End Sub

Const kBadAction = "Invalid action for this property."

Dim all, a, b, c
Set all = Grid.Properties
MakePlain 300, 200
Set a = all.Add("A", "one")
Set b = all.Add("B", "two")
Set c = all.Add("C", "three")

' The host selects; the same row again is no news.
CheckEqual "at first", "Nothing", Selected()
Set Grid.SelectedProperty = b
CheckEvents "selected", "selected B"
Set Grid.SelectedProperty = b
CheckEvents "selected again", ""
CheckTrue "editor", EditorIsOpen(1)
Set Grid.SelectedProperty = Nothing
CheckEvents "selected Nothing", "selected Nothing"
CheckTrue "no editor", Host.Pixel(NameX(), RowY(1)) <> kHighlight
Set Grid.SelectedProperty = Nothing
CheckEvents "selected Nothing again", ""

' A handler that selects another row wins; its row has the editor.
Set Chase = c
Set Grid.SelectedProperty = a
CheckEvents "chased", "selected A, selected C"
CheckEqual "selection after the chase", "C", Selected()
CheckTrue "editor after the chase", EditorIsOpen(2)
Host.Keys "typed{ENTER}"
CheckEvents "typed after the chase", "validate C, changed C=typed"
Set Chase = b
ClickRow 0
CheckEvents "chased from a click", "selected A, selected B"
CheckEqual "selection", "B", Selected()
CheckTrue "editor", EditorIsOpen(1)

' An edit that the host starts has the focus and all of the text.
Grid.StartPropertyEdit a
CheckEvents "started", "selected A"
Host.Keys "started{ENTER}"
CheckEvents "typed", "validate A, changed A=started"
Grid.StartPropertyEdit a
Host.Keys "{END}!{ENTER}"
CheckEvents "started again", "validate A, changed A=started!"

' Hidden rows are neither selected nor edited. The keyboard walks round them.
b.Visible = False
On Error Resume Next
Set Grid.SelectedProperty = b
CheckRefused "selecting a hidden row", 15, kLibrary, kBadAction
Grid.StartPropertyEdit b
CheckRefused "editing a hidden row", 15, kLibrary, kBadAction
On Error GoTo 0
CheckEvents "refused", ""
CheckEqual "selection after refusals", "A", Selected()
Host.Keys "{DOWN}"
CheckEvents "down", "selected C"
Host.Keys "{UP}"
CheckEvents "up", "selected A"
ClickRow 1
CheckEvents "the row below has moved up", "selected C"
b.Visible = True
ClickRow 1
CheckEvents "and down again", "selected B"

' A read-only row is selected without an editor; its value is the host's alone.
a.ReadOnly = True
Set Grid.SelectedProperty = a
CheckEvents "read-only", "selected A"
CheckTrue "no editor", Not EditorIsOpen(0)
CheckEqual "the value cell is highlighted", kHighlight, Host.Pixel(NameX() * 2 - 10, RowY(0))
Host.Keys "x{F4}y{ENTER}"
CheckEvents "keys", ""
Host.DoubleClick ValueX() + 60, RowY(0)
Host.Keys "z{ENTER}"
CheckEvents "double click", ""
CheckEqual "value", "started!", a.Value
Host.Keys "%{DOWN}"
CheckEvents "Alt+Down is Down", "selected B"
a.Value = "code"
CheckEvents "by code", "changed A=code"
On Error Resume Next
Grid.StartPropertyEdit a
CheckRefused "editing a read-only row", 15, kLibrary, kBadAction
On Error GoTo 0

' The whole grid read-only: an open editor stays until the selection moves.
Grid.ReadOnly = True
CheckTrue "the open editor stays", EditorIsOpen(1)
Host.Keys "{DOWN}"
CheckTrue "the next row has none", Not EditorIsOpen(2)
On Error Resume Next
Grid.StartPropertyEdit c
CheckRefused "editing in a read-only grid", 15, kLibrary, kBadAction
On Error GoTo 0
Grid.ReadOnly = False
ClickRow 2
CheckTrue "a click opens it again", EditorIsOpen(2)

' Names can change under the selection; keys and places stay.
EventLog = ""
c.Name = "Sea"
CheckEvents "renamed", ""
CheckEqual "selection", "Sea", Selected()
CheckEqual "old internal key", "Sea", all("_C").Name
Host.Keys "water{ENTER}"
CheckEvents "edited", "validate Sea, changed Sea=water"

Finish
