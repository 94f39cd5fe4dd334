' The properties of a file and of its folder as rows, with what the grid asks and tells. Shared by examples in the folder
' above, which call FillGrid.

' What the script uses of the control's enumerations.
Const omCatagorized = 1
Const omNumberEditor = 3
Const omPreErase = 0

Const kBar = &H9BD3A2
Const kPaper = &HFFFFFF
Const kFact = &H505050
Const kForbidden = "\/:*?""<>|"

Dim files, file, folder, share
Set files = CreateObject("Scripting.FileSystemObject")
Set file = files.GetFile(FileToShow())
Set folder = files.GetFolder(files.GetParentFolderName(file.Path))

' The rows.

' The file named on the command line, else one that is surely there.
Function FileToShow()
    Dim words
    words = Host.Arguments
    If UBound(words) >= 0 Then
        FileToShow = words(0)
    Else
        FileToShow = files.GetParentFolderName(Host.ScriptFolder) & "\README.md"
        If Not files.FileExists(FileToShow) Then FileToShow = Host.ScriptFolder & "\file-properties.vbs"
    End If
End Function

' Many rows are added under the lock: the grid is laid out and painted once, when the lock is lifted.
Sub FillGrid()
    Grid.ActiveView = omCatagorized
    Grid.ReadOnlyPropertyColor = kFact
    Grid.LockRefresh = True
    AddFile
    AddCopy
    AddFolder
    Grid.LockRefresh = False
    Grid.ColumnDividerPosition = 150
End Sub

Sub AddFile()
    Dim row
    Set row = AddFact("Name", file.Name, "File", "Name of the file. It is a fact, so the row is read-only.")
    row.Bold = True
    AddFact "Extension", files.GetExtensionName(file.Path), "File", "What stands behind the last point of the name."
    Set row = AddFact("Bytes", file.Size, "File|Size", "Length of the file. The row has a format picture: #,##0.")
    row.Format = "#,##0"

    ' The share of the folder is drawn as a bar, by the procedure Grid_PropertyDraw.
    share = file.Size / Max(1, BytesOf(folder))
    Set row = AddFact("Share of folder", CLng(share * 100) & " %", "File|Size", "How much of the folder's bytes is in this file.")
    row.CustomDraw = True

    AddFact "Created", file.DateCreated, "File|Dates", "When the file came into this folder."
    AddFact "Modified", file.DateLastModified, "File|Dates", "When the file was last written."
End Sub

' The rows that a person can edit. Parameters tune the editor of a row; those of the grid hold for all rows of an editor.
Sub AddCopy()
    Dim row
    Grid.SetEditorParam omNumberEditor, "AllowNegative", "False"
    Grid.SetEditorParam omNumberEditor, "AllowFloatingPoint", "False"

    Set row = Grid.Properties.Add("New name", "Copy of " & file.Name, "Copy", "newname")
    row.Help = "Name of a copy. Names with one of " & kForbidden & " are refused by the script."
    row.SetEditorParam "MinLength", "1"

    Set row = Grid.Properties.Add("How many", 1, "Copy", "count", Nothing, True, omNumberEditor)
    row.Help = "Number of copies, from 1 to 99. The editor itself refuses any other."
    row.SetEditorParam "EnableMinValueCheck", "True"
    row.SetEditorParam "MinValue", "1"
    row.SetEditorParam "EnableMaxValueCheck", "True"
    row.SetEditorParam "MaxValue", "100" ' the first value that is too big

    Set row = AddFact("Bytes in all", file.Size, "Copy", "What the copies need. Changes with the row above.")
    row.Format = "#,##0"

    Set row = Grid.Properties.Add("List the folder", "yes", "Copy", "list")
    row.Help = "Type no, and the rows of the folder's files are hidden; type yes, and they are shown again."
End Sub

Sub AddFolder()
    Dim each_
    AddFact "Path", folder.Path, "Folder", "Where the file is."
    AddFact "Files", folder.Files.Count, "Folder", "Number of files beside and with this one."
    For Each each_ In folder.Files
        AddFact(each_.Name, each_.Size, "Folder|Files", "Length of this file in bytes.").Format = "#,##0"
    Next
End Sub

' A read-only row.
Function AddFact(name, value, category, help)
    Set AddFact = Grid.Properties.Add(name, value, category)
    AddFact.ReadOnly = True
    AddFact.Help = help
End Function

Function BytesOf(aFolder)
    Dim each_
    BytesOf = 0
    For Each each_ In aFolder.Files
        BytesOf = BytesOf + each_.Size
    Next
End Function

Function Max(a, b)
    If a > b Then Max = a Else Max = b
End Function

' What the grid asks and tells.

' An edited value is about to be stored; cancel = True refuses it.
Sub Grid_ValidateValue(aProperty, newValue, cancel)
    Select Case aProperty.Key
    Case "newname"
        cancel = HasForbidden(newValue)
    Case "list"
        cancel = newValue <> "yes" And newValue <> "no"
    End Select
    If cancel Then Host.Echo "refused:", aProperty.Name, "=", newValue
End Sub

Function HasForbidden(name)
    Dim i
    HasForbidden = False
    For i = 1 To Len(kForbidden)
        If InStr(name, Mid(kForbidden, i, 1)) > 0 Then HasForbidden = True
    Next
End Function

' A value has changed, by an edit or by the script.
Sub Grid_PropertyValueChanged(aProperty)
    Dim row
    Host.Echo "changed:", aProperty.Name, "=", aProperty.FormattedText
    Select Case aProperty.Key
    Case "count"
        Grid.Properties("Copy_Bytes in all").Value = file.Size * aProperty.Value
    Case "list"
        For Each row In Grid.Properties
            If row.Category = "Folder|Files" Then row.Visible = aProperty.Value = "yes"
        Next
    End Select
End Sub

' A value cell with CustomDraw is painted. The script fills it before the grid would; the grid writes the text over it.
Sub Grid_PropertyDraw(context, aProperty, width, height, stage, doDefault)
    If stage <> omPreErase Then Exit Sub
    Host.FillCell context, 0, 0, width + 1, height + 1, kPaper
    Host.FillCell context, 1, 2, CLng((width - 2) * share), height - 4, kBar
    doDefault = False
End Sub

' A failure inside the control is about to be shown in a box. With nobody there to shut it, it is only told.
Sub Grid_DisplayError(message, number, showBox)
    Host.Echo "told:", message
    showBox = Host.Interactive
End Sub
