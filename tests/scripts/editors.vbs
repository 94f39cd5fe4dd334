' Rows with dialogs and calendars by mouse and keyboard: what is chosen and what is given up, in which order the host hears of
' it, and where the next key goes.
Option Explicit
Host.Include "lib/common.vbs"

Const omCustomDialog = 0
Const omFontEditor = 5
Const omDateEditor = 6
Const omFileEditor = 7
Const omDirectoryEditor = 8
Const omPictureEditor = 11
Const kDialogTime = 2500

Dim all, font, day, file, folder, picture, custom, pictures, answer
Set all = Grid.Properties
MakePlain 420, 260
all.Add "First", "a"
Set font = AddRow("Font", NewFont(), omFontEditor)
Set day = AddRow("Date", #2020-02-15#, omDateEditor)
Set file = AddRow("File", "", omFileEditor)
Set folder = AddRow("Folder", "C:\windows", omDirectoryEditor)
Set picture = AddRow("Picture", Nothing, omPictureEditor)
Set custom = AddRow("Custom", "draft", omCustomDialog)
all.Add "Last", "z"
pictures = Host.ScriptFolder & "\..\..\examples\pictures"
file.SetEditorParam "InitialDir", pictures
picture.SetEditorParam "InitialDir", pictures
EventLog = ""

Function AddRow(name, value, editor)
    Set AddRow = all.Add(name, value, "", "", Nothing, True, editor)
End Function

Function NewFont()
    Set NewFont = CreateObject("StdFont")
    NewFont.Name = "Tahoma"
    NewFont.Size = 9
End Function

Sub Grid_SelChanged(aProperty)
    Note NameOf(aProperty)
End Sub

Sub Grid_ValidateValue(aProperty, newValue, cancel)
    Note "asked"
End Sub

Sub Grid_PropertyValueChanged(aProperty)
    Note "changed"
End Sub

Sub Grid_DisplayError(message, number, showBox)
    Note "told " & message
    showBox = False
End Sub

Sub Grid_ShowEditorDialog(aProperty, value)
    Note "dialog " & Shown(value)
    Select Case answer
    Case "text": value = "final"
    Case "array": value = Array(1, 2)
    Case "object": Set value = all
    Case "box"
        Host.Later "n", 0 ' typed by the timer, which waits for the box
        If MsgBox("Final?", vbYesNo) = vbNo Then value = "refused"
    End Select
End Sub

' The keys of a call go to the row, and on to whatever opens there.
Sub Typed(what, row, keys, expected)
    ClickRow row
    EventLog = ""
    Host.Keys keys
    CheckEvents what, expected
End Sub

' Down moves among the rows when these have the focus, and not in a box or in a date.
Sub CheckRows(what)
    Dim before
    before = Selected()
    Host.Keys "{DOWN}"
    CheckTrue what & ": the rows have the keys", Selected() <> before
    EventLog = ""
End Sub

Sub CheckField(what)
    Dim before
    before = Selected()
    Host.Keys "{HOME}"
    CheckEqual what & ": the field has the keys", before, Selected()
    EventLog = ""
End Sub

Sub Leave(what, expected)
    ClickRow 0
    CheckEvents what & ", left", expected
End Sub

' ---- Fonts: the dialog stores at once, and gives the keys back to the field, which leaves arrows to the rows.

Typed "font", 1, "{F4}%s12{ENTER}", "asked, changed"
CheckEqual "font: its size", 12, CLng(font.Value.Size)
CheckRows "font"

' ---- Dates.

Typed "date", 2, "3{RIGHT}20{ENTER}", "asked, changed"
CheckEqual "date typed", #2020-03-20#, day.Value
CheckRows "date"
Typed "date by arrows", 2, "{F4}{ESC}{UP}{RIGHT}{DOWN}", ""
Leave "date by arrows", "asked, changed, First"
CheckEqual "date by arrows", #2020-04-19#, day.Value
Typed "calendar, then the field", 2, "{F4}{DOWN}{RIGHT}{ENTER}{RIGHT}{UP}", ""
Leave "calendar", "asked, changed, First"
CheckEqual "calendar, then the field", #2020-04-28#, day.Value
Typed "calendar with ENTER", 2, "%{DOWN}{UP}{LEFT}{ENTER}{ENTER}", "asked, changed"
CheckEqual "calendar with ENTER", #2020-04-20#, day.Value
CheckRows "calendar with ENTER"

' ---- Files: stored at once.

Typed "file", 3, "{F4}flag.bmp{ENTER}", "asked, changed"
CheckEqual "file", "flag.bmp", Mid(file.Value, InStrRev(file.Value, "\") + 1)
Typed "file cancelled, and again by SPACE", 3, "{F4}{ESC} {ESC}", ""
CheckField "file cancelled"

' ---- Folders wait.

Typed "folder", 4, "{F4}{UP}{ENTER}", ""
CheckEqual "folder waits", "C:\windows", folder.Value
Host.Keys "{ENTER}"
CheckEvents "folder, ENTER", "asked, changed"
CheckEqual "folder", "C:\users", folder.Value
CheckRows "folder"

' ---- Pictures: a chosen file is stored at once. Shift+TAB leaves the box.

Typed "picture", 5, "{F4}flag.bmp{ENTER}", "asked, changed"
CheckEqual "picture", "(Picture)", picture.FormattedText
CheckField "picture"
Host.Keys "+{TAB}"
CheckRows "picture left by Shift+TAB"
ClickRow 0
EventLog = ""

' ---- Dialogs of the host's own: the answer waits for ENTER.

Sub Answers(what, keys, expected)
    custom.Value = "draft"
    answer = what
    Typed what & " " & keys, 6, keys, expected
    CheckRows what & " " & keys
    ClickRow 0
    EventLog = ""
End Sub

Answers "text", "{F4}{ENTER}", "dialog draft, asked, changed"
CheckEqual "text", "final", custom.Value
Answers "text", "%{DOWN}{ESC}", "dialog draft"
CheckEqual "text given up", "draft", custom.Value
Typed "text to be left", 6, "{F4}", "dialog draft"
Leave "text to be left", "asked, changed, First"
CheckEqual "text left", "final", custom.Value
Answers "array", "{F4}{ENTER}", "dialog draft, asked, changed"
CheckTrue "an array", IsArray(custom.Value)
Answers "object", "{F4}{ENTER}", "dialog draft, told Type mismatch"
CheckEqual "an object is none for a text", "draft", custom.Value
custom.Value = "draft"
answer = "box"
ClickRow 6
EventLog = ""
Host.Click 412, RowY(6)
CheckEvents "a box of the script's, by the button", "dialog draft"
Host.Keys "{ENTER}"
CheckEqual "a box of the script's", "refused", custom.Value
CheckRows "a box of the script's"
Finish
