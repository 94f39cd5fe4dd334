' The sheet of the gallery that shows tips over texts that their cells cut off. Needs Start, Add, Shot and Save of the gallery.

Const kTipWait = 1500
Const kTipRow = 18

' The grid leaves room at its right, into which the tips reach: it fills the window no more.
Sub MakeTips()
    Dim row
    Start 470, 150, True, ""
    Host.Control("Grid").Move 0, 0, 230, 150
    Add "Address", "12 Harbour Street, The Old Customs House, Westport", "", omTextEditor, ""
    Add "The name of a property that is far too long", "x", "", omTextEditor, ""
    Set row = Add("Remark", "A bold value that its cell cuts off, too", "", omTextEditor, "")
    row.Bold = True
    Set row = Add("Ground", "A value in colours of its own, which the tip has as well", "", omTextEditor, "")
    row.BackColor = &H80FFFF
    row.ForeColor = &HC00000
    Add "Lines", "One line" & vbCrLf & "and another one" & vbCrLf & "and a third", "", omTextEditor, ""
    Grid.ColumnDividerPosition = 100
    ShotOfTip 0, 160, "A value"
    ShotOfTip 1, 60, "A name"
    ShotOfTip 2, 160, "Bold"
    ShotOfTip 3, 160, "Colours"
    ShotOfTip 4, 160, "Lines"
    Save "tips", 2
End Sub

Sub ShotOfTip(row, x, caption)
    Host.MoveTo 460, 140
    Host.Pump 300
    Host.MoveTo x, row * kTipRow + kTipRow \ 2
    Host.Pump kTipWait
    Shot caption
End Sub
