' A table in the grid: gone over, edited by keyboard and mouse, refused, and followed by other sources of rows.
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

Dim all, file, Moving, Records, Errors
Set all = Grid.Properties
Errors = ""
Moving = False
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

' Moves on once, while the grid tells of an edit.
Sub Grid_PropertyValueChanged(aProperty)
    If Not Moving Then Exit Sub
    Moving = False
    Records.MoveNext
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
Grid.LoadRecordset Nothing
CheckRefused "Nothing", 14, kLibrary, "Invalid RecordSet object."
Grid.LoadRecordset CreateObject("Scripting.Dictionary")
CheckRefused "an object", 14, kLibrary, "Invalid RecordSet object."
Grid.LoadRecordset 12
CheckFailed "a number"
Grid.LoadRecordset
CheckFailed "no argument"
Grid.LoadRecordset Opened(), True, 1
CheckFailed "a third argument"
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
all("name").Help = "kept"
Grid.LoadRecordset Records
CheckEqual "the same once more", "kept", all("name").Help
CheckEqual "the same once more: its place", 3, all("id").Value

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
Host.Keys "^{LEFT 2}"
CheckShown "Ctrl+Left", 1, "Ann", #1980-02-15#, 1.7
CheckTrue "the total shows", MoveToPart(omRSToolbarInfo, kWidth, kHeight)
Host.DoubleClick partX - 50, partY
Host.Keys "4{ENTER}"
CheckShown "typed number", 4, "Dan", #2001-01-01#, 1.9
Host.Keys "9{ENTER}"
CheckShown "a number too large", 4, "Dan", #2001-01-01#, 1.9

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

Sub CheckRefusal(what, row, keys, word)
    Errors = ""
    Edit row, keys
    CheckTrue what & " is reported: " & Errors, InStr(Errors, word) > 0
    CheckShown what, 3, "Cyd", #1999-12-31#, Null
    CheckEqual what & ": nothing is left in the recordset", 0, Records.EditMode
End Sub

CheckRefusal "CHECK", kHeightRow, "0{ENTER}", "CHECK"
CheckRefusal "UNIQUE", kNameRow, "Dan{ENTER}", "UNIQUE"
Host.Keys "{ESC}"
Errors = ""
ClickPart omRSToolbarNextButton
CheckShown "a move after a refusal", 4, "Dan", #2001-01-01#, 1.9
CheckEqual "a move after a refusal is no error", "", Errors
Edit kNameRow, "Cyd"
ClickPart omRSToolbarPreviousButton
CheckTrue "refused while it moves: " & Errors, InStr(Errors, "UNIQUE") > 0
CheckShown "refused while it moves", 3, "Cyd", #1999-12-31#, Null
CheckEqual "refused while it moves: the file", "Dan", Stored(4, "name")

' ---- A handler that moves shows the record that it has gone to, and mixes none.

Records.MoveFirst
Moving = True
Edit kHeightRow, "1.6{ENTER}"
CheckEqual "a handler moves: the value", 1.6, Stored(1, "height")
CheckShown "a handler moves", 2, "Bert", Null, 1.8
CheckEqual "a handler moves: the other record", 1.8, Stored(2, "height")

' ---- Recordsets in arrays and objects; other sources of rows.

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

Dim font
Set font = CreateObject("StdFont")
font.Name = "Tahoma"
CheckTrue "an object after a recordset", Grid.LoadObjectProperties(font)
CheckTrue "an object after a recordset: it is gone", Grid.Recordset Is Nothing
dictionary("people").MoveFirst
CheckEqual "an object's row called as a field", "Tahoma", all("Name").Value
CheckEqual "no toolbar for an object", False, MoveToPart(omRSToolbarInfo, kWidth, kHeight)
Grid.LoadRecordset Records
CheckShown "the recordset again", 1, "Anne", #1980-03-20#, 1.6
ClickPart omRSToolbarNextButton
CheckShown "the recordset again, next", 2, "Bert", Null, 1.8

' ---- A recordset that the script closes leaves its rows.

Records.Close
Errors = ""
ClickPart omRSToolbarLastButton
Edit kNameRow, "Ben{ENTER}"
CheckEqual "closed: no errors", "", Errors
CheckEqual "closed: nothing is written", "Bert", Stored(2, "name")
Finish
