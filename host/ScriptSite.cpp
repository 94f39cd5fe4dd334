#include "ScriptSite.h"

#include "ScriptError.h"

namespace ormisk {

DWORD ScriptSite::AddFile(const std::wstring& path) {
    m_Files.push_back(path);
    return static_cast<DWORD>(m_Files.size() - 1);
}

STDMETHODIMP ScriptSite::GetLCID(LCID*) { return E_NOTIMPL; } // the user's own

STDMETHODIMP ScriptSite::GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item, ITypeInfo** type) {
    if (type)
        *type = nullptr;
    if (item)
        *item = nullptr;
    const auto found = m_Objects.find(name);
    if (found == m_Objects.end())
        return TYPE_E_ELEMENTNOTFOUND;
    return (mask & SCRIPTINFO_IUNKNOWN) ? found->second.CopyTo(item) : S_OK;
}

STDMETHODIMP ScriptSite::GetDocVersionString(BSTR*) { return E_NOTIMPL; }
STDMETHODIMP ScriptSite::OnScriptTerminate(const VARIANT*, const EXCEPINFO*) { return S_OK; }
STDMETHODIMP ScriptSite::OnStateChange(SCRIPTSTATE) { return S_OK; }

STDMETHODIMP ScriptSite::OnScriptError(IActiveScriptError* error) {
    ScriptError described;
    DWORD file = 0;
    ULONG line = 0;
    LONG column = 0;
    error->GetExceptionInfo(described.Receive());
    std::wstring place = MainFile();
    if (SUCCEEDED(error->GetSourcePosition(&file, &line, &column))) {
        if (file < m_Files.size())
            place = m_Files[file];
        place += L":" + std::to_wstring(line + 1);
    }
    m_Run.Fail(place + L": " + described.Describe(E_FAIL));
    return S_OK; // reported; the engine need not
}

STDMETHODIMP ScriptSite::OnEnterScript() { return S_OK; }
STDMETHODIMP ScriptSite::OnLeaveScript() { return S_OK; }

STDMETHODIMP ScriptSite::GetWindow(HWND* window) {
    *window = m_Owner;
    return S_OK;
}

STDMETHODIMP ScriptSite::EnableModeless(BOOL) { return S_OK; }

STDMETHODIMP ScriptSite::QueryService(REFGUID, REFIID, void** result) {
    *result = nullptr;
    return E_NOINTERFACE;
}

} // namespace ormisk
