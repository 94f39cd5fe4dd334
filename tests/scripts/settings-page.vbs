' The settings page of the examples, worked through by mouse and keyboard only.
Option Explicit
Host.Include "lib/checks.vbs"
Host.Include "../../examples/settings.vbs"

' The names on screen from the first row down, by clicks on the left of each row. Categories have no property.
Function NamesDown()
    Dim y, last, name
    NamesDown = ""
    last = ""
    For y = FirstRow To 600 Step 16
        Host.Click 60, y
        name = Selected()
        If name <> last And name <> "Nothing" Then NamesDown = NamesDown & "/" & name
        last = name
    Next
    NamesDown = Mid(NamesDown, 2)
End Function

Function ValueOf(key)
    ValueOf = RowOf(key).FormattedText
End Function

Dim FirstRow, HeaderY
FirstRow = 52
HeaderY = 36

' The page comes up sorted: categories in the order of the page and before rows beside them, rows by name.
CheckEqual "rows of the new page", "Language/Open at log-in/Remind from/Sign/Theme/Version/Your name/Font/Letters/Page/Picture/Rows/" & _
    "Line width/Tab width/Wrap lines/Check spelling/Dictionary/Keep backups/Folder/Old notes/Save every/Title", NamesDown()

' Typing over a text; a limit keeps what it refuses in the editor, and ESC brings the value back.
ClickOn "Your name"
Host.Keys "B. Reader{ENTER}"
CheckEqual "typed", "B. Reader", ValueOf("name")
CheckTrue "a changed row is bold", RowOf("name").Bold
ClickOn "Tab width"
Host.Keys "17{ENTER}{ESC}" ' shuts the box
Host.Keys "{ESC}"
CheckEqual "17 is too wide", 4, RowOf("tab").Value
Host.Keys "16{ENTER}"
CheckEqual "16 is not", 16, RowOf("tab").Value
ClickOn "Title"
Host.Keys "a?b{ENTER}"
CheckEqual "refused by the script", "Note", ValueOf("title")
ClickOn "Save every"
CheckEqual "still refused when the selection moves on", "Note", ValueOf("title")

' Lists by keyboard.
ClickOn "Language"
Host.Keys "%{DOWN}{DOWN}{ENTER}"
CheckEqual "the next language", "fr", RowOf("language").Value

' Switches by mouse: a double click flips them. Rows come and go with them.
ClickOn "Keep backups"
Host.DoubleClick 60, LastY
CheckEqual "flipped", "Keep", ValueOf("backups")
CheckEqual "the value is a Boolean", "Boolean", TypeName(RowOf("backups").Value)
CheckTrue "a row came", RowOf("copies").Visible
ClickOn "Check spelling"
Host.DoubleClick 60, LastY
CheckTrue "a row went", Not RowOf("dictionary").Visible

' The theme is on screen at once, the page's own parts with it.
ClickOn "Theme"
Host.Keys "{F4}{DOWN}{ENTER}"
CheckEqual "paper", &HC8DCE6, Host.Pixel(300, 10)
CheckEqual "its colour in a row", &HF0F8FC, RowOf("rows").Value
CheckEqual "paper under a row", &HF0F8FC, Host.Pixel(370, 600)

' The read-only row opens no editor.
ClickOn "Version"
Host.Keys "9{ENTER}"
CheckEqual "read-only", "4.2", ValueOf("version")

' The value header sorts by the script: changed rows first, then by name. The page is sorted already, so the first click turns
' the order.
Host.Click 300, HeaderY
CheckEqual "turned: unchanged rows first, names backwards", "Version/Sign/Remind from/Open at log-in/Your name/Theme/Language/" & _
    "Picture/Font/Rows/Page/Letters/Wrap lines/Line width/Tab width/Check spelling/Title/Save every/Old notes/Folder/Copies/Keep backups", _
    NamesDown()
Host.Click 300, HeaderY
CheckEqual "changed rows first", "Language/Theme/Your name/Open at log-in/Remind from/Sign/Version/Letters/Page/Rows/Font/Picture/" & _
    "Tab width/Line width/Wrap lines/Check spelling/Keep backups/Copies/Folder/Old notes/Save every/Title", NamesDown()

Finish
