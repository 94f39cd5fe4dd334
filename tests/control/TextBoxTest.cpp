#include "HandleCount.h"

#include "platform/TextBox.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cwchar>
#include <functional>
#include <stdexcept>
#include <utility>

namespace ormisk {
namespace {

// A box in a window, whose handlers do what a test needs of them.
class TextBoxTest : public testing::Test, public ChildWindowListener {
protected:
    void OnKeyDown(int& keyCode, int) override {
        heard += L"down " + std::to_wstring(keyCode) + L"; ";
        onKeyDown(keyCode);
    }
    void OnKeyPress(int& keyAscii) override { onKeyPress(keyAscii); }
    void OnKeyUp(int& keyCode, int) override { heard += L"up " + std::to_wstring(keyCode) + L"; "; }
    void OnGotFocus() override {}

    static LRESULT CALLBACK ParentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* test = reinterpret_cast<TextBoxTest*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message == WM_MOUSEWHEEL)
            ++test->wheels;
        if (message == WM_CTLCOLOREDIT && test->box && reinterpret_cast<HWND>(lParam) == test->box->hWnd())
            return reinterpret_cast<LRESULT>(test->box->OnCtlColor(reinterpret_cast<HDC>(wParam)));
        return DefWindowProcW(window, message, wParam, lParam);
    }

    void SetUp() override {
        WNDCLASSW parentClass{};
        parentClass.lpfnWndProc = ParentProc;
        parentClass.lpszClassName = L"TextBoxTestParent";
        RegisterClassW(&parentClass);
        // The system keeps what the first edit window of a process made, and its first painting.
        OpenBox();
        PixelAt(0, 0);
        CloseBox();
        before = {};
        OpenBox();
    }
    void TearDown() override {
        CloseBox();
        before.ExpectNoMore();
    }

    void OpenBox() {
        parent = CreateWindowW(L"TextBoxTestParent", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 20, 20, 300, 200, nullptr,
                               nullptr, GetModuleHandleW(nullptr), nullptr);
        SetWindowLongPtrW(parent, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        box = std::make_unique<TextBox>();
        box->Create(parent, this);
        box->Move(0, 0, 100, 20);
        box->SetVisible(true);
        box->SetFocus();
    }
    void CloseBox() {
        box.reset();
        DestroyWindow(parent);
    }
    COLORREF PixelAt(int x, int y) const {
        RedrawWindow(box->hWnd(), nullptr, nullptr, RDW_UPDATENOW);
        return GetPixel(WindowDC(box->hWnd()).Get(), x, y);
    }
    void Type(const wchar_t* keys) {
        for (; *keys; ++keys)
            SendMessageW(box->hWnd(), WM_CHAR, *keys, 1);
    }

    std::function<void(int&)> onKeyDown = [](int&) {};
    std::function<void(int&)> onKeyPress = [](int&) {};
    std::wstring heard;
    HWND parent = nullptr;
    std::unique_ptr<TextBox> box;
    int wheels = 0;
    test::Inventory before;
};

TEST_F(TextBoxTest, AnotherFontMovesTheTextFromItsMargin) {
    box->SetLeftMargin(2);
    box->SetFont({.Name = L"Arial", .Size = 24});
    EXPECT_EQ(LOWORD(SendMessageW(box->hWnd(), EM_GETMARGINS, 0, 0)), 2);
}

} // namespace

TEST_F(TextBoxTest, TextsOfAnyLengthAndCharactersAreKeptUpToTheirFirstZero) {
    std::wstring text;
    while (text.size() < 1'000'000)
        text += L"a\x0416\xD83D\xDE00\x05D0 \x3042\xFFFD";
    box->SetText(text);
    EXPECT_EQ(box->Text(), text);
    box->SetText(std::wstring(L"abc\0def", 7));
    EXPECT_EQ(box->Text(), L"abc");
    box->SetText({});
    EXPECT_EQ(box->Text(), L"");
    box->SetMaxLength(3);
    box->SetText(L"longer");
    EXPECT_EQ(box->Text(), L"longer") << "a limit holds for what is typed";
    box->SetMaxLength(0);
    box->SetText(std::wstring(40'000, L'x'));
    Type(L"y");
    EXPECT_EQ(box->Text().size(), 40'001U);
}

// The most characters that the system's edit windows were given at once, of those made meanwhile.
class EditClassWatch {
public:
    EditClassWatch() { s_Original = Exchange(Watch); }
    EditClassWatch(const EditClassWatch&) = delete;
    EditClassWatch& operator=(const EditClassWatch&) = delete;
    ~EditClassWatch() { Exchange(s_Original); }
    static std::size_t Longest() { return std::exchange(s_Longest, 0); }

private:
    static WNDPROC Exchange(WNDPROC procedure) {
        const HWND any = CreateWindowW(L"EDIT", L"", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
        const ULONG_PTR before = SetClassLongPtrW(any, GCLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
        DestroyWindow(any);
        return reinterpret_cast<WNDPROC>(before);
    }
    static LRESULT CALLBACK Watch(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_SETTEXT)
            s_Longest = std::max(s_Longest, std::wcslen(reinterpret_cast<const wchar_t*>(lParam)));
        return CallWindowProcW(s_Original, window, message, wParam, lParam);
    }
    static inline WNDPROC s_Original = nullptr;
    static inline std::size_t s_Longest = 0;
};

TEST_F(TextBoxTest, OnlyTheBeginningOfAVeryLongTextIsDrawnUntilTheUserWorksOnIt) {
    CloseBox();
    const EditClassWatch watch;
    OpenBox();
    constexpr std::size_t kFew = 20'000;
    std::wstring text(300'000, L'x');
    text.back() = L'y';
    const auto whole = [&] {
        EXPECT_TRUE(box->Text() == text);
        EXPECT_EQ(static_cast<std::size_t>(GetWindowTextLengthW(box->hWnd())), text.size());
    };
    EXPECT_LT((box->SetText(text), watch.Longest()), kFew);
    whole();
    // What only looks, leaves or goes elsewhere does not ask for all of it.
    box->SelectAll();
    box->SetModified(true);
    for (const WPARAM key : {VK_CONTROL, VK_RETURN, VK_ESCAPE})
        SendMessageW(box->hWnd(), WM_KEYDOWN, key, 1);
    onKeyDown = onKeyPress = [](int& key) { key = 0; };
    SendMessageW(box->hWnd(), WM_KEYDOWN, VK_DELETE, 1);
    Type(L"z");
    onKeyDown = onKeyPress = [](int&) {};
    whole();
    EXPECT_EQ(watch.Longest(), 0U);
    // All that was selected stays selected, and what is typed goes into the whole.
    EXPECT_EQ(box->SelLength(), static_cast<long>(text.size()));
    EXPECT_TRUE(box->IsModified());
    SendMessageW(box->hWnd(), WM_KEYDOWN, VK_HOME, 1);
    Type(L"z");
    text.insert(0, L"z");
    whole();
    // Left, it shows its beginning again.
    watch.Longest();
    SetFocus(parent);
    EXPECT_LT(watch.Longest(), kFew);
    EXPECT_TRUE(box->IsModified());
    whole();
    box->SetFocus();
    Type(L"a");
    text.insert(0, L"a");
    whole();
    box->SelectAll();
    Type(L"b");
    EXPECT_EQ(box->Text(), L"b");
}

TEST_F(TextBoxTest, AHandlerSwallowsOrReplacesKeys) {
    onKeyPress = [](int& key) { key = key == L'a' ? 0 : key == L'b' ? L'\x0416' : key; };
    Type(L"abc");
    EXPECT_EQ(box->Text(), L"\x0416"
                           L"c");

    heard.clear();
    box->Select(0, 0);
    onKeyDown = [](int& key) { key = key == VK_RIGHT ? 0 : key; };
    SendMessageW(box->hWnd(), WM_KEYDOWN, VK_RIGHT, 1);
    EXPECT_EQ(box->SelStart(), 0);
    SendMessageW(box->hWnd(), WM_KEYDOWN, VK_END, 1);
    EXPECT_EQ(box->SelStart(), 2);
    SendMessageW(box->hWnd(), WM_SYSKEYDOWN, VK_DOWN, 0x20000001);
    SendMessageW(box->hWnd(), WM_KEYUP, VK_END, 1);
    EXPECT_EQ(heard, L"down 39; down 35; down 40; up 35; ");
    onKeyPress = [](int&) { throw std::runtime_error("handler"); };
    Type(L"a");
    EXPECT_EQ(box->Text().size(), 3U) << "a handler that fails stays in the window procedure, and the key goes on";
}

TEST_F(TextBoxTest, WithoutItsWindowNothingHappens) {
    DestroyWindow(parent);
    box->SetText(L"abc");
    box->SetModified(true);
    box->Move(1, 1, 1, 1);
    box->SetVisible(true);
    box->SetFocus();
    EXPECT_EQ(box->Text(), L"");
    EXPECT_FALSE(box->IsModified());
    EXPECT_FALSE(box->IsVisible());
    EXPECT_EQ(box->SelStart(), 0);
    EXPECT_EQ(box->SelLength(), 0);
    EXPECT_EQ(box->Parent(), nullptr);
}

TEST_F(TextBoxTest, IsPaintedInItsColours) {
    box->SetBackColor(RGB(10, 200, 30));
    box->SetForeColor(0x80000000U | COLOR_HIGHLIGHT);
    EXPECT_EQ(PixelAt(90, 10), RGB(10, 200, 30));

    const WindowDC dc(box->hWnd());
    const HBRUSH brush = box->OnCtlColor(dc.Get());
    LOGBRUSH made{};
    GetObjectW(brush, sizeof made, &made);
    EXPECT_EQ(made.lbColor, RGB(10, 200, 30));
    EXPECT_EQ(GetBkColor(dc.Get()), RGB(10, 200, 30));
    EXPECT_EQ(GetTextColor(dc.Get()), GetSysColor(COLOR_HIGHLIGHT));
}

TEST_F(TextBoxTest, LeavesTheWheelToItsParentAndAsksDialogsForEnterAndEsc) {
    SendMessageW(box->hWnd(), WM_MOUSEWHEEL, MAKEWPARAM(0, 120), 0);
    EXPECT_EQ(wheels, 1);
    EXPECT_TRUE(SendMessageW(box->hWnd(), WM_GETDLGCODE, VK_RETURN, 0) & DLGC_WANTMESSAGE);
    EXPECT_TRUE(SendMessageW(box->hWnd(), WM_GETDLGCODE, VK_ESCAPE, 0) & DLGC_WANTMESSAGE);
    EXPECT_FALSE(SendMessageW(box->hWnd(), WM_GETDLGCODE, VK_TAB, 0) & DLGC_WANTMESSAGE);
}

} // namespace ormisk
