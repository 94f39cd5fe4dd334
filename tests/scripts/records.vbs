' A script makes a table in a file of its own and goes over it, changes it and is told what is refused.

Host.Include "lib/checks.vbs"

' The driver is one of the system below: it knows files by their names there.
Dim File, Connection
File = Host.ScriptFolder & "\..\..\build\records.db"
Connection = "Driver=SQLite3;Database=" & Replace(Mid(File, 3), "\", "/")
With CreateObject("Scripting.FileSystemObject")
    If .FileExists(File) Then .DeleteFile File
End With

Sub Run(command)
    CreateObject("Ormisk.Recordset").Open command, Connection
End Sub

Run "create table people (id integer primary key, name varchar(20) not null, born date, height double)"
Run "insert into people (name, height) values ('Ann', 1.7), ('Bob', null)"

Const adOpenKeyset = 1
Const adLockOptimistic = 3
Dim Records, Field, Names
Set Records = CreateObject("Ormisk.Recordset")
Records.Open "people", Connection, adOpenKeyset, adLockOptimistic
For Each Field In Records.Fields
    Names = Names & " " & Field.Name
Next
CheckEqual "fields", " id name born height", Names
Records("born") = DateSerial(1999, 12, 31)
Records.Fields("HEIGHT") = Records("height") + 0.25
Records.MoveNext
CheckTrue "Null comes as Null", IsNull(Records("height").Value)
Records.MovePrevious
CheckEqual "date", DateSerial(1999, 12, 31), Records("born").Value
CheckEqual "number", 1.95, Records("height").Value

Records("name") = Null
On Error Resume Next
Records.Update
CheckFailed "a name that is Null"
Records.CancelUpdate
Records.MoveLast
Records.MoveNext
Records.MoveNext
CheckEqual "a move beyond the end", 3021, Err.Number And &HFFFF&
Err.Clear
On Error GoTo 0

Records.AddNew Array("name", "height"), Array("Cyd", 2)
CheckEqual "count", 3, Records.RecordCount
CheckEqual "number of the new record", 3, Records("id").Value
Set Field = Records("name")
Records.Close
CheckEqual "state", 0, Records.State
On Error Resume Next
Names = Field.Value
CheckEqual "a field of a closed recordset", 3704, Err.Number And &HFFFF&
On Error GoTo 0
Finish
