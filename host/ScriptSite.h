#pragma once

#include "ComObject.h"
#include "Run.h"

#include <activscp.h>
#include <servprov.h>
#include <windows.h>

#include <map>
#include <string>
#include <vector>

namespace ormisk {

// What a script engine asks of us: the named objects, a window for its message boxes, and where its errors go.
class ScriptSite final : public ComObject<IActiveScriptSite, IActiveScriptSiteWindow, IServiceProvider> {
public:
    ScriptSite(HWND owner, Run& run) : m_Owner(owner), m_Run(run) {}

    void AddObject(const std::wstring& name, IUnknown* object) { m_Objects[name] = object; }
    void ForgetObjects() { m_Objects.clear(); }

    // The cookie under which errors of this file are reported.
    DWORD AddFile(const std::wstring& path);

    // The file that was added first; empty before.
    std::wstring MainFile() const { return m_Files.empty() ? std::wstring() : m_Files.front(); }

    STDMETHODIMP GetLCID(LCID* locale) override;
    STDMETHODIMP GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item, ITypeInfo** type) override;
    STDMETHODIMP GetDocVersionString(BSTR* version) override;
    STDMETHODIMP OnScriptTerminate(const VARIANT* result, const EXCEPINFO* error) override;
    STDMETHODIMP OnStateChange(SCRIPTSTATE state) override;
    STDMETHODIMP OnScriptError(IActiveScriptError* error) override;
    STDMETHODIMP OnEnterScript() override;
    STDMETHODIMP OnLeaveScript() override;

    STDMETHODIMP GetWindow(HWND* window) override;
    STDMETHODIMP EnableModeless(BOOL enable) override;

    // Engines make no object that wants to know its site without one that can be asked for services. It has none.
    STDMETHODIMP QueryService(REFGUID service, REFIID iid, void** result) override;

private:
    HWND m_Owner;
    Run& m_Run;
    std::map<std::wstring, ComPtr<IUnknown>> m_Objects;
    std::vector<std::wstring> m_Files;
};

} // namespace ormisk
