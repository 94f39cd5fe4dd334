' Clicks down the names of a grid, at `x` and from `top` to `bottom` as Host.Click counts, until the row of that name is selected,
' and gives the y of that click.
Function ClickOnRow(place, name, x, top, bottom)
    Dim y
    For y = top To bottom Step 16
        Host.Click x, y
        If Not place.SelectedProperty Is Nothing Then
            If place.SelectedProperty.Name = name Then
                ClickOnRow = y
                Exit Function
            End If
        End If
    Next
    Host.Echo "There is no row " & name & " in view."
    Host.Quit 1
End Function
