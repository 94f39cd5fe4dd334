#pragma once

#include "ControlSite.h"
#include "KeySequence.h"
#include "MessagePump.h"
#include "Run.h"

#include <windows.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace ormisk {

// The user's hands: real mouse and keyboard input. Points are pixels of the control's client area. Each call returns
// when what it sent has been worked off, Later at once. A modal loop that the input opens, be it of a scroll bar or of
// a message box, gets the rest of what the call has to send. A point off the screen or a wrong argument is a Failure.
class Input {
public:
    // Buttons as an event of a control names them, and the keys held: those of KeyStroke.
    static constexpr int kLeft = 1;
    static constexpr int kRight = 2;
    static constexpr int kMiddle = 4;

    Input(HWND host, const ControlSite& site, MessagePump& pump, const Run& run);
    ~Input();
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;

    POINT ToScreen(POINT point) const;
    void MoveTo(POINT point);

    // One click, never the second half of a double click begun by an earlier one.
    void Click(POINT point, int button, int shift);
    void DoubleClick(POINT point, int button, int shift);
    void Drag(POINT from, POINT to, int button, int shift);

    // Turns the wheel where the mouse is, or over the middle of the control when it is elsewhere; forward is positive.
    void Wheel(double notches);

    // Types, stroke by stroke.
    void Keys(const std::wstring& text);

    // Types after some time, from a timer: also while a modal loop of the control or of the script runs.
    void Later(const std::wstring& text, DWORD milliseconds);

    // Does something else than typing after some time, again and again until it tells that it is done. What is due
    // later waits for that.
    void Later(std::function<bool()> act, DWORD milliseconds);

private:
    // One act of input, such as a button's press or a stroke; the next one follows when it has been worked off.
    struct Step {
        std::function<void()> act;
        bool alsoWhenEnding = false;
    };

    struct Delayed {
        ULONGLONG due = 0;
        std::function<bool()> act;
    };

    void Perform(std::vector<Step> steps);
    void TakeStep();
    void StartTimer();
    void AddDelayed(std::vector<Delayed> added);
    static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR id, DWORD time);
    void Tick();

    static Step Aim(POINT screen);
    Step Press(POINT screen, int button, int shift);
    Step PressAgain(int button, int shift);
    static Step LetGo(int button, int shift);
    static Step Type(const KeyStroke& stroke);
    void AvoidDoubleClick(int button, POINT screen) const;
    void BringForward() const;

    HWND m_Host;
    const ControlSite& m_Site;
    MessagePump& m_Pump;
    const Run& m_Run;
    std::deque<Step> m_Steps;
    ULONGLONG m_LastStepTime = 0;
    std::deque<Delayed> m_Delayed;
    POINT m_LastClick = {};
    int m_LastButton = 0;
    DWORD m_LastClickTime = 0;
};

} // namespace ormisk
