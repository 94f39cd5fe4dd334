' The cells of an open palette, as a user sees them: eight in a row, six rows of colours and two of own ones.

Const kRed = &H0000FF
Const kBlue = &HFF0000

Dim paletteLeft, paletteTop, palettePitch

' Looks for the palette tab from this height of the grid on; False when it is not on screen.
Function FindPalette(fromY, width, height)
    Dim x, y, redX
    FindPalette = False
    For y = fromY To height - 1 Step 4
        redX = -1
        For x = 0 To width - 1 Step 3
            Select Case Host.Pixel(x, y)
            Case kRed: If redX < 0 Then redX = x
            Case kBlue
                If redX >= 0 Then
                    ' From the second cell of the third row to the seventh.
                    palettePitch = (x - redX) / 5
                    paletteLeft = redX - palettePitch
                    paletteTop = y - 2 * palettePitch
                    FindPalette = True
                    Exit Function
                End If
            End Select
        Next
    Next
End Function

' Counted from 0; the last two rows are the own colours.
Sub ClickCell(column, row, button)
    Host.Click CLng(paletteLeft + column * palettePitch) + 3, CLng(paletteTop + row * palettePitch) + 3, button
End Sub
