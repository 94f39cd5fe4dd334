#include "platform/TextOutput.h"

#include "platform/TextForms.h"

#include <algorithm>
#include <cstddef>
#include <memory>

namespace ormisk {

namespace {

constexpr std::size_t kLongest = kMostShown / 2; // what the system takes in one output call
constexpr std::size_t kCodePageBuffer = 255;

// Room for one text: on the stack for what cells usually hold.
template <class Character> class Scratch {
public:
    explicit Scratch(std::size_t size) {
        if (size > std::size(m_Small))
            m_Large = std::make_unique_for_overwrite<Character[]>(size);
    }
    Character* Data() { return m_Large ? m_Large.get() : m_Small; }

private:
    Character m_Small[512];
    std::unique_ptr<Character[]> m_Large;
};

// A text in bytes of the system code page, with a terminating zero, no longer than what can be shown.
class ByteText {
public:
    explicit ByteText(std::wstring_view text) : m_Bytes(text.size() * kMostBytes + 1) {
        if (!text.empty())
            m_Length = WideCharToMultiByte(CP_ACP, 0, text.data(), static_cast<int>(text.size()), m_Bytes.Data(),
                                           static_cast<int>(text.size() * kMostBytes), nullptr, nullptr);
        m_Bytes.Data()[m_Length] = '\0';
    }

    const char* Data() { return m_Bytes.Data(); }
    int Length() const { return m_Length; }

private:
    static constexpr std::size_t kMostBytes = 3; // that a 16-bit character takes in any code page

    Scratch<char> m_Bytes;
    int m_Length = 0;
};

// The UTF-16 text behind a byte-expanded one, with a terminating zero.
class ExpandedText {
public:
    explicit ExpandedText(std::wstring_view expanded) : ExpandedText(ByteText(expanded)) {}

    const wchar_t* Data() { return m_Characters.Data(); }
    int Length() const { return m_Length; }

private:
    explicit ExpandedText(ByteText&& bytes) : m_Characters(RealCharacterCount(bytes.Length()) + 1) {
        wchar_t* const text = m_Characters.Data();
        TextOfBytes({bytes.Data(), static_cast<std::size_t>(bytes.Length())}, text);
        text[RealCharacterCount(bytes.Length())] = L'\0';
        m_Length = lstrlenW(text);
    }

    Scratch<wchar_t> m_Characters;
    int m_Length = 0;
};

// The part of a plain text that is shown.
std::wstring_view ShownPart(std::wstring_view text) {
    text = text.substr(0, kLongest);
    return text.substr(0, text.find(L'\0'));
}

// The part of a byte-expanded text that can be shown. A zero character in it is a zero byte, not the end.
std::wstring_view ShownExpanded(std::wstring_view text) { return text.substr(0, kMostShown); }

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

// The text's bytes belong to a double-byte code page that is not the system's.
int DrawForeign(HDC dc, std::wstring_view text, RECT& rc, UINT format, UINT codePage) {
    ByteText bytes(ShownPart(text));
    Scratch<wchar_t> wide(bytes.Length() + 1);
    const int converted = bytes.Length() == 0 ? 0
                                              : MultiByteToWideChar(codePage, 0, bytes.Data(), bytes.Length(),
                                                                    wide.Data(), bytes.Length());
    const std::wstring_view shown(wide.Data(), std::min<std::size_t>(converted, kCodePageBuffer));
    if (WritesByHand())
        return DrawWideTextByHand(dc, shown, rc, format, WideTextSource::CodePage);
    return DrawTextW(dc, shown.data(), static_cast<int>(shown.size()), &rc, format);
}

int DrawExpanded(HDC dc, std::wstring_view text, RECT& rc, UINT format) {
    ExpandedText wide(ShownExpanded(text));
    if (WritesByHand())
        return DrawWideTextByHand(dc, {wide.Data(), static_cast<std::size_t>(wide.Length())}, rc, format,
                                  WideTextSource::Expanded);
    return DrawTextW(dc, wide.Data(), -1, &rc, format);
}

} // namespace

int DrawTextMultiLang(HDC hDC, std::wstring_view sText, RECT& rc, UINT nFormat, bool bUnicode, int nCharset,
                      bool bRTL) {
    const UINT format = bRTL ? nFormat | DT_RTLREADING : nFormat;
    if (bUnicode)
        return DrawExpanded(hDC, sText, rc, format);
    const UINT codePage = CodePageFromCharset(nCharset);
    if (IsDoubleByte(codePage) && codePage != GetACP())
        return DrawForeign(hDC, sText, rc, format, codePage);
    ByteText bytes(ShownPart(sText));
    return DrawTextA(hDC, bytes.Data(), -1, &rc, format);
}

SIZE MeasureText(HDC hDC, std::wstring_view sText, bool bUnicode) {
    SIZE extent{};
    if (bUnicode) {
        ExpandedText wide(ShownExpanded(sText));
        extent = WideExtent(hDC, {wide.Data(), static_cast<std::size_t>(wide.Length())});
    } else {
        ByteText bytes(ShownPart(sText));
        GetTextExtentPoint32A(hDC, bytes.Data(), bytes.Length(), &extent);
    }
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
