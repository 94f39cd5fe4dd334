' Categories: how paths become rows, how rows open and close, and what the host hears and can refuse.
Option Explicit
Host.Include "lib/common.vbs"

Dim Refuse
Refuse = False

Sub Grid_CategoryExpanding(category, cancel)
    Note "expanding " & category
    If Refuse Then cancel = True
End Sub

Sub Grid_CategoryCollapsing(category, cancel)
    Note "collapsing " & category
    If Refuse Then cancel = True
End Sub

Sub Grid_SelChanged(aProperty)
    Note "selected " & NameOf(aProperty)
End Sub

Sub Grid_ActiveViewChanged()
    Note "view " & Grid.ActiveView
End Sub

' The rows on screen from the top, as the keyboard walks them; a category is a hyphen.
Function Rows(count)
    Dim i
    Rows = ""
    Set Grid.SelectedProperty = Nothing
    Host.Keys "{HOME}"
    For i = 1 To count
        If Grid.SelectedProperty Is Nothing Then Rows = Rows & "-" Else Rows = Rows & Selected()
        Host.Keys "{DOWN}"
    Next
    Set Grid.SelectedProperty = Nothing
    EventLog = ""
End Function

Dim all, glyph
Set all = Grid.Properties
MakePlain 300, 400

Grid.ActiveView = omCatagorized
CheckEvents "view switched", "view 1"
Grid.ActiveView = omCatagorized
CheckEvents "the same view", ""

' Segments are trimmed and shared in any case of letters; empty ones are passed over; none at all is the default category.
all.Add "A", 1, "X|Y"
all.Add "B", 1, " x || Y "
all.Add "C", 1, "X"
all.Add "D", 1, "||"
all.Add "E", 1
all.Add "F", 1, "Misc"
CheckEqual "path kept", "X|Y", all(1).Category
CheckEqual "separators only", "Misc", all(4).Category
CheckEqual "rows", "--ABC-DEFF", Rows(10)

' A key that reads as a position makes no category: the row stands at the root.
all.Add "G", 1, "12"
CheckEqual "numeric category", "--ABC-DEFGG", Rows(11)
all.Remove "12_G"

' Other default and separator hold for later rows; written paths follow the separator.
Grid.DefaultCategory = ""
all.Add "G", 1
CheckEqual "row without any category", "--ABC-DEFG", Rows(10)
all.Remove all.Count
Grid.DefaultCategory = "Misc"
Grid.CategorySeparator = "::"
CheckEqual "path with the new separator", "X::Y", all(1).Category
all.Add "G", 1, "X::Y"
CheckEqual "later row", "--ABGC-DEF", Rows(10)
all.Remove all.Count
Grid.CategorySeparator = "|"
CheckEqual "path with the old separator", "X|Y", all(1).Category

' Opening and closing by path: opening opens the whole way, closing only the last.
Grid.ExpandCategory "X|Y", False
CheckEvents "close X|Y", "collapsing Y"
CheckEqual "Y is closed", "--C-DEF", Rows(7)
Grid.ExpandCategory " x ", False
CheckEvents "close X", "collapsing X"
CheckEqual "X is closed", "--DEF", Rows(5)
Grid.ExpandCategory "X|Y", True
CheckEvents "open X|Y", "expanding X, expanding Y"
Grid.ExpandCategory "X|Y", True
CheckEvents "open what is open", ""
Grid.ExpandCategory "", False
Grid.ExpandCategory "  ", False
Grid.ExpandCategory "Nowhere", False
Grid.ExpandCategory "X|Nowhere", False
Grid.ExpandCategory "||", False
CheckEvents "paths that are not there", ""
CheckEqual "all is open", "--ABC-DEF", Rows(9)

' The handler refuses.
Refuse = True
Grid.ExpandCategory "X|Y", False
CheckEvents "refused", "collapsing Y"
CheckEqual "Y stayed open", "--ABC", Rows(5)
Refuse = False
Grid.ExpandCategory "X|Y", False
EventLog = ""
Refuse = True
Grid.ExpandCategory "X|Y", True
CheckEvents "refused on the way and at the end of it", "expanding Y, expanding Y"
Refuse = False
CheckEqual "Y stayed closed", "--C", Rows(3)
Grid.ExpandCategory "X|Y", True
EventLog = ""

' By keyboard: arrows and the numeric pad.
Host.Keys "{HOME}{LEFT}"
CheckEvents "Left on an open category", "collapsing X"
Host.Keys "{LEFT}"
CheckEvents "Left on the first row", ""
Host.Keys "{RIGHT}"
CheckEvents "Right on a closed category", "expanding X"
Host.Keys "{RIGHT}{RIGHT}"
CheckEvents "Right goes on", "selected A"
Host.Keys "{LEFT}"
CheckEvents "Left goes up", "selected Nothing"
Host.Keys "{SUBTRACT}{SUBTRACT}"
CheckEvents "minus", "collapsing Y"
Host.Keys "{ADD}{ADD}"
CheckEvents "plus", "expanding Y"
Host.Keys "%{DOWN}"
CheckEvents "Alt+Down on a category", "selected A"

' Closing over the selected row moves the selection to the category.
Grid.ExpandCategory "X", False
CheckEvents "closed over the selection", "collapsing X, selected Nothing"
Host.Keys "{DOWN}"
CheckEvents "the category was selected", ""
Host.Keys "{DOWN}"
CheckEvents "and the next row follows", "selected D"
Grid.ExpandCategory "X", True
EventLog = ""

' By mouse: the box before the name, and a double click on the row.
glyph = 3 + RowHeight \ 4
Host.Click glyph, RowY(0)
CheckEvents "click on the box of X", "collapsing X"
CheckEqual "the selection stayed", "D", Selected()
Refuse = True
Host.Click glyph, RowY(0)
CheckEvents "refused by the handler", "expanding X"
Refuse = False
Host.Click glyph, RowY(0)
CheckEvents "click on the box again", "expanding X"
Host.Click glyph + 10, RowY(1)
CheckEvents "click on the box of Y", "collapsing Y"
Host.DoubleClick NameX(), RowY(1)
CheckEvents "double click on Y", "selected Nothing, expanding Y"

' The selection goes with the view where its row can be seen there.
Set Grid.SelectedProperty = all(1)
EventLog = ""
Grid.ActiveView = omAlphabetic
CheckEvents "to the flat list", "view 0"
CheckEqual "selection in the flat list", "A", Selected()
Grid.ExpandCategory "X|Y", False
CheckEvents "a category of the other view", ""
Grid.ActiveView = omCatagorized
CheckEvents "selection in a closed category", "selected Nothing, view 1"
CheckEqual "no selection", "Nothing", Selected()
Set Grid.SelectedProperty = all(1)
CheckEvents "selecting opens the way", "expanding Y, selected A"
Host.Keys "{UP}"
EventLog = ""
Grid.ActiveView = omAlphabetic
CheckEvents "a category row has no counterpart", "view 0"
Host.Keys "{DOWN}"
CheckEvents "no row was selected: the key spends itself on the first", "selected A"
Grid.ActiveView = omCatagorized
EventLog = ""

' Categories go with their last row, the whole way up.
all.Remove "X|Y_A"
CheckEqual "B still holds Y", "--BC-DEF", Rows(8)
all.Remove all(1).Index
CheckEqual "Y is gone", "-C-DEF", Rows(6)
all.Remove "X_C"
CheckEqual "X is gone", "-DEFF", Rows(5)
all.Clear
CheckEqual "nothing is left", "--", Rows(2)
all.Add "New", 1, "X|Y"
CheckEqual "made anew", "--NewNew", Rows(4)

Finish
