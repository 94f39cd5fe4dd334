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
    kShowEditorDialog = 13,
    kActiveViewChanged = 14,
    kDisplayError = 15,
};

// Arguments that borrow what they refer to. All pointers lie at the same place.
VARIANT Pointer(int type, void* content) {
    VARIANT v;
    V_VT(&v) = static_cast<VARTYPE>(type);
    V_BYREF(&v) = content;
    return v;
}
VARIANT Object(IDispatch* object) { return Pointer(VT_DISPATCH, object); }
VARIANT Text(const _bstr_t& text) { return Pointer(VT_BSTR, static_cast<wchar_t*>(text)); }
VARIANT Reference(BSTR& text) { return Pointer(VT_BYREF | VT_BSTR, &text); }
VARIANT Reference(LONG& number) { return Pointer(VT_BYREF | VT_I4, &number); }
VARIANT Reference(SHORT& number) { return Pointer(VT_BYREF | VT_I2, &number); }
VARIANT Reference(FLOAT& number) { return Pointer(VT_BYREF | VT_R4, &number); }
VARIANT FlagReference(VARIANT_BOOL& flag) { return Pointer(VT_BYREF | VT_BOOL, &flag); }

VARIANT Long(long value) {
    VARIANT v;
    V_VT(&v) = VT_I4;
    V_I4(&v) = value;
    return v;
}

VARIANT Flag(bool value) {
    VARIANT v;
    V_VT(&v) = VT_BOOL;
    V_BOOL(&v) = value ? VARIANT_TRUE : VARIANT_FALSE;
    return v;
}

// What a handler makes of a key counts, also when it fails afterwards.
template <class Read> class KeyArgument {
public:
    explicit KeyArgument(int& key) : m_Key(key), m_Code(static_cast<SHORT>(key)) {}
    KeyArgument(const KeyArgument&) = delete;
    KeyArgument& operator=(const KeyArgument&) = delete;
    ~KeyArgument() { m_Key = static_cast<Read>(m_Code); }
    VARIANT Reference() { return ormisk::Reference(m_Code); }

private:
    int& m_Key;
    SHORT m_Code;
};

constexpr std::size_t kMostArguments = 6;

} // namespace

// Objects are held meanwhile.
void GridEvents::Tell(DISPID id, std::initializer_list<VARIANT> given) {
    VARIANT arguments[kMostArguments];
    ComPtr<IUnknown> held[kMostArguments];
    UINT count = 0;
    for (const VARIANT& argument : given) {
        if (V_VT(&argument) == VT_DISPATCH)
            held[count] = V_DISPATCH(&argument);
        arguments[count++] = argument;
    }
    m_Sinks.Fire(id, arguments, count);
}

bool GridEvents::Ask(DISPID id, std::initializer_list<VARIANT> given, bool answer, VARIANT_BOOL& flag) {
    flag = answer ? VARIANT_TRUE : VARIANT_FALSE;
    Tell(id, given);
    return flag != VARIANT_FALSE;
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
    Tell(kAddingProperty,
         {Text(ToBstr(name)), Reference(written.text), Reference(written.type), FlagReference(written.flag)});
}

void GridEvents::PropertyAdded(CProperty& property) { Tell(kPropertyAdded, {Object(&property)}); }

void GridEvents::PropertyDeleted(CProperty& property) { Tell(kPropertyDeleted, {Object(&property)}); }

void GridEvents::PropertyDraw(HDC dc, CProperty& property, long cx, long cy, omDrawStage stage, bool& doDefault) {
    VARIANT_BOOL flag = VARIANT_FALSE;
    doDefault = Ask(kPropertyDraw,
                    {Long(HandleToLong(dc)), Object(&property), Long(cx), Long(cy), Long(stage), FlagReference(flag)},
                    doDefault, flag);
}

void GridEvents::PropertyCompare(CProperty& first, CProperty& second, bool nameButtonClicked, bool& swap) {
    VARIANT_BOOL flag = VARIANT_FALSE;
    swap = Ask(kPropertyCompare, {Object(&first), Object(&second), Flag(nameButtonClicked), FlagReference(flag)}, swap,
               flag);
}

void GridEvents::CategoryCompare(const std::wstring& first, const std::wstring& second, bool nameButtonClicked,
                                 bool& swap) {
    VARIANT_BOOL flag = VARIANT_FALSE;
    swap = Ask(kCategoryCompare,
               {Text(ToBstr(first)), Text(ToBstr(second)), Flag(nameButtonClicked), FlagReference(flag)}, swap, flag);
}

void GridEvents::PropertyValueChanged(CProperty& property) { Tell(kPropertyValueChanged, {Object(&property)}); }

// Only the exact True keeps a category as it is.
void GridEvents::CategoryExpanding(const std::wstring& category, bool& cancel) {
    VARIANT_BOOL flag = VARIANT_FALSE;
    Ask(kCategoryExpanding, {Text(ToBstr(category)), FlagReference(flag)}, cancel, flag);
    cancel = flag == VARIANT_TRUE;
}

void GridEvents::CategoryCollapsing(const std::wstring& category, bool& cancel) {
    VARIANT_BOOL flag = VARIANT_FALSE;
    Ask(kCategoryCollapsing, {Text(ToBstr(category)), FlagReference(flag)}, cancel, flag);
    cancel = flag == VARIANT_TRUE;
}

void GridEvents::SelChanged(CProperty* property) { Tell(kSelChanged, {Object(property)}); }

void GridEvents::HelpRequested(CProperty& property, bool& processDefault) {
    VARIANT_BOOL flag = VARIANT_FALSE;
    processDefault = Ask(kHelpRequested, {Object(&property), FlagReference(flag)}, true, flag);
}

void GridEvents::ValidateValue(CProperty& property, const VARIANT& newValue, bool& cancel) {
    VARIANT_BOOL flag = VARIANT_FALSE;
    cancel = Ask(kValidateValue, {Object(&property), newValue, FlagReference(flag)}, cancel, flag);
}

void GridEvents::ShowEditorDialog(CProperty& property, VARIANT& value) {
    Tell(kShowEditorDialog, {Object(&property), Pointer(VT_BYREF | VT_VARIANT, &value)});
}

void GridEvents::ActiveViewChanged() { Tell(kActiveViewChanged, {}); }

void GridEvents::DisplayError(const std::wstring& message, long number, bool& showMessageBox) {
    VARIANT_BOOL flag = VARIANT_FALSE;
    Ask(kDisplayError, {Text(ToBstr(message)), Long(number), FlagReference(flag)}, true, flag);
    showMessageBox = flag == VARIANT_TRUE;
}

void GridEvents::FireKey(DISPID id, int& keyCode, int& shift) {
    KeyArgument<SHORT> code(keyCode);
    KeyArgument<SHORT> modifiers(shift);
    Tell(id, {code.Reference(), modifiers.Reference()});
}

void GridEvents::KeyUp(int& keyCode, int& shift) { FireKey(DISPID_KEYUP, keyCode, shift); }

void GridEvents::KeyDown(int& keyCode, int& shift) { FireKey(DISPID_KEYDOWN, keyCode, shift); }

void GridEvents::KeyPress(int& keyAscii) {
    KeyArgument<unsigned short> code(keyAscii);
    Tell(DISPID_KEYPRESS, {code.Reference()});
}

void GridEvents::Mouse(MouseStage stage, int button, int shift, float x, float y, omHitItem hitItem) {
    constexpr DISPID kIds[] = {DISPID_MOUSEDOWN, DISPID_MOUSEMOVE, DISPID_MOUSEUP};
    auto buttons = static_cast<SHORT>(button);
    auto modifiers = static_cast<SHORT>(shift);
    Tell(kIds[static_cast<int>(stage)],
         {Reference(buttons), Reference(modifiers), Reference(x), Reference(y), Long(hitItem)});
}

} // namespace ormisk
