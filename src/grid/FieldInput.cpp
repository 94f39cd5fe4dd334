#include "grid/FieldInput.h"

#include "editors/DialogRules.h"
#include "grid/Grid.h"

namespace ormisk {
namespace {

// The bytes of a one-dimensional array of them, while it is locked.
class LockedBytes {
public:
    explicit LockedBytes(const VARIANT& value)
        : m_Array(V_VT(&value) == (VT_ARRAY | VT_UI1) ? V_ARRAY(&value) : nullptr) {
        if (!m_Array || SafeArrayGetDim(m_Array) != 1 || FAILED(SafeArrayAccessData(m_Array, &m_Data)))
            m_Array = nullptr;
    }
    LockedBytes(const LockedBytes&) = delete;
    LockedBytes& operator=(const LockedBytes&) = delete;
    ~LockedBytes() {
        if (m_Array)
            SafeArrayUnaccessData(m_Array);
    }
    Bytes Get() const {
        if (!m_Array)
            return {};
        return std::span(static_cast<const unsigned char*>(m_Data), m_Array->rgsabound[0].cElements);
    }

private:
    SAFEARRAY* m_Array;
    void* m_Data = nullptr;
};

bool IsOther(const VARIANT& present, const VARIANT& answer) {
    if (HoldsObject(present) || HoldsObject(answer))
        return HoldsObject(present) != HoldsObject(answer) || !SameObject(ObjectOf(present), ObjectOf(answer));
    if (V_ISARRAY(&present) || V_ISARRAY(&answer))
        return AreOtherBytes(LockedBytes(present).Get(), LockedBytes(answer).Get());
    const bool bothNull = V_VT(&present) == VT_NULL && V_VT(&answer) == VT_NULL;
    return !bothNull && CompareValues(present, answer) != Comparison::Equal;
}

// Into the default member of the object that is there.
void PutIntoDefault(const VARIANT& present, const VARIANT& object) {
    const ComPtr<IDispatch> target = DispatchOf(present);
    if (!target)
        CheckSystem(DISP_E_TYPEMISMATCH);
    DISPID put = DISPID_PROPERTYPUT;
    VARIANT argument = object;
    DISPPARAMS arguments{&argument, &put, 1, 1};
    EXCEPINFO exception{};
    const HRESULT hr = target->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUTREF, &arguments,
                                      nullptr, &exception, nullptr);
    if (hr == DISP_E_EXCEPTION)
        throw TakeException(exception);
    CheckSystem(hr);
}

} // namespace

// The editors' windows are no panes: the control is held here while the host is told.

void FieldInput::OnKeyDown(int& keyCode, int shift) {
    const ComPtr<IUnknown> control(Keeper());
    m_Grid.m_Events.KeyDown(keyCode, shift);
}

void FieldInput::OnKeyPress(int& keyAscii) {
    const ComPtr<IUnknown> control(Keeper());
    m_Grid.m_Events.KeyPress(keyAscii);
}

void FieldInput::OnKeyUp(int& keyCode, int shift) {
    const ComPtr<IUnknown> control(Keeper());
    m_Grid.m_Events.KeyUp(keyCode, shift);
}

void FieldInput::OnGotFocus() { m_Grid.m_Host.FocusEntered(); }

void FieldInput::OnLostFocus() { m_Grid.m_Host.FocusLeft(); }

IUnknown* FieldInput::Keeper() { return m_Grid.m_Host.Outer(); }

ComPtr<IOleInPlaceFrame> FieldInput::Container() { return m_Grid.m_Host.ContainerFrame(); }

HWND FieldInput::Window() { return m_Grid.m_Panes.m_Control.hWnd(); }

bool FieldInput::RaiseCustomDialogEvent() {
    const EditSession& session = m_Grid.m_Session;
    const ComPtr<_CEditor> editor = session.CurrentEditor();
    const ComPtr<CProperty> property(m_Grid.m_Selection.SelectedProperty());
    if (!editor || !property)
        return true;
    const unsigned start = session.Starts();
    const _variant_t given = EditorProxy(editor.Get()).Value();
    _variant_t answer = given;
    bool fine = m_Grid.Trapped([&] { m_Grid.m_Events.ShowEditorDialog(*property.Get(), answer); });
    // The answer is for the row that was asked about.
    if (m_Grid.IsAlive() && session.CurrentEditor() == editor && session.Starts() == start)
        fine = m_Grid.Trapped([&] { TakeAnswer(editor.Get(), given, Plain(answer)); }) && fine;
    return fine;
}

// A host that gave no answer may have set the value of the row itself.
void FieldInput::TakeAnswer(_CEditor* editor, const _variant_t& given, const _variant_t& answer) {
    EditorProxy proxy(editor);
    const _variant_t present = proxy.Value();
    if (!IsOther(given, answer) || !IsOther(present, answer))
        return;
    if (HoldsObject(answer))
        PutIntoDefault(present, answer);
    else
        proxy.SetValue(answer);
}

} // namespace ormisk
