' A grid that shows its own settings gets another font and a picture through its own editors. `place` is the grid as it is
' placed on the form.

' The picture is one of this folder. The grid has the focus.
Sub ChangeOwnLooks(place, pictures)
    ' F4 on a font row opens its dialog, here for another size. What is chosen is the font of the whole grid at once.
    Host.Later "%s10{ENTER}", 800
    Host.Keys "{HOME}^+f{F4}"

    ' A double click on a picture row opens its dialog. Shift+TAB goes back to the rows, the next of which says how it lies.
    Host.Keys "{HOME}^+p"
    place.SelectedProperty.SetEditorParam "InitialDir", pictures
    DoubleClickOn place, "Picture", "weave.bmp{ENTER}"
    Host.Keys "+{TAB}^+p{F4}{END}{ENTER}"
End Sub

' Clicks down the names until the row of that name is selected, and gives its height on the form. What the double click
' opens gets the keys.
Function DoubleClickOn(place, name, keys)
    Dim x, y
    x = place.Left + 60
    For y = 58 To place.Height - 120 Step 16
        Host.Click x, y
        If Not place.SelectedProperty Is Nothing Then
            If place.SelectedProperty.Name = name Then
                If keys <> "" Then Host.Later keys, 1600
                Host.DoubleClick x, y
                DoubleClickOn = y
                Exit Function
            End If
        End If
    Next
    Host.Echo "There is no row " & name & " in view."
    Host.Quit 1
End Function
