#include "platform/AccessKey.h"

namespace ormisk {

wchar_t PlainUpper(wchar_t letter) {
    return letter >= L'a' && letter <= L'z' ? static_cast<wchar_t>(letter - L'a' + L'A') : letter;
}

std::wstring GetAccessKey(std::wstring_view caption, long& position, UpperCaser upper) {
    bool marked = false; // an odd run of "&" stands before the candidate
    long candidate = -1;
    for (long i = static_cast<long>(caption.size()) - 1; i >= 0; --i)
        if (caption[i] == L'&')
            marked = !marked;
        else if (marked)
            break;
        else
            candidate = i;
    position = marked ? candidate : -1;
    return position < 0 ? std::wstring() : std::wstring(1, upper(caption[position]));
}

} // namespace ormisk
