// Hosts that turn on the grid in the middle of any event.

#include "GridContainer.h"

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
        host.events.on[GetParam().event] = [&](const EventCall&) {
            if (!std::exchange(ran, true))
                meddling.act(host);
        };
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

} // namespace
} // namespace ormisk::test
