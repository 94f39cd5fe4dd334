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
    const auto byteAt = [bytes](std::size_t i) {
        return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0u;
    };
    const std::size_t count = RealCharacterCount(bytes.size());
    for (std::size_t i = 0; i < count; ++i)
        out[i] = static_cast<wchar_t>(byteAt(2 * i) | byteAt(2 * i + 1) << 8);
}

TextPoint WideTextOrigin(const TextRect& bounds, long width, long height, unsigned format) {
    constexpr unsigned kCenter = 0x1;
    constexpr unsigned kRightOrRightToLeft = 0x20002;
    TextPoint origin;
    origin.Y = RoundToLong((bounds.Bottom - bounds.Top - height) / 2.0 + bounds.Top);
    if (format & kCenter)
        origin.X = RoundToLong((bounds.Right - bounds.Left - width) / 2.0 + bounds.Left);
    else if (format & kRightOrRightToLeft)
        origin.X = bounds.Right - width;
    else
        origin.X = bounds.Left;
    return origin;
}

} // namespace ormisk
