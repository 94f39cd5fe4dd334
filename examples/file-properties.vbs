' The properties of a file and of its folder, in a property grid.
'
'   ./run examples/file-properties.vbs [FILE]
'
' Grid is the control, Host the window around it. A procedure named Grid_ and the name of an event hears that event.

Option Explicit

Host.Include "lib\click-on-row.vbs"
Host.Include "lib\file-rows.vbs"

FillGrid
If Not Host.Interactive Then ShowItself

' A short session for when nobody is there.

Sub ShowItself()
    ' Typing over a selected row replaces its text; ENTER stores it.
    ClickOn "How many"
    Host.Keys "12{ENTER}"

    ' The limit of the row refuses 100, and ESC brings 12 back.
    Host.Keys "100{ENTER}{ESC}"

    ' The script refuses the first of these names. The second one is stored when the selection moves on.
    ClickOn "New name"
    Host.Keys "a/b{ENTER}"
    Host.Keys "second " & file.Name
    ClickOn "List the folder"

    ' The rows of the files go and come again.
    Host.Keys "no{ENTER}"
    Host.Keys "yes{ENTER}"

    ' At the end there is an open editor with all of its text selected, and room to see it.
    ClickOn "New name"
    Host.Keys "{F4}"
    Host.Pump 100
    Host.Quit 0
End Sub

Sub ClickOn(name)
    ClickOnRow Grid, name, 120, 50, 600
End Sub
