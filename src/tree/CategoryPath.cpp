#include "tree/CategoryPath.h"

#include "model/KeyFold.h"
#include "model/NumberText.h"

namespace ormisk {

namespace {

std::size_t FindSeparator(std::wstring_view text, std::wstring_view separator) {
    if (!separator.empty()) {
        for (std::size_t at = 0; at + separator.size() <= text.size(); ++at)
            if (SameKey(text.substr(at, separator.size()), separator))
                return at;
    }
    return std::wstring_view::npos;
}

} // namespace

bool HasCategory(std::wstring_view category, std::wstring_view separator) {
    while (!separator.empty() && category.substr(0, separator.size()) == separator)
        category.remove_prefix(separator.size());
    return !category.empty();
}

bool NextCategorySegment(std::wstring_view& rest, std::wstring_view separator, std::wstring_view& segment) {
    while (!rest.empty()) {
        const std::size_t end = FindSeparator(rest, separator);
        segment = TrimBlanks(rest.substr(0, end));
        rest.remove_prefix(end == std::wstring_view::npos ? rest.size() : end + separator.size());
        if (!segment.empty())
            return true;
    }
    return false;
}

void AppendCategorySegment(std::wstring& key, std::wstring_view segment) {
    if (!key.empty())
        key.push_back(L'\0');
    key.append(segment);
}

} // namespace ormisk
