#pragma once

#include "platform/Pane.h"

#include "ormisk.h"

#include <array>

namespace ormisk {

class Grid;
class Panes;

// In the order in which they are made and lie in each other:
//
//   control
//     background, split into
//       description pane
//       tab container
//         record toolbar (first, previous, record number, total, next, last)
//         tree container: the rows, and over them the editors, the scroll bar and
//           header container, split into name header and value header
enum class PaneId {
    Control,
    Background,
    Description,
    TabContainer,
    RSToolbar,
    ShowFirst,
    ShowPrevious,
    TotalRecords,
    ShowNext,
    ShowLast,
    TreeContainer,
    HeaderContainer,
    NameHeader,
    ValueHeader,
};
inline constexpr int kPaneCount = 14;

// What is told apart about a pane, and who answers it: whatever a pane has no entry for, it does not do.
struct PaneEntry {
    PaneId id = PaneId::Control;
    PaneId parent = PaneId::Control;
    Pane::Options options = {};
    omHitItem hitItem = omNowhere;         // that hosts hear
    CSplitter Panes::* splitter = nullptr; // between the two panes in it
    void (*resized)(Grid&) = nullptr;      // lays out what is in it
    void (*paint)(Grid&, const Pane&, HDC, const Rect& clip) = nullptr;
    void (*clicked)(Grid&) = nullptr;
    void (*doubleClicked)(Grid&) = nullptr;
    void (*keyDown)(Grid&, int keyCode, int shift) = nullptr; // after the host
    void (*focused)(Grid&, bool gained) = nullptr;
};

extern const std::array<PaneEntry, kPaneCount> kPaneTable;

} // namespace ormisk
