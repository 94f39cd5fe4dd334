' Keys that move among the rows, and what the host hears of keys.
Option Explicit
Host.Include "lib/common.vbs"

Dim LogKeys
LogKeys = False

Sub Grid_SelChanged(aProperty)
    If Not LogKeys Then Note NameOf(aProperty)
End Sub

Sub Grid_KeyDown(code, shift)
    If LogKeys Then Note "down " & code & "/" & shift
End Sub

Sub Grid_KeyUp(code, shift)
    If LogKeys Then Note "up " & code & "/" & shift
End Sub

Sub Grid_KeyPress(code)
    If LogKeys Then Note "press " & code
End Sub

Dim all, i, fit
Set all = Grid.Properties
MakePlain 300, 200
fit = 8
Host.Resize 300, fit * RowHeight + RowHeight \ 2

Host.Keys "{DOWN}{HOME}{END}{PGDN}{F4}x{LEFT}{RIGHT}"
CheckEvents "keys in an empty grid", ""

Grid.LockRefresh = True
For i = 1 To 26
    all.Add Chr(64 + i) & " row", i
Next
Grid.LockRefresh = False

' The first key selects the first row and does nothing else.
Host.Keys "{DOWN}"
CheckEvents "first key", "A row"
Host.Keys "{DOWN}{DOWN}{UP}"
CheckEvents "arrows", "B row, C row, B row"
Host.Keys "{RIGHT}{LEFT}{LEFT}{LEFT}"
CheckEvents "sideways", "C row, B row, A row"
Host.Keys "{END}{DOWN}"
CheckEvents "End, and past it", "Z row"
Host.Keys "{HOME}{UP}"
CheckEvents "Home, and past it", "A row"

' A page is one row less than fits, and keeps the place when there is no further row.
Host.Keys "{PGDN}{PGDN}{PGUP}"
CheckEvents "pages", all(fit).Name & ", " & all(2 * fit - 1).Name & ", " & all(fit).Name
Host.Keys "{END}{PGDN}"
CheckEvents "a page past the end", "Z row"
Host.Keys "{PGUP 5}"
CheckEqual "pages up to the top", "A row", Selected()
EventLog = ""

' Ctrl+Shift and a letter finds the next row that begins with it, from the top again after the last.
all(4).Name = "m second"
Host.Keys "^+m"
CheckEvents "the next one, in any case of letters", "m second"
Host.Keys "^+m"
CheckEvents "the one after it", "M row"
Host.Keys "^+m"
CheckEvents "from the top again", "m second"
Host.Keys "^+d^+5"
CheckEvents "no such row", ""
all(2).Name = "7 dwarfs"
Host.Keys "^+7"
CheckEvents "a digit", "7 dwarfs"

' Hidden rows are passed over at both ends and between.
all(1).Visible = False
all(26).Visible = False
all(3).Visible = False
Host.Keys "{HOME}"
CheckEvents "Home with the first hidden", ""
Host.Keys "{DOWN}{UP}{UP}"
CheckEvents "over a hidden one", "m second, 7 dwarfs"
Host.Keys "{END}"
CheckEvents "End with the last hidden", "Y row"

' One row less than a page that is a single row moves by one.
Host.Resize 300, RowHeight + 4
Host.Keys "{PGUP}"
CheckEvents "a page of one row", "X row"
Host.Resize 300, fit * RowHeight

' The host hears each key that the rows get, and each character.
LogKeys = True
Host.Keys "{HOME}"
CheckEvents "a key", "down 36/0, up 36/0"
Host.Keys "+{END}"
CheckTrue "Shift is told", InStr(EventLog, "down 35/1") > 0
EventLog = ""
all(2).ReadOnly = True
Set Grid.SelectedProperty = all(2)
Host.Keys "a"
CheckEvents "a letter", "down 65/0, press 97, up 65/0"

Finish
