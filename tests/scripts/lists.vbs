' A settings page of lists and switches, worked by mouse and by keyboard: what is chosen, what is refused, what ESC undoes.
Option Explicit
Host.Include "lib/common.vbs"

Sub Grid_ValidateValue(aProperty, newValue, cancel)
    If aProperty.Name = "Border" And newValue = 2 Then
        Note "refused " & newValue
        cancel = True
    End If
End Sub

Sub Grid_PropertyValueChanged(aProperty)
    Note aProperty.Name & "=" & Shown(aProperty.Value)
End Sub

Sub Grid_SelChanged(aProperty)
    Note "selected " & NameOf(aProperty)
End Sub

Function AddList(name, value, texts)
    Dim i
    Set AddList = Grid.Properties.Add(name, value)
    AddList.EditorType = 9
    For i = 0 To UBound(texts)
        AddList.ListItems.Add texts(i), i
    Next
End Function

' The middle of the button of a list, and of an entry in the list below a row.
Sub ClickButton(row)
    Host.Click NameX() * 2 + 28, RowY(row)
End Sub

Sub ClickEntry(row, entry)
    Host.Click ValueX(), RowsTop + (row + 1) * RowHeight + 2 + entry * EntryHeight + EntryHeight \ 2
End Sub

Dim all, border, enabled, visible, long_, i, EntryHeight
Set all = Grid.Properties
MakePlain 300, 240
EntryHeight = RowHeight - 3 ' a little closer than the rows
Set border = AddList("Border", 1, Array("None", "Single", "Double", "Sunken"))
Set enabled = all.Add("Enabled", True)
enabled.EditorType = 4
Set visible = all.Add("Visible", False)
visible.EditorType = 4
visible.SetEditorParam "True", "Yes"
visible.SetEditorParam "False", "No"
Set long_ = AddList("Long", 0, Array("zero"))
For i = 1 To 3000
    long_.ListItems.Add "entry " & i, i
Next
EventLog = ""

' By mouse alone. The first click selects, a second one opens, a third one chooses.
ClickRow 0
CheckEvents "a click", "selected Border"
ClickButton 0
ClickEntry 0, 3
CheckEvents "chosen by mouse", "Border=3"
ClickButton 0
ClickEntry 0, 0
CheckEvents "the first entry", "Border=0"
ClickButton 0
ClickRow 4
CheckEvents "a click beside the list", ""
CheckEqual "the value after it", 0, border.Value
ClickRow 1
CheckEvents "the next row", "selected Enabled"
Host.DoubleClick NameX(), RowY(1)
CheckEvents "a double click flips", "Enabled=False"
Host.DoubleClick NameX(), RowY(1)
CheckEvents "and flips back", "Enabled=True"
ClickRow 2
ClickButton 2
ClickEntry 2, 0
CheckEvents "True is the first of the two", "selected Visible, Visible=True"
CheckEqual "the label is for the eye", "Yes", visible.FormattedText
CheckEqual "the value stays Boolean", "Boolean", TypeName(visible.Value)

' By keyboard alone, through every row. ESC leaves the list to the rows.
Host.Keys "{ESC}{HOME}"
CheckEvents "HOME", "selected Border"
Host.Keys "{F4}{DOWN}{ENTER}"
CheckEvents "F4 opens, ENTER chooses", "Border=1"
Host.Keys "%{DOWN}{DOWN 2}{ESC}"
CheckEvents "Alt+Down opens, ESC chooses nothing", ""
Host.Keys "{DOWN}"
CheckEvents "the rows have the keys again", "selected Enabled"
Host.Keys "f{ESC}"
CheckEvents "a letter chooses, ESC leaves the list", "Enabled=False"
Host.Keys "{DOWN}n{ENTER}"
CheckEvents "a letter of an own label", "selected Visible, Visible=False"
Host.Keys "{DOWN}"
CheckEvents "the long list", "selected Long"
Host.Keys "{F4}entry 2999{ENTER}"
CheckEvents "a word typed into thousands", "Long=2999"
Host.Keys "{F4}{HOME}{F4}{ESC}"
CheckEvents "F4 closes and takes", "Long=0"

' A refused choice: the list shows it, the property keeps its value, ESC shows that again.
Host.Keys "{ESC}{HOME}"
EventLog = ""
Host.Keys "d"
CheckEvents "refused", "refused 2"
CheckEqual "value after a refusal", 1, border.Value
Host.Keys "{ESC}{DOWN}"
CheckEvents "nothing is left to refuse", "selected Enabled"
Host.Keys "{UP}"

' The host's change reaches the open editor; a value outside the list is kept until another is chosen.
EventLog = ""
border.Value = 77
CheckEvents "the host's own change", "Border=77"
Host.Keys "{F4}{ESC}{DOWN}{UP}"
CheckEqual "value outside the list", 77, border.Value
EventLog = ""
Host.Keys "{F4}{HOME}{DOWN}{ENTER}"
CheckEvents "the entries follow the odd one", "Border=0"

' A list that is open goes with its row.
Host.Keys "{F4}{DOWN}"
border.Visible = False
CheckEvents "hidden below the open list", "selected Nothing"
border.Visible = True
Set Grid.SelectedProperty = border
Host.Keys "{F4}{DOWN}"
EventLog = ""
all.Clear
CheckEvents "cleared below the open list", ""
Host.Keys "{ENTER}{ESC}{F4}"
CheckEvents "keys without rows", ""

Finish
