#pragma once

#include "editors/EditorRegistry.h"
#include "grid/ChromeMetrics.h"
#include "grid/ChromePainter.h"
#include "grid/ColorInput.h"
#include "grid/EditSession.h"
#include "grid/FieldInput.h"
#include "grid/FocusOrder.h"
#include "grid/GridEvents.h"
#include "grid/GridProperties.h"
#include "grid/GridState.h"
#include "grid/Input.h"
#include "grid/ListInput.h"
#include "grid/ModelView.h"
#include "grid/ObjectLoader.h"
#include "grid/PaneEvents.h"
#include "grid/Panes.h"
#include "grid/RecordBinding.h"
#include "grid/RecordToolbar.h"
#include "grid/RowLook.h"
#include "grid/RowPainter.h"
#include "grid/Selection.h"
#include "grid/TipsAndHelp.h"
#include "model/CProperties.h"
#include "model/EditorParams.h"
#include "platform/ResourceMgr.h"
#include "tree/CNodes.h"

namespace ormisk {

// What the rooms ask of the control as a COM object.
class GridHost {
public:
    // The control as an object; who calls into the host holds it meanwhile.
    virtual IUnknown* Outer() = 0;
    virtual bool UserMode() = 0;
    virtual void NotifyChanged(DISPID id) = 0;
    virtual ConnectionPoints& Sinks() = 0;
    virtual ComPtr<IOleInPlaceFrame> ContainerFrame() = 0; // null without one
    virtual void FocusEntered() = 0;                       // a window of the control took the focus
    virtual void FocusLeft() = 0;                          // or lost it, maybe to another one of it
    virtual void AccessKeysChanged() = 0;                  // the container should ask for them anew

protected:
    ~GridHost() = default;
};

// All that belongs to one control: its state, its model and trees, and the rooms that work on them. Each room knows one
// thing and reaches the others through here.
class Grid {
public:
    explicit Grid(GridHost& host);
    Grid(const Grid&) = delete;
    Grid& operator=(const Grid&) = delete;
    ~Grid();

    // Makes the windows and everything that needs them. Raises when the system refuses; the grid is then as before.
    void CreateWindows(HWND parent);
    // The end: unhooks, drops editors, model and trees. Runs when the tree pane is destroyed, and once only.
    void Release();

    // The host has done with the control, perhaps for good. Its objects go, in rows, lists and as editors; rows, plain
    // values and the selection stay for a container that sites the control again.
    void LetObjectsGo();
    // Whether so many references to the control are just those of its own rows and lists.
    bool OwnsReferences(ULONG count) const;

    bool IsAlive() const { return m_Alive; }             // between CreateWindows and Release
    bool IsReporting() const { return m_Reporting > 0; } // a failure is on screen
    // A failure that no caller can take: the host hears of it and may keep the message box away.
    void ReportTrappedError(const AutomationError& error);
    // Runs a call, and reports its failure so. True when it succeeded.
    template <class Call> bool Trapped(Call&& call) {
        try {
            std::forward<Call>(call)();
            return true;
        } catch (...) {
            ReportTrappedError(CurrentError());
            return false;
        }
    }

    GridHost& m_Host;
    GridState m_State;
    GridEvents m_Events;
    ComPtr<CProperties> m_CProperties;
    CNodes m_AlphabeticNodes;
    CNodes m_CategorizedNodes;
    CNodes* m_ActiveNodes = &m_AlphabeticNodes;
    CResourceMgr m_ResourceMgr;
    EditorParamStore m_EditorParams; // of the control, by editor type

    GridProperties m_Properties;
    ModelView m_ModelView;
    ObjectLoader m_ObjectLoader;
    RecordBinding m_Records;
    PaneEvents m_PaneEvents;
    Panes m_Panes;
    RowLook m_RowLook;
    RowPainter m_RowPainter;
    ChromeMetrics m_ChromeMetrics;
    ChromePainter m_ChromePainter;
    RecordToolbar m_RecordToolbar;
    Input m_Input;
    ListInput m_ListInput;
    ColorInput m_ColorInput;
    FieldInput m_FieldInput;
    FocusOrder m_FocusOrder;
    Selection m_Selection;
    TipsAndHelp m_Tips;
    EditSession m_Session;

private:
    bool m_Alive = false;
    int m_Reporting = 0;
};

} // namespace ormisk
