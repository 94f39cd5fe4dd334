#include "GdiFloor.h"

namespace ormisk::bench {
namespace {

constexpr UINT kTextFormat = 0x8824; // one line, middle of the height, dots at the end, no prefix
constexpr int kCategoryText = 18;    // where names begin: after the expander box, one step further for properties
constexpr int kPropertyText = 28;

HFONT BoldOf(HFONT font) {
    LOGFONTW description;
    GetObjectW(font, sizeof description, &description);
    description.lfWeight = FW_BOLD;
    return CreateFontIndirectW(&description);
}

HBRUSH MakeDots() {
    const WORD pattern[8] = {0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA};
    const HBITMAP bitmap = CreateBitmap(8, 8, 1, 1, pattern);
    const HBRUSH brush = CreatePatternBrush(bitmap);
    DeleteObject(bitmap);
    return brush;
}

// A row is as high as its text and 4 pixels, and even.
int RowHeightOf(HWND window, HFONT font) {
    const HDC dc = GetDC(window);
    const HGDIOBJ old = SelectObject(dc, font);
    SIZE size = {};
    GetTextExtentPoint32A(dc, "Ag", 2, &size);
    SelectObject(dc, old);
    ReleaseDC(window, dc);
    return size.cy + 4 + (size.cy & 1);
}

std::string Narrow(const wchar_t* text) {
    std::string narrow(static_cast<std::size_t>(WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr)),
                       0);
    WideCharToMultiByte(CP_ACP, 0, text, -1, narrow.data(), static_cast<int>(narrow.size()), nullptr, nullptr);
    narrow.pop_back();
    return narrow;
}

} // namespace

GdiFloor::GdiFloor(HWND window, HFONT font, const Rows& rows)
    : m_Window(window), m_Font(font), m_Bold(BoldOf(font)), m_Back(CreateSolidBrush(GetSysColor(COLOR_WINDOW))),
      m_CategoryBack(CreateSolidBrush(GetSysColor(COLOR_BTNFACE))), m_Dots(MakeDots()),
      m_Pen(CreatePen(PS_SOLID, 1, GetSysColor(COLOR_BTNSHADOW))), m_RowHeight(RowHeightOf(window, font)) {
    GetClientRect(window, &m_Client);
    m_Client.right -= GetSystemMetrics(SM_CXVSCROLL);
    const auto visible = static_cast<std::size_t>((m_Client.bottom + m_RowHeight - 1) / m_RowHeight);
    BSTR category = nullptr;
    for (int row = 0; row < rows.Count() && m_Lines.size() < visible; ++row) {
        if (rows.Category(row) != category) {
            category = rows.Category(row);
            m_Lines.push_back({Narrow(category), {}, true});
        }
        m_Lines.push_back({Narrow(rows.Name(row)), Narrow(rows.Text(row)), false});
    }
}

GdiFloor::~GdiFloor() {
    for (const HGDIOBJ object :
         {HGDIOBJ(m_Bold), HGDIOBJ(m_Back), HGDIOBJ(m_CategoryBack), HGDIOBJ(m_Dots), HGDIOBJ(m_Pen)})
        DeleteObject(object);
}

void GdiFloor::Paint() const {
    const HDC dc = GetDC(m_Window);
    const int oldMode = SetBkMode(dc, TRANSPARENT);
    FillRect(dc, &m_Client, m_Back);
    int top = 0;
    for (const Line& line : m_Lines) {
        PaintRow(dc, line, top);
        top += m_RowHeight;
    }
    SetBkMode(dc, oldMode);
    ReleaseDC(m_Window, dc);
    GdiFlush();
}

void GdiFloor::PaintRow(HDC dc, const Line& line, int top) const {
    const LONG middle = m_Client.right / 2;
    PaintCell(dc, line, line.name, {0, top, middle, top + m_RowHeight}, line.category ? kCategoryText : kPropertyText);
    if (line.category)
        PaintExpander(dc, top);
    PaintCell(dc, line, line.value, {middle, top, m_Client.right, top + m_RowHeight}, 0);
}

void GdiFloor::PaintCell(HDC dc, const Line& line, const std::string& text, RECT cell, int indent) const {
    FillRect(dc, &cell, line.category ? m_CategoryBack : m_Back);
    if (line.category)
        PaintRelief(dc, cell);
    PaintDots(dc, cell.left, cell.bottom - 1, cell.right - cell.left, 1);
    PaintDots(dc, cell.right - 1, cell.top, 1, cell.bottom - cell.top);
    cell.left += indent + 2;
    cell.right -= 2;
    const HGDIOBJ old = SelectObject(dc, line.category ? m_Bold : m_Font);
    DrawTextA(dc, text.c_str(), static_cast<int>(text.size()), &cell, kTextFormat);
    SelectObject(dc, old);
}

// Four angles of two lines.
void GdiFloor::PaintRelief(HDC dc, const RECT& cell) const {
    const HGDIOBJ old = SelectObject(dc, m_Pen);
    for (const int inset : {1, 0}) {
        const LONG left = cell.left + inset, top = cell.top + inset;
        const LONG right = cell.right - 1 - inset, bottom = cell.bottom - 1 - inset;
        MoveToEx(dc, left, bottom, nullptr);
        LineTo(dc, left, top);
        LineTo(dc, right, top);
        MoveToEx(dc, left, bottom, nullptr);
        LineTo(dc, right, bottom);
        LineTo(dc, right, top);
    }
    SelectObject(dc, old);
}

void GdiFloor::PaintExpander(HDC dc, int top) const {
    const int size = m_RowHeight / 2;
    const RECT box = {2, top + size / 2, 2 + size, top + size / 2 + size};
    FillRect(dc, &box, m_CategoryBack);
    const HGDIOBJ old = SelectObject(dc, m_Pen);
    MoveToEx(dc, box.left + 2, top + size, nullptr);
    LineTo(dc, box.right - 2, top + size);
    MoveToEx(dc, box.left, box.top, nullptr);
    LineTo(dc, box.right - 1, box.top);
    LineTo(dc, box.right - 1, box.bottom - 1);
    LineTo(dc, box.left, box.bottom - 1);
    LineTo(dc, box.left, box.top);
    SelectObject(dc, old);
}

void GdiFloor::PaintDots(HDC dc, int x, int y, int width, int height) const {
    const HGDIOBJ old = SelectObject(dc, m_Dots);
    const COLORREF oldColor = SetTextColor(dc, GetSysColor(COLOR_BTNSHADOW));
    SetBrushOrgEx(dc, (-x) & 7, (-y) & 7, nullptr);
    PatBlt(dc, x, y, width, height, PATCOPY);
    SetTextColor(dc, oldColor);
    SelectObject(dc, old);
}

} // namespace ormisk::bench
