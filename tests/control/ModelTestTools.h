#pragma once

#include "model/CProperties.h"

#include <functional>
#include <vector>

namespace ormisk {

// An owner that writes down what it hears.
class RecordingOwner : public PropertyOwner {
public:
    OLE_COLOR backColor = 0x111111;
    OLE_COLOR foreColor = 0x222222;
    std::wstring parameter; // its answer for every editor parameter
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
    std::wstring EditorParam(omEditorType, const std::wstring&) const override { return parameter; }
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
        ComPtr<IConnectionPoint> point;
        Check(collection.FindConnectionPoint(events, point.GetAddressOf()));
        DWORD cookie = 0;
        Check(point->Advise(Identity(), &cookie));
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
