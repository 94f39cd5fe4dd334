#pragma once

#include "model/CProperties.h"

#include <functional>
#include <olectl.h>
#include <vector>

namespace ormisk {

// Values that have no constructor.
inline const _variant_t kMissing(static_cast<long>(DISP_E_PARAMNOTFOUND), VT_ERROR);
inline const _variant_t kNothing(static_cast<IDispatch*>(nullptr));
inline _variant_t Null() {
    _variant_t value;
    V_VT(&value) = VT_NULL;
    return value;
}
inline _variant_t Array() {
    _variant_t value;
    V_VT(&value) = VT_ARRAY | VT_I4;
    V_ARRAY(&value) = SafeArrayCreateVector(VT_I4, 0, 3);
    return value;
}
inline _variant_t Object(IDispatch* object) { return _variant_t(object); }
inline VARIANT Reference(VARTYPE type, void* to) {
    VARIANT reference{};
    V_VT(&reference) = VT_BYREF | type;
    V_BYREF(&reference) = to;
    return reference;
}
inline VARIANT Reference(VARIANT& to) { return Reference(VT_VARIANT, &to); }

inline ComPtr<IFontDisp> MakeFont(const wchar_t* name = L"Tahoma", long size = 8) {
    FONTDESC description{sizeof description, const_cast<wchar_t*>(name), {}, FW_NORMAL, 0, FALSE, FALSE, FALSE};
    description.cySize.int64 = size * 10000LL;
    ComPtr<IFontDisp> font;
    Check(OleCreateFontIndirect(&description, __uuidof(IFontDisp), reinterpret_cast<void**>(font.GetAddressOf())));
    return font;
}

inline ComPtr<IPictureDisp> MakePicture(bool withImage) {
    PICTDESC description{};
    description.cbSizeofstruct = sizeof description;
    description.picType = withImage ? PICTYPE_BITMAP : PICTYPE_NONE;
    if (withImage)
        description.bmp.hbitmap = CreateBitmap(2, 2, 1, 1, nullptr);
    ComPtr<IPictureDisp> picture;
    Check(OleCreatePictureIndirect(&description, __uuidof(IPictureDisp), TRUE,
                                   reinterpret_cast<void**>(picture.GetAddressOf())));
    return picture;
}

inline ComPtr<IConnectionPoint> PointOf(IUnknown* object, REFIID events) {
    ComPtr<IConnectionPoint> point;
    Check(Query<IConnectionPointContainer>(object)->FindConnectionPoint(events, point.GetAddressOf()));
    return point;
}
inline DWORD Connect(IUnknown* object, REFIID events, IUnknown* sink) {
    DWORD cookie = 0;
    Check(PointOf(object, events)->Advise(sink, &cookie));
    return cookie;
}

// An object of a host's, on the stack of a test: it counts its references and goes when the test does.
class HostObject : public IDispatch {
public:
    explicit HostObject(REFIID events = IID_IDispatch) : source(events) {}
    IID source; // the events that it takes, if any
    int references = 1;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        const bool answered = iid == IID_IUnknown || iid == IID_IDispatch || iid == source;
        *object = answered ? this : nullptr;
        references += answered;
        return answered ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return DISP_E_UNKNOWNNAME; }
};

// An owner that writes down what it hears.
class RecordingOwner : public PropertyOwner {
public:
    OLE_COLOR backColor = 0x111111;
    OLE_COLOR foreColor = 0x222222;
    std::vector<std::wstring> log;
    std::function<void(CProperty&)> onAdded;

    // What was heard since the last call.
    std::wstring Heard() {
        std::wstring all;
        for (const auto& line : std::exchange(log, {}))
            all += (all.empty() ? L"" : L", ") + line;
        return all;
    }

    OLE_COLOR PropertyBackColor() const override { return backColor; }
    OLE_COLOR PropertyForeColor() const override { return foreColor; }
    std::wstring EditorParam(omEditorType, const std::wstring&) const override { return {}; }
    void PropertyChangedEx(CProperty&, Attribute attribute) override {
        static constexpr const wchar_t* kNames[] = {
            L"Name",      L"Value",       L"Visible",         L"Picture", L"Bold", L"Italic", L"BackColor",
            L"ForeColor", L"Appearance",  L"ReadOnly",        L"Unicode", L"Help", L"Format", L"CustomDraw",
            L"HelpFile",  L"HelpContext", L"PictureMaskColor"};
        log.emplace_back(kNames[static_cast<std::size_t>(attribute)]);
    }
    void OnPropertyAdded(CProperty& property, CProperty* parent) override {
        log.push_back(L"added " + property.Name() + (parent ? L" under " + parent->Name() : L""));
        if (onAdded)
            onAdded(property);
    }
    void OnPropertyDeleted(CProperty& property) override { log.push_back(L"deleted " + property.Name()); }
    void OnPropertiesCleared() override { log.emplace_back(L"cleared"); }
};

// An automation object that a test scripts: every name is a member, and `call` answers for all of them.
class ScriptedObject : public DispatchObject<IDispatch, void> {
public:
    std::function<HRESULT(const std::wstring& member, WORD flags, VARIANT* argument, VARIANT* result)> call;

    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        m_Names.emplace_back(names[0]);
        *ids = static_cast<DISPID>(m_Names.size());
        return S_OK;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        const std::wstring member = id == DISPID_VALUE ? L"(default)" : m_Names[static_cast<std::size_t>(id) - 1];
        return call(member, flags, parameters->cArgs ? parameters->rgvarg : nullptr, result);
    }

private:
    std::vector<std::wstring> m_Names;
};

// A sink of a collection's own events, for everything that `call` is told: the member is the event's number.
class Listener : public ScriptedObject {
public:
    explicit Listener(IConnectionPointContainer& collection, REFIID events = __uuidof(__CProperties))
        : m_Events(events) {
        Connect(&collection, events, Identity());
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        return call(std::to_wstring(id), flags, parameters->rgvarg, result);
    }

protected:
    HRESULT QueryOther(REFIID iid, void** object) override {
        return iid == m_Events ? QueryInterface(__uuidof(IDispatch), object) : E_NOINTERFACE;
    }

private:
    const IID m_Events;
};

// A collection with its owner.
class ModelFixture {
public:
    ModelFixture() { properties->Init(&owner); }

    ComPtr<CProperty> Add(std::wstring_view name, const VARIANT& value = _variant_t(), std::wstring_view category = L"",
                          std::wstring_view key = L"", omEditorType editor = omTextEditor) {
        return properties->AddProperty(
            nullptr, {.name = name, .value = &value, .category = category, .key = key, .editorType = editor});
    }
    ComPtr<CProperty> AddChild(CProperty* parent, std::wstring_view name, std::wstring_view category = L"") {
        return properties->AddProperty(parent, {.name = name, .category = category});
    }

    RecordingOwner owner;
    ComPtr<CProperties> properties = MakeObject<CProperties>();
};

// The failure that a body raises; number S_OK when it raises none.
template <class F> AutomationError FailureOf(F&& body) {
    try {
        body();
    } catch (...) {
        return CurrentError();
    }
    return {S_OK, {}, {}, {}};
}

} // namespace ormisk
