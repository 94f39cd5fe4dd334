#pragma once

#include <cstddef>
#include <string_view>
#include <windows.h>

namespace ormisk {

// The one road of text to the screen. A zero character ends a text. A text is cut after 8192 characters: the most that
// the system writes at once, and more than a cell can show.

// No character of a text behind these is looked at, in either form.
inline constexpr std::size_t kMostShown = 2 * 8192;

// Draws with a DrawText format and gives back what the system's call returned. With `bUnicode` the text is
// byte-expanded. `bRTL` adds right-to-left reading order. DT_CALCRECT changes `rc` as it does for DrawText.
int DrawTextMultiLang(HDC hDC, std::wstring_view sText, RECT& rc, UINT nFormat, bool bUnicode, int nCharset = 0,
                      bool bRTL = false);

// The size of one line in the context's font, in logical units; nothing for a failing context.
SIZE MeasureText(HDC hDC, std::wstring_view sText, bool bUnicode);

// The code page of a font character set; 0 for an unknown one.
UINT CodePageFromCharset(int nCharset);

// Generations of the system; asked anew by every call.
bool IsWin95();
bool IsWin98();
bool IsNT4();

// How wide text is drawn where the system has no DrawText for it: aligned by hand, never shortened or clipped.
enum class WideTextSource { CodePage, Expanded };
int DrawWideTextByHand(HDC hDC, std::wstring_view sText, const RECT& rc, UINT nFormat, WideTextSource source);

} // namespace ormisk
