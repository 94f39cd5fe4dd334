#include "Input.h"

#include "Failure.h"
#include "MouseShield.h"
#include "SentInput.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace ormisk {
namespace {

constexpr int kDragSteps = 8;
constexpr UINT kTimerPeriod = 20;

} // namespace

Input::Input(HWND host, const ControlSite& site, MessagePump& pump) : m_Host(host), m_Site(site), m_Pump(pump) {}

Input::~Input() { KillTimer(m_Host, reinterpret_cast<UINT_PTR>(this)); }

void Input::MoveTo(POINT point) {
    const MouseShield shield;
    Aim(ToScreen(point));
}

void Input::Click(POINT point, int button, int shift) {
    const POINT screen = ToScreen(point);
    AvoidDoubleClick(button, screen);
    const MouseShield shield;
    Aim(screen);
    SendModifiers(shift, true);
    Press(button, screen);
    SendModifiers(shift, false);
    m_Pump.UntilQuiet();
}

void Input::DoubleClick(POINT point, int button, int shift) {
    const POINT screen = ToScreen(point);
    AvoidDoubleClick(button, screen);
    const MouseShield shield;
    Aim(screen);
    SendModifiers(shift, true);
    Press(button, screen);
    Press(button, screen);
    SendModifiers(shift, false);
    m_Pump.UntilQuiet();
}

void Input::Drag(POINT from, POINT to, int button, int shift) {
    const POINT start = ToScreen(from);
    const POINT end = ToScreen(to);
    AvoidDoubleClick(button, start);
    const MouseShield shield;
    Aim(start);
    SendModifiers(shift, true);
    SendButton(button, true);
    m_Pump.UntilQuiet();
    for (int step = 1; step <= kDragSteps; ++step)
        Aim({start.x + (end.x - start.x) * step / kDragSteps, start.y + (end.y - start.y) * step / kDragSteps});
    SendButton(button, false);
    SendModifiers(shift, false);
    m_Pump.UntilQuiet();
}

void Input::Wheel(double notches) {
    const HWND control = m_Site.ControlWindow();
    const MouseShield shield;
    RECT area = {};
    POINT mouse = {};
    GetWindowRect(control, &area);
    GetCursorPos(&mouse);
    if (!PtInRect(&area, mouse))
        Aim({(area.left + area.right) / 2, (area.top + area.bottom) / 2});
    BringForward();
    SendWheel(static_cast<int>(std::lround(notches * WHEEL_DELTA)));
    m_Pump.UntilQuiet();
}

void Input::Keys(const std::wstring& text) {
    const std::vector<KeyStroke> strokes = ParseKeys(text);
    BringForward();
    for (const KeyStroke& stroke : strokes) {
        SendStroke(stroke);
        m_Pump.UntilQuiet();
    }
}

void Input::Later(const std::wstring& text, DWORD milliseconds) {
    const ULONGLONG due = GetTickCount64() + milliseconds;
    const auto after = std::upper_bound(m_Delayed.begin(), m_Delayed.end(), due,
                                        [](ULONGLONG time, const Delayed& delayed) { return time < delayed.due; });
    std::vector<Delayed> added;
    for (const KeyStroke& stroke : ParseKeys(text))
        added.push_back({due, stroke});
    m_Delayed.insert(after, added.begin(), added.end());
    SetTimer(m_Host, reinterpret_cast<UINT_PTR>(this), kTimerPeriod, OnTimer);
}

void CALLBACK Input::OnTimer(HWND, UINT, UINT_PTR id, DWORD) { reinterpret_cast<Input*>(id)->SendDelayed(); }

// One stroke a tick, so that each is worked off before the next one.
void Input::SendDelayed() {
    if (!m_Delayed.empty() && m_Delayed.front().due <= GetTickCount64()) {
        const KeyStroke stroke = m_Delayed.front().stroke;
        m_Delayed.pop_front();
        BringForward();
        try {
            SendStroke(stroke);
        } catch (const Failure&) {
            m_Delayed.clear(); // the desktop takes no input now
        }
    }
    if (m_Delayed.empty())
        KillTimer(m_Host, reinterpret_cast<UINT_PTR>(this));
}

POINT Input::ToScreen(POINT point) const {
    const HWND control = m_Site.ControlWindow();
    if (!control || !ClientToScreen(control, &point))
        throw Failure{L"The grid has no window"};
    return point;
}

void Input::Aim(POINT screen) {
    BringForward();
    SendMouseTo(screen);
    m_Pump.UntilQuiet();
}

void Input::Press(int button, POINT screen) {
    SendButton(button, true);
    m_Pump.UntilQuiet();
    SendButton(button, false);
    m_Pump.UntilQuiet();
    m_LastButton = button;
    m_LastClick = screen;
    m_LastClickTime = GetTickCount64();
}

// Waits until a press at this place cannot be taken for the second half of a double click.
void Input::AvoidDoubleClick(int button, POINT screen) const {
    const ULONGLONG safe = m_LastClickTime + GetDoubleClickTime();
    const ULONGLONG now = GetTickCount64();
    const bool samePlace = std::abs(screen.x - m_LastClick.x) <= GetSystemMetrics(SM_CXDOUBLECLK) &&
                           std::abs(screen.y - m_LastClick.y) <= GetSystemMetrics(SM_CYDOUBLECLK);
    if (button == m_LastButton && samePlace && now <= safe)
        m_Pump.For(static_cast<DWORD>(safe - now + 1));
}

// Input goes to the foreground: one of our windows, be it the host's, a drop-down or a message box.
void Input::BringForward() const {
    DWORD process = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &process);
    if (process != GetCurrentProcessId())
        SetForegroundWindow(m_Host);
}

} // namespace ormisk
