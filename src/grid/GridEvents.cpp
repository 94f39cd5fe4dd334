#include "grid/GridEvents.h"

#include <olectl.h>

namespace ormisk {

namespace {

// Dispatch numbers of the events that are not every control's.
enum EventId : DISPID {
    kAddingProperty = 1,
    kPropertyAdded = 2,
    kPropertyDeleted = 3,
    kPropertyDraw = 4,
    kPropertyCompare = 5,
    kPropertyValueChanged = 6,
    kCategoryCompare = 7,
    kCategoryExpanding = 8,
    kCategoryCollapsing = 9,
    kSelChanged = 10,
    kHelpRequested = 11,
    kValidateValue = 12,
    kActiveViewChanged = 14,
    kDisplayError = 15,
};

// Arguments that borrow what they refer to.
VARIANT Object(IDispatch* object) {
    VARIANT v;
    V_VT(&v) = VT_DISPATCH;
    V_DISPATCH(&v) = object;
    return v;
}

VARIANT Long(long value) {
    VARIANT v;
    V_VT(&v) = VT_I4;
    V_I4(&v) = value;
    return v;
}

VARIANT Text(_bstr_t& text) {
    VARIANT v;
    V_VT(&v) = VT_BSTR;
    V_BSTR(&v) = text.GetBSTR();
    return v;
}

VARIANT Flag(bool value) {
    VARIANT v;
    V_VT(&v) = VT_BOOL;
    V_BOOL(&v) = value ? VARIANT_TRUE : VARIANT_FALSE;
    return v;
}

VARIANT FlagReference(VARIANT_BOOL& flag) {
    VARIANT v;
    V_VT(&v) = VT_BYREF | VT_BOOL;
    V_BOOLREF(&v) = &flag;
    return v;
}

VARIANT Reference(BSTR& text) {
    VARIANT v;
    V_VT(&v) = VT_BYREF | VT_BSTR;
    V_BSTRREF(&v) = &text;
    return v;
}

VARIANT Reference(LONG& number) {
    VARIANT v;
    V_VT(&v) = VT_BYREF | VT_I4;
    V_I4REF(&v) = &number;
    return v;
}

VARIANT Reference(SHORT& number) {
    VARIANT v;
    V_VT(&v) = VT_BYREF | VT_I2;
    V_I2REF(&v) = &number;
    return v;
}

VARIANT Reference(FLOAT& number) {
    VARIANT v;
    V_VT(&v) = VT_BYREF | VT_R4;
    V_R4REF(&v) = &number;
    return v;
}

} // namespace

void GridEvents::FireWithProperty(DISPID id, CProperty* property) {
    if (!m_Sinks.HasListeners())
        return;
    const ComPtr<IDispatch> held(property);
    VARIANT argument = Object(property);
    m_Sinks.Fire(id, &argument, 1);
}

// The flag is the last argument. Only the exact True comes back as true.
void GridEvents::FireWithFlag(DISPID id, VARIANT* arguments, UINT count, bool& flag) {
    VARIANT_BOOL value = flag ? VARIANT_TRUE : VARIANT_FALSE;
    arguments[count - 1] = FlagReference(value);
    m_Sinks.Fire(id, arguments, count);
    flag = value == VARIANT_TRUE;
}

void GridEvents::AddingProperty(const std::wstring& name, std::wstring& category, omEditorType& editorType,
                                bool& cancel) {
    if (!m_Sinks.HasListeners())
        return;
    struct Written {
        Written(std::wstring& category, omEditorType& editorType, bool& cancel)
            : category(category), editorType(editorType), cancel(cancel), text(NewBstr(category)), type(editorType),
              flag(cancel ? VARIANT_TRUE : VARIANT_FALSE) {}
        Written(const Written&) = delete;
        Written& operator=(const Written&) = delete;
        ~Written() {
            IgnoringFailures([&] { category = FromBstr(text); });
            SysFreeString(text);
            editorType = static_cast<omEditorType>(type);
            cancel = flag != VARIANT_FALSE;
        }
        std::wstring& category;
        omEditorType& editorType;
        bool& cancel;
        BSTR text;
        LONG type;
        VARIANT_BOOL flag;
    } written(category, editorType, cancel);
    _bstr_t shown = ToBstr(name);
    VARIANT arguments[] = {Text(shown), Reference(written.text), Reference(written.type), FlagReference(written.flag)};
    m_Sinks.Fire(kAddingProperty, arguments, 4);
}

void GridEvents::PropertyAdded(CProperty& property) { FireWithProperty(kPropertyAdded, &property); }

void GridEvents::PropertyDeleted(CProperty& property) { FireWithProperty(kPropertyDeleted, &property); }

void GridEvents::PropertyDraw(HDC dc, CProperty& property, long cx, long cy, omDrawStage stage, bool& doDefault) {
    if (!m_Sinks.HasListeners())
        return;
    const ComPtr<IDispatch> held(&property);
    VARIANT_BOOL value = doDefault ? VARIANT_TRUE : VARIANT_FALSE;
    VARIANT arguments[] = {Long(HandleToLong(dc)), Object(&property), Long(cx), Long(cy), Long(stage),
                           FlagReference(value)};
    m_Sinks.Fire(kPropertyDraw, arguments, 6);
    doDefault = value != VARIANT_FALSE;
}

void GridEvents::PropertyCompare(CProperty& first, CProperty& second, bool nameButtonClicked, bool& swap) {
    if (!m_Sinks.HasListeners())
        return;
    const ComPtr<IDispatch> heldFirst(&first);
    const ComPtr<IDispatch> heldSecond(&second);
    VARIANT_BOOL value = swap ? VARIANT_TRUE : VARIANT_FALSE;
    VARIANT arguments[] = {Object(&first), Object(&second), Flag(nameButtonClicked), FlagReference(value)};
    m_Sinks.Fire(kPropertyCompare, arguments, 4);
    swap = value != VARIANT_FALSE;
}

void GridEvents::CategoryCompare(const std::wstring& first, const std::wstring& second, bool nameButtonClicked,
                                 bool& swap) {
    if (!m_Sinks.HasListeners())
        return;
    _bstr_t firstName = ToBstr(first);
    _bstr_t secondName = ToBstr(second);
    VARIANT_BOOL value = swap ? VARIANT_TRUE : VARIANT_FALSE;
    VARIANT arguments[] = {Text(firstName), Text(secondName), Flag(nameButtonClicked), FlagReference(value)};
    m_Sinks.Fire(kCategoryCompare, arguments, 4);
    swap = value != VARIANT_FALSE;
}

void GridEvents::PropertyValueChanged(CProperty& property) { FireWithProperty(kPropertyValueChanged, &property); }

void GridEvents::CategoryExpanding(const std::wstring& category, bool& cancel) {
    if (!m_Sinks.HasListeners())
        return;
    _bstr_t name = ToBstr(category);
    VARIANT arguments[2] = {Text(name), {}};
    FireWithFlag(kCategoryExpanding, arguments, 2, cancel);
}

void GridEvents::CategoryCollapsing(const std::wstring& category, bool& cancel) {
    if (!m_Sinks.HasListeners())
        return;
    _bstr_t name = ToBstr(category);
    VARIANT arguments[2] = {Text(name), {}};
    FireWithFlag(kCategoryCollapsing, arguments, 2, cancel);
}

void GridEvents::SelChanged(CProperty* property) { FireWithProperty(kSelChanged, property); }

void GridEvents::HelpRequested(CProperty& property, bool& processDefault) {
    if (!m_Sinks.HasListeners())
        return;
    const ComPtr<IDispatch> held(&property);
    VARIANT_BOOL value = VARIANT_TRUE;
    VARIANT arguments[] = {Object(&property), FlagReference(value)};
    m_Sinks.Fire(kHelpRequested, arguments, 2);
    processDefault = value != VARIANT_FALSE;
}

void GridEvents::ValidateValue(CProperty& property, const VARIANT& newValue, bool& cancel) {
    if (!m_Sinks.HasListeners())
        return;
    const ComPtr<IDispatch> held(&property);
    VARIANT_BOOL value = cancel ? VARIANT_TRUE : VARIANT_FALSE;
    VARIANT arguments[] = {Object(&property), newValue, FlagReference(value)};
    m_Sinks.Fire(kValidateValue, arguments, 3);
    cancel = value != VARIANT_FALSE;
}

void GridEvents::ActiveViewChanged() { m_Sinks.Fire(kActiveViewChanged); }

void GridEvents::DisplayError(const std::wstring& message, long number, bool& showMessageBox) {
    if (!m_Sinks.HasListeners())
        return;
    _bstr_t text = ToBstr(message);
    VARIANT_BOOL value = VARIANT_TRUE;
    VARIANT arguments[] = {Text(text), Long(number), FlagReference(value)};
    m_Sinks.Fire(kDisplayError, arguments, 3);
    showMessageBox = value == VARIANT_TRUE;
}

void GridEvents::FireKey(DISPID id, int& keyCode, int& shift) {
    if (!m_Sinks.HasListeners())
        return;
    auto code = static_cast<SHORT>(keyCode);
    auto modifiers = static_cast<SHORT>(shift);
    VARIANT arguments[] = {Reference(code), Reference(modifiers)};
    m_Sinks.Fire(id, arguments, 2);
    keyCode = code;
    shift = modifiers;
}

void GridEvents::KeyUp(int& keyCode, int& shift) { FireKey(DISPID_KEYUP, keyCode, shift); }

void GridEvents::KeyDown(int& keyCode, int& shift) { FireKey(DISPID_KEYDOWN, keyCode, shift); }

void GridEvents::KeyPress(int& keyAscii) {
    if (!m_Sinks.HasListeners())
        return;
    auto code = static_cast<SHORT>(keyAscii);
    VARIANT argument = Reference(code);
    m_Sinks.Fire(DISPID_KEYPRESS, &argument, 1);
    keyAscii = static_cast<unsigned short>(code);
}

void GridEvents::Mouse(MouseStage stage, int button, int shift, float x, float y, omHitItem hitItem) {
    if (!m_Sinks.HasListeners())
        return;
    constexpr DISPID kIds[] = {DISPID_MOUSEDOWN, DISPID_MOUSEMOVE, DISPID_MOUSEUP};
    auto buttons = static_cast<SHORT>(button);
    auto modifiers = static_cast<SHORT>(shift);
    VARIANT arguments[] = {Reference(buttons), Reference(modifiers), Reference(x), Reference(y), Long(hitItem)};
    m_Sinks.Fire(kIds[static_cast<int>(stage)], arguments, 5);
}

} // namespace ormisk
