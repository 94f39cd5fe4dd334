#include "platform/TextOutput.h"

#include "platform/TextForms.h"

#include <algorithm>
#include <cstddef>
#include <memory>

namespace ormisk {

namespace {

constexpr std::size_t kLongest = kMostShown / 2; // what the system takes in one output call
constexpr std::size_t kCodePageBuffer = 255;

// A text in bytes of the system code page, with a terminating zero. What cells usually hold needs no memory.
class ByteText {
public:
    explicit ByteText(std::wstring_view text) {
        constexpr std::size_t kMostBytes = 3; // that a 16-bit character takes in any code page
        const std::size_t size = text.size() * kMostBytes;
        if (size >= std::size(m_Small))
            m_Large = std::make_unique_for_overwrite<char[]>(size + 1);
        if (!text.empty())
            m_Length = WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), Data(),
                                           static_cast<int>(size), nullptr, nullptr);
        Data()[m_Length] = '\0';
    }

    char* Data() { return m_Large ? m_Large.get() : m_Small; }
    int Length() const { return m_Length; }

private:
    char m_Small[512]{};
    std::unique_ptr<char[]> m_Large;
    int m_Length = 0;
};

// The part of a plain text that is shown.
std::wstring_view ShownPart(std::wstring_view text) {
    text = text.substr(0, kLongest);
    return text.substr(0, text.find(L'\0'));
}

// What a byte-expanded text stands for, as far as it can be shown. A zero character in it is a zero byte, not the end.
std::wstring ShownExpanded(std::wstring_view text) {
    const std::wstring shown = NarrowText(text.substr(0, kMostShown));
    return shown.substr(0, shown.find(L'\0'));
}

bool IsDoubleByte(UINT codePage) { return codePage == 932 || codePage == 936 || codePage == 949 || codePage == 950; }

bool WritesByHand() { return IsWin95() || IsWin98(); }

bool IsVersion(DWORD platform, bool (*test)(const OSVERSIONINFOA&)) {
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    return GetVersionExA(&version) && version.dwPlatformId == platform && test(version);
}

SIZE WideExtent(HDC dc, std::wstring_view text) {
    SIZE extent{};
    GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &extent);
    return extent;
}

int DrawWide(HDC dc, const std::wstring& text, RECT& rc, UINT format, WideTextSource source) {
    if (WritesByHand())
        return DrawWideTextByHand(dc, text, rc, format, source);
    return DrawTextW(dc, text.c_str(), -1, &rc, format);
}

// The text's bytes belong to a double-byte code page that is not the system's.
int DrawForeign(HDC dc, std::wstring_view text, RECT& rc, UINT format, UINT codePage) {
    ByteText bytes(ShownPart(text));
    std::wstring wide(static_cast<std::size_t>(bytes.Length()), L'\0');
    const int converted = MultiByteToWideChar(codePage, 0, bytes.Data(), bytes.Length(), wide.data(), bytes.Length());
    wide.resize(std::min<std::size_t>(static_cast<std::size_t>(converted), kCodePageBuffer));
    return DrawWide(dc, wide, rc, format, WideTextSource::CodePage);
}

} // namespace

int DrawTextMultiLang(HDC hDC, std::wstring_view sText, RECT& rc, UINT nFormat, bool bUnicode, int nCharset,
                      bool bRTL) {
    const UINT format = bRTL ? nFormat | DT_RTLREADING : nFormat;
    if (bUnicode)
        return DrawWide(hDC, ShownExpanded(sText), rc, format, WideTextSource::Expanded);
    const UINT codePage = CodePageFromCharset(nCharset);
    if (IsDoubleByte(codePage) && codePage != GetACP())
        return DrawForeign(hDC, sText, rc, format, codePage);
    ByteText bytes(ShownPart(sText));
    return DrawTextA(hDC, bytes.Data(), -1, &rc, format);
}

SIZE MeasureText(HDC hDC, std::wstring_view sText, bool bUnicode) {
    if (bUnicode)
        return WideExtent(hDC, ShownExpanded(sText));
    SIZE extent{};
    ByteText bytes(ShownPart(sText));
    GetTextExtentPoint32A(hDC, bytes.Data(), bytes.Length(), &extent);
    return extent;
}

UINT CodePageFromCharset(int nCharset) {
    CHARSETINFO info{};
    const auto source = reinterpret_cast<DWORD*>(static_cast<DWORD_PTR>(static_cast<WORD>(nCharset)));
    return TranslateCharsetInfo(source, &info, TCI_SRCCHARSET) ? info.ciACP : 0;
}

bool IsWin95() {
    return IsVersion(VER_PLATFORM_WIN32_WINDOWS, [](const OSVERSIONINFOA& v) { return v.dwMinorVersion == 0; });
}

bool IsWin98() {
    return IsVersion(VER_PLATFORM_WIN32_WINDOWS, [](const OSVERSIONINFOA& v) { return v.dwMinorVersion != 0; });
}

bool IsNT4() {
    return IsVersion(VER_PLATFORM_WIN32_NT, [](const OSVERSIONINFOA& v) { return v.dwMajorVersion == 4; });
}

int DrawWideTextByHand(HDC hDC, std::wstring_view sText, const RECT& rc, UINT nFormat, WideTextSource source) {
    const bool codePage = source == WideTextSource::CodePage;
    const UINT alignment = codePage ? SetTextAlign(hDC, TA_LEFT | TA_TOP | TA_NOUPDATECP) : GDI_ERROR;
    const SIZE extent = WideExtent(hDC, sText);
    const Point origin = WideTextOrigin({rc.left, rc.top, rc.right, rc.bottom}, {extent.cx, extent.cy}, nFormat);
    const int result = TextOutW(hDC, origin.x, origin.y, sText.data(), static_cast<int>(sText.size()));
    if (alignment != GDI_ERROR)
        SetTextAlign(hDC, alignment);
    if (!codePage)
        LineTo(hDC, rc.right, rc.bottom);
    return result;
}

} // namespace ormisk
