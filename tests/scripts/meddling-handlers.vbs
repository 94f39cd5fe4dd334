' Handlers that turn on the grid in the middle of an event, one of each kind: of the selection, of a value, of the rows and
' of the keys. The control's own tests go through all events.
Option Explicit
Host.Include "lib/common.vbs"
Host.Include "lib/meddling.vbs"

MeddleIn Array("SelChanged", "ValidateValue", "PropertyAdded", "KeyDown")
Finish
