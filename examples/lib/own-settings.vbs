' A second grid at the right edge that shows its own settings, and a session that changes three of them.

Const kRightEdge = 4

Function AddOwnSettings(width)
    Set AddOwnSettings = Host.AddControl("Ormisk.OrmiskGrid", "Settings", 0, 0, width, 100)
    AddOwnSettings.Align = kRightEdge
    AddOwnSettings.LoadObjectProperties AddOwnSettings
    AddOwnSettings.ColumnDividerPosition = 170
End Function

' Ctrl+Shift and a letter goes to the next row that begins with it.
Sub ChangeOwnSettings()
    Dim left_
    left_ = Host.Control("Settings").Left
    Host.Click left_ + 60, 50 ' a row, for the keyboard to start from

    ' A text, typed over the old one.
    Host.Keys "{HOME}^+n"
    Host.Keys "Setting{ENTER}"

    ' A list: opened, and the next but one chosen.
    Host.Keys "{HOME}^+g{F4}{UP}{ENTER}"

    ' A Boolean, flipped by a double click on its row.
    Host.Keys "{HOME}^+u"
    Host.Pump 100
End Sub
