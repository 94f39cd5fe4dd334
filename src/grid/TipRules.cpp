#include "grid/TipRules.h"

#include <algorithm>

namespace ormisk {

namespace {

constexpr long kAir = 4;

bool EndsWith(std::wstring_view text, std::wstring_view smallLetters) {
    const auto small = [](wchar_t letter) {
        return letter >= L'A' && letter <= L'Z' ? static_cast<wchar_t>(letter - L'A' + L'a') : letter;
    };
    return text.size() >= smallLetters.size() &&
           std::ranges::equal(text.substr(text.size() - smallLetters.size()), smallLetters, {}, small);
}

} // namespace

bool FitsInCell(long textWidth, long before, long cellWidth) { return textWidth + kAir + before < cellWidth; }

HelpViewer HelpViewerFor(std::wstring_view file) {
    if (EndsWith(file, L"chm"))
        return HelpViewer::Html;
    return EndsWith(file, L"hlp") ? HelpViewer::Classic : HelpViewer::None;
}

std::wstring HelpFileName(std::wstring_view file) {
    file = file.substr(0, file.find(L'\0'));
    const std::size_t first = file.find_first_not_of(L' ');
    if (first == std::wstring_view::npos)
        return {};
    return std::wstring(file.substr(first, file.find_last_not_of(L' ') + 1 - first));
}

} // namespace ormisk
