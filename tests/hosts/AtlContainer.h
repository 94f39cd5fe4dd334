#pragma once

#include "LateBound.h"

#include "../control/HandleCount.h"

#include <ole2.h>
#include <windows.h>

#include <gtest/gtest.h>

namespace ormisk::test {

// Works off what waits in the message queue of this thread.
void PumpMessages();

// A control of its own, by its name and without a container.
ComPtr<IUnknown> CreateAlone();

// A window of the system's own container with the grid in it, created by its name.
class AtlContainer {
public:
    AtlContainer();
    ~AtlContainer();
    AtlContainer(const AtlContainer&) = delete;
    AtlContainer& operator=(const AtlContainer&) = delete;

    LateBound grid;
    LateBound properties;

    HWND Window() const { return m_Window; }
    HWND GridWindow() const;

    // The window in the middle, which is that of the rows.
    HWND Tree() const;

    // Rows "A" and "B" with the values "one" and "two" in a category, and the editor of the first open.
    void FillForEdit() const;

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
