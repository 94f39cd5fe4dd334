' A grid that shows its own settings, changed by mouse and keyboard in its own rows, takes them at once.
Option Explicit
Host.Include "lib\common.vbs"
Host.Include "..\..\examples\lib\own-settings.vbs"

Dim settings, appearance, lines, place
Set settings = AddOwnSettings(400)
Set place = Host.Control("Settings")
Host.Resize 760, 520
appearance = settings.Appearance
lines = settings.Grid
CheckEqual "the place on the form is a row, too", place.Width, settings.Properties.Item("Position_Width").Value
ChangeOwnSettings
CheckEqual "a list row by a double click", 1 - appearance, settings.Appearance
CheckEqual "a list row by the keyboard", lines - 1, settings.Grid
CheckEqual "a text row", "My setting", settings.NameCaption

' What is solid now was dotted: a grid line without gaps under the first row in view.
Dim x, y, gaps, line
For y = 60 To 90
    gaps = 0
    line = Host.Pixel(place.Left + 100, y)
    For x = place.Left + 100 To place.Left + 120
        If Host.Pixel(x, y) <> line Or line = &HFFFFFF Then gaps = gaps + 1
    Next
    If gaps = 0 Then Exit For
Next
CheckEqual "gaps in a grid line", 0, gaps

' The row of its place moves the control itself.
settings.Properties.Item("Position_Width").Value = 300
CheckEqual "a place edited in a row", 300, place.Width
CheckEqual "the neighbour's place", 460, Host.Control("Grid").Width
Finish
