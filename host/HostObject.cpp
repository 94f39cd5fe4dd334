#include "HostObject.h"

#include "CallArguments.h"
#include "CellPainter.h"
#include "EventBinder.h"
#include "Failure.h"
#include "FormStore.h"
#include "PngFile.h"
#include "Screen.h"
#include "Text.h"

#include <comdef.h>
#include <oleauto.h>
#include <olectl.h>
#include <shlwapi.h>

#include <cwchar>
#include <exception>
#include <iterator>
#include <memory>
#include <optional>

namespace ormisk {
namespace {

constexpr int kAnyNumber = 1000;
constexpr int kLargestSize = 32000; // of a window, in pixels
constexpr ULONGLONG kPatience = 3000;

// What a call answers while the run is ending. The engine unwinds the script with it; nobody reports it.
constexpr HRESULT kEnding = HRESULT_FROM_WIN32(ERROR_CANCELLED);

std::wstring FullPath(const std::wstring& path) {
    wchar_t full[4096];
    const DWORD length = GetFullPathNameW(path.c_str(), ARRAYSIZE(full), full, nullptr);
    return length > 0 && length < ARRAYSIZE(full) ? std::wstring(full, length) : path;
}

std::wstring FolderOf(const std::wstring& path) {
    const std::wstring full = FullPath(path);
    return full.substr(0, full.find_last_of(L"\\/"));
}

// Handles travel through automation as 32 bits.
HDC ContextOf(int handle) { return reinterpret_cast<HDC>(static_cast<INT_PTR>(handle)); }

// The rectangle of the arguments after a context: left, top, width, height.
RECT PartOf(const CallArguments& arguments) {
    const int left = arguments.Integer(1);
    const int top = arguments.Integer(2);
    return {left, top, left + arguments.Integer(3), top + arguments.Integer(4)};
}

std::wstring CountText(const std::wstring& name, int least, int most) {
    const std::wstring count = most == 0 ? L"no arguments"
                               : least == most
                                   ? std::to_wstring(least) + (least == 1 ? L" argument" : L" arguments")
                                   : std::to_wstring(least) + L" to " + std::to_wstring(most) + L" arguments";
    return name + L" takes " + count;
}

DWORD Milliseconds(int given) {
    if (given < 0)
        throw Failure{L"A time is not negative"};
    return static_cast<DWORD>(given);
}

bool IsAbsolute(const std::wstring& path) {
    return path.starts_with(L"\\") || path.starts_with(L"/") || path.find(L':') != std::wstring::npos;
}

} // namespace

struct HostObject::Member {
    const wchar_t* name;
    int least; // arguments
    int most;
    _variant_t (HostObject::*call)(const CallArguments&);
};

const HostObject::Member HostObject::kMembers[] = {
    {L"Echo", 0, kAnyNumber, &HostObject::Echo},      // values: one line of output, blanks between them
    {L"MoveTo", 2, 2, &HostObject::MoveTo},           // x, y
    {L"Click", 2, 4, &HostObject::Click},             // x, y [, button] [, shift]: 1 left, 2 right, 4 middle;
    {L"DoubleClick", 2, 4, &HostObject::DoubleClick}, //   1 Shift + 2 Ctrl + 4 Alt
    {L"Drag", 4, 6, &HostObject::Drag},               // x1, y1, x2, y2 [, button] [, shift]
    {L"Wheel", 1, 1, &HostObject::Wheel},             // notches, forward positive
    {L"Keys", 1, 1, &HostObject::Keys},               // "text{ENTER}{DOWN 3}%{DOWN}"
    {L"Later", 1, 2, &HostObject::Later},             // keys [, milliseconds]: typed by a timer, in modal loops too
    {L"Pump", 0, 1, &HostObject::Pump},               // [milliseconds]
    {L"Resize", 2, 2, &HostObject::Resize},           // width, height of the grid
    {L"Screenshot", 1, 1, &HostObject::Screenshot},   // file
    {L"AddToSheet", 0, 1, &HostObject::AddToSheet},   // [caption]: keeps a picture
    {L"LaterShot", 1, 2, &HostObject::LaterShot},   // caption [, milliseconds]: the same by a timer, in modal loops too
    {L"SaveSheet", 1, 2, &HostObject::SaveSheet},   // file [, columns]: those kept, side by side
    {L"Pixel", 2, 2, &HostObject::Pixel},           // (x, y): the colour on screen
    {L"FillCell", 6, 6, &HostObject::FillCell},     // context, left, top, width, height, colour: draws in PropertyDraw
    {L"WriteCell", 7, 7, &HostObject::WriteCell},   // the same, text, colour
    {L"Picture", 1, 1, &HostObject::Picture},       // (file), relative to the script's folder: a picture object
    {L"AddControl", 6, 6, &HostObject::AddControl}, // class, name, left, top, width, height: the control as placed
    {L"Control", 1, 1, &HostObject::Control},       // (name): the control as placed; the grid's name is "Grid"
    {L"SaveForm", 1, 1, &HostObject::SaveForm},     // file, relative to the script's folder: all controls
    {L"LoadForm", 1, 1, &HostObject::LoadForm},     // the same: makes its controls anew
    {L"Include", 1, 1, &HostObject::Include},       // file, relative to the script's folder
    {L"Arguments", 0, 0, &HostObject::Arguments},   // array of the script's own arguments
    {L"Interactive", 0, 0, &HostObject::Interactive},   // whether a person may be there: no picture was asked for
    {L"ScriptFolder", 0, 0, &HostObject::ScriptFolder}, // without a separator at its end
    {L"Quit", 0, 1, &HostObject::Quit},                 // [exit code]
};

HostObject::HostObject(const HostParts& parts) : m_Parts(parts) { parts.form.SetParent(this); }

HostObject::~HostObject() { m_Parts.form.SetParent(nullptr); }

// A member's number is its position in the table, counted from 1.
STDMETHODIMP HostObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    for (UINT i = 0; i < count; ++i)
        ids[i] = DISPID_UNKNOWN;
    for (std::size_t i = 0; count == 1 && i < std::size(kMembers); ++i) {
        if (_wcsicmp(kMembers[i].name, names[0]) == 0) {
            ids[0] = static_cast<DISPID>(i + 1);
            return S_OK;
        }
    }
    return DISP_E_UNKNOWNNAME;
}

STDMETHODIMP HostObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* passed, VARIANT* result,
                                EXCEPINFO* error, UINT*) {
    if (id < 1 || id > static_cast<DISPID>(std::size(kMembers)) || !(flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)))
        return DISP_E_MEMBERNOTFOUND;
    if (passed->cNamedArgs > 0)
        return DISP_E_NONAMEDARGS;
    const Member& member = kMembers[id - 1];
    const CallArguments arguments(*passed);
    if (arguments.Count() < member.least || arguments.Count() > member.most)
        return Explain(error, CountText(member.name, member.least, member.most));
    if (m_Parts.run.Ending())
        return kEnding;
    try {
        _variant_t answer = (this->*member.call)(arguments);
        if (m_Parts.run.Ending())
            return kEnding;
        if (result)
            *result = answer.Detach();
        return S_OK;
    } catch (const Failure& failure) {
        return Explain(error, failure.text);
    } catch (const std::exception& failure) {
        return Explain(error, Widen(failure.what()));
    } catch (const _com_error& failure) {
        return failure.Error();
    }
}

_variant_t HostObject::Echo(const CallArguments& arguments) {
    std::wstring line;
    for (int i = 0; i < arguments.Count(); ++i)
        line += (i ? L" " : L"") + arguments.Text(i);
    PrintLine(Stream::Output, line);
    return {};
}

_variant_t HostObject::MoveTo(const CallArguments& arguments) {
    m_Parts.input.MoveTo(arguments.Point(0));
    return {};
}

_variant_t HostObject::Click(const CallArguments& arguments) {
    m_Parts.input.Click(arguments.Point(0), arguments.Integer(2, Input::kLeft), arguments.Integer(3, 0));
    return {};
}

_variant_t HostObject::DoubleClick(const CallArguments& arguments) {
    m_Parts.input.DoubleClick(arguments.Point(0), arguments.Integer(2, Input::kLeft), arguments.Integer(3, 0));
    return {};
}

_variant_t HostObject::Drag(const CallArguments& arguments) {
    m_Parts.input.Drag(arguments.Point(0), arguments.Point(2), arguments.Integer(4, Input::kLeft),
                       arguments.Integer(5, 0));
    return {};
}

_variant_t HostObject::Wheel(const CallArguments& arguments) {
    m_Parts.input.Wheel(arguments.Number(0));
    return {};
}

_variant_t HostObject::Keys(const CallArguments& arguments) {
    m_Parts.input.Keys(arguments.Text(0));
    return {};
}

_variant_t HostObject::Later(const CallArguments& arguments) {
    m_Parts.input.Later(arguments.Text(0), Milliseconds(arguments.Integer(1, 0)));
    return {};
}

_variant_t HostObject::Pump(const CallArguments& arguments) {
    m_Parts.pump.For(Milliseconds(arguments.Integer(0, 0)));
    return {};
}

_variant_t HostObject::Resize(const CallArguments& arguments) {
    const int width = arguments.Integer(0);
    const int height = arguments.Integer(1);
    if (width < 0 || height < 0 || width > kLargestSize || height > kLargestSize)
        throw Failure{L"A size is from 0 to " + std::to_wstring(kLargestSize)};
    m_Parts.window.ResizeClient(width, height);
    m_Parts.pump.UntilQuiet();
    return {};
}

Bitmap HostObject::GridOnScreen() {
    const HiddenCaret still;
    m_Parts.pump.UntilQuiet();
    const RECT part = m_Parts.window.ScreenRect();
    m_Parts.pump.Until([&] { return ScreenIsCurrent(part); });
    return CopyScreen(part);
}

_variant_t HostObject::Screenshot(const CallArguments& arguments) {
    SavePng(GridOnScreen().get(), arguments.Text(0));
    return {};
}

_variant_t HostObject::AddToSheet(const CallArguments& arguments) {
    const std::wstring caption = arguments.Text(0, L"");
    m_Sheet.Add(GridOnScreen(), caption);
    return {};
}

// A dialog may still be coming up. From one tick of the timer to the next the screen shows more of it, and the caret
// may get into another window.
_variant_t HostObject::LaterShot(const CallArguments& arguments) {
    struct Shot {
        std::optional<HiddenCaret> still;
        ULONGLONG begun = 0;
    };
    const auto shot = std::make_shared<Shot>();
    const std::wstring caption = arguments.Text(0);
    m_Parts.input.Later(
        [this, shot, caption] {
            const ULONGLONG now = GetTickCount64();
            if (!shot->begun)
                shot->begun = now;
            const bool patient = now - shot->begun < kPatience;
            if (patient && !(shot->still && shot->still->IsCurrent())) {
                shot->still.emplace();
                return false;
            }
            const RECT part = m_Parts.window.ScreenRect();
            if (patient && !ScreenIsCurrent(part))
                return false;
            m_Sheet.Add(CopyScreen(part), caption);
            shot->still.reset();
            return true;
        },
        Milliseconds(arguments.Integer(1, 0)));
    return {};
}

_variant_t HostObject::SaveSheet(const CallArguments& arguments) {
    const int columns = arguments.Integer(1, m_Sheet.Count());
    if (m_Sheet.Count() == 0)
        throw Failure{L"The sheet has no pictures"};
    if (columns < 1)
        throw Failure{L"A sheet has at least one column"};
    SavePng(m_Sheet.Compose(columns).get(), arguments.Text(0));
    m_Sheet.Clear();
    return {};
}

_variant_t HostObject::Pixel(const CallArguments& arguments) {
    const POINT point = m_Parts.input.ToScreen(arguments.Point(0));
    m_Parts.pump.Until([&] { return ScreenIsCurrent(point); });
    return static_cast<long>(ScreenColor(point));
}

_variant_t HostObject::FillCell(const CallArguments& arguments) {
    FillPart(ContextOf(arguments.Integer(0)), PartOf(arguments), arguments.Color(5));
    return {};
}

_variant_t HostObject::WriteCell(const CallArguments& arguments) {
    WritePart(ContextOf(arguments.Integer(0)), PartOf(arguments), arguments.Text(5), arguments.Color(6));
    return {};
}

std::wstring HostObject::BesideScript(const std::wstring& path) const {
    return FullPath(IsAbsolute(path) ? path : FolderOf(m_Parts.options.script) + L"\\" + path);
}

_variant_t HostObject::Picture(const CallArguments& arguments) {
    const std::wstring path = BesideScript(arguments.Text(0));
    ComPtr<IStream> file;
    ComPtr<IDispatch> picture;
    Check(SHCreateStreamOnFileW(path.c_str(), STGM_READ, &file), path.c_str());
    if (FAILED(OleLoadPicture(file.Get(), 0, FALSE, IID_PPV_ARGS(&picture))))
        throw Failure{path + L" is not a picture"};
    return _variant_t(picture.Get());
}

_variant_t HostObject::AddControl(const CallArguments& arguments) {
    const std::wstring name = arguments.Text(1);
    const RECT place{arguments.Integer(2), arguments.Integer(3), arguments.Integer(2) + arguments.Integer(4),
                     arguments.Integer(3) + arguments.Integer(5)};
    ControlSite& site = m_Parts.form.Add(arguments.Text(0), name, place);
    Hear(site);
    return _variant_t(static_cast<IDispatch*>(site.Extended()));
}

void HostObject::Hear(ControlSite& site) {
    try {
        site.Hear(std::make_unique<EventBinder>(site.Control(), site.Name() + L"_", m_Parts.script, m_Parts.run));
    } catch (const Failure&) { // NOLINT(bugprone-empty-catch)
        // A control may have no events.
    }
}

_variant_t HostObject::SaveForm(const CallArguments& arguments) {
    ormisk::SaveForm(m_Parts.form, BesideScript(arguments.Text(0)));
    return {};
}

_variant_t HostObject::LoadForm(const CallArguments& arguments) {
    ormisk::LoadForm(m_Parts.form, BesideScript(arguments.Text(0)), [this](ControlSite& site) { Hear(site); });
    return {};
}

_variant_t HostObject::Control(const CallArguments& arguments) {
    const ControlSite* const site = m_Parts.form.Find(arguments.Text(0));
    if (!site)
        throw Failure{L"There is no control " + arguments.Text(0)};
    return _variant_t(static_cast<IDispatch*>(site->Extended()));
}

_variant_t HostObject::Include(const CallArguments& arguments) {
    const std::wstring path = BesideScript(arguments.Text(0));
    m_Parts.script.RunText(ReadTextFile(path), path);
    return {};
}

_variant_t HostObject::Arguments(const CallArguments&) {
    const std::vector<std::wstring>& words = m_Parts.options.scriptArguments;
    SAFEARRAY* const array = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(words.size()));
    if (!array)
        throw Failure{L"There is no memory"};
    _variant_t owner;
    owner.vt = VT_ARRAY | VT_VARIANT;
    owner.parray = array;
    for (LONG i = 0; i < static_cast<LONG>(words.size()); ++i) {
        _variant_t word(words[static_cast<std::size_t>(i)].c_str());
        Check(SafeArrayPutElement(array, &i, &word), L"The arguments cannot be given");
    }
    return owner;
}

_variant_t HostObject::Interactive(const CallArguments&) { return m_Parts.options.screenshot.empty(); }

_variant_t HostObject::ScriptFolder(const CallArguments&) { return FolderOf(m_Parts.options.script).c_str(); }

_variant_t HostObject::Quit(const CallArguments& arguments) {
    m_Parts.run.End(arguments.Integer(0, 0));
    return {};
}

} // namespace ormisk
