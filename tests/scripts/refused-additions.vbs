' Additions and calls that are refused: number, source and text reach the script, and nothing has changed.
Option Explicit
Host.Include "lib/common.vbs"

Sub Grid_PropertyAdded(aProperty)
    Note "added " & aProperty.Name
End Sub

Sub Grid_SelChanged(aProperty)
    Note "selected " & NameOf(aProperty)
End Sub

Const kAdd = "CProperties.Add"
Const kBadValue = "Invalid value for specified editor."
Const kBadKey = "Invalid key specified."

Dim all, thing, item, long_, category
Set all = Grid.Properties
Set thing = CreateObject("Scripting.Dictionary")
all.Add "First", "1", "Cat", "first"
EventLog = ""

On Error Resume Next

' Values that their editor cannot show.
all.Add "N", "abc", "", "", Nothing, True, 3
CheckRefused "text for a number", 10, kAdd, kBadValue
all.Add "N", thing, "", "", Nothing, True, 3
CheckRefused "object for a number", 10, kAdd, kBadValue
all.Add "N", "perhaps", "", "", Nothing, True, 4
CheckRefused "text for a Boolean", 10, kAdd, kBadValue
all.Add "N", "Arial", "", "", Nothing, True, 5
CheckRefused "text for a font", 10, kAdd, kBadValue
all.Add "N", "no day", "", "", Nothing, True, 6
CheckRefused "text for a date", 10, kAdd, kBadValue
all.Add "N", thing, "", "", Nothing, True, 7
CheckRefused "object for a file", 10, kAdd, kBadValue
all.Add "N", "red", "", "", Nothing, True, 10
CheckRefused "text for a colour", 10, kAdd, kBadValue
all.Add "N", thing, "", "", Nothing, True, 11
CheckRefused "foreign object for a picture", 10, kAdd, kBadValue
all.Add2 "N", "abc", "", "", Nothing, True, 3, "mine"
CheckRefused "text for a number, by Add2", 10, kAdd, kBadValue

' Keys that are taken, or look like a position; names that are taken.
all.Add "N", 1, "", "12"
CheckRefused "numeric key", 3, kAdd, kBadKey
all.Add "N", 1, "", " 1.5 "
CheckRefused "numeric key with blanks", 3, kAdd, kBadKey
all.Add "N", 1, "", "FIRST"
CheckRefused "key in use", 5, kAdd, "Property with this key is already present."
all.Add "fIRST", 1, "cat"
CheckRefused "name in use", 6, kAdd, "Property with this name is already present in specified category."

' Arguments of another kind.
all.Add
CheckFailed "Add without a name"
all.Add thing
CheckFailed "an object for a name"
all.Add "N", 1, thing
CheckFailed "an object for a category"
all.Add "N", 1, "", "", "text"
CheckFailed "a text for the source object"
all.Add "N", 1, "", "", Nothing, True, "list"
CheckFailed "a word for the editor"
all.Add "N", 1, "", "", Nothing, "maybe"
CheckFailed "a word for a Boolean"
all.Add "N", 1, "", "", Nothing, True, 2, "x", "y"
CheckFailed "too many arguments"
Set item = all.Item(thing)
CheckFailed "an object for a key"
all.Remove Nothing
CheckFailed "removing Nothing"
Set Grid.SelectedProperty = thing
CheckFailed "selecting a foreign object"
Grid.StartPropertyEdit thing
CheckFailed "editing a foreign object"
Grid.StartPropertyEdit Nothing
CheckRefused "editing Nothing", 16, kLibrary, "Invalid property object specified."

' A row that is not, or no longer, one of this grid.
Set item = all.Add("Gone", "x", "Cat")
all.Remove "Cat_Gone"
Set Grid.SelectedProperty = item
CheckFailed "selecting a removed row"
all.Add "Gone", "x", "Cat"
Set Grid.SelectedProperty = item
CheckRefused "selecting a row whose name another has", 13, kLibrary, "Alien property object."
Grid.StartPropertyEdit item
CheckRefused "editing a row whose name another has", 13, kLibrary, "Alien property object."
all.Remove "Cat_Gone"
EventLog = ""

' Parameters without a name.
all(1).SetEditorParam "  ", "x"
CheckRefused "parameter of a row", 3, kLibrary, kBadKey
item = all(1).GetEditorParam("")
CheckRefused "parameter of a row", 3, kLibrary, kBadKey
all(1).RemoveEditorParam " "
CheckRefused "parameter of a row", 3, kLibrary, kBadKey
Grid.SetEditorParam 2, " ", "x"
CheckRefused "parameter of the grid", 3, kLibrary, kBadKey
item = Grid.GetEditorParam(2, "")
CheckRefused "parameter of the grid", 3, kLibrary, kBadKey
Grid.RemoveEditorParam 2, ""
CheckRefused "parameter of the grid", 3, kLibrary, kBadKey

On Error GoTo 0
CheckEvents "after all refusals", ""
CheckEqual "rows after all refusals", 1, all.Count
CheckEqual "row after all refusals", "1", all("first").Value
CheckEqual "selection after all refusals", "Nothing", Selected()

' Values that every editor takes.
all.Add "Empty", , "Taken", "", Nothing, True, 3
all.Add "Null", Null, "Taken", "", Nothing, True, 3
all.Add "Nothing", Nothing, "Taken", "", Nothing, True, 11
all.Add "Digits", " 12 ", "Taken", "", Nothing, True, 3
all.Add "Colour", "-5", "Taken", "", Nothing, True, 10
all.Add "Any", thing, "Taken", "", Nothing, True, 2
CheckEqual "taken", 7, all.Count
CheckTrue "Null stays", IsNull(all("Taken_Null").Value)
CheckTrue "an object stays", all("Taken_Any").Value Is thing

' Texts with a zero inside and of a megabyte are kept whole, and shown and passed over without harm.
long_ = String(1000000, "x")
category = "Zero" & Chr(0) & "In"
all.Clear
all.Add "a" & Chr(0) & "b", "c" & Chr(0) & "d", category
all.Add long_, long_, "Long", "long"
all.Add "After", "end", long_
CheckEqual "name with a zero", 3, Len(all(1).Name)
CheckEqual "value with a zero", "c" & Chr(0) & "d", all(1).Value
CheckEqual "category with a zero", category, all(1).Category
CheckEqual "long name", 1000000, Len(all(2).Name)
CheckEqual "long value", 1000000, Len(all("long").Value)
CheckEqual "long text", 1000000, Len(all("long").FormattedText)
CheckEqual "long category", 1000000, Len(all(3).Category)
all(1).Help = long_
Grid.NameCaption = long_
Grid.Refresh
Host.Pump 50
For Each item In all
    Set Grid.SelectedProperty = item
    Host.Pump 20
Next
Grid.ActiveView = omCatagorized
Host.Pump 50
For Each item In all
    Set Grid.SelectedProperty = item
    Host.Pump 20
Next
Set Grid.SelectedProperty = Nothing
CheckEqual "value with a zero, after its editor", "c" & Chr(0) & "d", all(1).Value
CheckEqual "long value, after its editor", 1000000, Len(all("long").Value)
all.Remove "long"
all.Clear

Finish
