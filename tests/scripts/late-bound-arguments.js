// Every kind of value that a script of this language can pass; texts outside the code page.
var failures = 0;

function check(what, expected, found) {
    if (expected === found)
        return;
    ++failures;
    Host.Echo("failed: " + what + ": expected [" + expected + "], found [" + found + "]");
}

function refused(what, call) {
    try {
        call();
    } catch (error) {
        return;
    }
    check(what + ": refused", true, false);
}

var events = [];

function Grid_PropertyValueChanged(property) {
    events.push("changed " + property.Name);
}

var all = Grid.Properties;

// Values of all kinds come back as they went in.
all.Add("number", 42);
all.Add("fraction", 0.5);
all.Add("text", "plain");
all.Add("yes", true).EditorType = 4;
all.Add("null", null);
all.Add("undefined", undefined);
var object = new ActiveXObject("Scripting.Dictionary");
all.Add("object", object);
check("number", 42, all("_number").Value);
check("fraction", 0.5, all("_fraction").Value);
check("text", "plain", all("_text").Value);
check("Boolean", true, all("_yes").Value);
check("null", null, all("_null").Value);
check("undefined", undefined, all("_undefined").Value);
check("text of undefined", "", all("_undefined").FormattedText);
check("text of a number", "42", all("_number").FormattedText);
refused("text of null", function () { return all("_null").FormattedText; });
all("_object").Value.Add("seen", 1);
check("the object itself", 1, object.Count);

refused("value for a read-only property", function () { Grid.Version = "2"; });
Grid.BackColor = 0x8000000F; // a positive number here
check("colour", 0x8000000F - 0x100000000, Grid.BackColor);

all("_number").Value = "42";
all("_null").Value = null;
all("_fraction").Value = null;
check("changes", "changed null", events.join());

// Characters outside the code page, a surrogate pair and combining marks survive as arguments.
var foreign = "\u20AC\u6F22\u5B57 \uD83D\uDE00 e\u0301\u200F \u0416\u0646 \uFFFF\uD800";
all.Clear();
all.Add(foreign, foreign, foreign + "|" + foreign, "k" + foreign).Help = foreign;
check("name", foreign, all("K" + foreign).Name);
check("value", foreign, all(1).Value);
check("category", foreign + "|" + foreign, all(1).Category);
check("text", foreign, all(1).FormattedText);
check("help", foreign, all(1).Help);

// A reference goes by plain assignment; null is Nothing.
Grid.SelectedProperty = all(1);
check("selected", foreign, Grid.SelectedProperty.Name);
Grid.SelectedProperty = null;
check("null selects nothing", null, Grid.SelectedProperty);
all.Clear();

if (failures)
    Host.Echo(failures + " failed");
Host.Quit(failures ? 1 : 0);
