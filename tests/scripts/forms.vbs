' A form in a file: all of it comes back, also from a file that was edited; what is damaged is passed over, and a file that
' cannot be loaded changes nothing.
Option Explicit
Host.Include "lib\common.vbs"

Const kGrid = "Ormisk.OrmiskGrid"
Const kReading = 1

Dim files, path, second, loadWhere, what
Set files = CreateObject("Scripting.FileSystemObject")
path = files.BuildPath(files.GetSpecialFolder(2), "ormisk-form.txt")

Function Text()
    Dim file
    Set file = files.OpenTextFile(path, kReading)
    Text = file.ReadAll
    file.Close
End Function

Sub Write(lines)
    Dim file
    Set file = files.CreateTextFile(path, True)
    file.Write lines
    file.Close
End Sub

' The file with one part of it replaced, which it has.
Sub Edit(before, after)
    Dim old
    old = Text()
    CheckTrue before & " is in the file", InStr(old, before) > 0
    Write Replace(old, before, after)
End Sub

Function Place(control)
    Place = control.Left & " " & control.Top & " " & control.Width & " " & control.Height
End Function

Sub Second_SelChanged(aProperty)
    Note "second"
    LoadOnce "SelChanged of the other"
End Sub
Sub Grid_SelChanged(aProperty)
    Note "grid"
    LoadOnce "SelChanged"
End Sub
Sub Grid_PropertyDraw(context, aProperty, width, height, stage, doDefault)
    LoadOnce "PropertyDraw"
End Sub
Sub Grid_ShowEditorDialog(aProperty, value)
    LoadOnce "ShowEditorDialog"
End Sub
Sub Grid_KeyDown(key, shift)
    LoadOnce "KeyDown"
End Sub
Sub Grid_MouseDown(button, shift, x, y, hit)
    LoadOnce "MouseDown"
End Sub
Sub Grid_MouseMove(button, shift, x, y, hit)
    LoadOnce "MouseMove"
End Sub
Sub LoadOnce(where)
    If loadWhere <> where Then Exit Sub
    loadWhere = ""
    Host.LoadForm path
End Sub

' All of it comes back

Sub Design()
    Host.Resize 500, 300
    Set second = Host.AddControl(kGrid, "Second", 10, 20, 150, 90)
    second.Align = 4
    second.TabIndex = 0
    second.TabStop = False
    second.ToolTipText = "a ""tip"" \ " & vbCrLf & "€"
    second.Tag = "mine"
    second.HelpContextID = 7
    second.Font.Name = "Tahoma"
    second.Font.Size = 9.75
    second.Font.Italic = True
    second.Font.Bold = True
    second.Indentation = 20.5
    second.BackColor = &H8000000D
    second.NameCaption = "' = ""x"""
    second.CategorySeparator = "/"
    second.Unicode = Not second.Unicode
    Grid.ActiveView = omCatagorized
    Grid.PropertyBackColor = &H102030
    Set Grid.Picture = Host.Picture("..\..\examples\pictures\weave.bmp")
End Sub

Sub Spoil()
    second.Align = 0
    second.Move 1, 2, 30, 40
    second.TabIndex = 1
    second.TabStop = True
    second.Visible = False
    second.ToolTipText = ""
    second.Tag = ""
    second.HelpContextID = 0
    second.Font.Name = "Courier New"
    second.Indentation = 3
    second.BackColor = 1
    second.NameCaption = "x"
    second.Unicode = Not second.Unicode
    Host.Control("Grid").Move 0, 0, 50, 50
    Grid.ActiveView = 0
    Set Grid.Picture = Nothing
    Grid.Properties.Add "lost", 1
End Sub

Dim saved, unicode
Design
unicode = second.Unicode
Host.SaveForm path
saved = Text()
CheckEqual "the first line", "Ormisk form 1" & vbCrLf, Left(saved, 15)
CheckTrue "a font is one line", InStr(saved, "Second.Object.Font = font ""Tahoma"", 9.75, bold, italic" & vbCrLf) > 0
CheckTrue "the first of the order", InStr(saved, "Second.Class") < InStr(saved, "Grid.Class")
Spoil
Host.LoadForm path
CheckEqual "aligned", "350 0 150 300", Place(second)
CheckEqual "the rest", "0 0 350 300", Place(Host.Control("Grid"))
CheckEqual "order", "01", second.TabIndex & Host.Control("Grid").TabIndex
CheckEqual "what the form knows", "TrueFalsemine7", second.Visible & second.TabStop & second.Tag & second.HelpContextID
CheckEqual "tip", "a ""tip"" \ " & vbCrLf & "€", second.ToolTipText
CheckEqual "font", "Tahoma9.75TrueTrue", second.Font.Name & second.Font.Size & second.Font.Bold & second.Font.Italic
CheckEqual "numbers", "20.5 8000000D", second.Indentation & " " & Hex(second.BackColor)
CheckEqual "texts", "' = ""x""/", second.NameCaption & second.CategorySeparator
CheckEqual "a flag", unicode, second.Unicode
CheckEqual "the script's Grid", "1102030", Grid.ActiveView & Hex(Grid.PropertyBackColor)
CheckTrue "a picture", Not Grid.Picture Is Nothing
CheckEqual "made anew", 0, Grid.Properties.Count
Host.SaveForm path
CheckEqual "saved again", saved, Text()

' The new controls are heard, and have the focus where the old ones had it

EventLog = ""
Grid.Properties.Add "A", 1
Grid.Properties.Add "B", 2
second.Properties.Add "C", 3
Set Grid.SelectedProperty = Grid.Properties(1)
Set second.SelectedProperty = second.Properties(1)
CheckEvents "the new controls", "grid, second"
Host.Control("Grid").SetFocus
Host.LoadForm path
Grid.Properties.Add "A", 1
Grid.Properties.Add "B", 2
Host.Keys "{DOWN 2}"
CheckEvents "the focus", "grid"

' A file that a person has edited

Write Replace(saved, vbCrLf, vbLf)
Edit "Second.Object.CategorySeparator = ""/""", "second.object.categoryseparator = ""  """
Edit "Second.Object.BackColor = &H8000000D", "  Second . Object . BackColor=&HFF&   ' red"
Edit "Second.Object.NameCaption", "' Second.Object.NameCaption"
Edit "Second.Object.Indentation = 20.5", "Second.Object.Indentation = ""many"""
Edit "Second.Object.Grid = 2", "Second.Object.Grid = &H" & vbLf & "Second.Object.Sorted"
Edit "Second.HelpContextID = 7", "Second.HelpContextID = ""x""" & vbLf & "Second.Colour = 3" & vbLf & "Second.Object.NoSuch = 4"
Edit "Grid.Fills = True", "Grid.Fills = False" & vbLf & _
    "Grid.Left = 5" & vbLf & "Grid.Top = 6" & vbLf & "Grid.Width = 70" & vbLf & "Grid.Height = 80"
Write Text() & "Third.Class = """ & kGrid & """" & vbLf & "Third.Left = 400" & vbLf & "Third.Width = 100" & vbLf & "Fourth.Left = 2"
Host.LoadForm path
CheckEqual "a blank separator is refused", "|", second.CategorySeparator
CheckEqual "another way of writing", 255, second.BackColor
CheckEqual "left out", "Property", second.NameCaption
CheckEqual "what is no number", "2 7", second.Grid & " " & second.HelpContextID
CheckTrue "what is no length", second.Indentation <> 20.5 And second.Indentation > 0
CheckEqual "the others", "Tahoma" & unicode, second.Font.Name & second.Unicode
CheckEqual "another place", "5 6 70 80", Place(Host.Control("Grid"))
CheckEqual "a further control", "2 400 0 100 0", Host.Control("Third").TabIndex & " " & Place(Host.Control("Third"))
Host.Control("Third").Properties.Add "A", 1
Write "Ormisk form 1" & vbLf & "Second.Tag = ""alone"""
Host.LoadForm path
CheckEqual "one control alone", "alone" & True, second.Tag & (second.BackColor <> 255)
CheckEqual "the others stay", "1 Third 5 6 70 80", Host.Control("Third").Properties.Count & " Third " & Place(Host.Control("Grid"))

' A file that cannot be loaded

Sub CheckUnloaded(what, lines, words)
    Write lines
    second.Tag = "kept"
    On Error Resume Next
    Host.LoadForm path
    CheckTrue what & ": " & Err.Description, InStr(Err.Description, words) > 0
    CheckFailed what
    On Error GoTo 0
    CheckEqual what & " changes nothing", "1 kept", Host.Control("Third").Properties.Count & " " & second.Tag
End Sub

CheckUnloaded "a foreign file", "Option Explicit" & vbLf & "Third.Left = 2", "is not a form file"
CheckUnloaded "no such class", "Ormisk form 1" & vbLf & "Third.Left = 2" & vbLf & "New.Class = ""No.Such""", "No.Such"
CheckUnloaded "another class", "Ormisk form 1" & vbLf & "Third.Left = 2" & vbLf & "Second.Class = ""StdFont""", "another class"
CheckUnloaded "no control", "Ormisk form 1" & vbLf & "Second.Tag = ""lost""" & vbLf & "New.Class = ""StdFont""", "StdFont"
files.DeleteFile path
On Error Resume Next
Host.LoadForm path
CheckFailed "a missing file"
Host.SaveForm path & "\no\folder.txt"
CheckFailed "a missing folder"
On Error GoTo 0

' A form that is loaded by a control's own event

Write Replace(saved, "Second.TabStop = False", "Second.TabStop = True")
For Each what In Array("nothing", "SelChanged", "SelChanged by a key", "SelChanged of the other", "PropertyDraw", _
    "ShowEditorDialog", "KeyDown", "MouseDown", "MouseMove")
    loadWhere = ""
    Host.LoadForm path
    second.Properties.Add "C", 3
    Grid.Properties.Add "A", "one"
    Grid.Properties.Add "B", "two"
    Host.MoveTo 60, 10
    loadWhere = Replace(what, " by a key", "")
    BringAbout what
    CheckEqual "loaded in " & what, what = "nothing", loadWhere <> ""
    CheckEqual "a new grid after " & what, what = "nothing", Grid.Properties.Count = 2
Next

' Grid may be another one from one statement to the next.
Sub BringAbout(what)
    Select Case what
    Case "SelChanged": Set Grid.SelectedProperty = Grid.Properties(1)
    Case "SelChanged of the other": Set second.SelectedProperty = second.Properties(1)
    Case "PropertyDraw": Grid.Properties(1).CustomDraw = True
    Case "ShowEditorDialog": EditInDialog
    Case "MouseDown": Host.Click 60, 60
    Case "MouseMove": Host.MoveTo 62, 62
    Case Else
        Host.Control("Grid").SetFocus
        Host.Keys "{DOWN 2}"
    End Select
    Host.Pump 20
End Sub

Sub EditInDialog()
    Grid.Properties.Add "E", "x", "", "e", Nothing, True, 0
    Set Grid.SelectedProperty = Grid.Properties("e")
    Host.Control("Grid").SetFocus
    Host.Keys "{F4}"
End Sub

Host.SaveForm path
CheckTrue "all is in order", InStr(Text(), "Grid.Object.PropertyBackColor = &H00102030") > 0
files.DeleteFile path
Finish
