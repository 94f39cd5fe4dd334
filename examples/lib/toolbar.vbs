' The record toolbar of a grid named Grid, as a user finds it: by moving the mouse over it.

' Parts, by what the events of the mouse say of them.
Const omRSToolbar = 4
Const omRSToolbarInfo = 5
Const omRSToolbarFirstButton = 6
Const omRSToolbarLastButton = 7
Const omRSToolbarNextButton = 8
Const omRSToolbarPreviousButton = 9

Dim partX, partY, partUnderMouse

Sub Grid_MouseMove(button, shift, x, y, hit)
    partUnderMouse = hit
End Sub

' Moves the mouse to the left edge of a part; False when it cannot be used or does not show.
Function MoveToPart(part, width, height)
    MoveToPart = True
    For partY = height - 10 To 30 Step -4
        If PartAt(12, partY) >= omRSToolbar And partUnderMouse <= omRSToolbarPreviousButton Then Exit For
    Next
    partY = partY - 6 ' inside of the strip
    For partX = 8 To width - 8 Step 4
        If PartAt(partX, partY) = part Then Exit Function
    Next
    MoveToPart = False
End Function

Function PartAt(x, y)
    partUnderMouse = -1
    Host.MoveTo x, y
    PartAt = partUnderMouse
End Function
