' Number rows: which keys reach them, which values they refuse and with what message; lengths of texts; the message box.
Option Explicit
Host.Include "lib/common.vbs"

Dim ShowBoxes
ShowBoxes = False

Sub Grid_SelChanged(aProperty)
    Note "selected " & NameOf(aProperty)
End Sub

Sub Grid_ValidateValue(aProperty, newValue, cancel)
    Note "validate " & newValue
End Sub

Sub Grid_PropertyValueChanged(aProperty)
    Note "changed to " & aProperty.Value
End Sub

Sub Grid_DisplayError(message, number, showBox)
    Note Hex(number) & " " & message
    If Not ShowBoxes Then showBox = False
End Sub

Const kRefused = "80040002 "

Dim all, n, free, text
Set all = Grid.Properties
MakePlain 300, 200
Set n = all.Add("N", 5, "", "", Nothing, True, omNumberEditor)
n.SetEditorParam "AllowFloatingPoint", "False"
n.SetEditorParam "AllowNegative", "False"
n.SetEditorParam "EnableMinValueCheck", "True"
n.SetEditorParam "MinValue", "2"
n.SetEditorParam " enablemaxvaluecheck ", "True"
n.SetEditorParam "MaxValue", "100"
Set free = all.Add("Free", 1, "", "", Nothing, True, omNumberEditor)
free.SetEditorParam "AllowFloatingPoint", "True"
free.SetEditorParam "AllowNegative", "True"
free.SetEditorParam "EnableMinValueCheck", "False"
free.SetEditorParam "EnableMaxValueCheck", "False"
Set text = all.Add("Text", "four", "", "")
text.SetEditorParam "MinLength", "3"
text.SetEditorParam "MaxLength", "5"
EventLog = ""

' The lower limit is a value that is taken, the upper one is not.
ClickRow 0
EventLog = ""
Host.Keys "2{ENTER}"
CheckEvents "lower limit", "validate 2, changed to 2"
Host.Keys "100{ENTER}"
CheckEvents "upper limit", kRefused & "Entered value is greater than 100"
CheckTrue "the editor stays", EditorIsOpen(0)
Host.Keys "{BACKSPACE}{ENTER}"
CheckEvents "corrected in place", "validate 10, changed to 10"
Host.Keys "1{ENTER}"
CheckEvents "below", kRefused & "Entered value is less than 2"
Host.Keys "{ENTER}"
CheckEvents "told each time", kRefused & "Entered value is less than 2"
Host.Keys "{ESC}{DOWN}{UP}"
CheckEvents "given up", "selected Free, selected N"
CheckEqual "value", 10, n.Value

' Moving on discards a refused value after telling of it, as the focus goes and as the editor closes.
Host.Keys "1"
ClickRow 1
CheckEvents "clicked away", kRefused & "Entered value is less than 2, " & kRefused & "Entered value is less than 2, selected Free"
CheckEqual "value", 10, n.Value
Host.Keys "{UP}{DOWN}{UP}"
CheckEvents "nothing is left of it", "selected N, selected Free, selected N"

' Only digits reach a number row that takes whole positive numbers.
Host.Keys "7a-. e8{ENTER}"
CheckEvents "other keys", "validate 78, changed to 78"
Host.Keys "q{ENTER}"
CheckEvents "a letter alone", ""
CheckEqual "value", 78, n.Value

' One point, and one sign in front, where they are allowed.
ClickRow 1
EventLog = ""
Host.Keys "1.2.5-{ENTER}"
CheckEvents "point", "validate 1.25, changed to 1.25"
Host.Keys "{F4}-3{HOME}-{ENTER}"
CheckEvents "sign", "validate -3, changed to -3"
Host.Keys "{F4}-4{ENTER}"
CheckEvents "a sign over the selected number", "validate -4, changed to -4"
Host.Keys "{F4}{BACKSPACE}{ENTER}"
CheckEvents "an empty number is 0", "validate 0, changed to 0"
CheckEqual "numbers are Doubles", 5, VarType(free.Value)

' Lengths of a text: too short is told, too long cannot be typed; blanks at the ends do not count.
ClickRow 2
EventLog = ""
Host.Keys "ab {ENTER}"
CheckEvents "too short", kRefused & "Entered text is too small in length"
Host.Keys "{ESC}{F4}abcdefg{ENTER}"
CheckEvents "too long", "validate abcde, changed to abcde"

' A value that does not suit its editor opens none; a click asks again.
n.Value = "words"
EventLog = ""
ClickRow 0
CheckEvents "no number", "selected N, 8004000A Invalid value for specified editor."
CheckTrue "no editor", Not EditorIsOpen(0)
ClickRow 0
CheckEvents "asked again", "8004000A Invalid value for specified editor."
n.Value = 3
EventLog = ""
ClickRow 0
CheckEvents "suits again", ""
CheckTrue "an editor", EditorIsOpen(0)

' So does an editor that nobody registered.
text.EditorType = omCustomEditor
text.EditorKey = "mine"
ClickRow 2
CheckEvents "not registered", "selected Text, 8004000C Editor is not registered."
ClickRow 2
CheckEvents "asked again", "8004000C Editor is not registered."
CheckTrue "no editor", Not EditorIsOpen(2)

' Without the host's word a box tells it. It is shut by a key while it runs.
ClickRow 0
EventLog = ""
ShowBoxes = True
Host.Keys "1"
Host.Later "{ESC}", 1000
Host.Keys "{ENTER}"
Host.Pump 2000
ShowBoxes = False
CheckEvents "with a box", kRefused & "Entered value is less than 2"
Host.Keys "{ESC}"
CheckEqual "value after the box", 3, n.Value

Finish
