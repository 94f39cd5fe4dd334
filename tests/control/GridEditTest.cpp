// The life of an edit: editors over rows, values on their way, refusals, custom editors.

#include "GridContainer.h"
#include "InDialog.h"

namespace ormisk::test {
namespace {

const std::wstring kTitle = kLibraryTitle;

RECT PlaceOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

TEST_F(GridTest, AnEditByMouseAndKeysTellsItsEventsInAnotherOrder) {
    GridContainer host;
    host.Add(L"A", L"one");
    host.Add(L"B", L"two");
    host.Heard();
    host.RealClick(host.Tree(), 30, host.RowTop(1) + 6);
    EXPECT_EQ(host.Heard(), L"SelChanged B");
    EXPECT_EQ(host.EditText(), L"two");
    EXPECT_EQ(GetFocus(), host.Tree()) << "the rows keep the keys until one is typed";
    host.RealKeys({'X'});
    EXPECT_EQ(GetFocus(), host.EditBox());
    EXPECT_EQ(host.EditText(), L"x") << "typing replaces the text";
    host.RealKeys({'Y'});
    EXPECT_EQ(host.Heard(), L"");
    host.events.on[L"ValidateValue"] = [&](const EventCall&) { EXPECT_EQ(ValueText(host.Item(2L).Get()), L"two"); };
    host.RealKeys({VK_RETURN});
    host.events.on.clear();
    EXPECT_EQ(host.Heard(), L"ValidateValue B xy False; PropertyValueChanged B");
    EXPECT_EQ(ValueText(host.Item(2L).Get()), L"xy");
    EXPECT_EQ(GetFocus(), host.Tree());
    EXPECT_EQ(host.EditText(), L"xy") << "the editor stays";
    host.RealKeys({'Z', VK_ESCAPE});
    EXPECT_EQ(host.EditText(), L"xy");
    EXPECT_EQ(host.Heard(), L"");
    // The selection takes a changed text along, before it moves.
    host.RealKeys({'Q'});
    host.RealClick(host.Tree(), 30, host.RowTop(0) + 6);
    EXPECT_EQ(host.Heard(), L"ValidateValue B q False; PropertyValueChanged B; SelChanged A");
    // A handler that selects another row wins; its row has the editor.
    host.events.on[L"SelChanged"] = [&](const EventCall&) {
        host.events.on.clear();
        host.Select(host.Item(1L).Get());
    };
    host.Select(host.Item(2L).Get());
    EXPECT_EQ(host.Heard(), L"SelChanged B; SelChanged A");
    EXPECT_EQ(host.EditText(), L"one");
}

TEST_F(GridTest, ARefusedValueIsStoredOrReportedOrLosesItsText) {
    GridContainer host;
    const auto row = host.Add(L"A", L"old");
    host.Add(L"B", L"other");
    host.Select(row.Get());
    host.Heard();
    host.events.on[L"ValidateValue"] = [](const EventCall& call) { call.Set(2, true); };
    SetFocus(host.EditBox());
    host.TypeIntoEditor(L"new");
    host.Enter();
    EXPECT_EQ(host.Heard(), L"ValidateValue A new False");
    EXPECT_EQ(GetFocus(), host.Tree());
    EXPECT_EQ(ValueText(row.Get()), L"old");
    EXPECT_EQ(host.EditText(), L"new");
    SetFocus(host.EditBox());
    SetFocus(host.Tree());
    EXPECT_EQ(host.Heard(), L"") << "the text is the one that was refused";
    host.Enter();
    EXPECT_EQ(host.Heard(), L"ValidateValue A new False") << "confirmed once more";
    for (int round = 0; round < 2; ++round) {
        SetFocus(host.EditBox());
        host.TypeIntoEditor(L"New");
        SetFocus(host.Tree());
        EXPECT_EQ(host.Heard(), L"ValidateValue A New False") << "typed anew";
    }
    host.Press(VK_DOWN);
    EXPECT_EQ(host.Heard(), L"SelChanged B");
    EXPECT_EQ(ValueText(row.Get()), L"old");
    EXPECT_EQ(host.EditText(), L"other");
    host.TypeIntoEditor(L"New");
    host.Press(VK_UP);
    EXPECT_EQ(host.Heard(), L"ValidateValue B New False; SelChanged A") << "another row has not been asked about";
    host.Press(VK_DOWN);
    host.Heard();
    // The same value, typed anew, is no change.
    host.TypeIntoEditor(L"other");
    host.Enter();
    EXPECT_EQ(host.Heard(), L"");
    // A handler that raises ends the edit with a report.
    host.events.on[L"ValidateValue"] = [&](const EventCall&) { host.events.answer = DISP_E_EXCEPTION; };
    host.TypeIntoEditor(L"x");
    host.Enter();
    EXPECT_EQ(host.Heard(), L"ValidateValue B x False; DisplayError The handler raised. -2146827288 True");
    EXPECT_EQ(host.EditText(), L"");
    EXPECT_EQ(ValueText(host.Item(2L).Get()), L"other");
    host.ClickRow(1);
    EXPECT_EQ(host.EditText(), L"other") << "a click on the selected row brings the editor back";
    EXPECT_EQ(host.Heard(), L"");
}

TEST_F(GridTest, WhatAHandlerMakesOfAValueIsLostWhenTheEditorIsRead) {
    GridContainer host;
    const auto text = host.Add(L"A", L"old"), number = host.Add(L"B", 1L, L"", omNumberEditor),
               choice = host.Add(L"C", 1L, L"", omListEditor);
    for (const long value : {1L, 2L, 3L}) {
        ComPtr<_CListItem> item;
        Read(choice, &_CProperty::get_ListItems)->Add(_bstr_t(L""), _variant_t(value), item.GetAddressOf());
    }
    const auto edit = [&](const ComPtr<_CProperty>& row, const _variant_t& made, const std::function<void()>& act) {
        host.Select(row.Get());
        host.Heard();
        host.events.on[L"ValidateValue"] = [&](const EventCall&) {
            host.events.on.clear();
            EXPECT_EQ(row->put_Value(made), S_OK);
        };
        act();
    };
    edit(text, L"made", [&] {
        host.TypeIntoEditor(L"new");
        host.Enter();
    });
    EXPECT_EQ(host.Heard(), L"ValidateValue A new False; PropertyValueChanged A");
    EXPECT_EQ(ValueText(text.Get()) + L" " + host.EditText(), L"made made");
    edit(number, 100L, [&] {
        host.TypeIntoEditor(L"500");
        host.Press(VK_UP);
    });
    EXPECT_EQ(host.Heard(), L"ValidateValue B 500 False; PropertyValueChanged B; SelChanged A");
    EXPECT_EQ(ValueText(number.Get()), L"100");
    edit(choice, 3L, [&] { host->StartPropertyEdit(choice.Get()), host.RealKeys({VK_DOWN, VK_RETURN}); });
    EXPECT_EQ(ValueText(choice.Get()), L"3");
    // Started anew, it shows the former value.
    host.Select(text.Get());
    host.events.on[L"ValidateValue"] = [&](const EventCall&) {
        host.events.on.clear();
        host.Select(nullptr);
        host.Select(text.Get());
    };
    host.TypeIntoEditor(L"typed");
    host.Enter();
    EXPECT_EQ(ValueText(text.Get()), L"typed");
}

TEST_F(GridTest, AnInvalidTextIsKeptOnLeavingOrGivenUpOnEnter) {
    GridContainer host;
    const auto row = host.Add(L"A", L"old");
    row->SetEditorParam(_bstr_t(L"MinLength"), _bstr_t(L"3"));
    row->SetEditorParam(_bstr_t(L"MaxLength"), _bstr_t(L"9"));
    host.Add(L"B", L"other");
    host.Select(row.Get());
    host.Heard();
    host.TypeIntoEditor(L"x");
    host.Enter();
    const std::wstring report = L"DisplayError Entered text is too small in length -2147221502 True";
    EXPECT_EQ(host.Heard(), report);
    EXPECT_EQ(host.EditText(), L"x");
    SetFocus(host.EditBox());
    SetFocus(host.Tree());
    EXPECT_EQ(host.Heard(), report) << "a lost focus reports as well";
    EXPECT_EQ(host.EditText(), L"x");
    host.Press(VK_DOWN);
    EXPECT_EQ(host.Heard(), report + L"; SelChanged B");
    EXPECT_EQ(ValueText(row.Get()), L"old");
    EXPECT_EQ(host.EditText(), L"other");
}

// What a message box of this thread says; it is closed.
std::wstring s_BoxText;
BOOL CALLBACK CloseBox(HWND window, LPARAM) {
    wchar_t text[300] = L"";
    GetClassNameW(window, text, 300);
    if (std::wstring(text) != L"#32770" || !IsWindowVisible(window))
        return TRUE;
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        GetClassNameW(child, text, 300);
        if (std::wstring(text) == L"Static" && GetWindowTextW(child, text, 300) > 0)
            s_BoxText = text;
    }
    EndDialog(window, IDOK);
    return FALSE;
}
void CALLBACK CloseBoxes(HWND, UINT, UINT_PTR, DWORD) { EnumThreadWindows(GetCurrentThreadId(), CloseBox, 0); }

TEST_F(GridTest, AReportShowsNoMessageBoxOrAnotherText) {
    const auto report = [](bool shown) {
        GridContainer host;
        host.events.messageBoxes = shown;
        const auto row = host.Add(L"A", L"x", L"", omCustomEditor, L"unknown");
        s_BoxText.clear();
        const UINT_PTR timer = SetTimer(nullptr, 0, 20, CloseBoxes);
        host.Heard();
        host.Select(row.Get());
        EXPECT_EQ(host.Heard(), L"SelChanged A; DisplayError Editor is not registered. -2147221492 True");
        std::wstring told = s_BoxText;
        // The box takes the focus from a text that it is about, which is no reason for another one.
        const auto text = host.Add(L"B", L"text");
        text->SetEditorParam(_bstr_t(L"MinLength"), _bstr_t(L"2"));
        host->StartPropertyEdit(text.Get());
        host.TypeIntoEditor(L"x");
        host.Heard();
        host.Enter();
        SendMessageW(host.EditBox(), WM_CHAR, VK_ESCAPE, 1);
        KillTimer(nullptr, timer);
        EXPECT_EQ(host.Heard(), L"DisplayError Entered text is too small in length -2147221502 True");
        return told;
    };
    report(true); // the system's box keeps handles from its first use on
    SetUp();
    EXPECT_EQ(report(true), kTitle + L" : Editor is not registered. : 12");
    EXPECT_EQ(report(false), L"");
}

TEST_F(GridTest, ARowWhoseEditorFailsLosesTheSelectionOrReportsOnce) {
    GridContainer host;
    const auto row = host.Add(L"A", L"text", L"", omCustomEditor, L"unknown");
    host.Heard();
    EXPECT_EQ(host->StartPropertyEdit(row.Get()), S_OK);
    EXPECT_EQ(host.Heard(), L"SelChanged A; DisplayError Editor is not registered. -2147221492 True");
    EXPECT_EQ(host.Selected() + host.EditText(), L"A");
    // The type of editor that the value does not suit.
    row->put_EditorType(omNumberEditor);
    host.ClickRow(0);
    EXPECT_EQ(host.Heard(), L"DisplayError Invalid value for specified editor. -2147221494 True");
    EXPECT_EQ(host.EditText(), L"");
    row->put_Value(_variant_t());
    host.ClickRow(0);
    EXPECT_TRUE(IsWindowVisible(host.EditBox())) << "Empty suits every editor";
    // The other view comes on screen all the same, and is told.
    row->put_EditorType(omFontEditor);
    host.Heard();
    EXPECT_NE(FailureOfCall(host->put_ActiveView(omCatagorized)), L"");
    EXPECT_EQ(host.Heard(), L"ActiveViewChanged");
}

// Each loss of an edit's focus reports it, in a loop of its own, where the button comes up.
TEST_F(GridTest, AClickThatEndsInAMessageCatchesTheMouse) {
    GridContainer host;
    const auto row = host.Add(L"A", L"old");
    row->SetEditorParam(_bstr_t(L"MinLength"), _bstr_t(L"3"));
    host.Add(L"B", L"other");
    host->StartPropertyEdit(row.Get());
    host.RealKeys({'X'});
    EXPECT_EQ(host.EditText(), L"x");
    host.events.messageBoxes = true;
    const auto button = [](DWORD flags) {
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = flags;
        SendInput(1, &input, sizeof input);
    };
    const InDialog message([&] {
        button(MOUSEEVENTF_LEFTUP);
        host.Pump();
    });
    host.MouseTo(host.Tree(), 30, host.RowTop(1) + 6);
    button(MOUSEEVENTF_LEFTDOWN);
    host.Pump();
    EXPECT_GE(message.Seen(), 1);
    EXPECT_EQ(GetCapture(), nullptr);
    host.RealClick(host.Tree(), 30, host.RowTop(1) + 6);
    EXPECT_EQ(host.Selected(), L"B");
}

TEST_F(GridTest, StartingAnEditByTheHostIsRefusedOrTakesNoFocus) {
    GridContainer host;
    const auto a = host.Add(L"A", L"text");
    const auto b = host.Add(L"B", L"text");
    EXPECT_EQ(host->StartPropertyEdit(a.Get()), S_OK);
    EXPECT_EQ(GetFocus(), host.EditBox());
    DWORD selection = static_cast<DWORD>(SendMessageW(host.EditBox(), EM_GETSEL, 0, 0));
    EXPECT_EQ(HIWORD(selection) - LOWORD(selection), 4) << "the whole text is selected";
    const std::wstring refusal = L"8004000F|" + kTitle + L"|Invalid action for this property.";
    b->put_ReadOnly(VARIANT_TRUE);
    EXPECT_EQ(FailureOfCall(host->StartPropertyEdit(b.Get())), refusal);
    b->put_ReadOnly(VARIANT_FALSE);
    b->put_Visible(VARIANT_FALSE);
    EXPECT_EQ(FailureOfCall(host->StartPropertyEdit(b.Get())), refusal);
    b->put_Visible(VARIANT_TRUE);
    host->put_ReadOnly(VARIANT_TRUE);
    EXPECT_EQ(FailureOfCall(host->StartPropertyEdit(b.Get())), refusal);
    EXPECT_EQ(host.Selected(), L"A");
    EXPECT_EQ(host.EditText(), L"text") << "an open editor stays until the selection moves";
    host.Select(b.Get());
    EXPECT_EQ(host.EditText(), L"");
    host->put_ReadOnly(VARIANT_FALSE);
    host.Select(nullptr);
    EXPECT_EQ(host->StartPropertyEdit(b.Get()), S_OK);
    EXPECT_EQ(host.EditText(), L"text");
}

TEST_F(GridTest, AnEditorIsNotOverItsCellOrStaysBehindWhenTheRowsMove) {
    GridContainer host;
    for (int i = 0; i < 40; ++i)
        host.Add(L"Row" + std::to_wstring(i), L"v");
    host.Select(host.Item(3L).Get());
    const auto expectOver = [&](long row) {
        const RECT cell = host.ValueCell(row), box = PlaceOf(host.EditBox());
        EXPECT_EQ(box.left, cell.left);
        EXPECT_EQ(box.right, cell.right);
        EXPECT_EQ(box.bottom, cell.bottom - 1);
        EXPECT_GE(box.top, cell.top);
        EXPECT_LT(box.top, cell.top + 6);
    };
    expectOver(2);
    const long top = PlaceOf(host.EditBox()).top;
    host->put_Grid(omGridNone);
    host->put_ColumnDividerPosition(100);
    EXPECT_EQ(PlaceOf(host.EditBox()).top, top + 1) << "a pixel lower without lines";
    host->put_Grid(omGridSolid);
    host->put_ColumnDividerPosition(140);
    expectOver(2);
    host.TypeIntoEditor(L"changed");
    host.Heard();
    SendMessageW(host.Tree(), WM_MOUSEWHEEL, MAKEWPARAM(0, -120), 0);
    EXPECT_EQ(host.Heard(), L"ValidateValue Row2 changed False; PropertyValueChanged Row2");
    EXPECT_EQ(host.EditText(), L"changed");
    expectOver(1);
    SendMessageW(host.Tree(), WM_MOUSEWHEEL, MAKEWPARAM(0, -240), 0);
    EXPECT_EQ(GetWindow(host.Tree(), GW_CHILD), host.HeaderStrip()) << "the headers lie over the editor";
    host.TypeIntoEditor(L"again");
    host.Heard();
    host.Resize({250, 280});
    EXPECT_EQ(host.Heard(), L"ValidateValue Row2 again False; PropertyValueChanged Row2");
    EXPECT_EQ(host.EditText(), L"") << "a new size closes it";
}

TEST_F(GridTest, ADoubleClickOrF4DoesNotActivateTheEditor) {
    GridContainer host;
    host.Add(L"A", L"text");
    const auto focused = [&](const auto& act) {
        SetFocus(host.Tree());
        act();
        return GetFocus();
    };
    EXPECT_EQ(focused([&] { host.RealClick(host.Tree(), 30, host.RowTop(0) + 6, 2); }), host.EditBox());
    EXPECT_EQ(focused([&] { host.RealKeys({VK_F4}); }), host.EditBox());
    EXPECT_EQ(focused([&] { host.RealKeys({VK_DOWN}, VK_MENU); }), host.EditBox());
    host.RealKeys({VK_HOME});
    host.RealKeys({VK_DOWN}, VK_MENU);
    EXPECT_EQ(HIWORD(SendMessageW(host.EditBox(), EM_GETSEL, 0, 0)), 4) << "and selects all in it";
    host.PlainClick(host.EditBox(), 90, 5);
    host.RealKeys({'X'});
    EXPECT_EQ(host.EditText(), L"textx") << "a click there goes to its place in the text";
    host.Item(1L)->put_ReadOnly(VARIANT_TRUE);
    host.Select(nullptr);
    host.ClickRow(0);
    EXPECT_EQ(focused([&] { host.Press(VK_F4), host.Press('A'); }), host.Tree());
}

// An editor of the host's making: a window, a value, and a record of the calls.
class HostEditor final : public DispatchObject<_CEditor, void> {
public:
    explicit HostEditor(std::wstring& log) : m_Log(log) {}
    ~HostEditor() override {
        if (m_Window)
            DestroyWindow(m_Window);
        m_Log += L"gone ";
    }
    _variant_t value;
    ComPtr<IUnknown> kept;
    long scale = 3;
    std::function<HRESULT()> onInit = [] { return S_OK; };
    HRESULT resetAnswer = S_OK;
    HRESULT commitAnswer = S_OK;

    STDMETHODIMP get_ScaleMode(long* result) override { return *result = scale, S_OK; }
    STDMETHODIMP get_Value(VARIANT* result) override { return VariantCopy(result, &value); }
    STDMETHODIMP put_Value(VARIANT newValue) override { return value = newValue, Log(L"Value=" + TextOf(newValue)); }
    STDMETHODIMP get_Visible(VARIANT_BOOL* result) override { return *result = m_Visible, S_OK; }
    STDMETHODIMP put_Visible(VARIANT_BOOL visible) override {
        m_Visible = visible;
        ShowWindow(m_Window, visible ? SW_SHOWNA : SW_HIDE);
        return Log(visible ? L"Show" : L"Hide");
    }
    STDMETHODIMP get_hwnd(long* result) override { return *result = HandleToLong(m_Window), S_OK; }
    STDMETHODIMP put_hFont(long font) override { return Log(font ? L"Font" : L"NoFont"); }
    STDMETHODIMP Reset(_CProperty* property, _CEditorListener* listener) override {
        m_Listener = listener; // not counted: the control's own listener outlives every edit
        return SUCCEEDED(resetAnswer) ? Log(L"Reset-" + PropertyName(property)) : resetAnswer;
    }
    STDMETHODIMP Commit() override {
        Log(L"Commit");
        return SUCCEEDED(commitAnswer) ? m_Listener->NotifyCommit(this) : commitAnswer;
    }
    STDMETHODIMP Cancel() override { return m_Listener->NotifyCancel(this); }
    STDMETHODIMP Move(float left, float top, float width, float height) override {
        moved = {left, top, width, height};
        return Log(L"Move");
    }
    STDMETHODIMP init(long parent) override {
        if (!m_Window)
            m_Window = CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 9, 9, static_cast<HWND>(LongToHandle(parent)),
                                       nullptr, nullptr, nullptr);
        Log(m_Window ? L"init" : L"no parent");
        return onInit();
    }
    std::array<float, 4> moved{};

private:
    HRESULT Log(const std::wstring& call) { return m_Log += call + L" ", S_OK; }

    std::wstring& m_Log;
    HWND m_Window = nullptr;
    VARIANT_BOOL m_Visible = VARIANT_FALSE;
    _CEditorListener* m_Listener = nullptr;
};

TEST_F(GridTest, ACustomEditorIsRegisteredTwiceOrKeepsTheGridFromItsValue) {
    std::wstring log;
    GridContainer host;
    auto editor = MakeObject<HostEditor>(log);
    VARIANT_BOOL result = VARIANT_TRUE;
    const std::wstring source = L"RegisterEditor : ";
    EXPECT_EQ(FailureOfCall(host->RegisterEditor(_bstr_t(L" "), editor.Get(), &result)),
              L"80040003|" + source + L"|Invalid key specified.");
    EXPECT_EQ(host->RegisterEditor(_bstr_t(L"Mine"), nullptr, &result), S_OK);
    EXPECT_EQ(host->RegisterEditor(_bstr_t(L"Mine"), editor.Get(), &result), S_OK);
    EXPECT_EQ(result, VARIANT_FALSE);
    EXPECT_EQ(FailureOfCall(host->RegisterEditor(_bstr_t(L"mINE"), editor.Get(), &result)),
              L"80040004|" + source + L"|Editor with this key is already present.");
    EXPECT_EQ(std::exchange(log, {}), L"init Hide ");

    const auto row = host.Add(L"A", L"old", L"", omCustomEditor, L"mine");
    host.Select(row.Get());
    EXPECT_EQ(std::exchange(log, {}), L"Font Reset-A Value=old Show Move ");
    const RECT cell = host.ValueCell(0);
    EXPECT_EQ(editor->moved, (std::array<float, 4>{static_cast<float>(cell.left), static_cast<float>(cell.top),
                                                   static_cast<float>(cell.right - cell.left),
                                                   static_cast<float>(cell.bottom - cell.top - 1)}));
    host.Heard();
    editor->value = L"new";
    EXPECT_EQ(editor->Commit(), S_OK);
    EXPECT_EQ(host.Heard(), L"ValidateValue A new False; PropertyValueChanged A");
    EXPECT_EQ(std::exchange(log, {}), L"Commit Value=new ") << "what was stored comes back to the editor";
    editor->value = L"other";
    EXPECT_EQ(editor->Cancel(), S_OK);
    EXPECT_EQ(std::exchange(log, {}), L"Value=new ");
    // An object arrives as an object.
    editor->value = static_cast<IDispatch*>(row.Get());
    editor->Commit();
    _variant_t stored;
    row->get_Value(&stored);
    EXPECT_EQ(V_VT(&stored), VT_DISPATCH);
    row->put_Value(_variant_t(L"plain"));
    // A refused one is not asked about again, unless the editor says so itself.
    host.events.on[L"ValidateValue"] = [](const EventCall& call) { call.Set(2, true); };
    editor->value = L"refused";
    host.Heard();
    editor->Commit();
    editor->Commit();
    EXPECT_EQ(host.Heard(), L"ValidateValue A refused False; ValidateValue A refused False");
    host.Select(nullptr);
    EXPECT_EQ(host.Heard(), L"SelChanged Nothing");
    host.events.on.clear();
    host.Select(row.Get());
    // In twips, the place comes in twips.
    editor->scale = 1;
    host->put_ColumnDividerPosition(100);
    EXPECT_NEAR(editor->moved[0], 101 * 15.0F, 1.0F);
    EXPECT_NEAR(editor->moved[3], static_cast<float>(host.RowHeight() - 1) * 15.0F, 1.0F);

    // Taken back in the middle of an edit: committed, hidden, gone.
    editor->value = L"last";
    log.clear();
    host.Heard();
    EXPECT_EQ(host->UnRegisterEditor(_bstr_t(L"MINE")), S_OK);
    EXPECT_EQ(host.Heard(), L"ValidateValue A last False; PropertyValueChanged A");
    EXPECT_EQ(std::exchange(log, {}), L"Commit Value=last Hide ");
    editor = nullptr;
    EXPECT_EQ(std::exchange(log, {}), L"gone ");
    EXPECT_EQ(host->UnRegisterEditor(_bstr_t(L"Mine")), S_OK);
    host.ClickRow(0);
    EXPECT_EQ(host.Heard(), L"DisplayError Editor is not registered. -2147221492 True");
}

TEST_F(GridTest, AnEditorThatFailsToBeginOrTakesItsOwnKeyMeanwhileIsRegisteredAllTheSame) {
    std::wstring log;
    GridContainer host;
    const auto editor = MakeObject<HostEditor>(log), nesting = MakeObject<HostEditor>(log);
    VARIANT_BOOL result = VARIANT_TRUE;
    nesting->onInit = [] { return E_FAIL; };
    EXPECT_EQ(host->RegisterEditor(_bstr_t(L"f"), nesting.Get(), &result), E_FAIL);
    nesting->onInit = editor->onInit;
    EXPECT_EQ(host->RegisterEditor(_bstr_t(L"f"), nesting.Get(), &result), S_OK) << "the key is still free";
    nesting->onInit = [&] { return host->RegisterEditor(_bstr_t(L"K"), editor.Get(), &result); };
    EXPECT_EQ(FailureOfCall(host->RegisterEditor(_bstr_t(L"k"), nesting.Get(), &result)),
              L"80040004|RegisterEditor : |Editor with this key is already present.");
    nesting->onInit = editor->onInit;
    EXPECT_EQ(host->RegisterEditor(_bstr_t(L" k"), nesting.Get(), &result), S_OK) << "another key";
    host.Select(host.Add(L"A", L"mine", L"", omCustomEditor, L"k").Get());
    EXPECT_EQ(TextOf(editor->value), L"mine");
}

TEST_F(GridTest, AnEditorThatKeepsTheGridIsKeptByItForEver) {
    for (const bool closed : {true, false})
        for (const bool meanwhile : {true, false}) {
            std::wstring log;
            GridContainer host;
            const auto end = [&] { return closed ? host->Close(OLECLOSE_NOSAVE) : host->SetClientSite(nullptr); };
            auto editor = MakeObject<HostEditor>(log);
            editor->kept = host->Identity();
            if (meanwhile)
                editor->onInit = end;
            VARIANT_BOOL result = VARIANT_TRUE;
            host->RegisterEditor(_bstr_t(L"Mine"), std::exchange(editor, nullptr).Get(), &result);
            host.Select(host.Add(L"A", L"mine", L"", omCustomEditor, L"mine").Get());
            end();
            host.Disconnect();
            EXPECT_TRUE(log.ends_with(L"gone ")) << closed << meanwhile;
        }
}

TEST_F(GridTest, AFailingCustomEditorBlocksTheSelection) {
    std::wstring log;
    GridContainer host;
    const auto editor = MakeObject<HostEditor>(log);
    VARIANT_BOOL result = VARIANT_TRUE;
    host->RegisterEditor(_bstr_t(L"Mine"), editor.Get(), &result);
    const auto row = host.Add(L"A", L"old", L"", omCustomEditor, L"mine");
    const auto text = host.Add(L"B", L"text");
    editor->commitAnswer = E_ACCESSDENIED;
    host.Select(row.Get());
    editor->value = L"lost";
    host.Heard();
    host.Select(text.Get());
    const std::wstring heard = host.Heard();
    EXPECT_TRUE(heard.starts_with(L"DisplayError ")) << heard;
    EXPECT_TRUE(heard.ends_with(L" -2147024891 True; SelChanged B")) << heard;
    EXPECT_EQ(ValueText(row.Get()), L"old");
    VARIANT_BOOL visible = VARIANT_TRUE;
    editor->get_Visible(&visible);
    EXPECT_EQ(visible, VARIANT_FALSE);
    EXPECT_EQ(host.EditText(), L"text");
    // What fails in Reset reaches the one who selects.
    editor->resetAnswer = E_ACCESSDENIED;
    EXPECT_EQ(host->putref_SelectedProperty(row.Get()), E_ACCESSDENIED);
    EXPECT_EQ(host.Selected(), L"A");
    host.Select(text.Get());
    EXPECT_EQ(host.EditText(), L"text");
}

TEST_F(GridTest, AnEditorParameterOfTheControlReachesOtherTypesOrBeatsTheRow) {
    GridContainer host;
    const auto row = host.Add(L"A", L"1");
    const auto get = [&](const wchar_t* name) {
        BSTR text = nullptr;
        EXPECT_EQ(row->GetEditorParam(_bstr_t(name), &text), S_OK);
        return FromBstr(_bstr_t(text, false));
    };
    const std::wstring invalid = L"80040003|" + kTitle + L"|Invalid key specified.";
    BSTR none = nullptr;
    EXPECT_EQ(FailureOfCall(host->SetEditorParam(omTextEditor, _bstr_t(L" "), _bstr_t(L"x"))), invalid);
    EXPECT_EQ(FailureOfCall(host->GetEditorParam(omTextEditor, nullptr, &none)), invalid);
    EXPECT_EQ(FailureOfCall(host->RemoveEditorParam(omTextEditor, _bstr_t(L" "))), invalid);
    EXPECT_EQ(FailureOfCall(row->SetEditorParam(_bstr_t(L" "), _bstr_t(L"x"))), invalid);
    EXPECT_EQ(FailureOfCall(row->GetEditorParam(nullptr, &none)), invalid);
    EXPECT_EQ(FailureOfCall(row->RemoveEditorParam(_bstr_t(L" "))), invalid);
    EXPECT_EQ(host->SetEditorParam(omNumberEditor, _bstr_t(L"MinLength"), _bstr_t(L"5")), S_OK);
    EXPECT_EQ(get(L"MinLength"), L"");
    EXPECT_EQ(host->SetEditorParam(omTextEditor, _bstr_t(L" minlength "), _bstr_t(L"2")), S_OK);
    EXPECT_EQ(get(L"MinLength"), L"2");
    const auto after = [&](const wchar_t* name, const wchar_t* value) {
        EXPECT_EQ(row->SetEditorParam(_bstr_t(name), _bstr_t(value)), S_OK);
        return get(L"MinLength");
    };
    EXPECT_EQ(after(L"MINLENGTH", L"3"), L"3");
    EXPECT_EQ(after(L"MinLength", L""), L"2") << "an empty one counts as none";
    EXPECT_EQ(after(L"MinLength", L"4"), L"4");
    EXPECT_EQ(row->RemoveEditorParam(_bstr_t(L"minlength ")), S_OK);
    EXPECT_EQ(get(L"MinLength"), L"2");
    EXPECT_EQ(host->RemoveEditorParam(omTextEditor, _bstr_t(L"MinLength")), S_OK);
    EXPECT_EQ(host->RemoveEditorParam(omTextEditor, _bstr_t(L"MinLength")), S_OK);
    EXPECT_EQ(get(L"MinLength"), L"");
}

} // namespace
} // namespace ormisk::test
