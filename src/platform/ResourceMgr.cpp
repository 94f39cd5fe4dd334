#include "platform/ResourceMgr.h"

#include "platform/Rounding.h"
#include "win/Dpi.h"

#include <algorithm>
#include <stdexcept>

namespace ormisk {

namespace {

// The byte-character description of a font. Fractions of a point are lost here on purpose, and of the weight only
// bold or not is used. Raises for a name that does not fit.
LOGFONTA LogicalFont(const FontDescription& font) {
    LOGFONTA logical{};
    if (font.Name.size() > std::size(logical.lfFaceName))
        throw std::length_error("font name");
    char bytes[4 * LF_FACESIZE];
    const int written = WideCharToMultiByte(CP_ACP, 0, font.Name.data(), static_cast<int>(font.Name.size()), bytes,
                                            sizeof bytes, nullptr, nullptr);
    std::copy_n(bytes, std::min<std::size_t>(written, font.Name.size()), logical.lfFaceName);

    logical.lfHeight = -MulDiv(RoundToLong(font.Size), DpiOf(nullptr), 72);
    logical.lfItalic = font.Italic;
    logical.lfWeight = font.Bold ? FW_BOLD : FW_NORMAL;
    logical.lfUnderline = font.Underline;
    logical.lfStrikeOut = font.Strikethrough;
    logical.lfCharSet = static_cast<BYTE>(font.Charset);
    return logical;
}

Unique<HBRUSH> MakePatternBrush(BrushPattern pattern) {
    constexpr int kWidth = 16, kHeight = 8, kRowBytes = 2;
    if (pattern.size_bytes() < kHeight * kRowBytes)
        throw std::length_error("brush pattern");
    const Unique<HBITMAP> bitmap(CreateBitmap(kWidth, kHeight, 1, 1, pattern.data()));
    return Unique<HBRUSH>(bitmap ? CreatePatternBrush(bitmap.get()) : nullptr);
}

// The object of a key with the given attributes: a new key is entered only with a live object.
template <class Cache, class... Attributes>
typename Cache::mapped_type* Find(Cache& cache, std::wstring_view key, const Attributes&... attributes) noexcept {
    try {
        if (const auto found = cache.find(key); found != cache.end()) {
            found->second.UpdateInfo(attributes...);
            return &found->second;
        }
        typename Cache::mapped_type object;
        if (!object.init(attributes...))
            return nullptr;
        return &cache.emplace(key, std::move(object)).first->second;
    } catch (...) {
        return nullptr;
    }
}

template <class Cache> void Remove(Cache& cache, std::wstring_view key) noexcept {
    if (const auto found = cache.find(key); found != cache.end())
        cache.erase(found);
}

} // namespace

bool CBrush::init(Color color) {
    Unique<HBRUSH> made(CreateSolidBrush(color));
    if (!made)
        return false;
    m_Handle = std::move(made);
    m_Color = color;
    return true;
}

void CBrush::UpdateInfo(Color color) {
    if (isSame(color))
        return;
    m_Handle.reset();
    m_Handle = Unique<HBRUSH>(CreateSolidBrush(color));
    m_Color = color;
}

bool CPen::init(Color color, int style, int width) {
    Unique<HPEN> made(CreatePen(style, width, color));
    if (!made)
        return false;
    m_Handle = std::move(made);
    m_Color = color;
    m_Style = style;
    m_Width = width;
    return true;
}

void CPen::UpdateInfo(Color color, int style, int width) {
    if (isSame(color, style, width))
        return;
    m_Handle.reset();
    m_Handle = Unique<HPEN>(CreatePen(style, width, color));
    m_Color = color;
    m_Style = style;
    m_Width = width;
}

void CFont::MakeFont(const FontDescription& font) {
    m_Handle.reset();
    m_Description = font;
    const LOGFONTA logical = LogicalFont(font);
    m_Handle = Unique<HFONT>(CreateFontIndirectA(&logical));
}

bool CFont::init(const FontDescription& font) {
    MakeFont(font);
    return hFont() != nullptr;
}

void CFont::UpdateInfo(const FontDescription& font) {
    if (!isSame(font))
        MakeFont(font);
}

bool CPatternBrush::isSame(BrushPattern pattern) const { return std::ranges::equal(pattern, m_Pattern); }

bool CPatternBrush::init(BrushPattern pattern) {
    Unique<HBRUSH> made = MakePatternBrush(pattern);
    if (!made)
        return false;
    m_Handle = std::move(made);
    m_Pattern.assign(pattern.begin(), pattern.end());
    return true;
}

void CPatternBrush::UpdateInfo(BrushPattern pattern) {
    if (isSame(pattern))
        return;
    m_Handle.reset();
    m_Pattern.assign(pattern.begin(), pattern.end());
    m_Handle = MakePatternBrush(pattern);
}

HPEN CResourceMgr::GetPen(Color color, std::wstring_view key, int style, int width) noexcept {
    const CPen* pen = Find(m_Pens, key, color, style, width);
    return pen ? pen->hPen() : nullptr;
}

HBRUSH CResourceMgr::GetBrush(Color color, std::wstring_view key) noexcept {
    const CBrush* brush = Find(m_Brushes, key, color);
    return brush ? brush->hBrush() : nullptr;
}

HFONT CResourceMgr::GetFont(const FontDescription& font, std::wstring_view key) noexcept {
    const CFont* found = Find(m_Fonts, key, font);
    return found ? found->hFont() : nullptr;
}

HBRUSH CResourceMgr::GetPatternBrush(BrushPattern pattern, std::wstring_view key) noexcept {
    const CPatternBrush* brush = Find(m_PatternBrushes, key, pattern);
    return brush ? brush->hBrush() : nullptr;
}

void CResourceMgr::RemovePen(std::wstring_view key) noexcept { Remove(m_Pens, key); }
void CResourceMgr::RemoveBrush(std::wstring_view key) noexcept { Remove(m_Brushes, key); }
void CResourceMgr::RemoveFont(std::wstring_view key) noexcept { Remove(m_Fonts, key); }
void CResourceMgr::RemovePatternBrush(std::wstring_view key) noexcept { Remove(m_PatternBrushes, key); }

} // namespace ormisk
