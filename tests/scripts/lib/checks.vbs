' Checks: every failure is told; Finish ends the run with 1 after any of them.

Dim Failures
Failures = 0

Function Shown(value)
    If IsObject(value) Then
        If value Is Nothing Then Shown = "Nothing" Else Shown = "an object"
    ElseIf IsNull(value) Then
        Shown = "Null"
    ElseIf IsArray(value) Then
        Shown = "an array"
    Else
        Shown = CStr(value)
    End If
End Function

Sub CheckEqual(what, expected, found)
    If Shown(expected) = Shown(found) Then Exit Sub
    Failures = Failures + 1
    Host.Echo "failed: " & what & ": expected [" & Shown(expected) & "], found [" & Shown(found) & "]"
End Sub

Sub CheckTrue(what, condition)
    CheckEqual what, True, condition
End Sub

' The statement before this one, under On Error Resume Next, was refused with that code of the library.
Sub CheckRefused(what, code, source, text)
    CheckEqual what & ": number", Hex(&H80040000 + code), Hex(Err.Number)
    CheckEqual what & ": source", source, Err.Source
    CheckEqual what & ": description", text, Err.Description
    Err.Clear
End Sub

' The statement before this one, under On Error Resume Next, failed somehow.
Sub CheckFailed(what)
    CheckTrue what & " is refused", Err.Number <> 0
    Err.Clear
End Sub

Sub Finish()
    If Failures = 0 Then Host.Quit 0
    Host.Echo Failures & " failed"
    Host.Quit 1
End Sub

Function NameOf(aProperty)
    If aProperty Is Nothing Then NameOf = "Nothing" Else NameOf = aProperty.Name
End Function

Function Selected()
    Selected = NameOf(Grid.SelectedProperty)
End Function
