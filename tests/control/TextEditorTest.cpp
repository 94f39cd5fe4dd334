#include "HandleCount.h"
#include "ModelTestTools.h"

#include "automation/Value.h"
#include "editors/CEditorListener.h"
#include "editors/CTextEditor.h"
#include "editors/EditorRegistry.h"
#include "model/CProperty.h"
#include "platform/TextBox.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>

namespace ormisk {
namespace {

// A control as far as editors see it: the two text editors on one box in a window, and what they report.
class TextEditorTest : public testing::Test, public ChildWindowListener, public EditorObserver {
protected:
    void SetUp() override {
        Open(); // what the system makes at the first use stays
        Start(text, L"");
        RedrawWindow(box->hWnd(), nullptr, nullptr, RDW_UPDATENOW);
        Close();
        before = {};
        objects = LiveObjects();
        Open();
    }
    void TearDown() override {
        Close();
        before.ExpectNoMore();
        EXPECT_EQ(LiveObjects(), objects);
    }

    void Open() {
        tree = CreateWindowW(L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 300, 200, nullptr, nullptr,
                             GetModuleHandleW(nullptr), nullptr);
        box = std::make_unique<TextBox>();
        box->Create(tree, this);
        listener = MakeObject<CEditorListener>(static_cast<EditorObserver*>(this));
        registry.CreateBuiltInEditors(tree, {box.get()});
        text = registry.Find(omTextEditor, {});
        number = registry.Find(omNumberEditor, {});
        heard.clear();
    }
    void Close() {
        current = text = number = nullptr;
        registry.Clear();
        listener->CutObserver();
        listener = nullptr;
        box.reset();
        DestroyWindow(tree);
    }

    using Params = std::map<std::wstring, std::wstring>;

    // A row with these parameters gets its editor, with the value in it and the focus.
    void Start(const ComPtr<_CEditor>& editor, const _variant_t& value, const Params& params = {}) {
        const auto property = MakeObject<CProperty>();
        property->Init({}, L"Name", value, nullptr, true, editor.Get() == number.Get() ? omNumberEditor : omTextEditor,
                       false);
        for (const auto& [name, setting] : params)
            Check(property->SetEditorParam(ToBstr(name), ToBstr(setting)));
        current = editor;
        EditorProxy proxy(editor.Get());
        proxy.Reset(property.Get(), listener.Get());
        proxy.SetValue(value);
        proxy.SetVisible(true);
        box->SetFocus();
        heard.clear();
    }
    void Type(const wchar_t* keys) {
        for (; *keys; ++keys)
            SendMessageW(box->hWnd(), WM_CHAR, *keys, 1);
    }
    // As a paste does.
    void Put(const wchar_t* newText) {
        box->SetText(newText);
        box->SetModified(true);
    }
    _variant_t Value() const { return EditorProxy(current.Get()).Value(); }
    // What the commit was refused with.
    std::wstring CommitError() {
        try {
            EditorProxy(current.Get()).Commit();
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number, ErrorNumber(ErrorCode::InvalidPropertyValue));
            EXPECT_EQ(error.source, kLibraryTitle);
            return error.description;
        }
        return L"none";
    }

    void OnKeyDown(int&, int) override {}
    void OnKeyPress(int& keyAscii) override {
        try {
            registry.BuiltIn(current.Get())->KeyPress(keyAscii);
        } catch (const AutomationError& error) {
            heard += L"error " + error.description + L"; ";
        }
    }
    void OnKeyUp(int&, int) override {}
    void OnGotFocus() override { heard += L"got; "; }
    void OnLostFocus() override { heard += L"lost; "; }
    void CommitEdit(_CEditor* editor) override {
        EXPECT_EQ(editor, current.Get());
        heard += L"commit; ";
        onCommit();
    }
    void CancelEdit(_CEditor* editor) override {
        EXPECT_EQ(editor, current.Get());
        heard += L"cancel; ";
    }

    HWND tree = nullptr;
    std::unique_ptr<TextBox> box;
    EditorRegistry registry;
    ComPtr<CEditorListener> listener;
    ComPtr<_CEditor> text;
    ComPtr<_CEditor> number;
    ComPtr<_CEditor> current;
    std::wstring heard;
    std::function<void()> onCommit = [] {};
    test::Inventory before;
    long objects = 0;
};

} // namespace

TEST_F(TextEditorTest, NumberRowsFilterKeysAndYieldDoublesWhileTextRowsTakeAll) {
    Start(number, 0L, {{L"AllowFloatingPoint", L"True"}, {L"AllowNegative", L"True"}});
    box->SelectAll();
    Type(L"-1x2 e.5.\b6-");
    EXPECT_EQ(box->Text(), L"-12.6");
    EXPECT_EQ(Value(), _variant_t(-12.6));

    Start(number, 5L, {{L"AllowFloatingPoint", L"False"}, {L"AllowNegative", L"False"}});
    Type(L"-.7");
    EXPECT_EQ(box->Text(), L"75");

    Start(text, L"");
    Type(L"-1x.\xD83D\xDE00");
    EXPECT_EQ(Value(), _variant_t(L"-1x.\xD83D\xDE00"));
}

TEST_F(TextEditorTest, EnterOnAnUntouchedTextAndEscCancelWithoutValidation) {
    Start(text, L"old", {{L"MinLength", L"9"}});
    Type(L"\r");
    EXPECT_EQ(heard, L"cancel; lost; ");
    box->SetFocus();
    heard.clear();
    Type(L"x\x1B");
    EXPECT_EQ(heard, L"cancel; lost; ");
}

TEST_F(TextEditorTest, AStoreThatFailsReachesTheKeyHandlerWithItsError) {
    Start(text, L"old");
    onCommit = [] { Raise(0x80040123L, L"The object refuses.", L"Object"); };
    Type(L"x\r");
    EXPECT_EQ(heard, L"commit; error The object refuses.; ");
    EXPECT_EQ(GetFocus(), box->hWnd());
}

TEST_F(TextEditorTest, ParametersThatARowDoesNotSetKeepTheirLastValue) {
    Start(number, 0L,
          {{L"AllowFloatingPoint", L"-1"}, {L"EnableMaxValueCheck", L"True"}, {L"MaxValue", L"1E3 and more"}});
    Start(number, 0L, {{L"AllowFloatingPoint", L"perhaps"}});
    Put(L"1.5");
    EXPECT_EQ(CommitError(), L"Entered value is greater than 0") << "the check stays, its limit is read anew";
    Start(number, 0L, {{L"EnableMaxValueCheck", L"0"}});
    Put(L"1.5");
    EXPECT_EQ(CommitError(), L"none");

    Start(text, L"", {{L"MinLength", L"2.5"}, {L"MaxLength", L"4"}});
    Start(text, L"abcde");
    EXPECT_EQ(CommitError(), L"Invalid property value.") << "a refusal without words";
    EXPECT_EQ(heard, L"");
    Put(L"a");
    EXPECT_EQ(CommitError(), L"Entered text is too small in length");
    Put(L"abcde");
    EXPECT_EQ(CommitError(), L"Entered text is too small in length") << "a refusal without words repeats the last ones";
    Put(L"ab ");
    EXPECT_EQ(CommitError(), L"none");
    Start(text, L"", {{L"MaxLength", L"1E300"}});
    Type(L"abcdef");
    EXPECT_EQ(box->Text(), L"abcd") << "a length that does not fit is none";
}

TEST_F(TextEditorTest, BoxTakesTheGreatestLengthUnlessItIsBelowTheLeast) {
    Start(text, L"", {{L"MinLength", L"5"}, {L"MaxLength", L"3"}});
    Type(L"abcdef");
    EXPECT_EQ(box->Text(), L"abcdef");
    EXPECT_EQ(CommitError(), L"Invalid property value.");
    Start(number, 0L);
    box->SetText(L"");
    Type(L"1234567");
    EXPECT_EQ(box->Text(), L"1234567") << "the limit of a text row is not that of a number row";
}

TEST_F(TextEditorTest, LoadedValuesAreUnmodifiedAndThoseWithoutATextLeaveTheBoxEmpty) {
    for (const _variant_t& value : {_variant_t(), Null(), kNothing, Array()}) {
        Start(text, L"before");
        Type(L"x");
        Start(text, value);
        EXPECT_EQ(box->Text(), L"") << V_VT(&value);
        EXPECT_FALSE(registry.BuiltIn(text.Get())->IsModified());
    }
    Start(text, 12.5);
    EXPECT_EQ(box->Text(), L"12.5");
}

TEST_F(TextEditorTest, AControlThatEndsDuringACommitLeavesTheEditorInert) {
    Start(text, L"old");
    const ComPtr<_CEditor> kept = text;
    onCommit = [&] {
        registry.Clear();
        listener->CutObserver();
        box.reset();
    };
    Type(L"x\r");
    EXPECT_EQ(box, nullptr);
    onCommit = [] {};
    EditorProxy editor(kept.Get());
    editor.Commit();
    editor.Cancel();
    editor.SetValue(_variant_t(L"late"));
    editor.SetVisible(true);
    EXPECT_EQ(editor.Value(), _variant_t(L""));
    EXPECT_EQ(editor.Hwnd(), nullptr);
    EXPECT_EQ(heard, L"commit; ");
}

} // namespace ormisk
