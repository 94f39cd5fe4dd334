' A table in a grid, one record at a time: step through it with the toolbar or with Ctrl+Left and Ctrl+Right, or type the number
' of a record, and edit it. What is stored in a row is stored in the file.
'
'   ./run examples/recordset.vbs [FILE [TABLE]]
'
' FILE is a file of SQLite; without TABLE the first one of it is shown. Without FILE the script makes one for itself: the
' inventory of a clock museum.

Option Explicit

Host.Include "lib\click-on-row.vbs"
Host.Include "lib\clocks.vbs"
Host.Include "lib\toolbar.vbs"

' What the script uses of the recordset's enumerations.
Const adOpenForwardOnly = 0
Const adOpenKeyset = 1
Const adLockReadOnly = 1
Const adLockOptimistic = 3
Const adDBDate = 133
Const adDBTimeStamp = 135

Const kWidth = 480
Const kHeight = 440
Const kFact = &H505050

Dim files, file, table, own, records
Set files = CreateObject("Scripting.FileSystemObject")
ChooseTable
Set records = OpenTable(table)
ShowRecords
If own And Not Host.Interactive Then
    ShowItself
ElseIf Not Host.Interactive Then
    Host.Pump 100
    Host.Quit 0
End If

' The table.

Sub ChooseTable()
    Dim words
    words = Host.Arguments
    own = UBound(words) < 0
    If own Then
        file = files.GetParentFolderName(Host.ScriptFolder) & "\build\clocks.db"
        table = "clocks"
        MakeClocks file
        Exit Sub
    End If
    file = words(0)
    If Not files.FileExists(file) Then Fail "There is no file " & file & "."
    If UBound(words) > 0 Then table = words(1) Else table = FirstTable()
End Sub

Function FirstTable()
    With OpenSource("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY rowid", adOpenForwardOnly, adLockReadOnly)
        If .EOF Then Fail "There is no table in " & file & "."
        FirstTable = .Fields("name").Value
        .Close
    End With
End Function

Function OpenTable(name)
    Set OpenTable = OpenSource(name, adOpenKeyset, adLockOptimistic)
End Function

Function OpenSource(source, cursorType, lockType)
    Dim failure
    Set OpenSource = CreateObject("Ormisk.Recordset")
    On Error Resume Next
    OpenSource.Open source, ConnectionTo(file), cursorType, lockType
    failure = Err.Description
    If Err.Number = 0 Then Exit Function
    On Error GoTo 0
    Fail file & " cannot be opened: " & failure
End Function

Sub Fail(message)
    Host.Echo message
    Host.Quit 1
End Sub

' The rows.

' LoadRecordset makes a row of each field; what only the script knows of it follows.
Sub ShowRecords()
    Host.Resize kWidth, kHeight
    Grid.ReadOnlyPropertyColor = kFact
    Grid.LoadRecordset records
    Grid.LockRefresh = True
    DressFields
    If own Then DressClocks
    Grid.LockRefresh = False
    Grid.ShowTabs = False
    Grid.NameCaption = table
    Grid.ValueCaption = files.GetFileName(file)
    Grid.ColumnDividerPosition = 120
    Grid.DescriptionPaneHeight = 64
End Sub

Sub DressFields()
    Dim row
    For Each row In Grid.Properties
        Select Case records.Fields(row.Name).Type
        Case adDBDate: row.Format = "yyyy-mm-dd"
        Case adDBTimeStamp: row.Format = "yyyy-mm-dd hh:nn"
        End Select
    Next
End Sub

Sub DressClocks()
    Describe "id", "Number of the clock, which is on its label as well. It stays what it is."
    Grid.Properties("id").ReadOnly = True
    Describe "name", "What it is. Every clock has a name."
    Grid.Properties("name").Bold = True
    Describe "maker", "Who made it, if that is known."
    Describe "town", "Where it was made, as the town calls itself."
    Describe "inscription", "What is written on dial or case."
    Describe "story", "All that is known of it."
    Describe "made", "Year in which it was made. Years before our era have a sign."
    Describe "weight", "In kilograms. The table has a rule that it is above 0, and refuses any other."
    Describe "insured", "Sum that the clock is insured for."
    Grid.Properties("insured").Format = "#,##0.00"
    Describe "acquired", "Day on which it came into the museum."
    Grid.Properties("acquired").SetEditorParam "DateFormat", "yyyy-MM-dd"
    Describe "inspected", "When the clock maker has last looked at it. An edit of the day sets the hour back to midnight."
    Describe "running", "Whether it runs."
    Grid.Properties("running").SetEditorParam "True", "Runs"
    Grid.Properties("running").SetEditorParam "False", "Stands still"
    Describe "wound", "Time of the day at which it is wound. Times have no editor."
    Describe "barcode", "Printed on the label. No two are alike."
    Describe "seal", "Bytes, here of letters that are scratched into the case. Bytes have no editor."
End Sub

Sub Describe(name, help)
    Grid.Properties(name).Help = help
End Sub

' What the grid tells.

' What the table refuses is told in a box. With nobody there to shut it, it is only told.
Sub Grid_DisplayError(message, number, showBox)
    Host.Echo "told:", message
    showBox = Host.Interactive
End Sub

' A short session for when nobody is there: goes over the table, edits a record and looks into the file

Sub ShowItself()
    GoBy "Next", omRSToolbarNextButton, 2
    GoBy "Last", omRSToolbarLastButton, kClockCount
    GoBy "Previous", omRSToolbarPreviousButton, kClockCount - 1
    GoBy "First", omRSToolbarFirstButton, 1

    ' In the rows Ctrl and an arrow does the same.
    ClickOn "name"
    Host.Keys "^{RIGHT 3}^{LEFT}"
    Arrived "Ctrl+Right, Ctrl+Left", 3

    ' The box with the number lies left of the total.
    MoveTo omRSToolbarInfo
    Host.DoubleClick partX - 50, partY
    Host.Keys "28{ENTER}"
    Arrived "its number", 28

    Edit "name", "Tower clock of the old mill{ENTER}"
    Edit "made", "-1730{ENTER}"
    Edit "made", "1730{ENTER}"
    Edit "insured", "12500.75{ENTER}"
    Edit "acquired", "2024{RIGHT}05{RIGHT}17{ENTER}"
    Edit "running", "{F4}{DOWN}{ENTER}"

    ' The table refuses this one, and the row shows what it has kept.
    Edit "weight", "0{ENTER}"

    ' Whatever moves on takes along what has been typed.
    Edit "town", "Haarlem"
    MoveTo omRSToolbarNextButton
    Host.Click partX + 4, partY
    Arrived "Next", 29
    records.Close
    Set records = OpenTable(table)
    records.AbsolutePosition = 28
    CheckRecord
    ShowRecords
    ClickOn "running"
    Host.Quit 0
End Sub

Sub GoBy(button, part, expected)
    MoveTo part
    Host.Click partX + 4, partY
    Arrived button, expected
End Sub

Sub MoveTo(part)
    If Not MoveToPart(part, kWidth, kHeight) Then Fail "Part " & part & " of the toolbar cannot be used."
End Sub

Sub Arrived(by, expected)
    Host.Echo "by " & by & ": record " & records.AbsolutePosition & ", " & Grid.Properties("name").Value
    If records.AbsolutePosition <> expected Then Fail "It should be record " & expected & "."
End Sub

Sub Edit(name, keys)
    ClickOn name
    Host.Keys keys
    Host.Echo name & ": " & Grid.Properties(name).FormattedText
End Sub

Sub ClickOn(name)
    ClickOnRow Grid, name, 60, 28, 300
End Sub

Sub CheckRecord()
    Expect "name", "Tower clock of the old mill"
    Expect "made", 1730
    Expect "weight", 285.6
    Expect "insured", 12500.75
    Expect "acquired", DateSerial(2024, 5, 17)
    Expect "running", False
    Expect "town", "Haarlem"
    Host.Echo "All of it is in the file."
End Sub

Sub Expect(name, value)
    Dim found
    found = records.Fields(name).Value
    If found <> value Then Fail "The file should hold " & value & " as " & name & ", and holds " & found & "."
End Sub
