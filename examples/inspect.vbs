' Live objects, opened up by the grid: choose one at the left, edit its members at the right.
'
'   ./run examples/inspect.vbs [PROGID]
'
' With a PROGID the object of that class is the first one in the list.

Option Explicit

Const omAlphabetic = 0
Const omCatagorized = 1
Const kRightEdge = 4

Host.Include "lib\click-on-row.vbs"
Host.Include "lib\own-looks.vbs"

Dim inspector, objects
Set inspector = Host.AddControl("Ormisk.OrmiskGrid", "Inspector", 0, 0, 400, 100)
' The grid keeps an object only while it shows it: those of the list are kept here.
Set objects = CreateObject("Scripting.Dictionary")

Host.Resize 680, 480
inspector.Align = kRightEdge
inspector.ActiveView = omCatagorized
ArrangeChoice
AddObjects
If Not Host.Interactive Then ShowItself

Sub ArrangeChoice()
    Grid.ActiveView = omAlphabetic
    Grid.ShowTabs = False
    Grid.NameCaption = "Object"
    Grid.ValueCaption = "Class"
    Grid.ReadOnlyPropertyColor = &H505050
    Grid.ColumnDividerPosition = 120
End Sub

Sub AddObjects()
    Dim words, files, document, font
    words = Host.Arguments
    If UBound(words) >= 0 Then AddObject words(0), CreateObject(words(0)), 1, "An object of the class that was asked for."

    AddObject "This grid", inspector, 1, "The grid at the right, as it stands on the form. Change its Grid, its captions or its place, " & _
        "and see it change at once."

    Set files = CreateObject("Scripting.FileSystemObject")
    AddObject "A file", files.GetFile(Host.ScriptFolder & "\inspect.vbs"), 2, "A file with its drive and its folder, two levels deep."

    Set document = CreateObject("Msxml2.DOMDocument")
    document.loadXML "<order number=""7""><item>Lamp</item></order>"
    AddObject "A document", document, 1, "An XML document. A text that is no XML is refused by the document itself."

    Set font = CreateObject("StdFont")
    font.Name = "Tahoma"
    AddObject "A font", font, 1, "A font object. What it cannot be, it corrects: the row shows what it took."
End Sub

Sub AddObject(name, anObject, depth, help)
    Dim row
    Set row = Grid.Properties.Add(name, TypeName(anObject), "", name)
    row.ReadOnly = True
    row.Help = help
    row.Tag = depth
    objects.Add name, anObject
End Sub

' Another object was chosen.
Sub Grid_SelChanged(aProperty)
    If aProperty Is Nothing Then Exit Sub
    inspector.InspectionDepth = aProperty.Tag
    inspector.LoadObjectProperties objects(aProperty.Key)
    inspector.ColumnDividerPosition = 150
End Sub

' What a member refuses is told in a box. With nobody there to shut it, it is only told.
Sub Inspector_DisplayError(message, number, showBox)
    Host.Echo "told:", message
    showBox = Host.Interactive
End Sub

' A short session for when nobody is there: every object is shown, and the grid at the right changes its own looks

Sub ShowItself()
    Dim i
    Host.Control("Grid").SetFocus
    For i = 1 To Grid.Properties.Count
        Host.Keys "{DOWN}"
    Next
    Do Until Grid.SelectedProperty.Key = "This grid"
        Host.Keys "{UP}"
    Loop
    inspector.SetFocus
    ChangeOwnLooks inspector, Host.ScriptFolder & "\pictures"
    Host.Control("Grid").SetFocus
    Host.Keys "{HOME}"
    Host.Pump 100
    Host.Quit 0
End Sub
