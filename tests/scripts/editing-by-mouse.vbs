' The mouse in an edit: clicks into the editor, double clicks, and everything else that commits, closes or moves it.
Option Explicit
Host.Include "lib/common.vbs"

Sub Grid_SelChanged(aProperty)
    Note "selected " & NameOf(aProperty)
End Sub

Sub Grid_ValidateValue(aProperty, newValue, cancel)
    Note "validate " & aProperty.Name & "=" & newValue
End Sub

Sub Grid_PropertyValueChanged(aProperty)
    Note "changed " & aProperty.Name
End Sub

Dim all, a, b, i, divider
Set all = Grid.Properties
MakePlain 300, 200
Set a = all.Add("A", "one")
Set b = all.Add("B", "two")

' The second click lands in the editor, at the caret's place in the text.
Host.Click 280, RowY(0)
CheckEvents "click", "selected A"
Host.Click 280, RowY(0)
Host.Keys "X{ENTER}"
CheckEvents "typed at the end", "validate A=oneX, changed A"
CheckEqual "stored", "oneX", a.Value
Host.Click 280, RowY(0)
Host.Keys "Y"
Host.Click 280, RowY(1)
CheckEvents "clicked away on a value", "validate A=oneXY, changed A, selected B"

' A double click on the name selects all of the text.
Host.DoubleClick NameX(), RowY(0)
CheckEvents "double click", "selected A"
Host.Keys "all{ENTER}"
CheckEvents "typed over", "validate A=all, changed A"

' The top line of a row belongs to none.
Host.Click NameX(), RowsTop + RowHeight
CheckEqual "click between two rows", "A", Selected()
Host.Click NameX(), RowsTop + RowHeight * 2 + 5
CheckEqual "click below the rows", "A", Selected()
Host.Click NameX(), RowsTop + RowHeight + 1
CheckEqual "click just below the line", "B", Selected()
EventLog = ""

' Resizing the grid commits and closes; a click on the same row opens again.
Host.Keys "size"
Host.Resize 320, 220
CheckEvents "resized in the middle of an edit", "validate B=size, changed B"
CheckTrue "closed", Not EditorIsOpen(1)
CheckEqual "still selected", "B", Selected()
ClickRow 1
CheckEvents "click on the selected row", ""
CheckTrue "open again", EditorIsOpen(1)

' The column divider takes the editor along.
divider = Grid.ColumnDividerPosition
Grid.ColumnDividerPosition = divider - 60
CheckEqual "divider", divider - 60, Grid.ColumnDividerPosition
CheckEqual "the new value cell is the editor's", Host.Pixel(300, RowY(1)), Host.Pixel(divider - 10, RowsTop + RowHeight + 4)
Host.Click divider - 20, RowY(1)
Host.Keys "{END}!{ENTER}"
CheckEvents "edited at the new place", "validate B=size!, changed B"
Grid.ColumnDividerPosition = divider

' Headers that come in the middle of an edit push the rows down; the typed text is stored when the editor closes.
Host.Keys "pushed"
EventLog = ""
Grid.Headers = 2
Host.Pump 50
Grid.Headers = 0
Host.Pump 50
ClickRow 0
CheckEvents "headers came and went", "validate B=pushed, changed B, selected A"

' A disabled grid takes no input, and its values can be set all the same.
EventLog = ""
Grid.Enabled = False
ClickRow 1
Host.Keys "off{ENTER}"
CheckEvents "input to a disabled grid", ""
a.Value = "code"
CheckEvents "value of a disabled grid", "changed A"
Grid.Enabled = True
ClickRow 1
CheckEqual "enabled again", "B", Selected()

' A hundred clicks up and down keep rows, values and selection straight.
EventLog = ""
For i = 1 To 100
    ClickRow i Mod 2
Next
CheckEqual "selection", "A", Selected()
CheckEqual "values", "code pushed", a.Value & " " & b.Value

Finish
