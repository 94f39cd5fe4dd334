#pragma once

#include "platform/Color.h"
#include "platform/FontDescription.h"
#include "win/Gdi.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace ormisk {

// A brush of 16 by 8 single-bit pixels, in four words.
using BrushPattern = std::span<const std::uint32_t>;

// Null for what the system refuses; raises for what it could not be asked.
HBRUSH MakeObject(Color color);
HPEN MakeObject(Color color, int style, int width);
HFONT MakeObject(const FontDescription& font);
HBRUSH MakeObject(BrushPattern pattern);

// A drawing object of the cache: one handle, and what it was made of. `init` makes the first one and tells whether
// there is one; `UpdateInfo` replaces it unless the attributes are the same, without a word about failure.
template <class Handle, class... Attributes> class DrawingObject {
public:
    Handle Get() const { return m_Handle.get(); }
    template <class... Given> bool isSame(const Given&... given) const { return m_Attributes == std::tie(given...); }
    template <class... Given> bool init(const Given&... given) {
        UpdateInfo(given...);
        return m_Handle != nullptr;
    }
    template <class... Given> void UpdateInfo(const Given&... given) {
        if (isSame(given...))
            return;
        m_Handle.reset();
        m_Attributes.emplace(given...);
        m_Handle.reset(MakeObject(given...));
    }

private:
    Unique<Handle> m_Handle;
    std::optional<std::tuple<Attributes...>> m_Attributes;
};

class CBrush : public DrawingObject<HBRUSH, Color> {
public:
    HBRUSH hBrush() const { return Get(); }
};

class CPen : public DrawingObject<HPEN, Color, int, int> {
public:
    HPEN hPen() const { return Get(); }
};

class CFont : public DrawingObject<HFONT, FontDescription> {
public:
    HFONT hFont() const { return Get(); }
};

// The words of a pattern, kept.
struct PatternWords {
    explicit PatternWords(BrushPattern pattern) : Words(pattern.begin(), pattern.end()) {}
    bool operator==(BrushPattern pattern) const { return std::ranges::equal(Words, pattern); }

    std::vector<std::uint32_t> Words;
};

class CPatternBrush : public DrawingObject<HBRUSH, PatternWords> {
public:
    HBRUSH hBrush() const { return Get(); }
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
