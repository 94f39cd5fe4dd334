' Objects of the system in the grid: loaded, edited in their rows, and read back.
Option Explicit
Host.Include "lib/common.vbs"

Dim all, files, path, file, document, font, i
Set all = Grid.Properties

Function RowNames()
    Dim row
    RowNames = ""
    For Each row In all
        RowNames = RowNames & row.Name & " "
    Next
End Function

' What the host decides reaches the grid through arguments by reference of each type.
Dim Deciding
Sub Grid_AddingProperty(name, category, editorType, cancel)
    If Not Deciding Then Exit Sub
    category = "Of the host"
    If name = "Bold" Then cancel = True
    If name = "Weight" Then editorType = 6 ' a date, and the number is none
End Sub

Sub Load(what, anObject, depth)
    Grid.InspectionDepth = depth
    CheckTrue what & " is loaded", Grid.LoadObjectProperties(anObject)
    CheckEqual what & ": the view is free again", False, Grid.LockRefresh
End Sub

' A file: its attributes are a list to choose from, and what the system refuses is read-only.
Set files = CreateObject("Scripting.FileSystemObject")
path = files.BuildPath(files.GetSpecialFolder(2), "inspected.txt")
files.CreateTextFile(path).Close
Set file = files.GetFile(path)
Load "file", file, 2
CheckEqual "path", path, all("Path").Value
CheckTrue "path is read-only", all("PATH").ReadOnly
CheckEqual "editor of the attributes", 9, all("Attributes").EditorType
CheckTrue "attributes can be chosen", all("Attributes").ListItems.Count >= 8
CheckEqual "dates have their editor", 6, all("DateLastModified").EditorType
all("Attributes").Value = 33
CheckEqual "attributes written", 33, file.Attributes
all("Attributes").Value = 32
CheckEqual "attributes written back", 32, files.GetFile(path).Attributes

files.DeleteFile path

' An XML document.
Set document = CreateObject("MSXML2.DOMDocument")
document.loadXML "<a b='c'>text</a>"
Load "document", document, 1
CheckEqual "kind of node", 9, all("nodeType").Value
CheckEqual "kind of node by name", "9 - NODE_DOCUMENT", all("nodeType").FormattedText
CheckTrue "the element is an object", IsObject(all("documentElement").Value)
all("async").Value = False
CheckEqual "written to the document", False, document.async

' A font, whose properties are variables of a dispatch interface.
Set font = CreateObject("StdFont")
font.Name = "Tahoma"
Load "font", font, 1
CheckEqual "rows of a font", "Name Size Bold Italic Underline Strikethrough Weight Charset ", RowNames()
all("Bold").Value = True
CheckEqual "bold", True, font.Bold
all("Name").Value = "Arial"
CheckEqual "the name that the font took of it", font.Name, all("Name").Value

Deciding = True
Load "font by the host", font, 1
CheckEqual "rows that the host lets through", "Name Size Italic Underline Strikethrough Charset ", RowNames()
CheckEqual "category of the host", "Of the host", all("Name").Category

' Nothing gives no rows.
Load "nothing", Nothing, 3
CheckEqual "rows of nothing", 0, all.Count

Finish
