' Rows come and go as a script has it: arguments left out, default members, For Each, the events and what a handler of them
' sees, and refusals that arrive in Err.
Option Explicit
Host.Include "lib/common.vbs"

Sub Grid_PropertyAdded(aProperty)
    Note "added " & aProperty.Name & " as " & aProperty.Index & " of " & Grid.Properties.Count
End Sub

Sub Grid_PropertyDeleted(aProperty)
    Note "deleted " & aProperty.Name & " leaving " & Grid.Properties.Count
End Sub

Sub Grid_KeyDown(code, shift)
    Note "key " & code
End Sub

Dim all, item, names, thing, text
Set all = Grid.Properties
Set thing = CreateObject("Scripting.Dictionary")
CheckTrue "no item in an empty collection", all("nothing here") Is Nothing

' What a row gets when only its name is given, and when all is.
Set item = all.Add("Width")
CheckTrue "no value is Empty", IsEmpty(item.Value)
CheckEqual "defaults", "Misc  2 True", item.Category & " " & item.Key & " " & item.EditorType & " " & item.Visible
CheckTrue "no source", item.SourceObject Is Nothing
all.Add "Height", 12, "Size", " tall ", Nothing, True, omNumberEditor
all.Add2 "Width", 3.5, "Size", "wide", Nothing, False, omCustomEditor, "mine"
CheckEvents "added", "added Width as 1 of 1, added Height as 2 of 2, added Width as 3 of 3"
CheckEqual "by Add2", "1 mine", all("wide").EditorType & " " & all("wide").EditorKey

' Items are found by position, by host key and by category and name; keys in any case of letters.
CheckEqual "found", "Height Width 12 3.5 1", all(2).Name & " " & all.Item("3").Name & " " & all("TALL").Value & " " & _
    all("Size_Width").Value & " " & all("_width").Index
For Each item In all
    names = names & item.Index & item.Name & " "
Next
CheckEqual "enumeration", "1Width 2Height 3Width ", names

' Number, source and text of a refusal reach the script, and nothing has changed.
On Error Resume Next
all.Add "N", thing, "", "", Nothing, True, omNumberEditor
CheckRefused "object for a number", 10, "CProperties.Add", "Invalid value for specified editor."
all.Add thing
CheckFailed "an object for a name"
Set item = all.Item(thing)
CheckFailed "an object for a key"
Set Grid.SelectedProperty = thing
CheckFailed "selecting a foreign object"
Set Grid.Font = thing
CheckFailed "a foreign object for a font"
Grid.BackColor = "red"
CheckFailed "a word for a colour"
text = Grid.SelectedProperty(1).Name
CheckFailed "an argument for Nothing"
On Error GoTo 0
CheckEvents "refused", ""
CheckEqual "rows after refusals", 3, all.Count

' What an object does to the variables of the call, when it is asked for its value, does not reach the row.
Class Restless
    Public Default Property Get Itself()
        text = String(500, "z")
        names = String(500, "z")
        Itself = 5
    End Property
End Class
text = "unchanged"
names = "of old"
Set item = all.Add(text, New Restless, names, names, Nothing, True, omNumberEditor)
CheckEqual "a row of its first texts", "unchanged of old of old", item.Name & " " & item.Category & " " & item.Key
all.Remove "of old"
CheckEvents "restless", "added unchanged as 4 of 4, deleted unchanged leaving 3"

' An object that is its own default value is no number for the host of the script either.
Dim entry
Set item = all("tall")
Set entry = item.ListItems.Add("itself", 1)
entry.Value = entry
On Error Resume Next
Host.Click entry, 1
CheckFailed "an endless number"
On Error GoTo 0
entry.Value = 0

' A removal numbers the rest anew. A row that the script holds stays usable; references need no Set.
Grid.SelectedProperty = item
CheckEqual "a reference without Set", "Height", Selected()
all.Remove 1
all.Remove "tall"
CheckEvents "removed", "deleted Width leaving 2, deleted Height leaving 1"
CheckEqual "left", "1 Nothing", all("wide").Index & " " & Selected()
item.Value = "after"
CheckEqual "a held row", "after", item.Value
CheckTrue "Clear answers Empty", IsEmpty(all.Clear())
CheckEvents "cleared", ""

text = Grid.Version
CheckEqual "version is told as 1.23.4567", "7 2 5", Len(text) - InStr(text, ".") & " " & InStr(text, ".") & " " & _
    InStr(InStr(text, ".") + 1, text, ".")
Host.Later "{ESC}", 500
Grid.ShowAbout
Host.Pump 700
CheckEvents "the key was the About window's", ""
Finish
