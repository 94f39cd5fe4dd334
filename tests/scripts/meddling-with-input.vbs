' Handlers that turn on the grid in the middle of the events of keys and the mouse.
Option Explicit
Host.Include "lib/common.vbs"
Host.Include "lib/meddling.vbs"

MeddleIn Array("KeyDown", "KeyPress", "KeyUp", "MouseDown", "MouseMove", "MouseUp")
Finish
