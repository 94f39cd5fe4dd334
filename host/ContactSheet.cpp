#include "ContactSheet.h"

#include "Failure.h"

#include <algorithm>

namespace ormisk {
namespace {

constexpr int kMargin = 12;
constexpr int kCaption = 18; // height of the line above a picture
constexpr COLORREF kPaper = RGB(0xE8, 0xEC, 0xF0);
constexpr COLORREF kInk = RGB(0x20, 0x28, 0x30);

SIZE SizeOf(HBITMAP bitmap) {
    BITMAP header = {};
    GetObjectW(bitmap, sizeof header, &header);
    return {header.bmWidth, header.bmHeight};
}

void WriteCaption(HDC context, POINT place, int width, const std::wstring& text) {
    RECT line = {place.x, place.y - kCaption, place.x + width, place.y - 3};
    DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &line,
              DT_SINGLELINE | DT_BOTTOM | DT_NOPREFIX | DT_END_ELLIPSIS);
}

} // namespace

void ContactSheet::Add(Bitmap picture, const std::wstring& caption) {
    const SIZE size = SizeOf(picture.get());
    m_Pictures.push_back({std::move(picture), size, caption});
}

std::vector<POINT> ContactSheet::Places(int columns, SIZE& whole) const {
    std::vector<POINT> places;
    int x = kMargin;
    int y = 0;
    int rowHeight = 0;
    whole = {0, 0};
    for (const Picture& picture : m_Pictures) {
        if (places.size() % static_cast<std::size_t>(columns) == 0) {
            x = kMargin;
            y += rowHeight + kCaption + (places.empty() ? 2 : kMargin / 2);
            rowHeight = 0;
        }
        places.push_back({x, y});
        x += picture.size.cx + kMargin;
        rowHeight = std::max<int>(rowHeight, picture.size.cy);
        whole = {std::max<LONG>(whole.cx, x), y + rowHeight + kMargin};
    }
    return places;
}

Bitmap ContactSheet::Compose(int columns) const {
    SIZE whole = {};
    const std::vector<POINT> places = Places(columns, whole);
    const ScreenContext screen(GetDC(nullptr));
    const MemoryContext target(CreateCompatibleDC(screen.get()));
    const MemoryContext source(CreateCompatibleDC(screen.get()));
    Bitmap sheet(CreateCompatibleBitmap(screen.get(), whole.cx, whole.cy));
    CheckLast(sheet && target && source, L"The sheet finds no memory");
    const Selected drawn(target.get(), sheet.get());
    const Selected font(target.get(), GetStockObject(DEFAULT_GUI_FONT));
    const RECT all = {0, 0, whole.cx, whole.cy};
    SetBkColor(target.get(), kPaper);
    SetTextColor(target.get(), kInk);
    ExtTextOutW(target.get(), 0, 0, ETO_OPAQUE, &all, nullptr, 0, nullptr);
    for (std::size_t i = 0; i < places.size(); ++i) {
        const auto& [bitmap, size, caption] = m_Pictures[i];
        WriteCaption(target.get(), places[i], size.cx, caption);
        const Selected copied(source.get(), bitmap.get());
        BitBlt(target.get(), places[i].x, places[i].y, size.cx, size.cy, source.get(), 0, 0, SRCCOPY);
    }
    return sheet;
}

} // namespace ormisk
