' A table in the grid: gone over, edited by keyboard and mouse, and refused, and one that a script alone works on.
Option Explicit
Host.Include "lib/common.vbs"
Host.Include "../../examples/lib/clocks.vbs"
Host.Include "../../examples/lib/toolbar.vbs"

Const kWidth = 320
Const kHeight = 240
Const kNameRow = 1
Const kBornRow = 2
Const kHeightRow = 3
Const kPaidRow = 4

Dim all, file, Records, Errors
Set all = Grid.Properties
Errors = ""
file = Host.ScriptFolder & "\..\..\build\shown.db"
With CreateObject("Scripting.FileSystemObject")
    If .FileExists(file) Then .DeleteFile file
End With
RunCommand file, "create table people (id integer primary key, name varchar(20) not null unique, born date, " & _
    "height double check (height > 0), paid boolean, note text)"
RunCommand file, "insert into people values (1, 'Ann', '1980-02-15', 1.7, 1, 'a'), (2, 'Bob', null, 1.8, 0, null), " & _
    "(3, 'Cyd', '1999-12-31', null, null, 'c'), (4, 'Dan', '2001-01-01', 1.9, 1, 'd')"

Function Opened()
    Set Opened = CreateObject("Ormisk.Recordset")
    Opened.Open "people", ConnectionTo(file), 1, 3
End Function

' What the file holds, told by a recordset that the grid does not know.
Function Stored(id, name)
    With Opened()
        .AbsolutePosition = id
        Stored = .Fields(name).Value
        .Close
    End With
End Function

Sub Grid_DisplayError(message, number, showBox)
    Errors = message
    showBox = False
End Sub

Sub CheckShown(what, id, name, born, height)
    CheckEqual what & ": id", id, all("id").Value
    CheckEqual what & ": name", name, all("name").Value
    CheckEqual what & ": born", born, all("born").Value
    CheckEqual what & ": height", height, all("height").Value
End Sub

Sub Edit(row, keys)
    ClickRow row
    Host.Keys keys
End Sub

Sub ClickPart(part)
    CheckTrue "part " & part & " of the toolbar can be used", MoveToPart(part, kWidth, kHeight)
    Host.Click partX + 4, partY
End Sub

MakePlain kWidth, kHeight

' ---- What is no recordset changes nothing.

all.Add "own", 1
On Error Resume Next
Grid.LoadRecordset CreateObject("Scripting.Dictionary")
CheckRefused "an object", 14, kLibrary, "Invalid RecordSet object."
Grid.LoadRecordset 12
CheckFailed "a number"
On Error GoTo 0
CheckEqual "rows after refused loads", "own", all(1).Name
CheckTrue "no recordset after refused loads", Grid.Recordset Is Nothing

' ---- A recordset in a variable: its current record shows, wherever the script goes.

Set Records = Opened()
CheckEqual "what a load answers", False, Grid.LoadRecordset(Records)
CheckTrue "the recordset is told", Grid.Recordset Is Records
CheckEqual "a row for each field and no other", 6, all.Count
CheckShown "first", 1, "Ann", #1980-02-15#, 1.7
Records.MoveNext
CheckShown "next", 2, "Bob", Null, 1.8
Records.AbsolutePosition = 3
CheckShown "by number", 3, "Cyd", #1999-12-31#, Null

' ---- By mouse and keyboard.

ClickPart omRSToolbarLastButton
CheckShown "last button", 4, "Dan", #2001-01-01#, 1.9
CheckEqual "last button: nothing follows", False, MoveToPart(omRSToolbarNextButton, kWidth, kHeight)
ClickPart omRSToolbarPreviousButton
CheckShown "previous button", 3, "Cyd", #1999-12-31#, Null
ClickPart omRSToolbarFirstButton
ClickPart omRSToolbarNextButton
CheckShown "first and next button", 2, "Bob", Null, 1.8
ClickRow kNameRow
Host.Keys "^{RIGHT}"
CheckShown "Ctrl+Right", 3, "Cyd", #1999-12-31#, Null
CheckTrue "the total shows", MoveToPart(omRSToolbarInfo, kWidth, kHeight)
Host.DoubleClick partX - 50, partY
Host.Keys "4{ENTER}"
CheckShown "typed number", 4, "Dan", #2001-01-01#, 1.9

' ---- What is edited is in the file. An open edit goes to the record that it was begun on.

Records.MoveFirst
Edit kNameRow, "Anna{ENTER}"
CheckEqual "text", "Anna", Stored(1, "name")
Edit kBornRow, "3{RIGHT}20{ENTER}"
CheckEqual "date", #1980-03-20#, Stored(1, "born")
Edit kHeightRow, "1.75{ENTER}"
CheckEqual "number", 1.75, Stored(1, "height")
Edit kPaidRow, "{F4}{END}{ENTER}"
CheckEqual "Boolean", False, Stored(1, "paid")
Edit kNameRow, "Anne"
ClickPart omRSToolbarNextButton
CheckEqual "left by a button", "Anne", Stored(1, "name")
CheckShown "left by a button", 2, "Bob", Null, 1.8
Edit kNameRow, "Bert"
Records.MoveNext
CheckEqual "left by the script", "Bert", Stored(2, "name")
CheckEqual "left by the script: the next one", "Cyd", Stored(3, "name")

' ---- What the table refuses is reported, and gone.

Errors = ""
Edit kNameRow, "Dan{ENTER}"
CheckTrue "UNIQUE is reported: " & Errors, InStr(Errors, "UNIQUE") > 0
CheckShown "UNIQUE", 3, "Cyd", #1999-12-31#, Null
CheckEqual "nothing is left in the recordset", 0, Records.EditMode
Host.Keys "{ESC}"

' ---- Recordsets in arrays and objects.

Dim list(2), dictionary
Set list(1) = Opened()
Set dictionary = CreateObject("Scripting.Dictionary")
dictionary.Add "people", Opened()
dictionary("people").MoveLast
list(1).MoveNext
Grid.LoadRecordset list(1)
CheckShown "element of an array", 2, "Bert", Null, 1.8
Grid.LoadRecordset dictionary("people"), False
CheckShown "item of an object", 4, "Dan", #2001-01-01#, 1.9
Records.MoveFirst
CheckShown "the former recordset moves alone", 4, "Dan", #2001-01-01#, 1.9
Edit kNameRow, "Dora{ENTER}"
CheckEqual "without bAutoUpdate the record stays", "Dan", dictionary("people").Fields("name").Value
CheckEqual "without bAutoUpdate the row shows the edit", "Dora", all("name").Value

' ---- The recordset by itself, as scripts use it.

Dim fresh, field, names
Set fresh = Opened()
For Each field In fresh.Fields
    names = names & " " & field.Name
Next
CheckEqual "fields", " id name born height paid note", names
fresh("height") = fresh("height") + 0.25
fresh.AddNew Array("name", "height"), Array("Eve", 2)
CheckEqual "number of the new record", 5, fresh("id").Value
CheckEqual "written by the way", 2, Stored(1, "height")
fresh.MoveNext
On Error Resume Next
fresh.MoveNext
CheckEqual "a move beyond the end", 3021, Err.Number And &HFFFF&
On Error GoTo 0
Finish
