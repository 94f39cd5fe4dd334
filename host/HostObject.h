#pragma once

#include "ComObject.h"
#include "ContactSheet.h"
#include "Form.h"
#include "HostWindow.h"
#include "Input.h"
#include "MessagePump.h"
#include "Options.h"
#include "Run.h"
#include "ScriptEngine.h"

#include <comutil.h>

#include <string>

namespace ormisk {

class CallArguments;

// What the script's `Host` works with.
struct HostParts {
    Run& run;
    const Options& options;
    HostWindow& window;
    Form& form;
    MessagePump& pump;
    Input& input;
    ScriptEngine& script;
};

// The object `Host` of the script. Its members are listed at the table in HostObject.cpp. A member that is called while
// the run is ending fails, which unwinds the script.
class HostObject final : public UntypedObject<IDispatch> {
public:
    explicit HostObject(const HostParts& parts);
    ~HostObject() override;

    STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* arguments, VARIANT* result,
                        EXCEPINFO* error, UINT* argumentError) override;

private:
    struct Member;
    static const Member kMembers[];

    _variant_t Echo(const CallArguments& arguments);
    _variant_t MoveTo(const CallArguments& arguments);
    _variant_t Click(const CallArguments& arguments);
    _variant_t DoubleClick(const CallArguments& arguments);
    _variant_t Drag(const CallArguments& arguments);
    _variant_t Wheel(const CallArguments& arguments);
    _variant_t Keys(const CallArguments& arguments);
    _variant_t Later(const CallArguments& arguments);
    _variant_t Pump(const CallArguments& arguments);
    _variant_t Resize(const CallArguments& arguments);
    _variant_t Screenshot(const CallArguments& arguments);
    _variant_t AddToSheet(const CallArguments& arguments);
    _variant_t LaterShot(const CallArguments& arguments);
    _variant_t SaveSheet(const CallArguments& arguments);
    _variant_t Pixel(const CallArguments& arguments);
    _variant_t FillCell(const CallArguments& arguments);
    _variant_t WriteCell(const CallArguments& arguments);
    _variant_t Picture(const CallArguments& arguments);
    _variant_t AddControl(const CallArguments& arguments);
    _variant_t Control(const CallArguments& arguments);
    _variant_t SaveForm(const CallArguments& arguments);
    _variant_t LoadForm(const CallArguments& arguments);
    _variant_t Include(const CallArguments& arguments);
    _variant_t Arguments(const CallArguments& arguments);
    _variant_t Interactive(const CallArguments& arguments);
    _variant_t ScriptFolder(const CallArguments& arguments);
    _variant_t Quit(const CallArguments& arguments);

    void Hear(ControlSite& site);
    Bitmap GridOnScreen();
    std::wstring BesideScript(const std::wstring& path) const;

    HostParts m_Parts;
    ContactSheet m_Sheet;
};

} // namespace ormisk
