#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

// Dialogs of the system, as a user meets them: they run loops of their own until they are answered.
namespace ormisk::test {

inline std::wstring ClassOf(HWND window) {
    wchar_t name[32] = L"";
    GetClassNameW(window, name, 32);
    return name;
}

inline std::wstring TextOfWindow(HWND window) {
    wchar_t text[400] = L"";
    GetWindowTextW(window, text, 400);
    return text;
}

// The dialog on screen that can be answered; null when there is none.
inline HWND Dialog() {
    HWND found = nullptr;
    while ((found = FindWindowExW(nullptr, found, L"#32770", nullptr)) &&
           !(IsWindowVisible(found) && IsWindowEnabled(found))) {
    }
    return found;
}

inline BOOL CALLBACK CollectPart(HWND part, LPARAM parts) {
    reinterpret_cast<std::vector<HWND>*>(parts)->push_back(part);
    return TRUE;
}
inline std::vector<HWND> PartsOf(HWND window) {
    std::vector<HWND> parts;
    EnumChildWindows(window, CollectPart, reinterpret_cast<LPARAM>(&parts));
    return parts;
}

// The box for a file's name.
inline HWND NameBox(HWND dialog) {
    constexpr int kNames = 1148;
    for (const HWND part : PartsOf(dialog))
        if (GetDlgCtrlID(part) == kNames && ClassOf(part) == L"Edit")
            return part;
    return nullptr;
}

// Does something when a dialog opens, in its loop; every dialog that is open afterwards is answered.
class InDialog {
public:
    explicit InDialog(
        std::function<void()> deed = [] {}, WPARAM answer = IDCANCEL)
        : m_Deed(std::move(deed)), m_Answer(answer), m_Before(std::exchange(s_Now, this)),
          m_Timer(SetTimer(nullptr, 0, 10, OnTimer)) {}
    InDialog(const InDialog&) = delete;
    InDialog& operator=(const InDialog&) = delete;
    ~InDialog() {
        KillTimer(nullptr, m_Timer);
        s_Now = m_Before;
    }
    int Seen() const { return m_Seen; } // dialogs so far
    const std::wstring& Caption() const { return m_Caption; }

private:
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
        if (s_Now && Dialog() && Dialog() != s_Now->m_Last)
            s_Now->Meet();
    }
    void Meet() {
        m_Last = Dialog();
        ++m_Seen;
        m_Caption = TextOfWindow(m_Last);
        if (m_Deed)
            std::exchange(m_Deed, nullptr)();
        if (const HWND open = Dialog()) // which the deed may have closed
            PostMessageW(open, WM_COMMAND, m_Answer, 0);
    }

    static inline InDialog* s_Now = nullptr;
    std::function<void()> m_Deed;
    WPARAM m_Answer;
    InDialog* m_Before;
    UINT_PTR m_Timer;
    HWND m_Last = nullptr;
    int m_Seen = 0;
    std::wstring m_Caption;
};

// Chooses a file by its name in the dialog that opens next.
class ChoosesFile {
public:
    explicit ChoosesFile(std::wstring path)
        : m_Path(std::move(path)),
          m_In([this] { SendMessageW(NameBox(Dialog()), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(m_Path.c_str())); },
               IDOK) {}
    int Seen() const { return m_In.Seen(); }

private:
    std::wstring m_Path;
    InDialog m_In;
};

} // namespace ormisk::test
