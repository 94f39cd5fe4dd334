#pragma once

#include "ormisk.h"

#include <windows.h>
#include <wrl/client.h>

#include <string>

namespace ormisk::bench {

using Microsoft::WRL::ComPtr;

// Ends the program with this text when a call has failed.
void Need(HRESULT result, const char* what);

// A class of a server in the folder of this program. The server stays loaded.
ComPtr<IClassFactory> ClassIn(const wchar_t* server, REFCLSID id);

// A visible window that the rows of a grid fill: categorized, without tabs, headers and description. The system's own
// container sites the control.
class GridWindow {
public:
    GridWindow();
    ~GridWindow();
    GridWindow(const GridWindow&) = delete;
    GridWindow& operator=(const GridWindow&) = delete;

    ::_OrmiskGrid* Grid() const { return m_Grid.Get(); }
    ::_CProperties* Properties() const { return m_Properties.Get(); }

    // The window that the rows are painted in.
    HWND Tree() const { return m_Tree; }

    // Tabs, headers and description pane come or go.
    void ShowChrome(bool show) const;

    // Brings the screen up to date: what is invalid is painted, and drawing calls have arrived.
    void Paint() const;

    // Works off what waits in the message queue.
    void Settle() const;

private:
    void Arrange();

    HMODULE m_Atl = nullptr;
    HWND m_Window = nullptr;
    HWND m_Tree = nullptr;
    ComPtr<IUnknown> m_Container;
    ComPtr<::_OrmiskGrid> m_Grid;
    ComPtr<::_CProperties> m_Properties;
};

} // namespace ormisk::bench
