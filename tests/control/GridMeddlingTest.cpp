// Hosts that turn on the grid in the middle of any event, and objects that do so when they are asked for their text.

#include "GridContainer.h"
#include "ModelTestTools.h"

namespace ormisk::test {
namespace {

// What brings an event about, in a grid with a selected and edited row B between A and C.
struct Trigger {
    const wchar_t* event;
    void (*act)(GridContainer& host);
};

void Draw(GridContainer& host) {
    host.Item(2L)->put_CustomDraw(VARIANT_TRUE);
    RedrawWindow(host.Tree(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    if (host.grid && host.Tree())
        host.Paint();
}

// The object that meddles whenever it is asked.
_variant_t Object(GridContainer& host) {
    _variant_t tag;
    host.Item(1L)->get_Tag(&tag);
    return tag;
}

template <omEditorType Type> void SelectObject(GridContainer& host) {
    const auto row = host.Add(L"Object", Object(host), L"X|Y");
    row->put_EditorType(Type);
    host.Select(row.Get());
}

const Trigger kTriggers[] = {
    {L"SelChanged", [](GridContainer& host) { host.grid->putref_SelectedProperty(host.Item(3L).Get()); }},
    {L"ValidateValue", [](GridContainer& host) { host.Enter(); }},
    {L"PropertyValueChanged", [](GridContainer& host) { host.Enter(); }},
    {L"PropertyAdded", [](GridContainer& host) { host.Add(L"New", L"", L"Other|Place"); }},
    {L"PropertyDeleted", [](GridContainer& host) { host.Properties()->Remove(_variant_t(2L)); }},
    {L"CategoryCollapsing", [](GridContainer& host) { host.grid->ExpandCategory(_bstr_t(L"X"), VARIANT_FALSE); }},
    {L"CategoryExpanding",
     [](GridContainer& host) {
         host.grid->ExpandCategory(_bstr_t(L"X|Y"), VARIANT_FALSE);
         if (host.grid)
             host.grid->ExpandCategory(_bstr_t(L"X|Y"), VARIANT_TRUE);
     }},
    {L"PropertyDraw", Draw},
    {L"DisplayError",
     [](GridContainer& host) {
         const auto row = host.Item(3L);
         row->put_EditorType(omCustomEditor);
         host.grid->putref_SelectedProperty(row.Get());
     }},
    {L"KeyDown", [](GridContainer& host) { host.Press(VK_DOWN); }},
    {L"MouseDown", [](GridContainer& host) { host.ClickRow(4); }},
    {L"MouseUp", [](GridContainer& host) { host.ClickRow(4); }},
    {L"HelpRequested", [](GridContainer& host) { host.Press(VK_F1); }},
    // In the text box.
    {L"KeyPress", [](GridContainer& host) { host.Enter(); }},
    {L"KeyUp", [](GridContainer& host) { SendMessageW(host.EditBox(), WM_KEYUP, VK_RETURN, 1); }},
    {L"ActiveViewChanged", [](GridContainer& host) { host.grid->put_ActiveView(omAlphabetic); }},
    {L"SelectedText", SelectObject<omTextEditor>},
    {L"SelectedNumber", SelectObject<omNumberEditor>},
    {L"SelectedEntry", SelectObject<omListEditor>},
    {L"SelectedFlag", SelectObject<omBooleanEditor>},
    {L"TextThatIsSet", [](GridContainer& host) { host.Item(2L)->putref_Value(Object(host)); }},
    {L"PaintedColor",
     [](GridContainer& host) {
         host.Item(3L)->put_EditorType(omColorEditor);
         host.Item(3L)->putref_Value(Object(host));
         host.Paint();
     }},
};

struct Meddling {
    const char* name;
    bool ends; // the control, or its window
    void (*act)(GridContainer& host);
};

void ClearModel(GridContainer& host) {
    _variant_t result;
    host.Properties()->Clear(&result);
}

const Meddling kMeddlings[] = {
    {"clears", false, ClearModel},
    {"clears and fills", false,
     [](GridContainer& host) {
         ClearModel(host);
         host.Add(L"B", L"other", L"X|Y");
     }},
    {"removes the edited row", false, [](GridContainer& host) { host.Properties()->Remove(_variant_t(2L)); }},
    {"hides all rows", false,
     [](GridContainer& host) {
         for (long i = 1; i <= host.Count(); ++i)
             host.Item(i)->put_Visible(VARIANT_FALSE);
     }},
    {"switches the view", false,
     [](GridContainer& host) {
         const bool alphabetic = Read(host.grid.Get(), &OrmiskGrid::get_ActiveView) == omAlphabetic;
         host.grid->put_ActiveView(alphabetic ? omCatagorized : omAlphabetic);
     }},
    {"selects another row", false,
     [](GridContainer& host) { host.grid->putref_SelectedProperty(host.Item(1L).Get()); }},
    {"selects nothing", false, [](GridContainer& host) { host.grid->putref_SelectedProperty(nullptr); }},
    {"adds and edits a row", false,
     [](GridContainer& host) { host.grid->StartPropertyEdit(host.Add(L"Late", L"x", L"X|Z").Get()); }},
    {"closes the category and sets values", false,
     [](GridContainer& host) {
         host.grid->ExpandCategory(_bstr_t(L"X"), VARIANT_FALSE);
         for (long i = 1; i <= host.Count(); ++i)
             host.Item(i)->put_Value(_variant_t(L"set"));
     }},
    {"closes", false, [](GridContainer& host) { host.grid->Close(OLECLOSE_NOSAVE); }},
    {"deactivates", false, [](GridContainer& host) { host.grid->InPlaceDeactivate(); }},
    {"resizes and scrolls", false,
     [](GridContainer& host) {
         host.Resize({200, 120});
         SendMessageW(host.Tree(), WM_MOUSEWHEEL, MAKEWPARAM(0, -240), 0);
     }},
    {"unsites", true, [](GridContainer& host) { host.grid->SetClientSite(nullptr); }},
    {"destroys the control's window", true, [](GridContainer& host) { DestroyWindow(host.Window()); }},
    {"destroys the host's window", true, [](GridContainer& host) { DestroyWindow(host.window); }},
    {"lets the control go", true, [](GridContainer& host) { host.LetGo(); }},
};

class Meddler : public GridTest, public testing::WithParamInterface<Trigger> {
protected:
    // True when the handler ran.
    bool Run(const Meddling& meddling) {
        GridContainer host;
        host->put_ActiveView(omCatagorized);
        for (const wchar_t* name : {L"A", L"B", L"C"})
            host.Add(name, L"old", L"X|Y");
        host.Select(host.Item(2L).Get());
        host.TypeIntoEditor(L"new");
        bool ran = false;
        const auto meddle = [&] {
            if (!std::exchange(ran, true))
                meddling.act(host);
        };
        host.events.on[GetParam().event] = [&](const EventCall&) { meddle(); };
        const auto object = MakeObject<ScriptedObject>();
        object->call = [&](const std::wstring&, WORD, VARIANT*, VARIANT* result) {
            meddle();
            return *result = _variant_t(5L), S_OK;
        };
        host.Item(1L)->putref_Tag(_variant_t(object.Get()));
        GetParam().act(host);
        host.events.on.clear();
        if (!meddling.ends)
            ExpectUsable(host);
        return ran;
    }

    // Rows can be added, seen, selected and edited as before.
    static void ExpectUsable(GridContainer& host) {
        ASSERT_TRUE(host.Window());
        EXPECT_EQ(host.grid->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, &host, 0, host.window, nullptr), S_OK);
        const auto row = host.Add(L"After", L"first", L"Z");
        ASSERT_TRUE(row);
        host.Select(row.Get());
        EXPECT_EQ(host.Selected(), L"After");
        EXPECT_EQ(host.EditText(), L"first");
        host.TypeIntoEditor(L"second");
        host.Heard();
        host.Enter();
        EXPECT_EQ(host.Heard(), L"ValidateValue After second False; PropertyValueChanged After");
        host.Paint();
    }
};

TEST_P(Meddler, CrashesLeaksOrLeavesAHalfDoneChange) {
    for (const Meddling& meddling : kMeddlings) {
        SCOPED_TRACE(std::string("a handler that ") + meddling.name);
        EXPECT_TRUE(Run(meddling)) << "the event did not come";
        ExpectNothingLeft();
    }
}

INSTANTIATE_TEST_SUITE_P(InTheMiddleOf, Meddler, testing::ValuesIn(kTriggers), [](const auto& trigger) {
    const std::wstring name = trigger.param.event;
    return std::string(name.begin(), name.end());
});

TEST_F(GridTest, ARowThatIsLeftWhileItsEditorIsFilledShowsInThatOfTheNext) {
    for (const omEditorType editor : {omTextEditor, omNumberEditor, omListEditor, omBooleanEditor}) {
        SCOPED_TRACE(editor);
        GridContainer host;
        const auto next = host.Add(L"Next", L"7", L"", editor == omTextEditor ? omNumberEditor : omTextEditor);
        const auto list = host.Add(L"List", L"7", L"", omListEditor);
        const bool lists = editor == omListEditor || editor == omBooleanEditor;
        const auto goOn = [&](const std::wstring&, WORD, VARIANT*, VARIANT* result) {
            host.Select(lists ? list.Get() : next.Get());
            return result ? *result = _variant_t(5L), S_OK : S_OK;
        };
        const auto object = MakeObject<ScriptedObject>();
        object->call = goOn;
        // A Boolean row makes its entries anew when it is looked at, and tells of each.
        const auto row = host.Add(L"Left", editor == omBooleanEditor ? _variant_t(true) : _variant_t(object.Get()));
        row->put_EditorType(editor);
        ComPtr<_CListItems> items;
        row->get_ListItems(items.GetAddressOf());
        MakeObject<Listener>(*Query<IConnectionPointContainer>(items).Get(), __uuidof(__CListItems))->call = goOn;
        host.Select(row.Get());
        EXPECT_EQ(host.Selected(), lists ? L"List" : L"Next");
        if (lists)
            EXPECT_EQ(SendMessageW(FindWindowExW(host.Tree(), nullptr, L"ComboBox", nullptr), CB_GETCOUNT, 0, 0), 1);
        else
            EXPECT_EQ(host.EditText(), L"7");
    }
}

} // namespace
} // namespace ormisk::test
