' Colour rows by mouse and keyboard, beside another grid: into the palette and out of it, and own colours.
Option Explicit
Host.Include "lib/common.vbs"
Host.Include "../../examples/lib/palette.vbs"

Const omColorEditor = 10

Dim other, sky
Set other = Host.AddControl("Ormisk.OrmiskGrid", "Other", 0, 0, 150, 300)
other.Align = 4
Host.Resize 500, 320
Set sky = Grid.Properties.Add("Sky", &H404040, "", "sky", Nothing, True, omColorEditor)
Grid.Properties.Add "Name", "Harbour"
other.Properties.Add "Sea", &H808080, "", "sea", Nothing, True, omColorEditor
Grid.ColumnDividerPosition = 150

Sub Grid_ValidateValue(aProperty, newValue, cancel)
    Note "asked " & Hex(newValue)
End Sub
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
CheckEvents "nothing yet", ""

' A pick by mouse, one by keyboard, and none.
OpenByMouse
ClickCell 4, 2, 1
CheckEqual "picked", &HFF00&, sky.Value
CheckEvents "picked", "asked FF00, changed"
CheckTrue "closed by the pick", Not IsOpen()
Host.Keys "{F4}{RIGHT}{ENTER}"
CheckEqual "the next one", &HFFFF00, sky.Value
CheckEvents "the next one", "asked FFFF00, changed"
Host.Keys "%{DOWN}{LEFT}{ESC}"
CheckTrue "escaped", Not IsOpen()
Host.Keys "{DOWN}"
CheckEqual "the rows have the keys again", "Name", Selected()
Host.DoubleClick 60, rowY
CheckTrue "by a double click", IsOpen()

' A click elsewhere closes it and does what it would do, on the other grid, too.
Host.Click 60, rowY + 17
CheckTrue "closed by a click", Not IsOpen()
CheckEqual "which selected", "Name", Selected()
Host.Click 60, rowY
OpenByMouse
Host.Click 400, rowY
CheckTrue "closed by the other grid", Not IsOpen()
CheckEvents "no pick", "other Sea"
Host.Keys "{F4}{UP}{ENTER}"
CheckEqual "the other grid's palette", &HC0C0C0, other.Properties.Item(1).Value

' The right click asks for an own colour, which goes to the next own cell in turn.
Dim own
Host.Click 60, rowY
For own = 0 To 1
    OpenByMouse
    Host.Later "{ENTER}", 500
    ClickCell 5, 7, 2
    CheckTrue "closed by the dialog", Not IsOpen()
Next
CheckEqual "an own colour", 0, sky.Value
CheckEvents "the same one twice", "asked 0, changed"
OpenByMouse
Host.Later "{ESC}", 500
ClickCell 0, 7, 2
CheckEvents "cancelled", ""
sky.Value = &HFF00&
CheckEvents "by code", "changed"
OpenByMouse
ClickCell 1, 6, 1
CheckEqual "from the second own cell", 0, sky.Value
Finish
