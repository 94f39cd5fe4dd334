' Colour rows by mouse, beside another grid: into the palette, and out of it by a click elsewhere.
Option Explicit
Host.Include "lib/common.vbs"
Host.Include "../../examples/lib/palette.vbs"

Const omColorEditor = 10

Dim other
Set other = Host.AddControl("Ormisk.OrmiskGrid", "Other", 0, 0, 150, 300)
other.Align = 4
Host.Resize 500, 320
Grid.Properties.Add "Sky", &H404040, "", "sky", Nothing, True, omColorEditor
Grid.Properties.Add "Name", "Harbour"
other.Properties.Add "Sea", &H808080, "", "sea", Nothing, True, omColorEditor
Grid.ColumnDividerPosition = 150
EventLog = ""

Sub Grid_PropertyValueChanged(aProperty)
    Note "changed"
End Sub
Sub Other_SelChanged(aProperty)
    Note "other " & NameOf(aProperty)
End Sub

Dim rowY
Function IsOpen()
    IsOpen = FindPalette(rowY, 348, 320)
End Function

Sub OpenByMouse()
    Host.Click 60, rowY
    Host.Click 340, rowY
    CheckTrue "open", IsOpen()
End Sub

' The row is the first one that a click selects.
For rowY = 30 To 90 Step 4
    Host.Click 60, rowY
    If Selected() = "Sky" Then Exit For
Next
rowY = rowY + 6
CheckTrue "not open yet", Not IsOpen()

' A click elsewhere closes it and does what it would do, on the other grid, too.
OpenByMouse
Host.Click 60, rowY + 17
CheckTrue "closed by a click", Not IsOpen()
CheckEqual "which selected", "Name", Selected()
OpenByMouse
Host.Click 400, rowY
CheckTrue "closed by the other grid", Not IsOpen()
CheckEvents "no pick", "other Sea"
Host.Keys "{F4}{UP}{ENTER}"
CheckEqual "the other grid's palette", &HC0C0C0, other.Properties.Item(1).Value
Finish
