' A grid that shows its own settings, changed by mouse and keyboard in its own rows, takes them at once.
Option Explicit
Host.Include "lib\common.vbs"
Host.Include "..\..\examples\lib\palette.vbs"
Host.Include "..\..\examples\lib\click-on-row.vbs"
Host.Include "..\..\examples\lib\own-looks.vbs"
Host.Include "..\..\examples\lib\own-settings.vbs"

Dim settings, appearance, lines, place
Set settings = AddOwnSettings(400)
Set place = Host.Control("Settings")
Host.Resize 760, 520
appearance = settings.Appearance
lines = settings.Grid
CheckEqual "the place on the form is a row, too", place.Width, settings.Properties.Item("Position_Width").Value
ChangeOwnSettings Host.ScriptFolder & "\..\..\examples\pictures"
CheckEqual "a list row by a double click", 1 - appearance, settings.Appearance
CheckEqual "a list row by the keyboard", lines - 1, settings.Grid
CheckEqual "a colour row by mouse", &HC0FFC0, settings.BackColor
CheckEqual "a font row by its dialog", 10, CLng(settings.Font.Size)
CheckTrue "a picture row by its dialog", Not settings.Picture Is Nothing
CheckEqual "how the picture lies", 2, settings.PictureLayout
CheckEqual "a text row", "My setting", settings.NameCaption

' The row of its place moves the control itself.
settings.Properties.Item("Position_Width").Value = 300
CheckEqual "a place edited in a row", 300, place.Width
CheckEqual "the neighbour's place", 460, Host.Control("Grid").Width
Finish
