#pragma once

#include "ComObject.h"
#include "Options.h"
#include "Run.h"

#include <activscp.h>
#include <windows.h>

#include <string>

namespace ormisk {

class ScriptSite;

// The script of a run and the engine that knows its language. Errors of the script end the run.
class ScriptEngine {
public:
    // `owner` is the window to which message boxes of the script belong. Throws a Failure without such an engine.
    ScriptEngine(ScriptLanguage language, HWND owner, Run& run);
    ~ScriptEngine();
    ScriptEngine(const ScriptEngine&) = delete;
    ScriptEngine& operator=(const ScriptEngine&) = delete;

    // Makes an object known under a name; before the first text runs.
    void AddObject(const std::wstring& name, IUnknown* object) { AddItem(name, object, SCRIPTITEM_ISVISIBLE); }

    // The same for the members of an object, under their own names. They are asked for anew at each use.
    void AddMembers(const std::wstring& name, IUnknown* object) { AddItem(name, object, SCRIPTITEM_GLOBALMEMBERS); }

    // Runs the text of a file; its procedures stay.
    void RunText(const std::wstring& text, const std::wstring& path);

    // Calls the procedure of that name with these arguments. Nothing happens when there is none.
    void CallProcedure(const std::wstring& name, DISPPARAMS& arguments);

    // Ends the run for what is wrong with a procedure.
    void FailIn(const std::wstring& procedure, const std::wstring& text);

private:
    void AddItem(const std::wstring& name, IUnknown* object, DWORD flags);
    void Interrupt();

    Run& m_Run;
    ComPtr<ScriptSite> m_Site;
    ComPtr<IActiveScript> m_Engine;
};

} // namespace ormisk
