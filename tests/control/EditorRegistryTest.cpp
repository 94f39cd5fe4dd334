#include "HandleCount.h"

#include "automation/Value.h"
#include "editors/CEditor.h"
#include "editors/CEditorListener.h"
#include "editors/EditorRegistry.h"
#include "model/CProperty.h"
#include "platform/TextBox.h"

#include <gtest/gtest.h>

#include <functional>

namespace ormisk {
namespace {

// An editor of a host's making, which writes down what is asked of it.
class HostEditor final : public DispatchObject<_CEditor, void> {
public:
    HostEditor(std::wstring& log, std::wstring name) : m_Log(log), m_Name(std::move(name)) {}
    ~HostEditor() override { m_Log += m_Name + L" gone; "; }
    std::function<HRESULT()> onInit = [] { return S_OK; };

    STDMETHODIMP get_ScaleMode(long* pValue) override { return *pValue = 1, Log(L"ScaleMode"); }
    STDMETHODIMP get_Value(VARIANT* pValue) override { return *pValue = _variant_t(7L).Detach(), Log(L"Value get"); }
    STDMETHODIMP put_Value(VARIANT newValue) override { return Log(L"Value " + TextOf(newValue)); }
    STDMETHODIMP get_Visible(VARIANT_BOOL* pValue) override { return *pValue = VARIANT_TRUE, Log(L"Visible get"); }
    STDMETHODIMP put_Visible(VARIANT_BOOL newValue) override {
        return Log(newValue ? L"Visible True" : L"Visible False");
    }
    STDMETHODIMP get_hwnd(long* pValue) override { return *pValue = HandleToLong(GetDesktopWindow()), Log(L"hwnd"); }
    STDMETHODIMP put_hFont(long) override { return Log(L"hFont"); }
    STDMETHODIMP Reset(_CProperty*, _CEditorListener* anEditorListener) override {
        m_Listener = anEditorListener;
        return Log(L"Reset");
    }
    STDMETHODIMP Commit() override { return m_Listener->NotifyCommit(this); }
    STDMETHODIMP Cancel() override { return E_NOTIMPL; }
    STDMETHODIMP Move(float, float, float, float) override { return Log(L"Move"); }
    STDMETHODIMP init(long) override {
        Log(L"init");
        return onInit();
    }

private:
    HRESULT Log(const std::wstring& call) {
        m_Log += m_Name + L" " + call + L"; ";
        return S_OK;
    }

    std::wstring& m_Log;
    std::wstring m_Name;
    ComPtr<_CEditorListener> m_Listener;
};

struct Observer : EditorObserver {
    std::function<void(_CEditor*)> onCommit = [](_CEditor*) {};
    void CommitEdit(_CEditor* anEditor) override { onCommit(anEditor); }
    void CancelEdit(_CEditor*) override {}
};

class EditorRegistryTest : public testing::Test {
protected:
    void TearDown() override {
        registry.Clear();
        EXPECT_EQ(LiveObjects(), objects);
    }
    ComPtr<HostEditor> MakeHostEditor(const wchar_t* name) { return MakeObject<HostEditor>(log, name); }
    void ExpectRefused(const wchar_t* key, _CEditor* editor, ErrorCode code) {
        try {
            registry.RegisterEditor(key, editor, nullptr);
            ADD_FAILURE() << "registered";
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number, ErrorNumber(code));
            EXPECT_EQ(error.description, ErrorText(code));
            EXPECT_EQ(error.source, L"RegisterEditor : ");
        }
    }

    const long objects = LiveObjects();
    std::wstring log;
    EditorRegistry registry;
};

} // namespace

TEST_F(EditorRegistryTest, ARegisteredEditorIsInitialisedThenFiledThenHidden) {
    const auto editor = MakeHostEditor(L"A");
    editor->onInit = [&] {
        EXPECT_EQ(registry.Find(omCustomEditor, L"Slider").Get(), nullptr);
        return S_OK;
    };
    registry.RegisterEditor(L"Slider", editor.Get(), nullptr);
    EXPECT_EQ(log, L"A init; A Visible False; ");
    EXPECT_EQ(registry.Find(omCustomEditor, L"SLIDER").Get(), editor.Get());
    EXPECT_EQ(registry.BuiltIn(editor.Get()), nullptr);
}

TEST_F(EditorRegistryTest, KeysAreRefusedBeforeTheEditorIsTouched) {
    const auto editor = MakeHostEditor(L"A");
    ExpectRefused(L"", editor.Get(), ErrorCode::InvalidKey);
    ExpectRefused(L"   ", nullptr, ErrorCode::InvalidKey);
    registry.RegisterEditor(L"Slider", nullptr, nullptr);
    EXPECT_EQ(registry.Find(omCustomEditor, L"Slider").Get(), nullptr) << "Nothing is passed over";
    registry.RegisterEditor(L"Slider", MakeHostEditor(L"B").Get(), nullptr);
    log.clear();
    ExpectRefused(L"sLIDER", editor.Get(), ErrorCode::EditorKeyPresent);
    EXPECT_EQ(log, L"");
    registry.RegisterEditor(L" Slider", editor.Get(), nullptr); // another key
}

TEST_F(EditorRegistryTest, AnEditorThatFailsToInitialiseOrTakesItsOwnKeyMeanwhileIsNotFiledTwice) {
    const auto failing = MakeHostEditor(L"A");
    failing->onInit = [] { return E_FAIL; };
    EXPECT_THROW(registry.RegisterEditor(L"k", failing.Get(), nullptr), AutomationError);
    EXPECT_EQ(registry.Find(omCustomEditor, L"k").Get(), nullptr);

    const auto nesting = MakeHostEditor(L"B");
    nesting->onInit = [&] {
        registry.RegisterEditor(L"K", failing.Get(), nullptr);
        return S_OK;
    };
    failing->onInit = [] { return S_OK; };
    ExpectRefused(L"k", nesting.Get(), ErrorCode::EditorKeyPresent);
    EXPECT_EQ(registry.Find(omCustomEditor, L"k").Get(), failing.Get());
}

TEST_F(EditorRegistryTest, AnEditorLeavesByItsKeyAndTheRestInOrderAtTheEnd) {
    registry.RegisterEditor(L"a", MakeHostEditor(L"A").Get(), nullptr);
    registry.RegisterEditor(L"b", MakeHostEditor(L"B").Get(), nullptr);
    registry.RegisterEditor(L"c", MakeHostEditor(L"C").Get(), nullptr);
    log.clear();
    registry.UnRegisterEditor(L"unknown");
    registry.UnRegisterEditor(L"INTERNAL_2");
    registry.UnRegisterEditor(L"B");
    EXPECT_EQ(log, L"B gone; ");
    EXPECT_EQ(registry.Find(omCustomEditor, L"b").Get(), nullptr);
    registry.Clear();
    EXPECT_EQ(log, L"B gone; A gone; C gone; ");
}

TEST_F(EditorRegistryTest, RowsWithoutAnEditorOfTheirTypeFindNone) {
    TextBox box;
    registry.CreateBuiltInEditors(nullptr, {&box});
    const auto text = registry.Find(omTextEditor, L"ignored");
    const auto number = registry.Find(omNumberEditor, {});
    ASSERT_NE(text.Get(), nullptr);
    ASSERT_NE(number.Get(), nullptr);
    EXPECT_NE(text.Get(), number.Get());
    EXPECT_NE(registry.BuiltIn(text.Get()), nullptr);
    EXPECT_NE(registry.BuiltIn(text.Get()), registry.BuiltIn(number.Get()));
    EXPECT_EQ(registry.Find(omCustomEditor, L"2").Get(), nullptr);
    EXPECT_EQ(registry.Find(static_cast<omEditorType>(99), {}).Get(), nullptr);
    EXPECT_EQ(registry.BuiltIn(nullptr), nullptr);
}

TEST_F(EditorRegistryTest, CallsOnAHostsEditorCarryItsAnswersAndFailures) {
    Observer observer;
    const auto listener = MakeObject<CEditorListener>(&observer);
    const auto host = MakeHostEditor(L"A");
    const auto property = MakeObject<CProperty>();
    EditorProxy editor(host.Get());
    editor.Reset(property.Get(), listener.Get());
    editor.SetValue(_variant_t(5L));
    editor.SetVisible(true);
    EXPECT_EQ(editor.ScaleMode(), 1);
    editor.Move(1, 2, 3, 4);
    EXPECT_EQ(log, L"A Reset; A Value 5; A Visible True; A ScaleMode; A Move; ");
    EXPECT_EQ(editor.Hwnd(), GetDesktopWindow());
    EXPECT_EQ(editor.Value(), _variant_t(7L));

    observer.onCommit = [&](_CEditor* committed) {
        EXPECT_EQ(committed, host.Get());
        Raise(0x80040123L, L"The object refuses.", L"Object");
    };
    try {
        editor.Commit();
        ADD_FAILURE() << "committed";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number, static_cast<HRESULT>(0x80040123L));
        EXPECT_EQ(error.source, L"Object");
        EXPECT_EQ(error.description, L"The object refuses.");
    }
    // An older error is not taken for that of a call which describes none.
    PublishError(__uuidof(_CEditor), {E_FAIL, L"older", L"older", {}});
    try {
        editor.Cancel();
        ADD_FAILURE() << "cancelled";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number, E_NOTIMPL);
        EXPECT_NE(error.description, L"older");
    }
    EXPECT_THROW(EditorProxy(nullptr).Commit(), AutomationError);

    listener->CutObserver();
    editor.Commit(); // reaches nobody
}

TEST_F(EditorRegistryTest, ParameterNamesCountWithoutBlanksAndCaseAndByType) {
    EditorParamStore params;
    params.Set(L"  width ", L"5", omNumberEditor);
    EXPECT_EQ(params.Get(L"WIDTH", omNumberEditor), L"5");
    EXPECT_EQ(params.Get(L"WIDTH", omTextEditor), L"");
    EXPECT_EQ(params.Get(L"WIDTH"), L"");
    params.Set(L"Width", L"6", omNumberEditor);
    params.Remove(L"width ", omTextEditor);
    EXPECT_EQ(params.Get(L"width", omNumberEditor), L"6");
    params.Remove(L"width ", omNumberEditor);
    EXPECT_EQ(params.Get(L"width", omNumberEditor), L"");
    EXPECT_THROW(params.Get(L"  "), AutomationError);
    EXPECT_THROW(params.Set(L"", L"x"), AutomationError);
    EXPECT_THROW(params.Remove(L" "), AutomationError);
}

TEST_F(EditorRegistryTest, TheEditorClassAnswersEmpty) {
    const auto editor = MakeObject<CEditor>();
    EditorProxy proxy(editor.Get());
    proxy.SetValue(_variant_t(5L));
    proxy.SetVisible(true);
    EXPECT_EQ(proxy.Value().vt, VT_EMPTY);
    EXPECT_FALSE(proxy.Visible());
    EXPECT_EQ(proxy.Hwnd(), nullptr);
    proxy.Commit();
}

} // namespace ormisk
