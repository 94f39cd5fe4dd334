' Settings of the grid: defaults of a new one, what setters refuse and keep, parameters and registered editors.
Option Explicit
Host.Include "lib/common.vbs"

Sub Grid_ActiveViewChanged()
    Note "view"
End Sub

Const kBadValue = "Invalid property value."
Const kBadKey = "Invalid key specified."

Dim all, row, width, text, i

' A new grid.
CheckEqual "colours", "8000000F 80000012 80000005 80000012 80000011", Hex(Grid.BackColor) & " " & Hex(Grid.ForeColor) & " " & _
    Hex(Grid.PropertyBackColor) & " " & Hex(Grid.PropertyForeColor) & " " & Hex(Grid.ReadOnlyPropertyColor)
CheckEqual "more colours", "8000000D 8000000E 80000010 8000000F 80000012", Hex(Grid.HighlightBackColor) & " " & _
    Hex(Grid.HighlightForeColor) & " " & Hex(Grid.LineColor) & " " & Hex(Grid.CategoryBackColor) & " " & Hex(Grid.CategoryForeColor)
CheckEqual "captions", "Property Value Alphabetic Categorized", Grid.NameCaption & " " & Grid.ValueCaption & " " & _
    Grid.AlphabeticTabCaption & " " & Grid.CategorizedTabCaption
CheckEqual "categories", "Misc | True 1", Grid.DefaultCategory & " " & Grid.CategorySeparator & " " & Grid.CategoryBold & " " & _
    Grid.CategoryAppearance
CheckEqual "numbers", "0 1 0 2 2 0 0 1 0 10 1", Grid.ActiveView & " " & Grid.Appearance & " " & Grid.BorderStyle & " " & Grid.Grid & _
    " " & Grid.Headers & " " & Grid.PictureLayout & " " & Grid.SortOrder & " " & Grid.TreeStyle & " " & Grid.RecordsetToolbar & _
    " " & Grid.Indentation & " " & Grid.InspectionDepth
CheckEqual "flags that are on", "TrueTrueTrueTrueTrue", Grid.Enabled & Grid.ShowDescription & Grid.ShowTabs & Grid.ShowToolTip & _
    Grid.SortOnHeaderClick
CheckEqual "flags that are off", "FalseFalseFalseFalseFalse", Grid.ReadOnly & Grid.Unicode & Grid.Sorted & Grid.CustomSort & _
    Grid.LockRefresh
CheckTrue "objects", Grid.Picture Is Nothing And Grid.Recordset Is Nothing And Grid.SelectedProperty Is Nothing
CheckTrue "font", Not (Grid.Font Is Nothing)
CheckTrue "window", Grid.hwnd <> 0
text = Grid.Version
CheckEqual "version is told as 1.23.4567", "7 2 5", Len(text) - InStr(text, ".") & " " & InStr(text, ".") & " " & _
    InStr(InStr(text, ".") + 1, text, ".")

' Refusals keep what was.
On Error Resume Next
Grid.AlphabeticTabCaption = "  "
CheckRefused "blank caption", 2, kLibrary, kBadValue
Grid.CategorizedTabCaption = ""
CheckRefused "blank caption", 2, kLibrary, kBadValue
Grid.CategorySeparator = " "
CheckRefused "blank separator", 2, kLibrary, "CategorySeparator : " & kBadValue
Grid.Indentation = -1
CheckRefused "negative indentation", 2, "Indentation : ", kBadValue
Grid.BackColor = "red"
CheckFailed "a word for a colour"
Grid.ShowTabs = "perhaps"
CheckFailed "a word for a Boolean"
Set Grid.Font = CreateObject("Scripting.Dictionary")
CheckFailed "a foreign object for a font"
Grid.hwnd = 5
CheckFailed "a read-only member"
On Error GoTo 0
CheckEqual "kept", "Alphabetic Categorized | 10", Grid.AlphabeticTabCaption & " " & Grid.CategorizedTabCaption & " " & _
    Grid.CategorySeparator & " " & Grid.Indentation

' What setters make of their values.
Grid.AlphabeticTabCaption = " &List "
CheckEqual "captions are trimmed", "&List", Grid.AlphabeticTabCaption
Grid.CategorySeparator = " / "
CheckEqual "the separator is trimmed", "/", Grid.CategorySeparator
Grid.CategorySeparator = "|"
Grid.Indentation = 0
CheckEqual "no indentation", 0, Grid.Indentation
Grid.Indentation = 12.5
CheckEqual "fractions", 12.5, Grid.Indentation
Grid.InspectionDepth = 0
CheckEqual "depth", 1, Grid.InspectionDepth
Grid.LineColor = &H80000008
CheckEqual "system colours stay references", "80000008", Hex(Grid.LineColor)
CheckEqual "colours compare with a script's own", True, Grid.LineColor = &H80000008

' Every setting of look is painted without harm, in both views and with rows of both kinds.
Set all = Grid.Properties
all.Add "A", "x", "One|Two"
all.Add "B", True, "One", "", Nothing, True, 4
all("One_B").BackColor = vbRed
all("One_B").BackColor = -1
CheckEqual "a row without a colour of its own", Grid.PropertyBackColor, all("One_B").BackColor
Grid.SelectedProperty = all("One_B")
CheckEqual "a reference without Set", "B", Grid.SelectedProperty.Name
Set Grid.SelectedProperty = Nothing
all("One_B").Bold = True
all("One_B").Italic = True
all("One_B").Appearance = 1
all.Add "C", &H0000FF, "One", "", Nothing, True, 10
For i = 0 To 6
    Grid.ActiveView = i Mod 2
    Grid.Grid = i
    Grid.TreeStyle = i Mod 4
    Grid.Headers = i Mod 3
    Grid.BorderStyle = i Mod 2
    Grid.Appearance = 1 - i Mod 2
    Grid.CategoryAppearance = i Mod 2
    Grid.CategoryBold = i Mod 2 = 0
    Grid.Indentation = i * 5
    Grid.ShowTabs = i Mod 3 <> 0
    Grid.Unicode = i = 5
    Host.Pump 30
Next
Grid.Unicode = False
Grid.ActiveView = omAlphabetic
Host.Keys "{HOME}{END}"
CheckEqual "colour text", "&H000000FF&", all("One_C").FormattedText
CheckEqual "Boolean text", "True", all("One_B").FormattedText
all("One_B").SetEditorParam "true", "Yes"
CheckEqual "Boolean text by parameter", "Yes", all("One_B").FormattedText
CheckEqual "entries of a Boolean row", 4, all("One_B").EditorType
CheckEqual "entries of a Boolean row", "Yes False", all("One_B").ListItems(1).Text & " " & all("One_B").ListItems(2).Text

' The access keys of the tabs switch the view.
EventLog = ""
Grid.ShowTabs = True
Grid.AlphabeticTabCaption = "&List"
Grid.CategorizedTabCaption = "A&&B &Tree"
Host.Keys "%t"
CheckEvents "key of the second tab", "view"
Host.Keys "%l"
CheckEvents "key of the first tab", "view"
Host.Keys "%b"
CheckEvents "no key", ""
Grid.ShowTabs = False
Host.Keys "%t"
CheckEvents "without tabs", ""

' Parameters: of the row before those of the grid for its editor; names without regard to case and blanks.
Set row = all(1)
CheckEqual "unknown", "", Grid.GetEditorParam(2, "nothing")
Grid.SetEditorParam 2, " MaxLength ", "7"
CheckEqual "of the grid", "7", Grid.GetEditorParam(2, "MAXLENGTH")
CheckEqual "not of another editor", "", Grid.GetEditorParam(3, "MaxLength")
CheckEqual "of the grid, through the row", "7", row.GetEditorParam("maxlength")
row.SetEditorParam "MAXLENGTH", "5"
CheckEqual "of the row", "5", row.GetEditorParam("MaxLength")
row.SetEditorParam "MaxLength", ""
CheckEqual "an empty one hides nothing", "7", row.GetEditorParam("MaxLength")
row.RemoveEditorParam "maxlength"
row.RemoveEditorParam "never set"
Grid.RemoveEditorParam 2, "maxlength"
CheckEqual "removed", "", row.GetEditorParam("MaxLength")

' Registered editors.
On Error Resume Next
text = Grid.RegisterEditor(" ", Nothing)
CheckRefused "blank key", 3, "RegisterEditor : ", kBadKey
On Error GoTo 0
CheckEqual "Nothing is registered", False, Grid.RegisterEditor("mine", Nothing)
Grid.UnRegisterEditor "never there"
Grid.UnRegisterEditor ""

' The window with the version comes and goes.
Host.Later "{ESC}", 1000
Grid.ShowAbout
CheckTrue "the grid goes on", Grid.hwnd <> 0

Finish
