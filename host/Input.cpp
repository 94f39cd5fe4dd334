#include "Input.h"

#include "Failure.h"
#include "MouseShield.h"
#include "SentInput.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>

namespace ormisk {
namespace {

constexpr int kDragSteps = 8;
constexpr UINT kTimerPeriod = 10;

// A call that has not come back for so long after a step is held in a modal loop. Far below the time after which a
// scroll bar takes a press for a long one.
constexpr ULONGLONG kHeld = 30;

} // namespace

Input::Input(HWND host, const ControlSite& site, MessagePump& pump, const Run& run)
    : m_Host(host), m_Site(site), m_Pump(pump), m_Run(run) {}

Input::~Input() { KillTimer(m_Host, reinterpret_cast<UINT_PTR>(this)); }

void Input::MoveTo(POINT point) {
    const MouseShield shield;
    Perform({Aim(ToScreen(point))});
}

void Input::Click(POINT point, int button, int shift) {
    const POINT screen = ToScreen(point);
    AvoidDoubleClick(button, screen);
    const MouseShield shield;
    Perform({Aim(screen), Press(screen, button, shift), LetGo(button, shift)});
}

void Input::DoubleClick(POINT point, int button, int shift) {
    const POINT screen = ToScreen(point);
    AvoidDoubleClick(button, screen);
    const MouseShield shield;
    Perform({Aim(screen), Press(screen, button, shift), LetGo(button, shift), PressAgain(button, shift),
             LetGo(button, shift)});
}

void Input::Drag(POINT from, POINT to, int button, int shift) {
    const POINT start = ToScreen(from);
    const POINT end = ToScreen(to);
    AvoidDoubleClick(button, start);
    const MouseShield shield;
    std::vector<Step> steps = {Aim(start), Press(start, button, shift)};
    for (int step = 1; step <= kDragSteps; ++step)
        steps.push_back(
            Aim({start.x + (end.x - start.x) * step / kDragSteps, start.y + (end.y - start.y) * step / kDragSteps}));
    steps.push_back(LetGo(button, shift));
    Perform(std::move(steps));
}

void Input::Wheel(double notches) {
    const MouseShield shield;
    RECT area = {};
    POINT mouse = {};
    GetWindowRect(m_Site.ControlWindow(), &area);
    GetCursorPos(&mouse);
    std::vector<Step> steps;
    if (!PtInRect(&area, mouse))
        steps.push_back(Aim({(area.left + area.right) / 2, (area.top + area.bottom) / 2}));
    const int amount = static_cast<int>(std::lround(notches * WHEEL_DELTA));
    steps.push_back({[amount] { SendWheel(amount); }});
    Perform(std::move(steps));
}

void Input::Keys(const std::wstring& text) {
    std::vector<Step> steps;
    for (const KeyStroke& stroke : ParseKeys(text))
        steps.push_back(Type(stroke));
    Perform(std::move(steps));
}

void Input::Later(const std::wstring& text, DWORD milliseconds) {
    const ULONGLONG due = GetTickCount64() + milliseconds;
    std::vector<Delayed> strokes;
    for (const KeyStroke& stroke : ParseKeys(text))
        strokes.push_back({due, [this, stroke] {
                               BringForward();
                               SendStroke(stroke);
                               return true;
                           }});
    AddDelayed(std::move(strokes));
}

void Input::Later(std::function<bool()> act, DWORD milliseconds) {
    AddDelayed({{GetTickCount64() + milliseconds, std::move(act)}});
}

// All due at one time.
void Input::AddDelayed(std::vector<Delayed> added) {
    if (added.empty())
        return;
    const auto after = std::upper_bound(m_Delayed.begin(), m_Delayed.end(), added.front().due,
                                        [](ULONGLONG time, const Delayed& delayed) { return time < delayed.due; });
    m_Delayed.insert(after, std::make_move_iterator(added.begin()), std::make_move_iterator(added.end()));
    StartTimer();
}

// A call from an event procedure, in the middle of another call's input, goes first.
void Input::Perform(std::vector<Step> steps) {
    const std::size_t others = m_Steps.size();
    BringForward();
    m_Steps.insert(m_Steps.begin(), steps.begin(), steps.end());
    StartTimer();
    while (m_Steps.size() > others) {
        TakeStep();
        m_Pump.UntilQuiet();
    }
}

void Input::TakeStep() {
    const Step step = std::move(m_Steps.front());
    m_Steps.pop_front();
    m_LastStepTime = GetTickCount64();
    if (m_Run.Ending() && !step.alsoWhenEnding)
        return;
    try {
        step.act();
    } catch (...) {
        m_Steps.clear(); // the desktop takes no input now
        throw;
    }
}

void Input::StartTimer() { SetTimer(m_Host, reinterpret_cast<UINT_PTR>(this), kTimerPeriod, OnTimer); }

void CALLBACK Input::OnTimer(HWND, UINT, UINT_PTR id, DWORD) {
    try {
        reinterpret_cast<Input*>(id)->Tick();
    } catch (const Failure&) {
        // What cannot be sent is not sent; a window procedure lets nothing out.
    }
}

// One act a tick, and a timer's message comes after all others: so each act is worked off before the next one.
void Input::Tick() {
    const ULONGLONG now = GetTickCount64();
    if (!m_Steps.empty() && now - m_LastStepTime >= kHeld) {
        TakeStep();
    } else if (!m_Delayed.empty() && m_Delayed.front().due <= now) {
        Delayed delayed = std::move(m_Delayed.front());
        m_Delayed.pop_front();
        if (!delayed.act())
            m_Delayed.push_front(std::move(delayed));
    }
    if (m_Steps.empty() && m_Delayed.empty())
        KillTimer(m_Host, reinterpret_cast<UINT_PTR>(this));
}

POINT Input::ToScreen(POINT point) const {
    const HWND control = m_Site.ControlWindow();
    if (!control || !ClientToScreen(control, &point))
        throw Failure{L"The grid has no window"};
    return point;
}

Input::Step Input::Aim(POINT screen) {
    const RECT whole = {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    if (!PtInRect(&whole, screen))
        throw Failure{L"The point is not on the screen"};
    return {[screen] { SendMouseTo(screen); }};
}

Input::Step Input::Press(POINT screen, int button, int shift) {
    if (button != kLeft && button != kRight && button != kMiddle)
        throw Failure{L"The button is not 1 (left), 2 (right) or 4 (middle)"};
    if (shift < 0 || shift > 7)
        throw Failure{L"The keys held are not a sum of 1 (Shift), 2 (Ctrl) and 4 (Alt)"};
    return {[=, this] {
        m_LastButton = button;
        m_LastClick = screen;
        m_LastClickTime = GetTickCount();
        SendModifiers(shift, true);
        PressButton(button, m_LastClickTime);
    }};
}

// However long the first click takes, the second one belongs to it.
Input::Step Input::PressAgain(int button, int shift) {
    return {[=, this] {
        SendModifiers(shift, true);
        PressButton(button, m_LastClickTime);
    }};
}

// No button stays pressed behind a script that has ended.
Input::Step Input::LetGo(int button, int shift) {
    return {[=] {
                ReleaseButton(button);
                SendModifiers(shift, false);
            },
            true};
}

Input::Step Input::Type(const KeyStroke& stroke) {
    return {[stroke] { SendStroke(stroke); }};
}

// Waits until a press at this place cannot be taken for the second half of a double click.
void Input::AvoidDoubleClick(int button, POINT screen) const {
    const DWORD since = GetTickCount() - m_LastClickTime;
    const bool samePlace = std::abs(screen.x - m_LastClick.x) <= GetSystemMetrics(SM_CXDOUBLECLK) &&
                           std::abs(screen.y - m_LastClick.y) <= GetSystemMetrics(SM_CYDOUBLECLK);
    if (button == m_LastButton && samePlace && since <= GetDoubleClickTime())
        m_Pump.For(GetDoubleClickTime() - since + 1);
}

// Input goes to the foreground: one of our windows, be it the host's, a drop-down or a message box.
void Input::BringForward() const {
    DWORD process = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &process);
    if (process != GetCurrentProcessId())
        SetForegroundWindow(m_Host);
}

} // namespace ormisk
