' What the host decides about rows of an object while they are made, through arguments by reference of each type.
Option Explicit
Host.Include "lib/common.vbs"

Const omDateEditor = 6

Dim all, subject, child, Dropped, Category, Editor
Set all = Grid.Properties
Set subject = CreateObject("OrmiskTest.TestObject")
Set child = CreateObject("OrmiskTest.TestObject")
subject.Shape = 1
child.Shape = 1
Set subject.Child = child

Sub Grid_AddingProperty(name, aCategory, editorType, cancel)
    Note name
    If name = Dropped Then cancel = True
    If Category <> "" Then aCategory = Category
    If Editor <> 0 Then editorType = Editor
End Sub

Grid.InspectionDepth = 2
Grid.LoadObjectProperties subject
CheckEvents "one event a row, from the top", "AText, ALong, Child, AText, ALong, Child, AFlavor, AFlavor"
CheckEqual "children are below their object", 8, all.Count
CheckEqual "key of a child", "CHILD_AFLAVOR", all("child_aflavor").Key

' The host drops an object with all below it, and chooses a category.
Dropped = "Child"
Category = "Inspected"
Grid.LoadObjectProperties subject
CheckEqual "rows without the object", 3, all.Count
CheckEqual "category of the host", "Inspected", all("ALong").Category
Dropped = ""
Category = ""

' An editor that the value does not suit keeps the row away; any other is replaced by that of the type.
Editor = omDateEditor
Grid.LoadObjectProperties child
On Error Resume Next
Err.Clear
CheckEqual "row of the number", "", all("ALong").Name
CheckFailed "a row whose editor does not suit"
On Error GoTo 0
Editor = omTextEditor
Grid.LoadObjectProperties child
CheckEqual "editor of the type", 9, all("AFlavor").EditorType
Editor = 0

Finish
