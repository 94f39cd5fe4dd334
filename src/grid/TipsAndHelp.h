#pragma once

#include "platform/Pane.h"
#include "platform/Tooltip.h"
#include "tree/CNode.h"

#include <optional>

namespace ormisk {

class Grid;
class CProperty;

// Shows a help file at a topic: the system's viewers, in whose place a test may watch.
struct HelpCalls {
    void (*html)(const std::wstring& file, long topic);
    void (*classic)(const std::wstring& file, long topic);
};
// Those in use, in this module.
HelpCalls& HelpCallsInUse();

// A text that its cell cuts off shows whole in a tip over the cell; F1 asks the host, and then opens the help of a row.
class TipsAndHelp {
public:
    explicit TipsAndHelp(Grid& grid) : m_Grid(grid) {}

    // Makes the tooltip window, with one tool in the tree's window.
    void Create();
    void Destroy() { m_Tooltip.Destroy(); }

    // The mouse is at a point of the tree's window.
    void UpdateTooltip(long x, long y);
    // A message of the tooltip's window. True when it was answered in `result`.
    bool OnNotify(const NMHDR& notice, LRESULT& result);
    // The rows, or what they show, are other ones: no tip of before is shown, or comes up.
    void Hide();
    // One row shows something else. Null for none.
    void RowChanged(const CNode* node);
    // F1 on a row. What a handler raises comes out.
    void RequestHelp(CProperty& property);

private:
    struct Cell {
        long node = 0; // its number; 0 for none
        bool name = false;
        bool operator==(const Cell&) const = default;
    };
    struct Place {
        Ref<CNode> node;
        Cell cell;
        Rect rect;       // in the tree's window
        long before = 0; // what lies before the text
    };
    std::optional<Place> PlaceAt(long x, long y) const;
    bool IsCutOff(const Place& place, const std::wstring& text, HFONT font, bool byteExpanded) const;
    bool OnTooltipShow();
    UINT_PTR Tool() const;

    Grid& m_Grid;
    CTooltip m_Tooltip;
    Cell m_Shown; // over which a tip stands
    Cell m_Ready; // whose text the tool has
};

} // namespace ormisk
