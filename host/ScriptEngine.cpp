#include "ScriptEngine.h"

#include "Failure.h"
#include "ScriptError.h"
#include "ScriptSite.h"

namespace ormisk {
namespace {

// What an engine returns for an error that it has already told its site.
constexpr HRESULT kReported = static_cast<HRESULT>(0x80020101);

} // namespace

ScriptEngine::ScriptEngine(ScriptLanguage language, HWND owner, Run& run)
    : m_Run(run), m_Site(MakeCom<ScriptSite>(owner, run)) {
    const bool isVBScript = language == ScriptLanguage::VBScript;
    CLSID classId;
    Check(CLSIDFromProgID(isVBScript ? L"VBScript" : L"JScript", &classId), L"The script engine is not registered");
    Check(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&m_Engine)),
          L"The script engine cannot be created");
    ComPtr<IActiveScriptParse> parser;
    Check(m_Engine.As(&parser), L"The script engine reads no text");
    Check(parser->InitNew(), L"The script engine cannot be initialised");
    Check(m_Engine->SetScriptSite(m_Site.Get()), L"The script engine refuses its site");
    m_Run.WhenEnding([this] { Interrupt(); });
}

ScriptEngine::~ScriptEngine() {
    m_Run.WhenEnding(nullptr);
    m_Engine->Close();
    m_Site->ForgetObjects();
}

void ScriptEngine::AddItem(const std::wstring& name, IUnknown* object, DWORD flags) {
    m_Site->AddObject(name, object);
    Check(m_Engine->AddNamedItem(name.c_str(), flags), L"The script engine refuses an object");
}

void ScriptEngine::RunText(const std::wstring& text, const std::wstring& path) {
    const DWORD cookie = m_Site->AddFile(path);
    ComPtr<IActiveScriptParse> parser;
    Check(m_Engine.As(&parser), L"The script engine reads no text");
    Check(m_Engine->SetScriptState(SCRIPTSTATE_CONNECTED), L"The script engine cannot be started");
    ScriptError error;
    const HRESULT result = parser->ParseScriptText(text.c_str(), nullptr, nullptr, nullptr, cookie, 0,
                                                   SCRIPTTEXT_ISVISIBLE, nullptr, error.Receive());
    if (FAILED(result) && result != kReported)
        m_Run.Fail(path + L": " + error.Describe(result));
}

void ScriptEngine::CallProcedure(const std::wstring& name, DISPPARAMS& arguments) {
    ComPtr<IDispatch> script;
    DISPID id = DISPID_UNKNOWN;
    auto* member = const_cast<LPOLESTR>(name.c_str());
    if (FAILED(m_Engine->GetScriptDispatch(nullptr, &script)) ||
        FAILED(script->GetIDsOfNames(IID_NULL, &member, 1, LOCALE_USER_DEFAULT, &id)))
        return;
    ScriptError error;
    const HRESULT result = script->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &arguments, nullptr,
                                          error.Receive(), nullptr);
    if (FAILED(result) && result != kReported) // such as a procedure that takes another number of arguments
        FailIn(name, L"called with " + std::to_wstring(arguments.cArgs) + L" arguments: " + error.Describe(result));
}

void ScriptEngine::FailIn(const std::wstring& procedure, const std::wstring& text) {
    m_Run.Fail(m_Site->MainFile() + L": " + procedure + L": " + text);
}

void ScriptEngine::Interrupt() {
    EXCEPINFO silent = {};
    m_Engine->InterruptScriptThread(SCRIPTTHREADID_ALL, &silent, 0);
}

} // namespace ormisk
