#pragma once

#include "LateBound.h"
#include "Server.h"

#include "../control/HandleCount.h"

#include <ole2.h>
#include <windows.h>

#include <gtest/gtest.h>

namespace ormisk::test {

// A window of the system's own container with the grid in it, created by its name.
class AtlContainer {
public:
    AtlContainer(int width = 300, int height = 300);
    ~AtlContainer();
    AtlContainer(const AtlContainer&) = delete;
    AtlContainer& operator=(const AtlContainer&) = delete;

    LateBound grid;
    LateBound properties;

    HWND Window() const { return m_Window; }
    HWND GridWindow() const;

    // The window of the rows.
    HWND Tree() const;

    // Tabs, headers, description and frames go away, so that the rows fill the window.
    void MakePlain() const;

    void AddRow(const wchar_t* name, const _variant_t& value, const wchar_t* category = L"") const;

    // The container lets the control go; the test's own references stay.
    void Destroy();

    // The test's own references go.
    void Release();

private:
    HWND m_Window = nullptr;
    ComPtr<IUnknown> m_Container;
};

// The visible edit box inside a window, or null.
HWND VisibleEdit(HWND window);

// Reads and calls whatever a host might: each call succeeds or fails, and comes back.
void UseEverything(const LateBound& grid);

// A test after which nothing may be left: no object of the server, no window, no drawing handle.
class GridInContainer : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // What lives now is not the test's.
    void CountAnew();

private:
    unsigned m_Windows = 0;
    unsigned m_Handles = 0;
};

} // namespace ormisk::test
