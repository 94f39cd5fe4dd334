#include "Palette.h"

#include "GridWindow.h"
#include "Sorting.h"
#include "Stopwatch.h"

#include <comutil.h>

#include <array>

namespace ormisk::bench {
namespace {

constexpr int kRuns = 101;
constexpr int kCells = 64;
constexpr int kInRow = 8;
constexpr int kMargin = 10; // of the width, beside the cells

// The palette while it is open, else null.
HWND OpenPalette() {
    HWND found = nullptr;
    while ((found = FindWindowExW(nullptr, found, L"OrmiskPane", nullptr)) && !IsWindowVisible(found)) {
    }
    return found;
}

// The lower one of the two windows in the palette.
HWND PageOf(HWND palette) {
    HWND page = GetWindow(palette, GW_CHILD);
    RECT first, second;
    GetWindowRect(page, &first);
    const HWND other = GetWindow(page, GW_HWNDNEXT);
    GetWindowRect(other, &second);
    return second.top > first.top ? other : page;
}

void Update(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
}

// A window of the same size, beside it, that paints the same cells with what it has made before.
class BarePalette {
public:
    explicit BarePalette(HWND palette) {
        GetWindowRect(palette, &m_Place);
        WNDCLASSW bare{};
        bare.lpfnWndProc = Procedure;
        bare.hInstance = GetModuleHandleW(nullptr);
        bare.lpszClassName = kClass;
        RegisterClassW(&bare);
        m_Window = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW, kClass, L"", WS_POPUP, m_Place.right, m_Place.top,
                                   m_Place.right - m_Place.left, m_Place.bottom - m_Place.top,
                                   GetWindow(palette, GW_OWNER), nullptr, bare.hInstance, this);
        Need(m_Window ? S_OK : E_FAIL, "a bare window");
        for (int i = 0; i < kCells; ++i)
            m_Brushes[static_cast<std::size_t>(i)] = CreateSolidBrush(RGB(i * 4, 255 - i * 4, 128));
    }
    ~BarePalette() {
        DestroyWindow(m_Window);
        for (const HBRUSH brush : m_Brushes)
            DeleteObject(brush);
    }
    BarePalette(const BarePalette&) = delete;
    BarePalette& operator=(const BarePalette&) = delete;

    HWND Window() const { return m_Window; }
    void ShowBeside() const { ShowWindow(m_Window, SW_SHOWNA); } // the palette stays open
    void Hide() const { ShowWindow(m_Window, SW_HIDE); }
    void Open() const {
        SetWindowPos(m_Window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_SHOWWINDOW);
        Update(m_Window);
    }

private:
    static constexpr wchar_t kClass[] = L"BarePalette";

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_NCCREATE)
            SetWindowLongPtrW(
                window, GWLP_USERDATA,
                reinterpret_cast<LONG_PTR>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams));
        if (message == WM_PAINT) {
            PAINTSTRUCT paint;
            const HDC dc = BeginPaint(window, &paint);
            reinterpret_cast<const BarePalette*>(GetWindowLongPtrW(window, GWLP_USERDATA))->Paint(dc);
            EndPaint(window, &paint);
            return 0;
        }
        return DefWindowProcW(window, message, wParam, lParam);
    }

    void Paint(HDC dc) const {
        const int width = m_Place.right - m_Place.left;
        const int height = m_Place.bottom - m_Place.top;
        const int edge = (width - kMargin) / kInRow;
        const RECT all = {0, 0, width, height};
        FillRect(dc, &all, GetSysColorBrush(COLOR_BTNFACE));
        const HGDIOBJ before = SelectObject(dc, m_Brushes[0]);
        for (int i = 0; i < kCells; ++i) {
            const int left = kMargin / 2 + i % kInRow * edge;
            const int top = height - (kCells - i + kInRow - 1) / kInRow * edge;
            SelectObject(dc, m_Brushes[static_cast<std::size_t>(i)]);
            Rectangle(dc, left + 1, top + 1, left + edge - 1, top + edge - 1);
        }
        SelectObject(dc, before);
    }

    HWND m_Window = nullptr;
    RECT m_Place = {};
    std::array<HBRUSH, kCells> m_Brushes = {};
};

class Palette {
public:
    explicit Palette(const GridWindow& window) : m_Window(window) {
        Empty();
        m_Row = Add();
    }
    ~Palette() { Empty(); }
    Palette(const Palette&) = delete;
    Palette& operator=(const Palette&) = delete;

    void Run() {
        Open();
        const BarePalette bare(OpenPalette());
        const HWND page = PageOf(OpenPalette());
        Hover(page);
        bare.ShowBeside();
        const auto nothing = [] {};
        const auto paints =
            MediansOf(kRuns, {{nothing, [page] { Update(page); }}, {nothing, [&bare] { Update(bare.Window()); }}});
        bare.Hide();
        const auto close = [this, &bare] {
            bare.Hide();
            Close();
        };
        const auto opens = MediansOf(kRuns, {{close, [this] { Open(); }}, {close, [&bare] { bare.Open(); }}});
        close();
        Report("palette_paint", kCells, paints[0]);
        Report("palette_paint_floor", kCells, paints[1]);
        Report("palette_open", kCells, opens[0]);
        Report("palette_open_floor", kCells, opens[1]);
    }

private:
    void Empty() const {
        VARIANT nothing;
        VariantInit(&nothing);
        Need(m_Window.Properties()->Clear(&nothing), "Clear");
        m_Window.Settle();
    }

    ComPtr<::_CProperty> Add() const {
        _bstr_t name(L"Colour");
        _variant_t value(255L);
        BSTR key = nullptr;
        IDispatch* source = nullptr;
        omEditorType editor = omColorEditor;
        ComPtr<::_CProperty> row;
        Need(m_Window.Properties()->Add(name.GetBSTR(), &value, nullptr, &key, &source, VARIANT_TRUE, &editor, &row),
             "Add");
        Need(m_Window.Grid()->Refresh(), "Refresh");
        m_Window.Settle();
        return row;
    }

    void Open() const {
        Need(m_Window.Grid()->StartPropertyEdit(m_Row.Get()), "StartPropertyEdit");
        const HWND palette = OpenPalette();
        Need(palette ? S_OK : E_FAIL, "the palette");
        Update(palette);
    }

    void Close() const {
        if (const HWND palette = OpenPalette())
            SendMessageW(palette, WM_KEYDOWN, VK_ESCAPE, 0);
        m_Window.Settle();
    }

    // From cell to cell of a row, and back.
    static void Hover(HWND page) {
        RECT client;
        GetClientRect(page, &client);
        const int edge = (client.right - kMargin) / kInRow;
        int step = 0;
        Report("palette_hover", kCells,
               MedianOf(
                   kRuns, [&step] { ++step; },
                   [&step, page, edge] {
                       const int x = kMargin / 2 + step % kInRow * edge + edge / 2;
                       SendMessageW(page, WM_MOUSEMOVE, 0, MAKELPARAM(x, kMargin / 2 + edge / 2));
                       GdiFlush();
                   }));
    }

    const GridWindow& m_Window;
    ComPtr<::_CProperty> m_Row;
};

} // namespace

void MeasurePalette(const GridWindow& window) { Palette(window).Run(); }

} // namespace ormisk::bench
