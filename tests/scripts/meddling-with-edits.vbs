' Handlers that turn on the grid in the middle of the events of the selection and the values.
Option Explicit
Host.Include "lib/common.vbs"
Host.Include "lib/meddling.vbs"

MeddleIn Array("SelChanged", "ValidateValue", "PropertyValueChanged", "DisplayError")
Finish
