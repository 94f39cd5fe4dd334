' A session that does without the mouse or without the keyboard: what is heard of it, and its rows.

Host.Include "lib/common.vbs"

Sub Grid_SelChanged(aProperty)
    Note NameOf(aProperty)
End Sub

Sub Grid_ActiveViewChanged()
    Note "view " & Grid.ActiveView
End Sub

Sub Grid_PropertyValueChanged(aProperty)
    Note aProperty.Name & "=" & aProperty.FormattedText
End Sub

Dim all, choice
Set all = Grid.Properties
Host.Resize 300, 300
Grid.HighlightBackColor = kHighlight
Grid.DescriptionPaneHeight = 60

Sub FillSession(entries)
    Dim i
    all.Add "delta", "4", "Two"
    all.Add "Bravo", "2", "One|Inner"
    Set choice = all.Add("charlie", "c", "One", "", Nothing, True, 9)
    all.Add "alpha", True, "Two", "", Nothing, True, 4
    For i = 1 To entries
        choice.ListItems.Add "entry " & i, Chr(96 + i)
    Next
    Host.Pump 50
    EventLog = ""
End Sub
