' The sheet of the gallery that shows the record toolbar with and without records. Needs clocks.vbs and toolbar.vbs, and Start,
' Pick, SelectRow, Shot and Save of the gallery.

Const omAutomatic = 0

' A grid that has had a recordset shows its toolbar gray when it has none: what shows a new one comes before.
Sub MakeRecords(file)
    Dim records, i, widths
    MakeClocks file
    StartRecords omShow, "few"
    SelectRow 1 ' into view, wherever the former sheet was
    Set Grid.SelectedProperty = Nothing
    Shot "No recordset (omShow)"

    StartRecords omAutomatic, ""
    Set records = OpenClocks(file, 1)
    Grid.LoadRecordset records
    records.MoveFirst
    Shot "The first record"
    records.AbsolutePosition = 188
    SelectRow "town"
    Shot "In the middle, a row selected"
    If Not MoveToPart(omRSToolbarLastButton, 230, 150) Then Host.Quit 1
    Host.Click partX + 4, partY
    Host.MoveTo 1, 1
    Shot "The last record"
    Grid.LoadRecordset OpenClocks(file, 0)
    Shot "Only forward: the count is not known"
    Grid.LoadRecordset records
    Grid.Enabled = False
    Shot "Disabled (Enabled = False)"
    Grid.Enabled = True
    widths = Array(150, 110, 75)
    For i = 0 To 2
        Host.Resize widths(i), 150
        Shot widths(i) & " pixels"
    Next
    Save "records", 3
End Sub

Sub StartRecords(toolbar, fill)
    Start 230, 150, False, fill
    Grid.ShowDescription = False
    Grid.Headers = 0
    Grid.RecordsetToolbar = toolbar
End Sub

Function OpenClocks(file, cursorType)
    Set OpenClocks = CreateObject("Ormisk.Recordset")
    OpenClocks.Open "SELECT id, name, town, made FROM clocks", ConnectionTo(file), cursorType, 3
End Function
