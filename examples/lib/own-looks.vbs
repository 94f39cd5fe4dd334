' A grid that shows its own settings gets another font and a picture through its own editors. `place` is the grid as it is
' placed on the form. Needs click-on-row.vbs.

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

' What the double click on the row of that name opens gets the keys. Gives the y of the row.
Function DoubleClickOn(place, name, keys)
    Dim x
    x = place.Left + 60
    DoubleClickOn = ClickOnRow(place, name, x, 58, place.Height - 120)
    If keys <> "" Then Host.Later keys, 1600
    Host.DoubleClick x, DoubleClickOn
End Function
