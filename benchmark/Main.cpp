// ormisk-bench: measures the grid as a host uses it. One JSON line a case; "us" is the median of one whole operation in
// microseconds.

#include "Editors.h"
#include "GdiFloor.h"
#include "GridWindow.h"
#include "Inspection.h"
#include "Palette.h"
#include "Records.h"
#include "Rows.h"
#include "Sorting.h"
#include "Stopwatch.h"

#include <ole2.h>
#include <olectl.h>
#include <windows.h>

#include <cstdio>
#include <string>

namespace ormisk::bench {
namespace {

constexpr int kSizes[] = {1000, 10000, 100000};
constexpr double kFillLimit = 30e6; // an unlocked fill that takes longer is stopped, and told by what it did until then
constexpr int kPaints = 101;

int FillRuns(int rows) { return rows >= 100000 ? 3 : rows >= 10000 ? 5 : 11; }

// The whole window with all that surrounds the rows, a row being selected.
void MeasureChrome(const GridWindow& window, int count) {
    window.ShowChrome(true);
    window.Settle();
    const HWND top = GetAncestor(window.Tree(), GA_ROOT);
    Report("repaint_chrome", count,
           MedianOf(
               kPaints, [] {},
               [top] {
                   RedrawWindow(top, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
                   GdiFlush();
               }));
    window.ShowChrome(false);
    window.Settle();
}

class Cases {
public:
    Cases(GridWindow& window, int count) : m_Window(window), m_Rows(count), m_Count(count) {}

    void Run() {
        Fills();
        FillLocked();
        m_Window.Settle();
        Paints();
        MeasureChrome(m_Window, m_Count);
        Scroll();
        Expand();
        AddOne();
        Clear();
        MeasureSorting(m_Window, m_Count);
        Empty();
    }

private:
    void Empty() {
        VARIANT nothing;
        VariantInit(&nothing);
        Need(m_Window.Properties()->Clear(&nothing), "Clear");
        Need(m_Window.Grid()->Refresh(), "Refresh");
        m_Window.Settle();
    }

    void FillLocked() {
        Need(m_Window.Grid()->put_LockRefresh(VARIANT_TRUE), "LockRefresh");
        for (int row = 0; row < m_Count; ++row)
            m_Rows.Add(m_Window.Properties(), row);
        Need(m_Window.Grid()->put_LockRefresh(VARIANT_FALSE), "LockRefresh");
    }

    void FillLateBound(DISPID add) {
        Need(m_Window.Grid()->put_LockRefresh(VARIANT_TRUE), "LockRefresh");
        for (int row = 0; row < m_Count; ++row)
            m_Rows.AddLateBound(m_Window.Properties(), add, row);
        Need(m_Window.Grid()->put_LockRefresh(VARIANT_FALSE), "LockRefresh");
    }

    void Fills() {
        const auto empty = [this] { Empty(); };
        Report("fill", m_Count, MedianOf(FillRuns(m_Count), empty, [this] { FillLocked(); }));
        wchar_t name[] = L"Add";
        LPOLESTR names[] = {name};
        DISPID add = DISPID_UNKNOWN;
        Need(m_Window.Properties()->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &add), "Add by name");
        Report("fill_late_bound", m_Count, MedianOf(FillRuns(m_Count), empty, [this, add] { FillLateBound(add); }));
        FillUnlocked();
        Empty();
    }

    // One run: it is by far the longest case. A stopped one is scaled up to the whole.
    void FillUnlocked() {
        Empty();
        int done = 0;
        const double spent = TimeOf([this, &done] {
            const double end = Now() + kFillLimit;
            while (done < m_Count && Now() < end)
                m_Rows.Add(m_Window.Properties(), done++);
            m_Window.Paint();
        });
        if (done < m_Count)
            std::fprintf(stderr, "fill_unlocked: stopped after %d of %d rows and scaled up\n", done, m_Count);
        Report("fill_unlocked", m_Count, spent * m_Count / done);
    }

    void Paints() {
        const HWND tree = m_Window.Tree();
        const auto nothing = [] {};
        Report("repaint", m_Count, MedianOf(kPaints, nothing, [tree] {
                   RedrawWindow(tree, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
                   GdiFlush();
               }));
        ComPtr<IFontDisp> display;
        ComPtr<IFont> font;
        HFONT handle = nullptr;
        Need(m_Window.Grid()->get_Font(&display), "Font");
        Need(display.As(&font), "Font");
        Need(font->get_hFont(&handle), "Font");
        const GdiFloor floor(tree, handle, m_Rows);
        Report("gdi_floor", m_Count, MedianOf(kPaints, nothing, [&floor] { floor.Paint(); }));
        InvalidateRect(tree, nullptr, FALSE);
        m_Window.Settle();
    }

    // By one notch of the wheel, down and up in turns from the middle of the first page.
    void Scroll() {
        const HWND tree = m_Window.Tree();
        int notch = -WHEEL_DELTA;
        const auto turn = [this, tree, &notch] {
            SendMessageW(tree, WM_MOUSEWHEEL, MAKEWPARAM(0, notch), MAKELPARAM(50, 50));
            m_Window.Paint();
        };
        for (int i = 0; i < 10; ++i)
            turn();
        Report("scroll", m_Count, MedianOf(kPaints, [&notch] { notch = -notch; }, turn));
        notch = WHEEL_DELTA;
        for (int i = 0; i < 20; ++i)
            turn();
    }

    // The first category closed and opened again.
    void Expand() {
        const BSTR path = m_Rows.Category(0);
        Report("expand", m_Count,
               MedianOf(
                   kPaints, [] {},
                   [this, path] {
                       Need(m_Window.Grid()->ExpandCategory(path, VARIANT_FALSE), "ExpandCategory");
                       m_Window.Paint();
                       Need(m_Window.Grid()->ExpandCategory(path, VARIANT_TRUE), "ExpandCategory");
                       m_Window.Paint();
                   }));
    }

    // One row more; what it leaves to be painted is painted before the next one.
    void AddOne() {
        Rows more(kPaints + m_Count);
        int next = m_Count;
        Report("add_unlocked", m_Count,
               MedianOf(
                   kPaints, [this] { m_Window.Settle(); },
                   [this, &more, &next] { more.Add(m_Window.Properties(), next++); }));
    }

    void Clear() {
        Report("clear", m_Count,
               MedianOf(
                   FillRuns(m_Count),
                   [this] {
                       Empty();
                       FillLocked();
                       m_Window.Settle();
                   },
                   [this] {
                       VARIANT nothing;
                       VariantInit(&nothing);
                       Need(m_Window.Properties()->Clear(&nothing), "Clear");
                   }));
        Empty();
    }

    GridWindow& m_Window;
    Rows m_Rows;
    int m_Count;
};

void RunAll() {
    Need(OleInitialize(nullptr), "OLE");
    {
        GridWindow window;
        window.Settle();
        MeasureInspection(window);
        MeasureEditors(window);
        MeasurePalette(window);
        MeasureRecords(window);
        for (const int count : kSizes)
            Cases(window, count).Run();
    }
    OleUninitialize();
}

} // namespace

void Report(const char* name, int rows, double microseconds) {
    std::printf("{\"case\": \"%s\", \"n\": %d, \"us\": %.1f}\n", name, rows, microseconds);
    std::fflush(stdout);
}

} // namespace ormisk::bench

int wmain() {
    ormisk::bench::RunAll();
    return 0;
}
