#include "win/WindowText.h"

namespace ormisk {

std::wstring WindowText(HWND window) {
    std::wstring text(static_cast<std::size_t>(window ? GetWindowTextLengthW(window) : 0), L'\0');
    if (!text.empty())
        text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1)));
    return text;
}

} // namespace ormisk
