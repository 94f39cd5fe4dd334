' A form that is kept in a file: two grids of different looks are designed at the left and saved. The file is text, so the
' script gives its controls other names and places and loads them beside the first ones, which they are to equal. Rows are
' no settings: who loads a form fills it.
'
'   ./run examples/form.vbs

Option Explicit

' What the script uses of the control's enumerations.
Const omCatagorized = 1
Const omFlat = 0
Const omPictureStretched = 1
Const omPictureTiled = 2
Const omHorzSolid = 3
Const omTreeLinesPlusMinusText = 3

Const kHalf = 380
Const kAgain = "Again"
Const kForReading = 1

Dim files, folder
Set files = CreateObject("Scripting.FileSystemObject")
folder = files.GetParentFolderName(Host.ScriptFolder) & "\build"
Host.Resize 2 * kHalf, 560
Design
Host.SaveForm folder & "\form.txt"
WriteText folder & "\form-again.txt", Renamed(TextOf(folder & "\form.txt"))
Host.LoadForm folder & "\form-again.txt"
FillVoyage Host.Control("Grid" & kAgain)
FillCrew Host.Control("Crew" & kAgain)
If Not Host.Interactive Then
    CompareHalves
    Host.MoveTo 1, 1
    Host.Pump 200
    Host.Quit 0
End If

' The design.

Sub Design()
    Dim crew
    Host.Control("Grid").Move 6, 6, kHalf - 12, 320
    With Grid
        .Font.Name = "Tahoma"
        .Font.Size = 9
        .ActiveView = omCatagorized
        .TreeStyle = omTreeLinesPlusMinusText
        .Grid = omHorzSolid
        .NameCaption = "Voyage"
        .ValueCaption = "Planned"
        .CategorizedTabCaption = "By &leg"
        .AlphabeticTabCaption = "By &name"
        .BackColor = &HC8DCE6
        .CategoryBackColor = &HD8E8F0
        .PropertyBackColor = &HF0F8FC
        .LineColor = &HA8BCC8
        .HighlightBackColor = &H5A82B4
        Set .Picture = Host.Picture("pictures\weave.bmp")
        .PictureLayout = omPictureTiled
    End With
    FillVoyage Grid

    Set crew = Host.AddControl("Ormisk.OrmiskGrid", "Crew", 6, 332, kHalf - 12, 222)
    crew.ToolTipText = "Who sails, and as what"
    With crew
        .Font.Name = "Tahoma"
        .Font.Size = 8
        .Font.Italic = True
        .Appearance = omFlat
        .ShowTabs = False
        .ShowDescription = False
        .NameCaption = "Sailor"
        .ValueCaption = "Post"
        .BackColor = &H504840
        .ForeColor = &HF0F0F0
        .PropertyBackColor = &H3A332D
        .PropertyForeColor = &H402810
        .LineColor = &H706860
        .Sorted = True
        Set .Picture = Host.Picture("pictures\hills.bmp")
        .PictureLayout = omPictureStretched
    End With
    FillCrew crew
End Sub

Sub FillVoyage(place)
    Dim stay
    With place.Properties
        .Add "Harbour", "Enkhuizen", "Out"
        .Add "Day", #2026-05-14#, "Out"
        .Add "Wind", "SW 4", "Out|Weather"
        .Add "Rain", False, "Out|Weather"
        Set stay = .Add("Anchorage", "Vlieland", "Stay")
        .Add "Nights", 3, "Stay"
        .Add "Harbour", "Enkhuizen", "Home", "home"
        .Add "Motor", True, "Home"
    End With
    stay.Help = "Where the ship lies between the voyage out and the voyage home."
    Set place.SelectedProperty = stay
    place.ColumnDividerPosition = kHalf * 0.45
End Sub

Sub FillCrew(place)
    With place.Properties
        .Add "Tessel", "skipper"
        .Add "Bram", "mate"
        .Add "Oona", "cook"
        .Add "Wies", "deck"
        .Add "Arend", "deck"
        .Add "Mirre", "passenger"
    End With
    place.ColumnDividerPosition = kHalf * 0.45
End Sub

' The file.

Function TextOf(path)
    Dim file
    Set file = files.OpenTextFile(path, kForReading)
    TextOf = file.ReadAll
    file.Close
End Function

Sub WriteText(path, text)
    Dim file
    Set file = files.CreateTextFile(path, True)
    file.Write text
    file.Close
End Sub

' Every control gets another name, and stands in the other half.
Function Renamed(text)
    Dim line, name, changed
    For Each line In Split(text, vbCrLf)
        For Each name In Array("Grid", "Crew")
            If Left(line, Len(name) + 1) = name & "." Then
                line = name & kAgain & Mid(line, Len(name) + 1)
                If InStr(line, ".Left = ") > 0 Then line = Replace(line, "Left = 6", "Left = " & 6 + kHalf)
                Exit For
            End If
        Next
        changed = changed & line & vbCrLf
    Next
    Renamed = changed
End Function

' A check for when nobody is there: both halves have the same settings, to the last byte of their pictures

Sub CompareHalves()
    Dim lines, key, other, compared, differ
    Host.SaveForm folder & "\form-both.txt"
    Set lines = LinesByKey(TextOf(folder & "\form-both.txt"))
    For Each key In lines
        other = Replace(key, ".Object.", kAgain & ".Object.")
        If other <> key And lines.Exists(other) Then
            compared = compared + 1
            If lines(key) <> lines(other) Then
                differ = differ + 1
                Host.Echo key, "is", Left(lines(key), 60), "and became", Left(lines(other), 60)
            End If
        End If
    Next
    Host.Echo compared, "settings were saved and loaded;", CLng(differ), "differ"
    If compared < 70 Or differ > 0 Then Host.Quit 1
End Sub

' The lines of a picture belong to the setting before them.
Function LinesByKey(text)
    Dim found, line, key, at
    Set found = CreateObject("Scripting.Dictionary")
    For Each line In Split(text, vbCrLf)
        at = InStr(line, " = ")
        If Left(line, 1) = "|" Then
            found(key) = found(key) & line
        ElseIf at > 0 And Left(line, 1) <> "'" Then
            key = Left(line, at - 1)
            found.Add key, Mid(line, at + 3)
        End If
    Next
    Set LinesByKey = found
End Function
