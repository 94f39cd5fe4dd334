' Rows come, go and are cleared, with the events and the state that a handler of them sees.
Option Explicit
Host.Include "lib/common.vbs"

Sub Grid_PropertyAdded(aProperty)
    Note "added " & aProperty.Name & " as " & aProperty.Index & " of " & Grid.Properties.Count
End Sub

Sub Grid_PropertyDeleted(aProperty)
    Note "deleted " & aProperty.Name & " leaving " & Grid.Properties.Count
End Sub

Sub Grid_SelChanged(aProperty)
    Note "selected " & NameOf(aProperty)
End Sub

Sub Grid_PropertyValueChanged(aProperty)
    Note "changed " & aProperty.Name
End Sub

Dim all, item, names, held
Set all = Grid.Properties
MakePlain 300, 300

' An empty collection answers Nothing to any argument.
CheckTrue "no item by position", all.Item(7) Is Nothing
CheckTrue "no item by key", all.Item("nothing here") Is Nothing
all.Remove 3
CheckEvents "empty", ""

' What a row gets when only its name is given.
Set item = all.Add("Width")
CheckEvents "added", "added Width as 1 of 1"
CheckEqual "value", "", item.Value
CheckTrue "no value is Empty", IsEmpty(item.Value)
CheckEqual "category", "Misc", item.Category
CheckEqual "key", "", item.Key
CheckEqual "editor", omTextEditor, item.EditorType
CheckEqual "text", "", item.FormattedText
CheckTrue "visible", item.Visible
CheckTrue "no source", item.SourceObject Is Nothing

all.Add "Height", 12, "Size", " tall ", Nothing, True, omNumberEditor
all.Add2 "Width", 3.5, "Size", "wide", Nothing, False, omCustomEditor, "mine"
CheckEvents "added with a key", "added Height as 2 of 2, added Width as 3 of 3"

' Items are found by position, by host key and by category and name; keys in any case of letters.
CheckEqual "by position", "Height", all(2).Name
CheckEqual "by position as text", "Width", all.Item("3").Name
CheckEqual "key is trimmed", "tall", all(2).Key
CheckEqual "by key", 12, all.Item("TALL").Value
CheckEqual "by internal key", 3.5, all("Size_Width").Value
CheckEqual "internal key of a row without a category", 1, all("_width").Index
CheckEqual "custom editor", "mine", all("wide").EditorKey
CheckEqual "custom editor type", omCustomEditor, all("wide").EditorType
On Error Resume Next
Set item = all.Item(4)
CheckFailed "a position past the end"
Set item = all.Item(0)
CheckFailed "position 0"
Set item = all.Item("unknown")
CheckFailed "an unknown key"
all.Remove "unknown"
CheckFailed "removing an unknown key"
On Error GoTo 0
CheckEqual "still three", 3, all.Count

names = ""
For Each item In all
    names = names & item.Index & item.Name & " "
Next
CheckEqual "enumeration", "1Width 2Height 3Width ", names

' A removal numbers the rest anew, and the row is out of the collection when the event comes.
all.Remove 1
CheckEvents "removed by position", "deleted Width leaving 2"
CheckEqual "renumbered", 1, all("tall").Index
CheckEqual "renumbered", 2, all("wide").Index
all.Remove "tall"
CheckEvents "removed by key", "deleted Height leaving 1"
CheckEqual "the key is free again", "tall", all.Add("Other", 1, "", "tall").Key
EventLog = ""

' A removed row that the script still holds stays usable and reaches no grid.
Set held = all("tall")
all.Remove "tall"
EventLog = ""
held.Value = "after"
held.Visible = False
CheckEqual "a held row keeps values", "after", held.Value

' The selected row goes without a word about the selection.
all.Clear
all.Add "A", "one"
all.Add "B", "two"
Set Grid.SelectedProperty = all("_A")
EventLog = ""
all.Remove "_A"
CheckEvents "selected row removed", "deleted A leaving 1"
CheckEqual "nothing is selected", "Nothing", Selected()

Set Grid.SelectedProperty = all("_B")
EventLog = ""
CheckTrue "Clear answers Empty", IsEmpty(all.Clear())
CheckEvents "cleared", ""
CheckEqual "nothing is left", 0, all.Count
CheckEqual "nothing is selected", "Nothing", Selected()
Grid.Refresh

' Under the lock rows arrive with their events, but not on screen before it is lifted.
Grid.Grid = 1
Grid.LineColor = &HFF&
Host.Pump 50
Grid.LockRefresh = True
all.Add "Locked", ""
CheckEvents "added under the lock", "added Locked as 1 of 1"
CheckEqual "not painted under the lock", &HFFFFFF, Host.Pixel(NameX(), RowsTop + RowHeight - 1)
Grid.LockRefresh = False
CheckEqual "painted after the lock", &HFF&, Host.Pixel(NameX(), RowsTop + RowHeight - 1)

Finish
