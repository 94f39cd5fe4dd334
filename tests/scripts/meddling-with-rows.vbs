' Handlers that turn on the grid in the middle of the events of the rows, their categories and the view.
Option Explicit
Host.Include "lib/common.vbs"
Host.Include "lib/meddling.vbs"

MeddleIn Array("PropertyAdded", "PropertyDeleted", "CategoryExpanding", "CategoryCollapsing", _
    "ActiveViewChanged", "PropertyDraw")
Finish
