#include "Options.h"

#include <cwctype>
#include <stdexcept>

namespace ormisk {
namespace {

constexpr int kLargestSide = 10000;

// A side of the grid from decimal digits, 0 when the text is not a usable one.
int SideFrom(const std::wstring& digits) {
    if (digits.empty() || digits.size() > 5)
        return 0;
    int side = 0;
    for (wchar_t digit : digits) {
        if (digit < L'0' || digit > L'9')
            return 0;
        side = side * 10 + (digit - L'0');
    }
    return side <= kLargestSide ? side : 0;
}

void ReadSize(const std::wstring& text, Options& options) {
    const std::size_t cross = text.find_first_of(L"xX");
    if (cross != std::wstring::npos) {
        options.width = SideFrom(text.substr(0, cross));
        options.height = SideFrom(text.substr(cross + 1));
    }
    if (cross == std::wstring::npos || options.width == 0 || options.height == 0)
        throw std::invalid_argument("The size is not two numbers from 1 to 10000 with an x between them.");
}

ScriptLanguage LanguageOf(const std::wstring& path) {
    const std::size_t dot = path.find_last_of(L"./\\");
    std::wstring extension;
    if (dot != std::wstring::npos && path[dot] == L'.')
        for (wchar_t c : path.substr(dot))
            extension += static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(c)));
    if (extension == L".vbs")
        return ScriptLanguage::VBScript;
    if (extension == L".js")
        return ScriptLanguage::JScript;
    throw std::invalid_argument("The script is neither a .vbs nor a .js file.");
}

} // namespace

const char kUsage[] = "usage: ormisk-host SCRIPT [--screenshot FILE.png] [--size WxH] [--] [ARGUMENT...]";

Options ParseOptions(const std::vector<std::wstring>& arguments) {
    Options options;
    std::vector<std::wstring> words;
    for (auto next = arguments.begin(); next != arguments.end(); ++next) {
        if (*next == L"--") {
            words.insert(words.end(), next + 1, arguments.end());
            break;
        }
        if (!next->starts_with(L"--")) {
            words.push_back(*next);
            continue;
        }
        const bool takesScreenshot = *next == L"--screenshot";
        if (!takesScreenshot && *next != L"--size")
            throw std::invalid_argument("There is an unknown option.");
        if (++next == arguments.end() || next->empty())
            throw std::invalid_argument("An option lacks its value.");
        if (takesScreenshot)
            options.screenshot = *next;
        else
            ReadSize(*next, options);
    }
    if (words.empty())
        throw std::invalid_argument("There is no script.");
    options.script = words.front();
    options.language = LanguageOf(options.script);
    options.scriptArguments.assign(words.begin() + 1, words.end());
    return options;
}

} // namespace ormisk
