' A second grid at the right edge that shows its own settings, and a session that changes seven of them by mouse and keyboard.

' Needs palette.vbs.

Const kRightEdge = 4

Function AddOwnSettings(width)
    Set AddOwnSettings = Host.AddControl("Ormisk.OrmiskGrid", "Settings", 0, 0, width, 100)
    AddOwnSettings.Align = kRightEdge
    AddOwnSettings.LoadObjectProperties AddOwnSettings
    AddOwnSettings.ColumnDividerPosition = 170
End Function

' The pictures are those of this folder.
Sub ChangeOwnSettings(pictures)
    ' A double click on a list row takes its next entry: from raised to flat. ENTER goes back to the rows.
    DoubleClickOn "Appearance", ""
    Host.Keys "{ENTER}"

    ' A double click on a colour row opens its palette, here with the colours of the system; the other tab has the rest.
    Dim place, y
    Set place = Host.Control("Settings")
    y = DoubleClickOn("BackColor", "")
    Host.Click place.Left + place.Width - 133, y + 20
    If FindPalette(y + 20, place.Left + place.Width, y + 200) Then ClickCell 4, 0, 1

    ' Ctrl+Shift and a letter goes to the next row that begins with it. F4 opens its list: from dotted lines to solid ones.
    Host.Keys "{HOME}^+g{F4}{UP}{ENTER}"

    ' F4 on a font row opens its dialog, here for another size. What is chosen is the font of the whole grid at once.
    Host.Later "%s10{ENTER}", 800
    Host.Keys "{HOME}^+f{F4}"

    ' A double click on a picture row opens its dialog. Shift+TAB goes back to the rows, the next of which says how it lies.
    Host.Keys "{HOME}^+p"
    Host.Control("Settings").SelectedProperty.SetEditorParam "InitialDir", pictures
    DoubleClickOn "Picture", "weave.bmp{ENTER}"
    Host.Keys "+{TAB}^+p{F4}{END}{ENTER}"

    ' A text, typed over the old one, in the row whose header it changes.
    Host.Keys "{HOME}^+n"
    Host.Keys "My setting{ENTER}"
    Host.Pump 100
End Sub

' Clicks down the names until the row of that name is selected, and gives its height on the form. What the double click
' opens gets the keys.
Function DoubleClickOn(name, keys)
    Dim place, x, y
    Set place = Host.Control("Settings")
    x = place.Left + 60
    For y = 58 To place.Height - 120 Step 16
        Host.Click x, y
        If Not place.SelectedProperty Is Nothing Then
            If place.SelectedProperty.Name = name Then
                If keys <> "" Then Host.Later keys, 1600
                Host.DoubleClick x, y
                DoubleClickOn = y
                Exit Function
            End If
        End If
    Next
    Host.Echo "There is no row " & name & " in view."
    Host.Quit 1
End Function
