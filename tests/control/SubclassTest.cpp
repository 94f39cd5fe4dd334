// Subclassed windows and thread hooks.

#include "automation/Error.h"
#include "automation/Unknown.h"
#include "platform/SubclassWnd.h"
#include "platform/WndHooks.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

namespace ormisk::test {

namespace {

// The window's own procedure, counted and with a telling result.
int s_OwnCalls = 0;
constexpr LRESULT kOwnResult = 77;

LRESULT CALLBACK OwnProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message < WM_USER)
        return DefWindowProcW(window, message, wParam, lParam);
    ++s_OwnCalls;
    return kOwnResult;
}

HWND MakeWindow() {
    WNDCLASSW own{};
    own.lpfnWndProc = OwnProc;
    own.lpszClassName = L"SubclassTestWindow";
    RegisterClassW(&own);
    s_OwnCalls = 0;
    return CreateWindowExW(0, own.lpszClassName, L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
}

class MessageListener final : public Unknown<_cSubclassListener> {
public:
    LRESULT WindowMsgListener(HWND window, UINT message, WPARAM wParam, LPARAM, bool& route) override {
        ++Calls;
        return Answer ? Answer(window, message, wParam, route) : 0;
    }
    int Calls = 0;
    std::function<LRESULT(HWND, UINT, WPARAM, bool&)> Answer;
};

class EventListener final : public Unknown<_IHookListener> {
public:
    LRESULT NotifyHookedEvent(int type, int, WPARAM, LPARAM lParam, bool& noNext) override {
        if (type == WH_GETMESSAGE && reinterpret_cast<const MSG*>(lParam)->message != WM_APP)
            return 0;
        ++Calls;
        if (Answer)
            Answer(noNext);
        return 0;
    }
    int Calls = 0;
    std::function<void(bool&)> Answer;
};

struct SubclassTest : testing::Test {
    SubclassTest() : Window(MakeWindow()), Own(Procedure()) {}
    ~SubclassTest() override {
        UnSubclassWindow(Window);
        DestroyWindow(Window);
        Listener = nullptr;
        EXPECT_EQ(LiveObjects(), Objects) << "every listener was let go";
    }
    void Hear(MessageListener* listener) const {
        SubclassWindow(Window, listener);
        AddMessageHook(Window, WM_USER);
    }
    LONG_PTR Procedure() const { return GetWindowLongPtrW(Window, GWLP_WNDPROC); }

    long Objects = LiveObjects();
    HWND Window;
    LONG_PTR Own;
    ComPtr<MessageListener> Listener = Adopt(new MessageListener);
};

} // namespace

TEST_F(SubclassTest, SubclassingTwiceKeepsOneEntryAndTheTruePreviousProcedure) {
    SubclassWindow(nullptr, Listener.Get());
    SubclassWindow(Window, nullptr);
    EXPECT_EQ(Procedure(), Own);
    const auto second = Adopt(new MessageListener);
    Hear(Listener.Get());
    Hear(second.Get());
    EXPECT_EQ(SendMessageW(Window, WM_USER, 0, 0), kOwnResult);
    EXPECT_EQ(s_OwnCalls, 1);
    EXPECT_EQ(Listener->Calls, 0);
    RemoveMessageHook(Window, WM_USER);
    SendMessageW(Window, WM_USER, 0, 0);
    EXPECT_EQ(second->Calls, 1) << "hooking a message twice needs one unhooking";
    UnSubclassWindow(Window);
    UnSubclassWindow(Window);
    EXPECT_EQ(Procedure(), Own);
    const HWND gone = MakeWindow();
    DestroyWindow(gone);
    EXPECT_THROW(SubclassWindow(gone, Listener.Get()), AutomationError);
}

TEST_F(SubclassTest, ListenersResultCountsOnlyWhenItSwallowsTheMessageAndItsFailureNever) {
    Hear(Listener.Get());
    Listener->Answer = [](HWND, UINT, WPARAM swallow, bool& route) -> LRESULT {
        EXPECT_TRUE(route);
        route = swallow == 0;
        return 5;
    };
    EXPECT_EQ(SendMessageW(Window, WM_USER, 0, 0), kOwnResult);
    EXPECT_EQ(s_OwnCalls, 1);
    EXPECT_EQ(SendMessageW(Window, WM_USER, 1, 0), 5);
    EXPECT_EQ(s_OwnCalls, 1);
    Listener->Answer = [](HWND, UINT, WPARAM swallow, bool& route) -> LRESULT {
        route = swallow == 0;
        throw std::runtime_error("listener");
    };
    EXPECT_EQ(SendMessageW(Window, WM_USER, 0, 0), kOwnResult);
    EXPECT_EQ(SendMessageW(Window, WM_USER, 1, 0), 0);
    EXPECT_EQ(s_OwnCalls, 2);
}

TEST_F(SubclassTest, ListenerMayUnhookDestroyAndReleaseItselfInItsCall) {
    Hear(Listener.Get());
    auto* leaving = new MessageListener;
    Hear(leaving);
    bool alive = false;
    leaving->Answer = [&](HWND window, UINT, WPARAM, bool&) -> LRESULT {
        UnSubclassWindow(window);
        leaving->Release();
        alive = LiveObjects() == Objects + 2;
        return 0;
    };
    EXPECT_EQ(SendMessageW(Window, WM_USER, 0, 0), kOwnResult) << "the message still goes on";
    EXPECT_TRUE(alive) << "held until its call ends";
    EXPECT_EQ(LiveObjects(), Objects + 1);

    Hear(Listener.Get());
    Listener->Answer = [](HWND window, UINT, WPARAM, bool&) -> LRESULT { return DestroyWindow(window), 0; };
    SendMessageW(Window, WM_USER, 0, 0);
    EXPECT_FALSE(IsWindow(Window));
    EXPECT_FALSE(IsWindowSubclassed(Window));
}

TEST_F(SubclassTest, WindowsKeepTheirKindOfCharacters) {
    for (const bool wide : {true, false}) {
        const HWND edit =
            wide ? CreateWindowExW(0, L"EDIT", L"", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr)
                 : CreateWindowExA(0, "EDIT", "", WS_POPUP, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
        EXPECT_EQ(IsWindowUnicode(edit), wide);
        SubclassWindow(edit, Listener.Get());
        AddMessageHook(edit, WM_SETTEXT);
        EXPECT_EQ(IsWindowUnicode(edit), wide);
        SetWindowTextW(edit, L"\u0416\u65E5");
        wchar_t text[8] = L"";
        GetWindowTextW(edit, text, 8);
        if (wide)
            EXPECT_STREQ(text, L"\u0416\u65E5");
        DestroyWindow(edit);
    }
    EXPECT_EQ(Listener->Calls, 2);
}

namespace {

struct HookTest : testing::Test {
    ~HookTest() override {
        RemoveWindowsHook(WH_GETMESSAGE, First.Get());
        RemoveWindowsHook(WH_GETMESSAGE, Second.Get());
        First = Second = nullptr;
        EXPECT_EQ(LiveObjects(), Objects);
    }
    static void Event() {
        PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        }
    }

    long Objects = LiveObjects();
    ComPtr<EventListener> First = Adopt(new EventListener);
    ComPtr<EventListener> Second = Adopt(new EventListener);
};

} // namespace

TEST_F(HookTest, EachListenerHearsAnEventOnceUntilTheLastIsGone) {
    AddWindowsHook(WH_GETMESSAGE, First.Get());
    AddWindowsHook(WH_GETMESSAGE, First.Get());
    AddWindowsHook(WH_GETMESSAGE, Second.Get());
    Event();
    EXPECT_EQ(First->Calls, 1);
    EXPECT_EQ(Second->Calls, 1);
    RemoveWindowsHook(WH_GETMESSAGE, First.Get());
    RemoveWindowsHook(WH_GETMESSAGE, First.Get());
    Event();
    EXPECT_EQ(First->Calls, 1);
    EXPECT_EQ(Second->Calls, 2);
    RemoveWindowsHook(WH_GETMESSAGE, Second.Get());
    Event();
    EXPECT_EQ(Second->Calls, 2);
    AddWindowsHook(WH_GETMESSAGE, Second.Get());
    Event();
    EXPECT_EQ(Second->Calls, 3) << "the hook can be set again";
}

TEST_F(HookTest, ListenerCanEndTheWalkAndFailuresDoNot) {
    AddWindowsHook(WH_GETMESSAGE, First.Get());
    AddWindowsHook(WH_GETMESSAGE, Second.Get());
    First->Answer = [](bool&) { throw std::runtime_error("listener"); };
    Event();
    EXPECT_EQ(Second->Calls, 1);
    First->Answer = [](bool& noNext) { noNext = true; };
    Event();
    EXPECT_EQ(First->Calls, 2);
    EXPECT_EQ(Second->Calls, 1);
}

TEST_F(HookTest, ListenersMayLeaveAndJoinDuringTheWalk) {
    AddWindowsHook(WH_GETMESSAGE, First.Get());
    First->Answer = [this](bool&) {
        RemoveWindowsHook(WH_GETMESSAGE, First.Get());
        AddWindowsHook(WH_GETMESSAGE, Second.Get());
    };
    Event();
    EXPECT_EQ(First->Calls, 1);
    const int heard = Second->Calls;
    Event();
    EXPECT_EQ(First->Calls, 1);
    EXPECT_EQ(Second->Calls, heard + 1);
}

} // namespace ormisk::test
