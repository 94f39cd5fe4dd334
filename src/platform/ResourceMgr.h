#pragma once

#include "platform/Color.h"
#include "platform/FontDescription.h"
#include "win/Gdi.h"

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace ormisk {

// The drawing objects of the cache. Each owns one handle. `init` makes the first one and tells whether there is one;
// `UpdateInfo` replaces it unless the attributes are the same, without a word about failure.

class CBrush {
public:
    HBRUSH hBrush() const { return m_Handle.get(); }
    bool isSame(Color color) const { return color == m_Color; }
    bool init(Color color);
    void UpdateInfo(Color color);

private:
    Unique<HBRUSH> m_Handle;
    Color m_Color = static_cast<Color>(-1);
};

class CPen {
public:
    bool isSame(Color color, int style, int width) const {
        return color == m_Color && style == m_Style && width == m_Width;
    }
    bool init(Color color, int style, int width);
    void UpdateInfo(Color color, int style, int width);
    HPEN hPen() const { return m_Handle.get(); }

private:
    Unique<HPEN> m_Handle;
    Color m_Color = 0;
    int m_Style = 0;
    int m_Width = 0;
};

class CFont {
public:
    HFONT hFont() const { return m_Handle.get(); }
    bool isSame(const FontDescription& font) const { return m_Description == font; }
    bool init(const FontDescription& font);
    void UpdateInfo(const FontDescription& font);

private:
    void MakeFont(const FontDescription& font);

    Unique<HFONT> m_Handle;
    std::optional<FontDescription> m_Description;
};

// A brush of 16 by 8 single-bit pixels, in four words.
using BrushPattern = std::span<const std::uint32_t>;

class CPatternBrush {
public:
    HBRUSH hBrush() const { return m_Handle.get(); }
    bool isSame(BrushPattern pattern) const;
    bool init(BrushPattern pattern);
    void UpdateInfo(BrushPattern pattern);

private:
    Unique<HBRUSH> m_Handle;
    std::vector<std::uint32_t> m_Pattern;
};

// The pens, brushes, fonts and pattern brushes of one control, each kind by the key of its role ("LineColor").
// A key holds one live object: asking with other attributes replaces it, so a handle is good until then. Callers never
// delete a handle. Colours are RGB values. A failure gives no handle and raises nothing. Removing an absent key is
// fine.
class CResourceMgr {
public:
    HPEN GetPen(Color color, std::wstring_view key, int style = PS_SOLID, int width = 0) noexcept;
    void RemovePen(std::wstring_view key) noexcept;
    HBRUSH GetBrush(Color color, std::wstring_view key) noexcept;
    void RemoveBrush(std::wstring_view key) noexcept;
    HFONT GetFont(const FontDescription& font, std::wstring_view key) noexcept;
    void RemoveFont(std::wstring_view key) noexcept;
    HBRUSH GetPatternBrush(BrushPattern pattern, std::wstring_view key) noexcept;
    void RemovePatternBrush(std::wstring_view key) noexcept;

private:
    template <class Object> using Cache = std::map<std::wstring, Object, std::less<>>;

    Cache<CPen> m_Pens;
    Cache<CBrush> m_Brushes;
    Cache<CFont> m_Fonts;
    Cache<CPatternBrush> m_PatternBrushes;
};

} // namespace ormisk
