#include "grid/Grid.h"

#include "automation/ComPtr.h"
#include "win/Meanwhile.h"

#include <cstdint>

#include <commctrl.h>

namespace ormisk {

namespace {

// Of the common controls, all but those that need a newer version.
constexpr DWORD kControlClasses = 767;
constexpr std::int64_t kErrorBase = static_cast<std::int32_t>(0x80040000);

} // namespace

Grid::Grid(GridHost& host)
    : m_Host(host), m_Events(host.Sinks()), m_CProperties(MakeObject<CProperties>()), m_Properties(*this),
      m_ModelView(*this), m_ObjectLoader(*this), m_Records(*this), m_PaneEvents(*this), m_Panes(*this),
      m_RowLook(*this), m_RowPainter(*this), m_ChromeMetrics(*this), m_ChromePainter(*this), m_RecordToolbar(*this),
      m_Input(*this), m_ListInput(*this), m_ColorInput(*this), m_FieldInput(*this), m_FocusOrder(*this),
      m_Selection(*this), m_Tips(*this), m_Session(*this) {
    INITCOMMONCONTROLSEX classes{};
    classes.dwSize = sizeof classes;
    classes.dwICC = kControlClasses;
    InitCommonControlsEx(&classes);
}

Grid::~Grid() { Release(); }

void Grid::CreateWindows(HWND parent) {
    m_Panes.Create(parent);
    m_PaneEvents.Begin();
    m_CProperties->Init(&m_ModelView);
    m_AlphabeticNodes.Init(&m_ModelView);
    m_CategorizedNodes.Init(&m_ModelView);
    m_Session.CreateEditors();
    m_Tips.Create();
    m_Panes.CreateSplitters();
    m_Panes.LayoutTabContainer();
    m_Panes.ApplyEnabled();
    m_Alive = true;
}

void Grid::Release() {
    // An editor, a listener or a value that is let go may end the control once more from within.
    const ComPtr<CProperties> properties = m_CProperties;
    if (!properties)
        return;
    m_PaneEvents.End();
    m_Records.Release();
    m_Session.Drop();
    m_State.picture = nullptr;
    m_Alive = false;     // from here on no room touches a window
    m_Records.Release(); // once more: the former recordset may have brought another one when it went
    IgnoringFailures([&] { properties->RemoveAll(); });
    properties->ReleaseOwner();
    m_CProperties = nullptr;
    m_AlphabeticNodes.Clear();
    m_CategorizedNodes.Clear();
    m_AlphabeticNodes.Init(nullptr);
    m_CategorizedNodes.Init(nullptr);
    m_Session.Release();
    m_EditorParams = {};
    m_Tips.Destroy();
}

void Grid::LetObjectsGo() {
    m_ObjectLoader.Stop();
    m_Session.LetObjectsGo();
    m_Records.Detach();
    if (const ComPtr<CProperties> properties = m_CProperties)
        properties->LetObjectsGo();
}

bool Grid::OwnsReferences(ULONG count) const {
    const ULONG rows = m_CProperties ? m_CProperties->ControlReferences() : 0;
    if (count <= rows)
        return count == rows;
    const OrmiskListBox& list = m_Panes.m_ListEditor;
    const ULONG others = count - rows;
    return others <= static_cast<ULONG>(list.ListCount()) + 1 &&
           others == list.CountOf(m_Host.Outer()) + (m_Session.m_Editors.Holds(m_Host.Outer()) ? 1 : 0);
}

void Grid::ReportTrappedError(const AutomationError& error) {
    const ComPtr<IUnknown> self(m_Host.Outer());
    const Meanwhile reporting(m_Reporting, m_Reporting + 1);
    bool showMessageBox = true;
    m_Events.DisplayError(error.description, error.number, showMessageBox);
    if (!showMessageBox)
        return;
    const std::wstring text = error.source + L" : " + error.description + L" : " +
                              std::to_wstring(static_cast<std::int64_t>(error.number) - kErrorBase);
    const ModalScope modal(m_FieldInput);
    MessageBoxW(m_Panes.m_Control.hWnd(), text.c_str(), kLibraryTitle, MB_OK);
}

} // namespace ormisk
