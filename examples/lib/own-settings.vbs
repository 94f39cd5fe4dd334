' A second grid at the right edge that shows its own settings, and a session that changes seven of them by mouse and keyboard.

' Needs palette.vbs, click-on-row.vbs and own-looks.vbs.

Const kRightEdge = 4

Function AddOwnSettings(width)
    Set AddOwnSettings = Host.AddControl("Ormisk.OrmiskGrid", "Settings", 0, 0, width, 100)
    AddOwnSettings.Align = kRightEdge
    AddOwnSettings.LoadObjectProperties AddOwnSettings
    AddOwnSettings.ColumnDividerPosition = 170
End Function

' The pictures are those of this folder.
Sub ChangeOwnSettings(pictures)
    Dim place, y
    Set place = Host.Control("Settings")

    ' A double click on a list row takes its next entry: from raised to flat. ENTER goes back to the rows.
    DoubleClickOn place, "Appearance", ""
    Host.Keys "{ENTER}"

    ' A double click on a colour row opens its palette, here with the colours of the system; the other tab has the rest.
    y = DoubleClickOn(place, "BackColor", "")
    Host.Click place.Left + place.Width - 133, y + 20
    If FindPalette(y + 20, place.Left + place.Width, y + 200) Then ClickCell 4, 0, 1

    ' Ctrl+Shift and a letter goes to the next row that begins with it. F4 opens its list: from dotted lines to solid ones.
    Host.Keys "{HOME}^+g{F4}{UP}{ENTER}"

    ChangeOwnLooks place, pictures

    ' A text, typed over the old one, in the row whose header it changes.
    Host.Keys "{HOME}^+n"
    Host.Keys "My setting{ENTER}"
    Host.Pump 100
End Sub
