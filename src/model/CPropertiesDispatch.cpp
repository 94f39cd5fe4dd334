#include "model/CProperties.h"

#include "automation/EnumVariants.h"
#include "automation/Give.h"
#include "model/DispatchArguments.h"
#include "model/NumberText.h"

// The public members of the collection.

namespace ormisk {

namespace {

constexpr DISPID kAdd = 1;
constexpr DISPID kAdd2 = 5;

enum Parameter : UINT { Name, Value, Category, Key, Source, AutoUpdate, EditorType, EditorKey };

template <class F> HRESULT Member(F&& body) { return Guarded(__uuidof(_CProperties), std::forward<F>(body)); }

std::wstring_view View(BSTR text) { return text ? std::wstring_view(text, SysStringLen(text)) : std::wstring_view(); }

} // namespace

HRESULT CProperties::Add(BSTR name, VARIANT* value, BSTR category, BSTR* key, IDispatch** source,
                         VARIANT_BOOL autoUpdate, omEditorType* editorType, _CProperty** property) {
    return Add2(name, value, category, key, source, autoUpdate, editorType, nullptr, property);
}

HRESULT CProperties::Add2(BSTR name, VARIANT* value, BSTR category, BSTR* key, IDispatch** source,
                          VARIANT_BOOL autoUpdate, omEditorType* editorType, BSTR editorKey, _CProperty** property) {
    return Member([&] {
        CheckPointer(property);
        *property = nullptr;
        // The caller's variables may be others when an object has been asked for its value.
        const std::wstring keyText(key ? View(*key) : std::wstring_view());
        const ComPtr<IDispatch> sourceObject(source ? *source : nullptr);
        const NewProperty arguments{.name = View(name),
                                    .value = value,
                                    .category = View(category),
                                    .key = keyText,
                                    .source = sourceObject.Get(),
                                    .autoUpdate = autoUpdate != VARIANT_FALSE,
                                    .editorType = editorType ? *editorType : omTextEditor,
                                    .editorKey = View(editorKey)};
        // The key comes back as it was filed. A handler may have put another text into the caller's variable by then.
        const std::wstring_view filed = TrimBlanks(arguments.key);
        const bool trimmed = filed.size() != arguments.key.size();
        const std::wstring text(trimmed ? filed : std::wstring_view());
        *property = AddProperty(nullptr, arguments).Detach();
        if (trimmed)
            SysReAllocStringLen(key, text.data(), static_cast<UINT>(text.size()));
    });
}

HRESULT CProperties::get_Item(VARIANT indexOrKey, _CProperty** property) {
    return Member([&] { Give(property, [&] { return ComPtr<CProperty>(FindItem(indexOrKey)); }); });
}

HRESULT CProperties::get_Count(long* count) {
    return Member([&] { Give(count, CountOf()); });
}

HRESULT CProperties::get_NewEnum(IUnknown** enumerator) {
    return Member([&] { Give(enumerator, [&] { return EnumeratorOf(m_Items); }); });
}

HRESULT CProperties::Clear(VARIANT* result) {
    return Member([&] {
        if (result)
            VariantInit(result);
        RemoveAll();
    });
}

HRESULT CProperties::Remove(VARIANT indexOrKey) {
    return Member([&] {
        if (const ComPtr<CProperty> property = FindItem(indexOrKey))
            RemoveByInternalKey(property->InternalKey());
    });
}

// The type library's own way of calling leaves optional by-reference arguments undefined when they are not given, and
// takes far longer.
HRESULT CProperties::Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                            EXCEPINFO* exception, UINT* badArgument) {
    const bool adds = (id == kAdd || id == kAdd2) && (flags & DISPATCH_METHOD) && iid == IID_NULL && parameters;
    if (!adds)
        return DispatchObject::Invoke(id, iid, locale, flags, parameters, result, exception, badArgument);
    try {
        return InvokeAdd(locale, *parameters, id == kAdd2, result, badArgument);
    } catch (...) {
        return Member([&] { return GiveException(CurrentError(), exception); });
    }
}

HRESULT CProperties::InvokeAdd(LCID locale, const DISPPARAMS& parameters, bool withEditorKey, VARIANT* result,
                               UINT* badArgument) {
    try {
        DispatchArguments given(parameters, withEditorKey ? EditorKey + 1 : EditorKey, locale);
        const ComPtr<IDispatch> source = given.Object(Source);
        const NewProperty arguments{.name = given.Text(Name),
                                    .value = given.Given(Value),
                                    .category = given.Text(Category, L""),
                                    .key = given.Text(Key, L""),
                                    .source = source.Get(),
                                    .autoUpdate = given.Boolean(AutoUpdate, true),
                                    .editorType = static_cast<omEditorType>(given.Long(EditorType, omTextEditor)),
                                    .editorKey = withEditorKey ? given.Text(EditorKey, L"") : std::wstring_view()};
        const std::wstring_view filed = TrimBlanks(arguments.key);
        const bool trimmed = filed.size() != arguments.key.size();
        const std::wstring key(trimmed ? filed : std::wstring_view());
        const ComPtr<CProperty> property = AddProperty(nullptr, arguments);
        if (trimmed)
            given.PutText(Key, key);
        if (result) {
            VariantInit(result);
            V_VT(result) = VT_DISPATCH;
            V_DISPATCH(result) = ComPtr<CProperty>(property).Detach();
        }
        return S_OK;
    } catch (const CallFailure& failure) {
        if (badArgument)
            *badArgument = failure.badArgument;
        return failure.result;
    }
}

} // namespace ormisk
