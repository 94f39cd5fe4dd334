' A grid with the properties of a file, and beside it a grid that shows its own settings: what is changed there takes
' effect at once.
'
'   ./run

Option Explicit

Host.Include "lib\file-rows.vbs"
Host.Include "lib\palette.vbs"
Host.Include "lib\click-on-row.vbs"
Host.Include "lib\own-looks.vbs"
Host.Include "lib\own-settings.vbs"

Host.Resize 760, 520
AddOwnSettings 400
FillGrid
If Not Host.Interactive Then
    ChangeOwnSettings Host.ScriptFolder & "\pictures"
    Host.Quit 0
End If
