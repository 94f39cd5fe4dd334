' A rich grid to look at, and the pictures of docs/gallery.md.
'
'   ./run examples/gallery.vbs     shows the grid
'   ./run --gallery                makes the pictures anew
'
' With a folder as its argument the script works through all looks of the grid and leaves contact sheets there.

Option Explicit

' What the script uses of the control's enumerations.
Const omAlphabetic = 0
Const omCatagorized = 1
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
Const omPreErase = 0
Const omPostErase = 1
Const omPostDraw = 2
Const omFlat = 0
Const om3d = 1
Const omShow = 1
Const omHide = 2

Const kTransparent = &HFF00FF
Const kSky = &HFBF1E4
Const kLeaf = &HE3F3E6
Const kAmber = &H4FB8F0
Const kGreen = &H7CC48A
Const kPaper = &HFFFFFF

Host.Include "lib\palette.vbs"
Host.Include "lib\toolbar.vbs"
Host.Include "lib\clocks.vbs"
Host.Include "lib\record-sheet.vbs"
Host.Include "lib\tip-sheet.vbs"

Dim words, folder
words = Host.Arguments
Grid.SetEditorParam omNumberEditor, "AllowFloatingPoint", "True"
If UBound(words) < 0 Then
    Host.Resize 420, 480
    FillStation
    Grid.ActiveView = omCatagorized
    Grid.ColumnDividerPosition = 200
    If Not Host.Interactive Then Host.Quit 0
Else
    folder = words(0)
    MakeSheets
    Host.Quit 0
End If

' The rows: a weather station.

Sub FillStation()
    Dim row
    Grid.LockRefresh = True
    Grid.Properties.Clear
    Set row = Add("Name", "Harbour mole", "Station", omTextEditor, "What the station is called on maps and in messages.")
    row.Bold = True
    PictureOf row, "flag.bmp"
    AddChoice "Language", "nl", "Station", "Language of the display at the station.", Array("nl", "Dutch", "en", "English", "fr", "French")
    Set row = Add("Serial number", "WS-20417", "Station", omTextEditor, "Given by the maker.")
    row.ReadOnly = True
    PictureOf row, "screen.ico"
    Add("Latitude", 52.46, "Station|Place", omNumberEditor, "Degrees north of the equator.").Format = "0.00"
    Add("Longitude", 4.58, "Station|Place", omNumberEditor, "Degrees east of Greenwich.").Format = "0.00"
    Add "Height", 14, "Station|Place", omNumberEditor, "Metres above the mean level of the sea."

    Set row = AddChoice("Wind unit", "kn", "Sensors|Wind", "Unit of the wind's speed, in all readings and alarms.", _
        Array("ms", "metres per second", "kmh", "kilometres per hour", "kn", "knots"))
    PictureOf row, "wind.bmp"
    AddSwitch "Damped", True, "Sensors|Wind", "Whether gusts are taken out of the reading.", "Yes", "No"
    Set row = Add("Millimetres a tip", 0.2, "Sensors|Rain", omNumberEditor, "How much rain one tip of the bucket stands for.")
    PictureOf row, "drop.bmp"
    AddSwitch "Heated", False, "Sensors|Rain", "Whether the funnel is kept free of snow.", "On", "Off"
    Set row = Add("Radiation", 418, "Sensors|Sun", omNumberEditor, "Watts a square metre, this minute.")
    row.ReadOnly = True
    row.Format = "#,##0"
    PictureOf row, "sun.bmp"

    Set row = Add("Battery", 72, "Power", omNumberEditor, "Charge in per cent. The value is drawn by the script.")
    row.ReadOnly = True
    row.CustomDraw = True
    Set row = Add("Warn below", 30, "Power", omNumberEditor, "A message is sent when the charge falls under this.")
    row.BackColor = kSky
    Set row = Add("Night mode", "dimmed", "Power", omTextEditor, "Seldom used.")
    row.Italic = True
    row.ForeColor = &H808080
    Add("Checksum", 0, "Power", omNumberEditor, "").Visible = False
    Grid.LockRefresh = False
End Sub

' A handful of rows for the small pictures.
Sub FillFew()
    Dim row
    Grid.LockRefresh = True
    Grid.Properties.Clear
    Add "Name", "Harbour mole", "Station", omTextEditor, "What the station is called."
    Add "Latitude", 52.46, "Station|Place", omNumberEditor, "Degrees north of the equator."
    Add "Longitude", 4.58, "Station|Place", omNumberEditor, "Degrees east of Greenwich."
    Set row = Add("Serial number", "WS-20417", "Station", omTextEditor, "Given by the maker.")
    row.ReadOnly = True
    AddSwitch "Damped", True, "Sensors", "Whether gusts are taken out of the reading.", "Yes", "No"
    AddChoice "Wind unit", "kn", "Sensors", "Unit of the wind's speed.", Array("ms", "metres per second", "kmh", "kilometres per hour", "kn", "knots")
    Grid.LockRefresh = False
End Sub

Function Add(name, value, category, editor, help)
    Set Add = Grid.Properties.Add(name, value, category, name, Nothing, True, editor)
    Add.Help = help
End Function

' The entries come in pairs: a value and its text.
Function AddChoice(name, value, category, help, entries)
    Dim i
    Set AddChoice = Add(name, value, category, omListEditor, help)
    For i = 0 To UBound(entries) Step 2
        AddChoice.ListItems.Add entries(i + 1), entries(i)
    Next
End Function

Sub AddSwitch(name, value, category, help, labelOn, labelOff)
    Dim row
    Set row = Add(name, value, category, omBooleanEditor, help)
    row.SetEditorParam "True", labelOn
    row.SetEditorParam "False", labelOff
End Sub

Sub PictureOf(row, file)
    Set row.Picture = Host.Picture("pictures/" & file)
    row.PictureMaskColor = kTransparent
End Sub

' A value cell that the script draws: a bar, and with three stages a mark of each.
Sub Grid_PropertyDraw(context, aProperty, width, height, stage, doDefault)
    Dim color
    Select Case stage
    Case omPreErase
        If aProperty.Tag = "erased" Then Exit Sub
        Host.FillCell context, 0, 0, width + 1, height + 1, kPaper
        color = kGreen
        If aProperty.Value < 50 Then color = kAmber
        Host.FillCell context, 2, 3, CLng((width - 5) * aProperty.Value / 100), height - 6, color
        doDefault = False
    Case omPostErase
        If aProperty.Tag = "erased" Then Host.FillCell context, width - 40, 3, 36, height - 6, kSky
    Case omPostDraw
        If aProperty.Tag = "erased" Then Host.WriteCell context, width - 38, 1, 34, height - 1, "low", &H2040C0
    End Select
End Sub

' A failure inside the control. With nobody there to shut its box, it ends the run.
Sub Grid_DisplayError(message, number, showBox)
    showBox = Host.Interactive And folder = ""
    If showBox Then Exit Sub
    Host.Echo "failed:", message
    Host.Quit 1
End Sub

' The sheets.

Sub MakeSheets()
    MakeViews
    MakeRows
    MakeGridLines
    MakeTreeStyles
    MakeHeaders
    MakeFrames
    MakeBackgrounds
    MakeCategories
    MakeCustomDraw
    MakeFonts
    MakeDescriptions
    MakeToolbars
    MakeEditors
    MakeLists
    MakePalettes
    MakeDialogs
    MakeSchemes
    MakeDisabled
    MakeRecords folder & "\..\clocks.db"
    MakeTips ' the last one: the grid fills the window no more
End Sub

' A grid as a new one is, of that size, with the rows that `fill` names; without the parts around the rows when bare.
Sub Start(width, height, bare, fill)
    Host.Resize width, height
    Host.MoveTo 1, 1
    Set Grid.SelectedProperty = Nothing
    Grid.ActiveView = omAlphabetic
    Grid.Sorted = False
    Grid.SortOrder = 0
    Grid.Grid = 2
    Grid.TreeStyle = 1
    Grid.Headers = 2
    Grid.Appearance = om3d
    Grid.BorderStyle = 0
    Grid.ReadOnly = False
    Set Grid.Picture = Nothing
    Grid.CategoryAppearance = om3d
    Grid.CategoryBold = True
    Grid.CategoryBackColor = &H8000000F
    Grid.CategoryForeColor = &H80000012
    Grid.BackColor = &H8000000F
    Grid.ForeColor = &H80000012
    Grid.PropertyBackColor = &H80000005
    Grid.PropertyForeColor = &H80000012
    Grid.LineColor = &H80000010
    Grid.HighlightBackColor = &H8000000D
    Grid.HighlightForeColor = &H8000000E
    Grid.ReadOnlyPropertyColor = &H80000011
    Grid.Font.Name = "Tahoma"
    Grid.Font.Size = 8
    Grid.RecordsetToolbar = omHide
    Grid.AlphabeticTabCaption = "Alphabetic"
    Grid.CategorizedTabCaption = "Categorized"
    Grid.ShowTabs = Not bare
    Grid.ShowDescription = Not bare
    If bare Then
        Grid.Headers = 0
        Grid.Appearance = omFlat
    Else
        Grid.DescriptionPaneHeight = 56
    End If
    Select Case fill
    Case "station": FillStation
    Case "few": FillFew
    Case Else: Grid.Properties.Clear
    End Select
    Grid.ColumnDividerPosition = width * 0.45
End Sub

Function Pick(which, list)
    Pick = list(which)
End Function

Sub SelectRow(key)
    Set Grid.SelectedProperty = Grid.Properties(key)
End Sub

Sub Shot(caption)
    Host.AddToSheet caption
End Sub

Sub Save(name, columns)
    Host.SaveSheet folder & "\" & name & ".png", columns
    Host.Echo name & ".png"
End Sub

Sub MakeViews()
    Start 300, 420, False, "station"
    Grid.Sorted = True
    Grid.ReadOnlyPropertyColor = &H303030
    SelectRow "Sensors|Wind_Wind unit"
    Shot "Alphabetic, sorted"
    Start 300, 420, False, "station"
    Grid.ReadOnlyPropertyColor = &H303030
    Grid.ActiveView = omCatagorized
    SelectRow "Sensors|Wind_Wind unit"
    Shot "Categorized"
    Save "views", 2
End Sub

Sub MakeRows()
    Start 240, 130, True, "few"
    Shot "Nothing selected"
    SelectRow "Station_Name"
    Shot "A row selected, its editor over the value"
    SelectRow "Station_Serial number"
    Shot "A read-only row selected"
    SelectRow "Station_Name"
    Host.Click 20, 10
    Host.Keys "{F4}"
    Shot "In the editor: F4 selects the text"
    Set Grid.SelectedProperty = Nothing
    Grid.ReadOnly = True
    SelectRow "Station|Place_Latitude"
    Shot "The whole grid read-only"
    Start 240, 130, True, "few"
    Grid.Properties(1).Bold = True
    Grid.Properties(2).Italic = True
    Grid.Properties(3).BackColor = kLeaf
    Grid.Properties(4).Appearance = om3d
    Grid.Properties(4).BackColor = &HE0E0E0
    Grid.Properties(5).ForeColor = &H2040C0
    PictureOf Grid.Properties(6), "wind.bmp"
    Shot "Bold, italic, colours, raised, a picture"
    Save "rows", 3
End Sub

Sub MakeGridLines()
    Dim names, i
    names = Array("None", "Solid", "Dotted", "Horizontal, solid", "Horizontal, dotted", "Vertical, solid", "Vertical, dotted")
    For i = 0 To 6
        Start 190, 130, True, "few"
        Grid.Grid = i
        Shot names(i)
    Next
    Save "grid-lines", 4
End Sub

Sub MakeTreeStyles()
    Dim names, i
    names = Array("Text", "Boxes", "Lines", "Lines and boxes")
    For i = 0 To 3
        Start 190, 200, True, "few"
        Grid.ActiveView = omCatagorized
        Grid.TreeStyle = i
        Grid.ExpandCategory "Sensors", i <> 1
        Shot names(i)
    Next
    Save "tree-styles", 4
End Sub

Sub MakeHeaders()
    Dim names, i
    names = Array("None", "Flat", "Raised")
    For i = 0 To 2
        Start 190, 110, True, "few"
        Grid.Headers = i
        Shot names(i)
    Next
    For i = 0 To 1
        Start 190, 110, True, "few"
        Grid.Headers = 1 + i
        Grid.SortOrder = i
        Grid.Sorted = True
        Shot Pick(i, Array("Sorted, ascending", "Sorted, descending"))
    Next
    Start 190, 110, True, "few"
    Grid.Headers = 2
    Grid.NameCaption = "Setting"
    Grid.ValueCaption = "Reading of the station"
    Shot "Own captions, the second too wide"
    Grid.NameCaption = "Property"
    Grid.ValueCaption = "Value"
    Save "headers", 3
End Sub

Sub MakeFrames()
    Dim look, border
    For look = 0 To 1
        For border = 0 To 1
            Start 190, 200, False, "few"
            Grid.Appearance = look
            Grid.BorderStyle = border
            Shot Pick(2 * look + border, Array("Flat, no border", "Flat, border", "3D, no border", "3D, border"))
        Next
    Next
    Save "frames", 4
End Sub

Sub MakeBackgrounds()
    Dim layouts, i
    layouts = Array("Centred", "Stretched", "Tiled")
    For i = 0 To 2
        Start 200, 220, True, "few"
        Grid.ActiveView = omCatagorized
        Grid.Headers = 2
        Set Grid.Picture = Host.Picture("pictures/" & Pick(i, Array("hills.bmp", "hills.bmp", "weave.bmp")))
        Grid.PictureLayout = i
        If i = 1 Then SelectRow "Station_Serial number"
        Shot layouts(i)
    Next
    Save "backgrounds", 3
End Sub

Sub MakeCategories()
    Dim i
    For i = 0 To 3
        Start 190, 170, True, "few"
        Grid.ActiveView = omCatagorized
        Grid.CategoryAppearance = i Mod 2
        Grid.CategoryBold = i < 2
        If i = 2 Then Grid.CategoryBackColor = &HD8C8B0
        If i = 3 Then Grid.CategoryBackColor = &HC8DCC8
        Shot Pick(i, Array("Flat, bold", "Raised, bold", "Flat, a colour", "Raised, a colour"))
    Next
    Save "categories", 4
End Sub

Sub MakeCustomDraw()
    Dim row, i
    Start 240, 100, True, ""
    Grid.ReadOnlyPropertyColor = &H303030
    For i = 0 To 2
        Set row = Add("Battery " & Chr(65 + i), Pick(i, Array(86, 41, 18)), "Power", omNumberEditor, "")
        row.ReadOnly = True
        row.CustomDraw = True
        row.Tag = ""
    Next
    row.Tag = "erased"
    Shot "Bars instead of the fill; a mark over the text"
    SelectRow "Power_Battery B"
    Shot "The second one selected"
    Save "custom-draw", 2
End Sub

Sub MakeFonts()
    Dim sizes, i
    sizes = Array(6, 8, 12, 18)
    For i = 0 To 3
        Start Pick(i, Array(170, 190, 250, 370)), Pick(i, Array(190, 220, 290, 380)), False, "few"
        Grid.Font.Size = sizes(i)
        Grid.ActiveView = omCatagorized
        Grid.DescriptionPaneHeight = Pick(i, Array(40, 50, 70, 90))
        SelectRow "Station_Name"
        Shot sizes(i) & " points"
    Next
    Save "fonts", 4
End Sub

Sub MakeDescriptions()
    Start 220, 210, False, "few"
    Shot "No row selected"
    SelectRow "Station_Name"
    Shot "A row's help"
    Grid.Properties("Station_Name").Help = "What the station is called on maps and in messages. Up to forty letters; " & _
        "the language of the display does not change it, nor do reports that were sent before."
    Shot "Too much for the pane"
    Grid.DescriptionPaneHeight = 0
    Shot "The pane fitted to the help"
    Grid.ShowDescription = False
    Shot "Without the pane"
    Save "descriptions", 3
End Sub

Sub MakeToolbars()
    Start 220, 210, False, "few"
    Grid.RecordsetToolbar = omShow
    Shot "Record toolbar"
    If Not MoveToPart(omRSToolbarNextButton, 220, 210) Then Host.Quit 1
    Shot "The mouse over a button"
    Grid.ShowTabs = False
    Host.MoveTo 1, 1
    Host.Pump 600
    Shot "Without tabs"
    Save "toolbar", 3
End Sub

' A row of each kind, selected in turn.
Sub MakeEditors()
    Dim names, i
    names = Array("Text", "Number", "Boolean", "List", "Colour", "Date", "Font", "Picture", "File", "Folder", "Custom dialog")
    Start 220, 204, True, ""
    FillKinds
    For i = 0 To UBound(names)
        SelectRow names(i)
        Shot names(i)
    Next
    Save "editors", 4
End Sub

Sub FillKinds()
    Add "Text", "Harbour mole", "", omTextEditor, ""
    Add "Number", 52.46, "", omNumberEditor, ""
    AddSwitch "Boolean", True, "", "", "Yes", "No"
    AddChoice "List", "kn", "", "", Array("ms", "metres per second", "kn", "knots")
    Add "Colour", &HC08040, "", omColorEditor, ""
    Add "Date", #2020-02-15#, "", omDateEditor, ""
    Add "Font", NewFont("Tahoma", 10), "", omFontEditor, ""
    Add "Picture", Host.Picture("pictures/flag.bmp"), "", omPictureEditor, ""
    Add "File", "C:\windows\win.ini", "", omFileEditor, ""
    Add "Folder", "C:\windows", "", omDirectoryEditor, ""
    Add "Custom dialog", "12 knots for 10 minutes", "", omCustomDialog, ""
End Sub

Function NewFont(name, size)
    Set NewFont = CreateObject("StdFont")
    NewFont.Name = name
    NewFont.Size = size
End Function

Sub MakeLists()
    Start 220, 190, True, "few"
    SelectRow "Sensors_Wind unit"
    Shot "A list row selected"
    OpenList "Sensors_Wind unit"
    Shot "Its list"
    CloseList
    OpenList "Sensors_Damped"
    Shot "A Boolean row with labels of its own"
    CloseList
    Save "lists", 3
End Sub

Sub OpenList(key)
    Set Grid.SelectedProperty = Nothing
    Host.Click 20, 180
    SelectRow key
    Host.Keys "{F4}"
    Host.Pump 300
End Sub

Sub CloseList()
    Host.Keys "{ESC}"
End Sub

' Both tabs of a palette, with what a host and a user change in them.
Sub MakePalettes()
    Dim own
    StartColors &HFFFF80
    OpenPalette "Sky"
    Host.Keys "{RIGHT 2}{DOWN}"
    Shot "Selected cell, hot cell"
    CloseList
    StartColors &H80000007
    OpenPalette "Sky"
    Host.Keys "{UP 2}"
    Shot "A system colour"
    CloseList
    StartColors &H80000003
    NameColors
    OpenPalette "Sky"
    Shot "Names and captions of the host's"
    CloseList
    StartColors &H80000003
    ExpandColors
    OpenPalette "Sky"
    Shot "Byte-expanded names (Unicode = True)"
    CloseList
    StartColors &H404040
    For own = 1 To 5
        Grid.Properties("Sky").Value = own
        OpenPalette "Sky"
        If Not FindPalette(20, 240, 250) Then Host.Quit 1
        Host.Later "%r" & own * 50 & "%g" & 200 - own * 30 & "%b160{ENTER}", 300
        ClickCell 0, 6, 2
    Next
    OpenPalette "Sky"
    Shot "Own colours, the last one selected"
    CloseList
    StartColors &HC0FFFF
    Grid.Font.Size = 12
    OpenPalette "Sky"
    Shot "Another font"
    CloseList
    Save "palettes", 3
End Sub

' The foot of a calendar tells today's date: the picture ends above it, so that it is the same every day.
Sub MakeDialogs()
    Dim row, i
    For i = 0 To 3
        Start 260, 180, True, ""
        Set row = Add("Since", #2020-02-15#, "", omDateEditor, "")
        If i = 1 Then
            row.BackColor = &HD0F0D8
            row.ForeColor = &H206020
        End If
        If i = 2 Then row.SetEditorParam "DateFormat", "d MMMM yyyy"
        If i = 3 Then row.SetEditorParam "CheckBox", "True"
        SelectRow "Since"
        Host.Keys "{F4}"
        Host.Pump 300
        Shot Pick(i, Array("A calendar", "In the colours of its row", "In a format of its own (DateFormat)", "A date that may be none (CheckBox)"))
        Host.Keys "{ESC}"
    Next
    ShotOfDialog "Font", 540, 480, "The system's font dialog"
    ShotOfDialog "File", 540, 480, "The system's file dialog, with Filter and DialogCaption"
    ShotOfDialog "Folder", 540, 560, "The system's folder dialog"
    ShotOfDialog "Picture", 540, 560, "The file dialog of a picture row"
    ShotOfDialog "Custom dialog", 690, 420, "A dialog of the script's own"
    Save "dialogs", 2
End Sub

' The call that opens a dialog comes back when it is closed: picture and ESC are made ready before.
Sub ShotOfDialog(key, width, height, caption)
    Start width, height, True, ""
    FillKinds
    Grid.Properties("File").Value = ""
    Grid.Properties("File").SetEditorParam "InitialDir", Host.ScriptFolder & "\pictures"
    Grid.Properties("File").SetEditorParam "Filter", "Bitmaps (*.bmp)|*.bmp|Icons (*.ico)|*.ico"
    Grid.Properties("File").SetEditorParam "DialogCaption", "A sign for the station"
    Grid.Properties("Picture").SetEditorParam "InitialDir", Host.ScriptFolder & "\pictures"
    Grid.ColumnDividerPosition = 100
    Host.Click 20, 10
    SelectRow key
    Host.LaterShot caption, 2000
    Host.Later "{ESC}", 2000
    Host.Keys "{F4}"
    Host.Keys "+{TAB}"
End Sub

Sub Grid_ShowEditorDialog(aProperty, value)
    If MsgBox("Sound the alarm at " & value & "?", vbYesNoCancel + vbQuestion, "Harbour mole") = vbNo Then value = "never"
End Sub

Sub StartColors(value)
    Start 240, 250, True, ""
    Add "Sky", value, "Paint", omColorEditor, ""
    Add "Sand", &H80C0FF, "Paint", omColorEditor, ""
    Add "Sign", &H8000000D, "Paint", omColorEditor, ""
End Sub

Sub NameColors()
    Dim i, names
    names = Array("Bildlaufleiste", "Desktop", "Titel, aktiv", "Titel eines Fensters, das nicht vorn ist", "Menu", "Fenster", "Rahmen", "Menutext")
    For i = 0 To UBound(names)
        Grid.Properties("Sky").SetEditorParam CStr(i), names(i)
    Next
    Grid.Properties("Sky").SetEditorParam "PaletteTabCaption", "Farben"
    Grid.Properties("Sky").SetEditorParam "SystemTabCaption", "Windows"
End Sub

' With Unicode = True each character stands for one byte of the UTF-16 text that is meant.
Sub ExpandColors()
    Dim row, i, names
    Grid.Properties.Remove "Sky"
    Set row = Grid.Properties.Add(Expanded("Himmel"), &H80000003, "Paint", "Sky", Nothing, True, omColorEditor)
    row.Unicode = True
    names = Array("Bildlaufleiste", "Desktop", "Titel, aktiv", "Titel, nicht vorn", "Menu", "Fenster")
    For i = 0 To UBound(names)
        row.SetEditorParam CStr(i), Expanded(names(i))
    Next
    row.SetEditorParam "2", Letter(&H426) & Letter(&H432) & Letter(&H435) & Letter(&H442)
End Sub

Function Expanded(text)
    Dim i
    Expanded = ""
    For i = 1 To Len(text)
        Expanded = Expanded & Letter(Asc(Mid(text, i, 1)))
    Next
End Function

Function Letter(code)
    Letter = Chr(code And 255) & Chr(code \ 256)
End Function

Sub OpenPalette(key)
    Set Grid.SelectedProperty = Nothing
    Host.MoveTo 5, 200
    SelectRow key
    Host.Keys "{F4}"
    Host.Pump 300
End Sub

' All shades of the parts around the rows follow BackColor.
Sub MakeSchemes()
    Dim i
    For i = 0 To 2
        Start 240, 260, False, "few"
        Grid.ActiveView = omCatagorized
        Grid.RecordsetToolbar = omShow
        Grid.BackColor = Pick(i, Array(&HD6CFC4, &HC4D8C8, &H504840))
        Grid.CategoryBackColor = Pick(i, Array(&HE4DED6, &HD6E6D9, &H605850))
        Grid.PropertyBackColor = Pick(i, Array(&HFFFFFF, &HF7FCF8, &H3A332D))
        Grid.LineColor = Pick(i, Array(&HB0A89C, &HA8C0AC, &H706860))
        If i = 2 Then
            Grid.ForeColor = &HF0F0F0
            Grid.CategoryForeColor = &HF0F0F0
            Grid.PropertyForeColor = &HE0E0E0
            Grid.HighlightBackColor = &H8A6A3A
        End If
        SelectRow "Station|Place_Latitude"
        Shot Pick(i, Array("Blue grey", "Green", "Dark"))
    Next
    Save "schemes", 3
End Sub

Sub MakeDisabled()
    Dim i
    For i = 0 To 1
        Start 220, 210, False, "few"
        Grid.RecordsetToolbar = omShow
        SelectRow Pick(i, Array("Station_Name", "Sensors_Wind unit"))
        Grid.Enabled = False
        Shot Pick(i, Array("A text row selected", "A list row selected"))
        Grid.Enabled = True
    Next
    Save "disabled", 2
End Sub
