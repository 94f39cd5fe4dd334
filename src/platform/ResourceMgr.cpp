#include "platform/ResourceMgr.h"

#include "platform/Rounding.h"
#include "win/Dpi.h"

#include <stdexcept>

namespace ormisk {

namespace {

// The handle of a key's object with the given attributes: a new key is entered only with a live object.
template <class Cache, class... Attributes>
auto Find(Cache& cache, std::wstring_view key, const Attributes&... attributes) noexcept {
    using Object = typename Cache::mapped_type;
    try {
        if (const auto found = cache.find(key); found != cache.end()) {
            found->second.UpdateInfo(attributes...);
            return found->second.Get();
        }
        Object object;
        return object.init(attributes...) ? cache.emplace(key, std::move(object)).first->second.Get() : nullptr;
    } catch (...) {
        return decltype(Object().Get()){};
    }
}

template <class Cache> void Remove(Cache& cache, std::wstring_view key) noexcept {
    if (const auto found = cache.find(key); found != cache.end())
        cache.erase(found);
}

} // namespace

HBRUSH MakeObject(Color color) { return CreateSolidBrush(color); }

HPEN MakeObject(Color color, int style, int width) { return CreatePen(style, width, color); }

// In byte characters. Fractions of a point are lost here on purpose, and of the weight only bold or not is used. Raises
// for a name that does not fit.
HFONT MakeObject(const FontDescription& font) {
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
    return CreateFontIndirectA(&logical);
}

HBRUSH MakeObject(BrushPattern pattern) {
    constexpr int kWidth = 16, kHeight = 8, kRowBytes = 2;
    if (pattern.size_bytes() < kHeight * kRowBytes)
        throw std::length_error("brush pattern");
    const Unique<HBITMAP> bitmap(CreateBitmap(kWidth, kHeight, 1, 1, pattern.data()));
    return bitmap ? CreatePatternBrush(bitmap.get()) : nullptr;
}

HPEN CResourceMgr::GetPen(Color color, std::wstring_view key, int style, int width) noexcept {
    return Find(m_Pens, key, color, style, width);
}

HBRUSH CResourceMgr::GetBrush(Color color, std::wstring_view key) noexcept { return Find(m_Brushes, key, color); }

HFONT CResourceMgr::GetFont(const FontDescription& font, std::wstring_view key) noexcept {
    return Find(m_Fonts, key, font);
}

HBRUSH CResourceMgr::GetPatternBrush(BrushPattern pattern, std::wstring_view key) noexcept {
    return Find(m_PatternBrushes, key, pattern);
}

void CResourceMgr::RemovePen(std::wstring_view key) noexcept { Remove(m_Pens, key); }
void CResourceMgr::RemoveBrush(std::wstring_view key) noexcept { Remove(m_Brushes, key); }
void CResourceMgr::RemoveFont(std::wstring_view key) noexcept { Remove(m_Fonts, key); }
void CResourceMgr::RemovePatternBrush(std::wstring_view key) noexcept { Remove(m_PatternBrushes, key); }

} // namespace ormisk
