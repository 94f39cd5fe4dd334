// Colour rows: the ways to the palette and out of it, what is stored, and rows that vanish under the open palette.

#include "DialogTools.h"

#include "editors/CColorEditor.h"
#include "picker/OrmiskSwatch.h"

#include <algorithm>

namespace ormisk::test {
namespace {

ComPtr<_CProperty> AddColor(GridContainer& host, const wchar_t* name, const _variant_t& value) {
    return host.Add(name, value, L"", omColorEditor);
}

// The palette on screen, of whichever grid; null when there is none.
HWND Palette() {
    HWND found = nullptr;
    while ((found = FindWindowExW(nullptr, found, L"OrmiskPane", nullptr)) && !IsWindowVisible(found)) {
    }
    return found;
}

// The colour field on screen, in the rows; null when there is none.
HWND Field(const GridContainer& host) {
    for (HWND child = GetWindow(host.Tree(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (ClassOf(child) == L"OrmiskPane" && child != host.HeaderStrip() && IsWindowVisible(child))
            return child;
    return nullptr;
}

std::wstring Shown(const GridContainer& host) {
    wchar_t text[32] = L"";
    GetWindowTextW(GetWindow(Field(host), GW_CHILD), text, 32);
    return text;
}

void ClickPalette(GridContainer& host, long column, long row, bool right = false) {
    HWND page = GetWindow(Palette(), GW_CHILD);
    if (const HWND other = GetWindow(page, GW_HWNDNEXT); PlaceInParent(other).top > PlaceInParent(page).top)
        page = other;
    const long edge = (ClientRect(Palette()).right - 10) / 8;
    host.PlainClick(page, 5 + column * edge + edge / 2, 5 + row * edge + edge / 2, right);
}

const Deeds kOpenings = AndOpenings({
    {"a click on the button",
     [](GridContainer& host) { host.RealClick(Field(host), ClientRect(Field(host)).right - 5, 6); }},
    {"a click on the text", [](GridContainer& host) { host.RealClick(Field(host), 40, 6); }},
    {"F4 in the field", [](GridContainer& host) { SetFocus(Field(host)), host.RealKeys({VK_F4}); }},
});

const std::pair<const char*, void (*)(GridContainer&)> kPicks[] = {
    {"ENTER", [](GridContainer& host) { host.RealKeys({VK_RIGHT, VK_RETURN}); }},
    {"a click", [](GridContainer& host) { ClickPalette(host, 2, 2); }},
};

TEST_F(GridTest, APaletteDoesNotOpenOrLeavesTheFocusElsewhere) {
    GridContainer host;
    const auto row = AddColor(host, L"A", 0x0000FFL);
    host.Add(L"B");
    for (const auto& [name, open] : kOpenings) {
        SCOPED_TRACE(name);
        row->put_Value(_variant_t(0x0000FFL));
        GoTo(host, row.Get());
        EXPECT_EQ(Shown(host), L"&H000000FF&");
        open(host);
        EXPECT_TRUE(Palette());
        EXPECT_EQ(GetFocus(), Palette());
        host.RealKeys({VK_ESCAPE});
        EXPECT_FALSE(Palette());
        EXPECT_EQ(GetFocus(), host.Tree());
        EXPECT_EQ(host.Heard(), L"");
        for (const auto& [way, pick] : kPicks) {
            SCOPED_TRACE(way);
            row->put_Value(_variant_t(0x0000FFL));
            host.Heard();
            open(host);
            pick(host);
            EXPECT_FALSE(Palette());
            EXPECT_EQ(GetFocus(), host.Tree());
            EXPECT_EQ(host.Heard(), L"ValidateValue A 33023 False; PropertyValueChanged A");
            EXPECT_EQ(ValueOf(row.Get()), _variant_t(0x0080FFL));
            EXPECT_EQ(Shown(host), L"&H000080FF&") << "the editor stays";
            // The same colour once more.
            open(host);
            host.RealKeys({VK_RETURN});
            EXPECT_EQ(host.Heard(), L"");
        }
    }
    host.RealKeys({VK_DOWN});
    EXPECT_EQ(host.Heard(), L"SelChanged B");
    EXPECT_FALSE(Field(host));
}

TEST_F(GridTest, AColorOfAnyFormIsLostOrStoredAnewByAVisit) {
    const _variant_t null = Null();
    const struct {
        _variant_t value;
        const wchar_t* shown;
        const wchar_t* heard; // when the row is left as it was
    } cases[] = {
        {0x8000000FL, L"&H8000000F&", L""},
        {_variant_t(4294967295.0), L"&HFFFFFFFF&", L""},
        {_variant_t(0xFF00FFUL), L"&H00FF00FF&", L""},
        {L"254", L"&H000000FE&", L""},
        {_variant_t(static_cast<short>(-1)), L"&HFFFFFFFF&", L""},
        {_variant_t(), L"&H00000000&", L""},
        {null, L"&H00000000&", L"ValidateValue A 0 False; PropertyValueChanged A; "},
        {L"99999999999", L"&H00123456&", L""}, // no colour: what the field had stays, and is not stored
    };
    for (const auto& [value, shown, heard] : cases) {
        SCOPED_TRACE(TextOf(value));
        GridContainer host;
        const auto row = AddColor(host, L"A", value);
        GoTo(host, AddColor(host, L"C", 0x123456L).Get());
        GoTo(host, row.Get());
        EXPECT_EQ(Shown(host), shown);
        host.Add(L"B");
        host.Heard();
        host.Select(host.Item(3L).Get());
        EXPECT_EQ(host.Heard(), heard + std::wstring(L"SelChanged B"));
        GoTo(host, row.Get());
        host.RealKeys({VK_F4});
        ClickPalette(host, 1, 2);
        const bool system = shown[2] >= L'8';
        EXPECT_EQ(ValueOf(row.Get()), _variant_t(static_cast<long>(system ? 0x80000002 : 0x0000FF)))
            << "whatever there was";
    }
}

TEST_F(GridTest, TheNamesOfOneColorRowStayForTheNext) {
    GridContainer host;
    OrmiskSwatch field;
    field.Create(host.Tree(), nullptr);
    const auto editor = MakeObject<CColorEditor>();
    editor->Attach({.ColorEditor = &field});
    const auto row = AddColor(host, L"A", 0L);
    const auto plain = AddColor(host, L"B", 0L);
    row->put_BackColor(0x112233);
    row->put_Unicode(VARIANT_TRUE);
    for (const wchar_t* name : {L"PaletteTabCaption", L"SystemTabCaption", L"0", L"5", L"27", L"28", L"-1", L"05"})
        row->SetEditorParam(_bstr_t(name), _bstr_t(name));
    for (const auto& property : {row, plain, row}) {
        const bool named = property == row;
        EXPECT_EQ(editor->Reset(property.Get(), nullptr), S_OK);
        EXPECT_EQ(field.PaletteTabCaption(), named ? L"PaletteTabCaption" : L"Palette");
        EXPECT_EQ(field.SystemTabCaption(), named ? L"SystemTabCaption" : L"System");
        EXPECT_EQ(field.Unicode(), named);
        EXPECT_EQ(field.BackColor() == 0x112233, named);
        for (const long i : {0L, 5L, 27L})
            EXPECT_EQ(field.SystemColorName(i) == std::to_wstring(i), named) << i;
        EXPECT_EQ(field.SystemColorName(4), L"Menu Bar");
    }
    // Without its field it does nothing.
    editor->Attach({});
    EXPECT_EQ(editor->Reset(row.Get(), nullptr), S_OK);
    EXPECT_EQ(editor->put_Value(_variant_t(1L)), S_OK);
    EXPECT_EQ(editor->put_Visible(VARIANT_TRUE), S_OK);
    EXPECT_EQ(Read(editor, &_CEditor::get_hwnd), 0);
    EXPECT_EQ(V_VT(&static_cast<const VARIANT&>(Read(editor, &_CEditor::get_Value))), VT_EMPTY);
}

TEST_F(GridTest, ARefusedColorIsAskedAboutTwiceOrNeverAgain) {
    GridContainer host;
    const auto row = AddColor(host, L"A", 0x0000FFL);
    host.Add(L"B");
    host.events.on[L"ValidateValue"] = [](const EventCall& call) { call.Set(2, true); };
    for (const auto& [way, pick] : kPicks) {
        SCOPED_TRACE(way);
        GoTo(host, row.Get());
        for (int choice = 0; choice < 2; ++choice) {
            host.RealKeys({VK_F4});
            ClickPalette(host, 2, 2);
            EXPECT_EQ(host.Heard(), L"ValidateValue A 33023 False") << "each choice once";
        }
        EXPECT_EQ(Shown(host), L"&H000080FF&");
        EXPECT_EQ(ValueOf(row.Get()), _variant_t(0x0000FFL));
        SetFocus(Field(host));
        host.RealKeys({VK_ESCAPE});
        EXPECT_EQ(Shown(host), L"&H000000FF&");
        EXPECT_EQ(GetFocus(), host.Tree());
        host.RealKeys({VK_F4});
        pick(host);
        EXPECT_EQ(host.Heard(), L"ValidateValue A 33023 False");
        host.RealKeys({VK_DOWN});
        EXPECT_EQ(host.Heard(), L"SelChanged B");
    }
}

TEST_F(GridTest, APaletteStaysWithoutItsRow) {
    const Deeds deeds = AndDeeds({
        {"another colour row", [](GridContainer& host) { host.Select(host.Item(3L).Get()); }},
        {"disabled", [](GridContainer& host) { host->put_Enabled(VARIANT_FALSE); }},
        {"another window", LeaveForAnotherWindow},
    });
    for (const auto& [name, act] : deeds) {
        SCOPED_TRACE(name);
        GridContainer host;
        const auto row = AddColor(host, L"A", 0x0000FFL);
        host.Add(L"B");
        AddColor(host, L"C", 0L);
        GoTo(host, row.Get());
        host.RealKeys({VK_F4});
        EXPECT_TRUE(Palette());
        act(host);
        host.Pump();
        EXPECT_FALSE(Palette());
        EXPECT_EQ(ValueOf(row.Get()), _variant_t(0x0000FFL));
    }
}

TEST_F(GridTest, AHandlerThatClearsTheGridEndsThePickBadly) {
    for (const wchar_t* event : {L"ValidateValue", L"PropertyValueChanged"})
        for (const auto& [way, pick] : kPicks)
            for (const bool whole : {false, true}) {
                SCOPED_TRACE(way);
                GridContainer host;
                const auto row = AddColor(host, L"A", 0x0000FFL);
                GoTo(host, row.Get());
                bool done = false;
                host.events.on[event] = [&](const EventCall&) {
                    if (!std::exchange(done, true))
                        whole ? host.LetGo() : host.Clear();
                };
                host.RealKeys({VK_F4});
                pick(host);
                EXPECT_TRUE(done);
                EXPECT_FALSE(Palette());
            }
}

TEST_F(GridTest, APickGoesToTheRowThatCameMeanwhile) {
    const auto select = [](GridContainer& host) { host.Select(host.Item(2L).Get()); };
    const std::pair<const char*, std::function<void(GridContainer&)>> ways[] = {
        {"the dialog",
         [&](GridContainer& host) {
             const InDialog dialog([&] { select(host); }, IDOK);
             ClickPalette(host, 3, 7, true);
         }},
        {"the dialog, from under which another palette opens",
         [&](GridContainer& host) {
             const InDialog dialog([&] { host->StartPropertyEdit(host.Item(2L).Get()); }, IDOK);
             ClickPalette(host, 3, 7, true);
             EXPECT_TRUE(Palette());
             host.RealKeys({VK_ESCAPE});
         }},
        {"ValidateValue",
         [&](GridContainer& host) {
             host.events.on[L"ValidateValue"] = [&](const EventCall&) { select(host); };
             ClickPalette(host, 2, 2);
         }},
        {"PropertyValueChanged",
         [&](GridContainer& host) {
             host.events.on[L"PropertyValueChanged"] = [&](const EventCall&) { select(host); };
             host.RealKeys({VK_RIGHT, VK_RETURN});
         }},
    };
    for (const auto& [way, use] : ways)
        for (const _variant_t& other : {Null(), _variant_t(), _variant_t(5L), _variant_t(L"99999999999")}) {
            SCOPED_TRACE(way);
            GridContainer host;
            const auto row = AddColor(host, L"A", 0x0000FFL);
            const auto next = AddColor(host, L"C", other);
            GoTo(host, row.Get());
            host.RealKeys({VK_F4});
            EXPECT_TRUE(Palette());
            use(host);
            EXPECT_EQ(host.Selected(), L"C");
            const bool dialog = std::string(way).starts_with("the dialog");
            EXPECT_EQ(std::ranges::count(host.log, "EnableModeless 0"), dialog);
            EXPECT_EQ(std::ranges::count(host.log, "EnableModeless 1"), dialog);
            EXPECT_FALSE(Palette());
            host.events.on.clear();
            const _variant_t left = ValueOf(next.Get());
            EXPECT_EQ(V_VT(&left), V_VT(&other));
            EXPECT_TRUE(V_VT(&other) == VT_NULL || left == other);
        }
}

TEST_F(GridTest, APaletteThatAHandlerOpensIsClosedAgain) {
    GridContainer host;
    const auto row = AddColor(host, L"A", 0x0000FFL);
    const auto next = AddColor(host, L"C", 5L);
    for (const auto& [way, pick] : kPicks) {
        SCOPED_TRACE(way);
        row->put_Value(_variant_t(0x0000FFL));
        GoTo(host, row.Get());
        host.events.on[L"PropertyValueChanged"] = [&](const EventCall&) { host->StartPropertyEdit(next.Get()); };
        host.RealKeys({VK_F4});
        pick(host);
        EXPECT_TRUE(Palette());
        host.events.on.clear();
        host.RealKeys({VK_ESCAPE});
        EXPECT_FALSE(Palette());
    }
    // Nor does one open over a field that is gone.
    GoTo(host, row.Get());
    SetFocus(Field(host));
    host.events.on[L"KeyDown"] = [&](const EventCall&) { host.Clear(); };
    host.RealKeys({VK_F4});
    EXPECT_FALSE(Palette());
    EXPECT_EQ(host.Count(), 0);
}

TEST_F(GridTest, AValueSetByCodeIsUndoneByTheOpenColorEditor) {
    GridContainer host;
    const auto row = AddColor(host, L"A", 0x0000FFL);
    host.Add(L"B");
    for (const _variant_t& value : {_variant_t(0x0080FFL), _variant_t(L"red"), _variant_t(1.5), _variant_t(true)}) {
        GoTo(host, nullptr);
        row->put_Value(_variant_t(0x0000FFL));
        GoTo(host, row.Get());
        row->put_Value(value);
        host.Heard();
        host.Select(host.Item(2L).Get());
        EXPECT_EQ(host.Heard(), L"SelChanged B");
        EXPECT_EQ(ValueOf(row.Get()), value);
    }
    // The open palette follows.
    row->put_Value(_variant_t(0x0000FFL));
    GoTo(host, row.Get());
    host.RealKeys({VK_F4});
    row->put_Value(_variant_t(0x0080FFL));
    host.Heard();
    host.RealKeys({VK_RETURN});
    EXPECT_EQ(host.Heard(), L"");
    // A load is no commit, though nothing equals Null.
    GoTo(host, AddColor(host, L"C", Null()).Get());
    host.events.on[L"ValidateValue"] = [](const EventCall& call) { call.Set(2, true); };
    host.RealKeys({VK_F4});
    ClickPalette(host, 2, 2);
    EXPECT_EQ(host.Heard(), L"ValidateValue C 33023 False");
    SetFocus(Field(host));
    host.RealKeys({VK_ESCAPE});
    EXPECT_EQ(host.Heard(), L"");
    EXPECT_EQ(Shown(host), L"&H00000000&");
}

TEST_F(GridTest, AHiddenControlWithAPaletteBecomesActiveAgain) {
    GridContainer host;
    const auto row = AddColor(host, L"A", 0x0000FFL);
    GoTo(host, row.Get());
    host.RealKeys({VK_F4});
    host.log.clear();
    EXPECT_EQ(host->DoVerb(OLEIVERB_HIDE, nullptr, &host, 0, host.window, nullptr), S_OK);
    host.Pump();
    EXPECT_FALSE(Palette());
    EXPECT_EQ(std::count(host.log.begin(), host.log.end(), "OnUIActivate"), 0);
}

TEST_F(GridTest, AColorRowTakesTheFocusFromAnotherWindow) {
    GridContainer host;
    const auto row = AddColor(host, L"A", 0x0000FFL);
    host.Add(L"B");
    GoTo(host, row.Get());
    const HWND other = CreateWindowW(L"EDIT", L"", WS_CHILD | WS_VISIBLE, 250, 0, 50, 20, host.window, nullptr,
                                     GetModuleHandleW(nullptr), nullptr);
    SetFocus(other);
    row->put_Value(_variant_t(0L));
    host.Resize({200, 200});
    host.Select(host.Item(2L).Get());
    host.Select(row.Get());
    EXPECT_EQ(GetFocus(), other);
    DestroyWindow(other);
}

} // namespace
} // namespace ormisk::test
