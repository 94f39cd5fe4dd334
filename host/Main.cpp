// ormisk-host: a window with a grid in it, driven by a script.

#include "EventBinder.h"
#include "Failure.h"
#include "Form.h"
#include "FormNames.h"
#include "HostObject.h"
#include "HostWindow.h"
#include "Input.h"
#include "MessagePump.h"
#include "Options.h"
#include "PngFile.h"
#include "Run.h"
#include "Screen.h"
#include "ScriptEngine.h"
#include "Text.h"

#include <ole2.h>
#include <windows.h>

#include <memory>
#include <stdexcept>

namespace ormisk {
namespace {

constexpr wchar_t kProgId[] = L"Ormisk.OrmiskGrid";
constexpr int kFailed = 1;
constexpr int kBadUsage = 2;

// OLE for as long as the object lives.
class OleSession {
public:
    OleSession() { Check(OleInitialize(nullptr), L"OLE cannot be initialised"); }
    ~OleSession() { OleUninitialize(); }
    OleSession(const OleSession&) = delete;
    OleSession& operator=(const OleSession&) = delete;
};

// Connects the window to the controls in it and to the run.
class WindowListener final : public HostWindow::Listener {
public:
    explicit WindowListener(Run& run) : m_Run(run) {}
    void Follow(Form* form) { m_Form = form; }

    void OnSized() override {
        if (m_Form)
            m_Form->Layout();
    }
    void OnActivated(bool active) override {
        if (m_Form)
            m_Form->FollowActivation(active);
    }
    void OnFocused() override {
        if (m_Form)
            m_Form->TakeFocus();
    }
    void OnClosing() override { m_Run.End(0); }

private:
    Run& m_Run;
    Form* m_Form = nullptr;
};

// The controls of the window, which hears of them for as long as they are there.
class WindowForm {
public:
    WindowForm(HostWindow& window, WindowListener& listener) : m_Listener(listener), m_Form(window) {
        m_Listener.Follow(&m_Form);
    }
    ~WindowForm() { m_Listener.Follow(nullptr); }
    WindowForm(const WindowForm&) = delete;
    WindowForm& operator=(const WindowForm&) = delete;

    Form& Controls() { return m_Form; }

private:
    WindowListener& m_Listener;
    Form m_Form;
};

int RunScript(const Options& options, const std::wstring& text) {
    const OleSession ole;
    Run run;
    WindowListener listener(run);
    HostWindow window(options.script, options.width, options.height, listener);
    WindowForm controls(window, listener);
    Form& form = controls.Controls();
    ControlSite& site = form.Add(kProgId, L"Grid", std::nullopt);
    MessagePump pump(run, [&form](MSG& message) { return form.Filter(message); });
    window.Show();
    pump.UntilQuiet();
    pump.Until([&window] { return ScreenIsCurrent(window.ScreenRect()); });
    {
        Input input(window.Handle(), site, pump, run);
        ScriptEngine script(options.language, window.Handle(), run);
        const ComPtr<HostObject> host = MakeCom<HostObject>(HostParts{run, options, window, form, pump, input, script});
        const ComPtr<FormNames> names = MakeCom<FormNames>(site);
        script.AddMembers(L"Form", names.Get());
        script.AddObject(L"Host", host.Get());
        site.Hear(std::make_unique<EventBinder>(site.Control(), L"Grid_", script, run));
        script.RunText(text, options.script);
        pump.UntilEnd();
        run.Unwound();
        if (!options.screenshot.empty())
            SavePng(CopyScreen(window.ScreenRect()).get(), options.screenshot);
    }
    return run.ExitCode();
}

int Complain(int exitCode, const std::wstring& text) {
    PrintLine(Stream::Error, L"ormisk-host: " + text);
    return exitCode;
}

int ExplainUsage(const std::wstring& trouble) {
    Complain(kBadUsage, trouble);
    PrintLine(Stream::Error, Widen(kUsage));
    return kBadUsage;
}

int Main(const std::vector<std::wstring>& arguments) {
    try {
        Options options;
        std::wstring text;
        try {
            options = ParseOptions(arguments);
            text = ReadTextFile(options.script);
        } catch (const std::invalid_argument& failure) {
            return ExplainUsage(Widen(failure.what()));
        } catch (const Failure& failure) {
            return ExplainUsage(failure.text);
        }
        return RunScript(options, text);
    } catch (const Failure& failure) {
        return Complain(kFailed, failure.text);
    } catch (const std::exception& failure) {
        return Complain(kFailed, Widen(failure.what()));
    }
}

} // namespace
} // namespace ormisk

int wmain(int count, wchar_t** words) { return ormisk::Main({words + 1, words + count}); }
