#pragma once

#include "grid/ChromeLayout.h"

#include <string>

namespace ormisk {

class Grid;

// Measures the texts around the rows for what is laid out after them.
class ChromeMetrics {
public:
    explicit ChromeMetrics(Grid& grid) : m_Grid(grid) {}

    // From the font, the captions and the width of the tab container.
    void CalcTabRects();
    const TabStrip& Tabs() const { return m_Tabs; } // first alphabetic, then categorized

    // The height in pixels at which the description pane shows a help text whole.
    long CalcDescriptionHeight(const std::wstring& help);

    // A caption in the form of the control's texts: one of the library's own is plain text, which Unicode mode does not
    // take as it is.
    std::wstring CaptionText(const std::wstring& caption, const wchar_t* defaultCaption) const;

private:
    Grid& m_Grid;
    TabStrip m_Tabs;
};

} // namespace ormisk
