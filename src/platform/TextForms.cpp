#include "platform/TextForms.h"

#include "platform/Rounding.h"

namespace ormisk {

std::size_t RealCharacterCount(std::size_t expandedLength) {
    return RoundTo<std::int64_t>(static_cast<double>(expandedLength) / 2.0);
}

std::string BytesOfText(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size() * 2);
    for (wchar_t c : text) {
        bytes += static_cast<char>(c & 0xFF);
        bytes += static_cast<char>(c >> 8 & 0xFF);
    }
    return bytes;
}

void TextOfBytes(std::string_view bytes, wchar_t* out) {
    const auto byteAt = [bytes](std::size_t i) { return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0u; };
    const std::size_t count = RealCharacterCount(bytes.size());
    for (std::size_t i = 0; i < count; ++i)
        out[i] = static_cast<wchar_t>(byteAt(2 * i) | byteAt(2 * i + 1) << 8);
}

Point WideTextOrigin(const Rect& bounds, Size text, unsigned format) {
    constexpr unsigned kCenter = 0x1;
    constexpr unsigned kRightOrRightToLeft = 0x20002;
    Point origin{bounds.left, RoundToLong((bounds.Height() - text.cy) / 2.0 + bounds.top)};
    if (format & kCenter)
        origin.x = RoundToLong((bounds.Width() - text.cx) / 2.0 + bounds.left);
    else if (format & kRightOrRightToLeft)
        origin.x = bounds.right - text.cx;
    return origin;
}

} // namespace ormisk
