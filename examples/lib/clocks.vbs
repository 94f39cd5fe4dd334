' The inventory of a clock museum, made as a table of a SQLite file.

Const kClockCount = 312

' What Open needs to get at a file. The driver belongs to the system below Wine and knows files by their names there.
Function ConnectionTo(file)
    ConnectionTo = "Driver=SQLite3;Database=" & UnixPath(file)
End Function

Function UnixPath(path)
    UnixPath = Replace(path, "\", "/")
    If UCase(Left(UnixPath, 3)) = "Z:/" Then UnixPath = Mid(UnixPath, 3)
End Function

' A file that is there already is made anew.
Sub MakeClocks(file)
    With CreateObject("Scripting.FileSystemObject")
        If .FileExists(file) Then .DeleteFile file
    End With
    RunCommand file, "CREATE TABLE clocks (id INTEGER PRIMARY KEY, name VARCHAR(60) NOT NULL, maker VARCHAR(40), " & _
        "town VARCHAR(40), inscription VARCHAR(80), story TEXT, made INTEGER, weight DOUBLE CHECK (weight > 0), " & _
        "insured NUMERIC(10, 2), acquired DATE, inspected TIMESTAMP, running BOOLEAN NOT NULL, wound TIME, " & _
        "barcode BIGINT UNIQUE, seal BLOB)"
    RunCommand file, "INSERT INTO clocks VALUES " & AllClocks()
End Sub

' A command gives no records: the recordset is closed when it is done.
Sub RunCommand(file, command)
    CreateObject("Ormisk.Recordset").Open command, ConnectionTo(file)
End Sub

' One statement for all of them, which is written to the file once.
Function AllClocks()
    Dim i
    AllClocks = Clock(1)
    For i = 2 To kClockCount
        AllClocks = AllClocks & ", " & Clock(i)
    Next
End Function

Function Clock(i)
    Dim kinds, makers, maker, madeIn, stands
    kinds = Array("Longcase clock", "Bracket clock", "Carriage clock", "Cuckoo clock", "Lantern clock", "Mantel clock", _
        "Marine chronometer", "Pocket watch", "Sundial", "Table clock", "Tower clock", "Water clock", "Regulator")
    makers = Array("T. Ashdown|London|Tempus fugit", "É. Garnier|Besançon|L’heure passe, l’œuvre reste", _
        "K. Brandt|Köln|Zähl’ die heit’ren Stunden nur", "Å. Sjöö|Västerås|Tiden går", "J. Muñoz|Cádiz|¿Qué hora es?", _
        "B. Þórsson|Ísafjörður|Tíminn líður", "N. Ægidius|Tønder|Tiden læger", "L. Gonçalves|Évora|Amanhã será tarde")
    maker = Split(makers((i - 1) Mod 8), "|")
    madeIn = 1580 + i * 37 Mod 330
    If i Mod 13 = 12 Then madeIn = -40 * (i Mod 7 + 1) ' water clocks are older
    stands = i Mod 13 = 9 Or i Mod 13 = 12 Or i Mod 5 = 4
    Clock = "(" & i & _
        Text(kinds((i - 1) Mod 13)) & _
        Unless(i Mod 11 = 0, Text(maker(0))) & _
        Unless(i Mod 11 = 0, Text(maker(1))) & _
        Unless(i Mod 4 = 0, Text(maker(2))) & _
        Unless(i Mod 9 = 0, Text(Story(i, maker(1), madeIn))) & _
        ", " & madeIn & _
        Unless(i Mod 10 = 0, ", " & i * 53 Mod 400 + 1 & "." & i * 7 Mod 10) & _
        Unless(i Mod 6 = 0, ", " & i * 731 Mod 90000 + 250 & ".50") & _
        Text(DayText(i * 97 Mod 30000)) & _
        Unless(stands, Text(DayText(43000 + i * 5) & " " & TwoDigits(9 + i Mod 8) & ":" & TwoDigits(i * 7 Mod 60) & ":00")) & _
        Either(stands, ", 0", ", 1") & _
        Unless(stands, Text(TwoDigits(7 + i Mod 4) & ":" & TwoDigits((i Mod 4) * 15) & ":00")) & _
        ", 40" & 12345600000 + i * 1009 & _
        ", " & Bytes("MK" & i * 7) & ")"
End Function

' A few lines, of some clocks a page.
Function Story(i, town, madeIn)
    Dim tales, n
    tales = Array("The case is of walnut and was given new feet.", "A note in the door tells who wound it until 1911.", _
        "The bell is cracked and has been silent since the fire.", "Two wheels were cut anew in the workshop of the museum.", _
        "It came with a box of keys, none of which fits.")
    Story = "From " & town & ", about " & Abs(madeIn) & Either(madeIn < 0, " BC", "") & "."
    For n = 1 To Either(i Mod 8 = 0, 40, 1 + i Mod 3)
        Story = Story & " " & tales((i + n) Mod 5)
    Next
End Function

Function DayText(days)
    Dim this
    this = DateSerial(1900, 1, 1) + days
    DayText = Year(this) & "-" & TwoDigits(Month(this)) & "-" & TwoDigits(Day(this))
End Function

Function TwoDigits(number)
    TwoDigits = Right("0" & number, 2)
End Function

' What follows in a list of values.
Function Text(value)
    Text = ", '" & Replace(value, "'", "''") & "'"
End Function

' A short text in bytes, two for a letter.
Function Bytes(text)
    Dim n
    For n = 1 To Len(text)
        Bytes = Bytes & Hex(Asc(Mid(text, n, 1))) & "00"
    Next
    Bytes = "x'" & Bytes & "'"
End Function

' What is not known is Null.
Function Unless(unknown, value)
    Unless = Either(unknown, ", NULL", value)
End Function

Function Either(condition, yes, no)
    If condition Then Either = yes Else Either = no
End Function
