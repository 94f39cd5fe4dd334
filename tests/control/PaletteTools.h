#pragma once

#include "Eventually.h"
#include "GridContainer.h"
#include "InDialog.h"

#include "picker/OrmiskSwatch.h"
#include "win/Rects.h"

#include <map>
#include <memory>

// A colour field in a frame of its own, and a user's mouse and keys.
namespace ormisk::test {

inline FontDescription Tahoma(double size) {
    FontDescription font;
    font.Name = L"Tahoma";
    font.Size = size;
    font.Weight = 400;
    return font;
}

inline HWND MakeFrame(int left, int top) {
    const HWND frame = CreateWindowW(L"STATIC", L"", WS_POPUP | WS_BORDER | WS_VISIBLE | SS_NOTIFY, left, top, 260, 60,
                                     nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    SetForegroundWindow(frame);
    return frame;
}

// A frame with a field in it, which writes down what it tells and lets a test turn on it meanwhile.
class FieldInFrame : public SwatchListener {
public:
    explicit FieldInFrame(int left = 300, int top = 200) : frame(MakeFrame(left, top)) {
        field->InitProperties(Tahoma(8));
        field->Create(frame, this);
        field->Move(20, 10, 200, 20);
        field->SetVisible(true);
        field->SetFocus();
        Pump();
    }
    ~FieldInFrame() {
        field.reset();
        DestroyWindow(frame);
    }

    HWND frame;
    std::unique_ptr<OrmiskSwatch> field = std::make_unique<OrmiskSwatch>();
    std::map<std::string, std::function<void()>> on;
    std::string log;
    std::string Heard() { return std::exchange(log, {}); }
    OrmiskSwatch* operator->() const { return field.get(); }

    void OnTabChanged() override { Told("Tab"); }
    void OnSelectedColorChanged() override { Told("Color"); }
    void OnPaletteOpened() override { Told("Opened"); }
    void OnPaletteClosed() override { Told("Closed"); }
    void OnSettingChanged(const std::wstring& key) override { Told(std::string(key.begin(), key.end())); }

    HWND Child(bool page) const {
        HWND child = field ? GetWindow(field->PaletteWindow(), GW_CHILD) : nullptr;
        while (child && (PlaceInParent(child).top > 0) != page)
            child = GetWindow(child, GW_HWNDNEXT);
        return child;
    }
    HWND Page() const { return Child(true); }
    HWND Tabs() const { return Child(false); }
    HWND Bar() const { return GetWindow(Page(), GW_CHILD); }
    HWND Box() const { return GetWindow(field->hwnd(), GW_CHILD); }
    std::wstring BoxText() const {
        wchar_t text[32] = L"";
        GetWindowTextW(Box(), text, 32);
        return text;
    }
    Size PageSize() const {
        const Rect client = ClientRect(Page());
        const bool bar = GetWindowLongPtrW(Bar(), GWL_STYLE) & WS_VISIBLE;
        return {client.right - (bar ? GetSystemMetrics(SM_CXVSCROLL) : 0), client.bottom};
    }
    float Edge() const { return static_cast<float>(ClientRect(field->PaletteWindow()).right - 10) / 8; }
    Point Middle(PaletteCell cell) const {
        const Rect place = CellRect(cell, PageSize(), Edge());
        return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    }
    Point MiddleOfRow(int row, long scroll = 0) const {
        const Rect place = RowRect(row, PageSize(), Edge(), scroll);
        return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    }
    COLORREF OnScreen(HWND window, Point at) const {
        GdiFlush();
        return GetPixel(WindowDC(window).Get(), at.x, at.y);
    }

    // As a user does it.
    void MouseTo(HWND window, Point at) const {
        POINT point{at.x, at.y};
        ClientToScreen(window, &point);
        SetCursorPos(point.x, point.y);
        Pump();
    }
    void Click(HWND window, Point at, bool right = false) const {
        MouseTo(window, at);
        Mouse(right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN);
        Mouse(right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP);
    }
    static void Mouse(DWORD flags, int data = 0) {
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = flags;
        input.mi.mouseData = static_cast<DWORD>(data);
        SendInput(1, &input, sizeof input);
        Pump();
    }
    static void Keys(std::initializer_list<WORD> keys) {
        for (const WORD key : keys) {
            SendKey(key, 0);
            SendKey(key, KEYEVENTF_KEYUP);
            Pump();
        }
    }
    void ClickButton() const { Click(field->hwnd(), {ClientRect(field->hwnd()).right - 5, 8}); }
    void Open() {
        field->ShowDropDown(true);
        Pump();
        Heard();
    }
    static void Pump() {
        int quiet = 0;
        Eventually([&] { return ++quiet > 4; });
    }

private:
    MouseShield m_MouseShield;

    void Told(const std::string& event) {
        log += (log.empty() ? "" : " ") + event;
        const auto handler = on.find(event);
        if (handler == on.end())
            return;
        const auto act = handler->second; // the handler may end the test's interest in it
        act();
    }
};

class PaletteTest : public LeakTest {
protected:
    void WarmUp() override {
        static const bool warm = [] {
            for (int i = 0; i < 2; ++i) {
                FieldInFrame in;
                for (const Color color : {0x0000FFU, 0x80000005U}) {
                    in->SelectedColor(color);
                    in.Open();
                    const Picture first(in.Page());
                    in->ShowDropDown(false);
                }
                AskColor(in, {}, IDCANCEL);
            }
            return true;
        }();
        ASSERT_TRUE(warm);
    }

    // Right-clicks the first custom cell and does something in the dialog that comes, or answers it.
    static void AskColor(FieldInFrame& in, const std::function<void()>& act, WPARAM answer = 0) {
        in->SelectedColor(0x0000FF);
        in.Open();
        const InDialog dialog(act, answer);
        in.Click(in.Page(), in.Middle({true, 5}), true);
        FieldInFrame::Pump();
    }
};

} // namespace ormisk::test
