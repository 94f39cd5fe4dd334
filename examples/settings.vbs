' The settings of a program for notes, in a property grid, with a row of each kind: texts, numbers, switches, lists, a date with
' limits, files and folders, a question of the script's own, and colours, a font and a picture that the page takes at once. Rows
' come and go, and the script sorts them.
'
'   ./run examples/settings.vbs
'
' Rows that differ from their default are bold. A click on the name header sorts by name, one on the value header brings the
' changed rows to the top; another click turns the order. The categories keep the order of the page.

Option Explicit

' What the script uses of the control's enumerations.
Const omCatagorized = 1
Const omDescending = 1
Const omCustomDialog = 0
Const omTextEditor = 2
Const omNumberEditor = 3
Const omBooleanEditor = 4
Const omFontEditor = 5
Const omDateEditor = 6
Const omFileEditor = 7
Const omDirectoryEditor = 8
Const omListEditor = 9
Const omColorEditor = 10
Const omPictureEditor = 11
Const omPictureTiled = 2

' Where the short session looks for rows.
Const kTopRow = 56
Const kBottomRow = 600
Const kStep = 16

Const kNotInNames = "*?""<>|"
Const kPageOrder = "General,Looks,Writing,Text,Spelling,Saving,Backups"

Dim all, LastY
Set all = Grid.Properties
LastY = kTopRow - kStep
Host.Resize 400, 680
FillPage
Grid.ActiveView = omCatagorized
Grid.ColumnDividerPosition = 160
Grid.DescriptionPaneHeight = 64
Grid.CustomSort = True
Grid.Sorted = True
If Not Host.Interactive Then ShowItself

' The rows.

Sub FillPage()
    Grid.LockRefresh = True
    Grid.SetEditorParam omNumberEditor, "AllowNegative", "False"
    Grid.SetEditorParam omNumberEditor, "AllowFloatingPoint", "False"
    AddGeneral
    AddLooks
    AddWriting
    AddSaving
    Grid.LockRefresh = False
End Sub

Sub AddGeneral()
    Dim row
    Set row = AddRow("name", "Your name", "A. Writer", "General", omTextEditor, "Signs your notes. From 1 to 40 letters.")
    row.SetEditorParam "MinLength", "1"
    row.SetEditorParam "MaxLength", "40"
    AddList "language", "Language", "en", "General", "Language of menus and messages; used from the next start on.", _
        Array("nl", "Dutch", "en", "English", "fr", "French", "de", "German", "pl", "Polish")
    AddList "theme", "Theme", 0, "General", "Colours of the program. This page shows them at once.", _
        Array(0, "Light", 1, "Paper", 2, "Dark")
    AddSwitch "start", "Open at log-in", False, "General", "Whether the program is there when you have logged in.", "Yes", "No"
    Set row = AddRow("remind", "Remind from", #2026-01-01#, "General", omDateEditor, _
        "The first day on which the program may remind you of a note, from 2020 to 2035.")
    row.Format = "yyyy-mm-dd"
    row.SetEditorParam "DateFormat", "yyyy-MM-dd"
    row.SetEditorParam "EnableMinValueCheck", "True"
    row.SetEditorParam "MinValue", "2020-01-01"
    row.SetEditorParam "EnableMaxValueCheck", "True"
    row.SetEditorParam "MaxValue", "2036-01-01" ' the first day that is too late
    Set row = AddRow("sign", "Sign", "", "General", omFileEditor, "File of the icon that stands for the program beside the clock.")
    row.SetEditorParam "Filter", "Icons (*.ico)|*.ico|All files (*.*)|*.*"
    row.SetEditorParam "InitialDir", Host.ScriptFolder & "\pictures"
    row.SetEditorParam "DialogCaption", "The sign of the program"
    Set row = AddRow("version", "Version", "4.2", "General", omTextEditor, "Told by the program; it cannot be changed here.")
    row.ReadOnly = True
End Sub

Sub AddLooks()
    Dim row
    AddRow "face", "Page", &H8000000F, "Looks", omColorEditor, "Colour of the page, with its tabs and headings."
    AddRow "rows", "Rows", &H80000005, "Looks", omColorEditor, "Colour behind names and values."
    AddRow "ink", "Letters", &H80000012, "Looks", omColorEditor, "Colour of everything that is written on the page."
    AddRow "font", "Font", Grid.Font, "Looks", omFontEditor, "Of everything that is written on the page."
    Set row = AddRow("paper", "Picture", Nothing, "Looks", omPictureEditor, "Lies behind the rows. Delete and ENTER take it away.")
    row.SetEditorParam "Filter", "Pictures|*.bmp;*.gif;*.jpg;*.png"
    row.SetEditorParam "InitialDir", Host.ScriptFolder & "\pictures"
    row.SetEditorParam "NoPicturePrompt", "(plain)"
End Sub

Sub AddWriting()
    AddNumber "tab", "Tab width", 4, "Writing|Text", "Blanks to a tab stop, from 1 to 16.", 1, 16
    AddNumber "width", "Line width", 100, "Writing|Text", "Letters to a line, from 20 to 400.", 20, 400
    AddSwitch "wrap", "Wrap lines", True, "Writing|Text", "Whether long lines go on in the next one.", "On", "Off"
    AddSwitch "spelling", "Check spelling", True, "Writing|Spelling", "Marks unknown words. Off hides the row of the dictionary.", _
        "On", "Off"
    AddList "dictionary", "Dictionary", "en-GB", "Writing|Spelling", "Whose spelling is right.", _
        Array("en-GB", "English, British", "en-US", "English, American", "fr-FR", "French", "nl-NL", "Dutch")
End Sub

Sub AddSaving()
    AddRow "title", "Title", "Note", "Saving", omTextEditor, "What a new note is called. The script refuses " & kNotInNames & "."
    AddRow("folder", "Folder", "C:\Notes", "Saving", omDirectoryEditor, "Where new notes go.").SetEditorParam "DialogCaption", _
        "Where new notes go"
    AddRow "old", "Old notes", "Stay", "Saving", omCustomDialog, "What becomes of notes that nobody opens for a year. The script asks."
    AddNumber "every", "Save every", 5, "Saving", "Minutes between two savings, from 1 to 60.", 1, 60
    AddSwitch "backups", "Keep backups", False, "Saving|Backups", "Whether older versions are kept. Shows the rows that say how.", _
        "Keep", "Discard"
    AddNumber "copies", "Copies", 3, "Saving|Backups", "Versions of a note that are kept, from 1 to 9.", 1, 9
    ShowRow "copies", False
End Sub

' The default of a row is kept in its Tag, as a value that can be compared.
Function AddRow(key, name, value, category, editor, help)
    Set AddRow = all.Add(name, value, category, key, Nothing, True, editor)
    AddRow.Help = help
    AddRow.Tag = Told(AddRow)
End Function

Function Told(row)
    Select Case row.EditorType
    Case omFontEditor: Told = TextOfFont(row.Value)
    Case omPictureEditor: Told = Not row.Value Is Nothing
    Case Else: Told = row.Value
    End Select
End Function

Function TextOfFont(font)
    TextOfFont = font.Name & " " & font.Size
    If font.Bold Then TextOfFont = TextOfFont & ", bold"
    If font.Italic Then TextOfFont = TextOfFont & ", italic"
End Function

' The editor takes values from the lower limit on, and below the upper one.
Sub AddNumber(key, name, value, category, help, least, most)
    Dim row
    Set row = AddRow(key, name, value, category, omNumberEditor, help)
    row.SetEditorParam "EnableMinValueCheck", "True"
    row.SetEditorParam "MinValue", CStr(least)
    row.SetEditorParam "EnableMaxValueCheck", "True"
    row.SetEditorParam "MaxValue", CStr(most + 1)
End Sub

' Each entry is a value and its text.
Sub AddList(key, name, value, category, help, entries)
    Dim row, i
    Set row = AddRow(key, name, value, category, omListEditor, help)
    For i = 0 To UBound(entries) Step 2
        row.ListItems.Add entries(i + 1), entries(i)
    Next
End Sub

Sub AddSwitch(key, name, value, category, help, labelOn, labelOff)
    Dim row
    Set row = AddRow(key, name, value, category, omBooleanEditor, help)
    row.SetEditorParam "True", labelOn
    row.SetEditorParam "False", labelOff
End Sub

Function RowOf(key)
    Dim row
    For Each row In all
        If row.Key = key Then Set RowOf = row
    Next
End Function

Sub ShowRow(key, visible)
    RowOf(key).Visible = visible
End Sub

' What the grid asks and tells.

Sub Grid_ValidateValue(aProperty, newValue, cancel)
    Dim i
    If aProperty.Key <> "title" Then Exit Sub
    For i = 1 To Len(kNotInNames)
        If InStr(newValue, Mid(kNotInNames, i, 1)) > 0 Then cancel = True
    Next
    If Len(Trim(newValue)) = 0 Then cancel = True
    If cancel Then Host.Echo "refused:", aProperty.Name, "=", newValue
End Sub

Sub Grid_PropertyValueChanged(aProperty)
    Host.Echo "changed:", aProperty.Name, "=", aProperty.FormattedText
    aProperty.Bold = IsChanged(aProperty)
    Select Case aProperty.Key
    Case "theme": ShowTheme aProperty.Value
    Case "face": SetFace aProperty.Value, aProperty.Value
    Case "rows": Grid.PropertyBackColor = aProperty.Value
    Case "ink": SetInk aProperty.Value
    Case "font": SetFont aProperty.Value
    Case "paper": SetPaper aProperty.Value
    Case "spelling": ShowRow "dictionary", aProperty.Value
    Case "backups": ShowRow "copies", aProperty.Value
    End Select
End Sub

' A row of type omCustomDialog leaves the dialog to the script: what is in value at the end waits in the row for ENTER.
Sub Grid_ShowEditorDialog(aProperty, value)
    Select Case MsgBox("Shall notes that nobody opens for a year go to the archive?", vbYesNoCancel + vbQuestion, aProperty.Name)
    Case vbYes: value = "Go to the archive"
    Case vbNo: value = "Stay"
    End Select
End Sub

Function IsChanged(row)
    IsChanged = Told(row) <> row.Tag
End Function

Sub ShowTheme(theme)
    Select Case theme
    Case 0: SetColors &H8000000F, &H80000012, &H80000005, &H8000000F, &H80000010
    Case 1: SetColors &HC8DCE6, &H203040, &HF0F8FC, &HD8E8F0, &HA8BCC8
    Case 2: SetColors &H484038, &HF0F0F0, &H383028, &H585048, &H706860
    End Select
End Sub

' The rows of the colours show those of the theme, and change the page themselves.
Sub SetColors(face, ink, rows, categories, lines)
    Grid.LockRefresh = True
    RowOf("face").Value = face
    RowOf("rows").Value = rows
    RowOf("ink").Value = ink
    SetFace face, categories
    Grid.LineColor = lines
    Grid.LockRefresh = False
    Grid.Refresh
End Sub

Sub SetFace(face, categories)
    Grid.BackColor = face
    Grid.CategoryBackColor = categories
End Sub

Sub SetInk(ink)
    Grid.ForeColor = ink
    Grid.PropertyForeColor = ink
    Grid.CategoryForeColor = ink
End Sub

' The font of the page stays its own: it takes what the row's has.
Sub SetFont(font)
    Host.Echo "font:", TextOfFont(font)
    Grid.Font.Name = font.Name
    Grid.Font.Size = font.Size
    Grid.Font.Bold = font.Bold
    Grid.Font.Italic = font.Italic
End Sub

Sub SetPaper(picture)
    Set Grid.Picture = picture
    Grid.PictureLayout = omPictureTiled
End Sub

' A sort compares two rows: swap is True when the first one is to stand after the second one.
Sub Grid_PropertyCompare(first, second, byName, swap)
    Dim order
    order = 0
    If Not byName Then order = Changes(second) - Changes(first)
    If order = 0 Then order = StrComp(first.Name, second.Name, vbTextCompare)
    If Grid.SortOrder = omDescending Then order = -order
    swap = order > 0
End Sub

Function Changes(row)
    Changes = 0
    If IsChanged(row) Then Changes = 1
End Function

' The names of categories, not their paths, are what is compared.
Sub Grid_CategoryCompare(first, second, byName, swap)
    swap = InStr(kPageOrder, first) > InStr(kPageOrder, second)
End Sub

' A failure inside the control is about to be shown in a box. With nobody there to shut it, it is only told.
Sub Grid_DisplayError(message, number, showBox)
    Host.Echo "told:", message
    showBox = Host.Interactive
End Sub

' A short session for when nobody is there.

Sub ShowItself()
    ClickOn "Remind from"
    Host.Keys "{F4}{RIGHT 9}{ENTER}{ENTER}"
    InDialog "Sign", "screen.ico{ENTER}"
    ClickOn "Theme"
    Host.Keys "%{DOWN}{DOWN}{ENTER}"
    ClickOn "Your name"
    Host.Keys "B. Reader{ENTER}"
    InDialog "Font", "%y{DOWN}{ENTER}"
    ClickOn "Letters"
    Host.Keys "{F4}{RIGHT 7}{DOWN 4}{ENTER}"
    InDialog "Picture", "weave.bmp{ENTER}"
    ClickOn "Tab width"
    Host.Keys "17{ENTER}{ESC}"
    Host.Keys "2{ENTER}"
    ClickOn "Check spelling"
    Host.DoubleClick 60, LastY
    InDialog "Folder", "{ESC}"
    InDialog "Old notes", "y"
    Host.Keys "{ENTER}"
    ClickOn "Rows"
    Host.Keys "{F4}"
    Host.Pump 300
    Host.Quit 0
End Sub

' Opens the dialog of that row, where the keys are typed when it is up.
Sub InDialog(name, keys)
    ClickOn name
    Host.Later keys, 700
    Host.Keys "{F4}"
End Sub

' Clicks on the names, down the page and again from its top, until the row of that name is selected.
Sub ClickOn(name)
    Dim i
    For i = 0 To (kBottomRow - kTopRow) / kStep
        LastY = LastY + kStep
        If LastY > kBottomRow Then LastY = kTopRow
        Host.Click 60, LastY
        If Not Grid.SelectedProperty Is Nothing Then
            If Grid.SelectedProperty.Name = name Then Exit Sub
        End If
    Next
    Host.Echo "There is no row " & name & " in view."
    Host.Quit 1
End Sub
